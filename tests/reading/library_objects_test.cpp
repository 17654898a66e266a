// What our patches to LibreDWG's DWG reader promise, on single objects that no
// program would write.
#include <dwg.h>
#include <gtest/gtest.h>

#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <span>
#include <utility>
#include <vector>

#include "entities/drawing_access.hpp"

extern "C" {
#include <hash.h>
}

// Of the library, as its bits.h and decode.h have them, names included; it installs
// neither.
// NOLINTBEGIN(readability-identifier-naming)
struct Bit_Chain {
  unsigned char* chain;
  std::size_t size;
  std::size_t byte;
  unsigned char bit;
  unsigned char opts;
  Dwg_Version_Type version;
  Dwg_Version_Type from_version;
  std::FILE* fh;
  BITCODE_RS codepage;
};
extern "C" {
int dwg_decode_add_object(Dwg_Data* dwg, Bit_Chain* dat, Bit_Chain* hdl_dat, std::size_t address);
void bit_advance_position(Bit_Chain* dat, std::int64_t advance);
std::size_t bit_position(Bit_Chain* dat);
}
// NOLINTEND(readability-identifier-naming)

namespace {

// Writes the bit codes of a DWG.
class BitWriter {
 public:
  void Bits(unsigned value, unsigned count) {
    for (unsigned i = count; i-- > 0;) {
      if (used_ % 8 == 0) {
        bytes_.push_back(0);
      }
      bytes_.back() |= static_cast<unsigned char>((value >> i & 1U) << (7 - used_ % 8));
      ++used_;
    }
  }
  void Byte(unsigned value) { Bits(value, 8); }
  void Long(std::uint32_t value) {
    for (unsigned shift = 0; shift < 32; shift += 8) {
      Byte(value >> shift & 0xFFU);
    }
  }
  // A number of variable length that is 0, whether whole or not.
  void Zero() { Bits(2, 2); }
  void Zeros(unsigned count) {
    for (unsigned i = 0; i < count; ++i) {
      Zero();
    }
  }
  void WholeLong(std::uint32_t value) {
    Bits(0, 2);
    Long(value);
  }
  void One() { Bits(1, 2); }
  void HandleAndNoData() {
    Byte(0x01);
    Byte(0x20);
    Zero();
  }
  void FillUp(std::size_t size) {
    while (used_ < 8 * size) {
      Bits(0, 1);
    }
  }
  const std::vector<unsigned char>& bytes() const { return bytes_; }

 private:
  std::vector<unsigned char> bytes_;
  std::size_t used_ = 0;
};

// A drawing of one object, read from its bits, once or several times.
class OneObject {
 public:
  OneObject(Dwg_Version_Type version, std::vector<unsigned char> bytes, unsigned times = 1)
      : bytes_(std::move(bytes)) {
    dwg_.header.version = dwg_.header.from_version = version;
    dwg_.object_map = hash_new(16);
    class_.dxfname = dxfName_;
    class_.cppname = cppName_;
    class_.number = 500;
    class_.item_class_id = 0x1F2;
    dwg_.dwg_class = &class_;
    dwg_.num_classes = 1;
    Bit_Chain data{bytes_.data(), bytes_.size(), 0, 0, 0, version, version, nullptr, 30};
    Bit_Chain handles = data;
    for (unsigned i = 0; i < times; ++i) {
      result_ = dwg_decode_add_object(&dwg_, &data, &handles, 0);
    }
  }
  ~OneObject() {
    dwg_.dwg_class = nullptr;
    dwg_.num_classes = 0;
    dwg_free(&dwg_);
  }
  OneObject(const OneObject&) = delete;
  OneObject& operator=(const OneObject&) = delete;

  int result() const { return result_; }
  std::span<const Dwg_Object> objects() const { return Objects(dwg_); }

 private:
  char dxfName_[11] = "ACAD_TABLE";
  char cppName_[10] = "AcDbTable";
  std::vector<unsigned char> bytes_;
  Dwg_Class class_{};
  Dwg_Data dwg_{};
  int result_ = 0;
};

// The object with its size in front.
std::vector<unsigned char> WithSize(const BitWriter& object, std::size_t sizeFields) {
  const std::size_t size = object.bytes().size();
  std::vector<unsigned char> bytes{static_cast<unsigned char>(size & 0xFFU),
                                   static_cast<unsigned char>(size >> 8U)};
  bytes.resize(sizeFields, 0);
  bytes.insert(bytes.end(), object.bytes().begin(), object.bytes().end());
  bytes.resize(bytes.size() + 2);
  return bytes;
}

// An attribute of R2018 whose embedded text says how many reactors it has.
std::vector<unsigned char> AttributeWithReactors(std::uint32_t count) {
  BitWriter out;
  out.Bits(0, 2);
  out.Byte(DWG_TYPE_ATTRIB);
  out.HandleAndNoData();
  out.Bits(0, 1);  // no preview
  out.Bits(2, 2);  // model space
  out.Zero();      // reactors
  out.Bits(2, 2);  // no dictionary, no binary data
  out.Zero();      // colour
  out.One();       // linetype scale
  out.Bits(0, 6);  // linetype, material, plot style
  out.Byte(0);     // shadow
  out.Bits(0, 3);  // visual styles
  out.Zero();      // visible
  out.Byte(0x1D);  // lineweight
  out.Byte(0xFF);  // nothing but point and height
  out.Long(0);
  out.Long(0);
  out.Long(0);
  out.Long(0);
  out.Bits(3, 2);  // extrusion and thickness by default
  out.Long(0);
  out.Long(0);
  out.Byte(0);     // not locked
  out.Byte(2);     // of several lines
  out.Bits(2, 2);  // the embedded text's space
  out.WholeLong(count);
  out.FillUp(200);
  return WithSize(out, 3);
}

// A table of R2000 with cells that take more room than there is.
std::vector<unsigned char> TableOf(unsigned columns, unsigned rows) {
  constexpr std::size_t kSize = 200;
  BitWriter out;
  out.Bits(0, 2);  // the type's number is that of the first class
  out.Byte(500 & 0xFF);
  out.Byte(500 >> 8);
  out.Long(8 * kSize - 64);  // where handles begin
  out.HandleAndNoData();
  out.Bits(0, 1);  // no preview
  out.Bits(2, 2);  // model space
  out.Zero();      // reactors
  out.Bits(1, 1);  // no links
  out.Zero();      // colour
  out.One();       // linetype scale
  out.Bits(0, 4);  // linetype, plot style
  out.Zero();      // visible
  out.Byte(0x1D);  // lineweight
  out.Zeros(3);    // point
  out.Bits(3, 2);  // scale 1
  out.Zeros(4);    // rotation, extrusion
  out.Bits(0, 1);  // no attributes
  out.Zeros(4);    // flags, direction
  out.Bits(1, 2);
  out.Byte(columns);
  out.Bits(1, 2);
  out.Byte(rows);
  out.Zeros(columns + rows);
  out.FillUp(kSize);
  return WithSize(out, 2);
}

// A line of R2018 in a block, on a layer, in the colour of a colour book.
std::vector<unsigned char> LineInBookColor(unsigned owner, unsigned color, unsigned layer) {
  constexpr unsigned kHandleBytes = 6;
  BitWriter out;
  out.Bits(0, 2);
  out.Byte(DWG_TYPE_LINE);
  out.HandleAndNoData();
  out.Bits(0, 1);  // no preview
  out.Bits(0, 2);  // owned by a block
  out.Zero();      // reactors
  out.Bits(2, 2);  // no dictionary, no binary data
  out.Bits(0, 2);
  out.Byte(0);
  out.Byte(0x40);  // the colour is an object's
  out.One();       // linetype scale
  out.Bits(0, 6);  // linetype, material, plot style
  out.Byte(0);     // shadow
  out.Bits(0, 3);  // visual styles
  out.Zero();      // visible
  out.Byte(0x1D);  // lineweight
  out.FillUp(80);  // a line from nowhere to nowhere
  for (const unsigned handle : {owner, color, layer}) {
    out.Byte(0x51);
    out.Byte(handle);
  }
  auto bytes = WithSize(out, 3);
  bytes[2] = 8 * kHandleBytes;
  return bytes;
}

// Handles become dense while the table of them grows: they move to places of their own
// at that moment, and none may be lost.
TEST(LibraryHandles, AreFoundWhereverTheyBegin) {
  constexpr std::uint64_t kHandles = 700;
  for (std::uint64_t first = 2000; first < 12000; first += 137) {
    dwg_inthash* handles = hash_new(1);
    for (std::uint64_t i = 0; i < kHandles; ++i) {
      hash_set(handles, first + i, i);
    }
    for (std::uint64_t i = 0; i < kHandles; ++i) {
      ASSERT_EQ(hash_get(handles, first + i), i) << "from " << first;
    }
    hash_free(handles);
  }
}

}  // namespace

TEST(LibraryObjects, ColorBookHandleStandsBehindTheOwner) {
  const OneObject drawing(R_2018, LineInBookColor(0x30, 0x31, 0x32));
  ASSERT_EQ(drawing.objects().size(), 1U);
  ASSERT_NE(EntityData(drawing.objects()[0], &EntityTio::LINE), nullptr);
  const Dwg_Object_Entity& entity = *drawing.objects()[0].tio.entity;
  EXPECT_EQ(HandleOf(entity.ownerhandle), 0x30U);
  EXPECT_EQ(HandleOf(entity.color.handle), 0x31U);
  EXPECT_EQ(HandleOf(entity.layer), 0x32U);
}

TEST(LibraryObjects, ReactorsOfAnEmbeddedTextAreHeldAgainstTheObject) {
  const OneObject drawing(R_2018, AttributeWithReactors(0xFFFFFFFF));
  ASSERT_EQ(drawing.objects().size(), 1U);
  const auto* attribute = EntityData(drawing.objects()[0], &EntityTio::ATTRIB);
  ASSERT_NE(attribute, nullptr);
  EXPECT_EQ(attribute->mtext_type, 2);
  EXPECT_EQ(attribute->mtext.num_reactors, 0U);
  EXPECT_NE(drawing.result() & DWG_ERR_VALUEOUTOFBOUNDS, 0);
}

TEST(LibraryObjects, ReactorsOfAnEmbeddedTextThatAreThereAreRead) {
  const OneObject drawing(R_2018, AttributeWithReactors(3));
  ASSERT_EQ(drawing.objects().size(), 1U);
  const auto* attribute = EntityData(drawing.objects()[0], &EntityTio::ATTRIB);
  ASSERT_NE(attribute, nullptr);
  EXPECT_EQ(attribute->mtext_type, 2);
}

TEST(LibraryObjects, CellsOfATableAreHeldAgainstTheObject) {
  const OneObject drawing(R_2000, TableOf(100, 100));
  ASSERT_EQ(drawing.objects().size(), 1U);
  const auto* table = EntityData(drawing.objects()[0], &EntityTio::TABLE);
  ASSERT_NE(table, nullptr);
  EXPECT_EQ(table->num_cols, 100U);
  EXPECT_EQ(table->num_rows, 100U);
  EXPECT_EQ(table->num_cells, 0U);
  EXPECT_EQ(table->cells, nullptr);
  EXPECT_NE(drawing.result() & DWG_ERR_VALUEOUTOFBOUNDS, 0);
}

TEST(LibraryObjects, PositionGoesAsFarBeyondTheEndOnEveryPlatform) {
  unsigned char bytes[4] = {};
  Bit_Chain data{bytes, sizeof bytes, 1, 0, 0, R_2007, R_2007, nullptr, 30};
  // What an object of 4 bits gives: where its string stream would end.
  bit_advance_position(&data, std::uint32_t{4} - 1 - 8);
  EXPECT_EQ(bit_position(&data), std::size_t{8} + 0xFFFFFFFB);
}

TEST(LibraryObjects, ObjectsThatOverlapAreRefused) {
  const OneObject drawing(R_2018, LineInBookColor(0x30, 0x31, 0x32), 100);
  EXPECT_EQ(drawing.objects().size(), 16U);
  EXPECT_NE(drawing.result() & DWG_ERR_VALUEOUTOFBOUNDS, 0);
}

TEST(LibraryObjects, EveryDrawingBeginsAnewWithItsObjects) {
  for (int i = 0; i < 3; ++i) {
    const OneObject drawing(R_2018, LineInBookColor(0x30, 0x31, 0x32), 10);
    EXPECT_EQ(drawing.objects().size(), 10U);
  }
}
