#include "reading/dwg_settling.hpp"

#include <gtest/gtest.h>

#include <cstring>
#include <string>
#include <vector>

#include "encode/library_memory.hpp"
#include "encode/text_decoding.hpp"
#include "entities/drawing_access.hpp"
#include "tests/support/test_drawing.hpp"

namespace {

// A drawing as the DWG reader leaves it. The headers' names are the library's to
// free, so they are given back here.
class DwgSettling : public testing::Test {
 protected:
  ~DwgSettling() override {
    for (auto* header : headers_) {
      LibraryFree(header->name);
    }
  }

  Dwg_Object_BLOCK_HEADER& AddHeader(const char* name, Handle block) {
    return AddHeader(name, name == nullptr ? 0 : std::strlen(name) + 1, block);
  }
  Dwg_Object_BLOCK_HEADER& AddHeader(const std::u16string& name, Handle block) {
    return AddHeader(name.c_str(), 2 * (name.size() + 1), block);
  }

  Dwg_Entity_BLOCK& AddStoredBlock(Handle handle, char* name) {
    auto& block = drawing_.AddEntity(DWG_TYPE_BLOCK, &EntityTio::BLOCK, handle);
    block.name = name;
    return block;
  }
  Dwg_Entity_BLOCK& AddBlock(Handle handle, const std::string& name) {
    return AddStoredBlock(handle, drawing_.Text(name));
  }

  void Settle(TextForm form = TextForm::kWindows1252) { SettleDwg(drawing_.data(), form); }

  TestDrawing drawing_;

 private:
  Dwg_Object_BLOCK_HEADER& AddHeader(const void* name, std::size_t bytes, Handle block) {
    auto& header = drawing_.AddObject(DWG_TYPE_BLOCK_HEADER, &ObjectTio::BLOCK_HEADER);
    if (name != nullptr) {
      header.name = static_cast<char*>(LibraryAllocate(bytes));
      std::memcpy(header.name, name, bytes);
    }
    header.block_entity = block == 0 ? nullptr : drawing_.Ref(block);
    headers_.push_back(&header);
    return header;
  }

  std::vector<Dwg_Object_BLOCK_HEADER*> headers_;
};

}  // namespace

TEST_F(DwgSettling, AnonymousBlockTakesTheNameOfItsBlock) {
  const auto& first = AddHeader("*U", 0x20);
  const auto& second = AddHeader("*U", 0x21);
  const auto& dimension = AddHeader("*D", 0x22);
  AddBlock(0x22, "*D3");
  AddBlock(0x21, "*U18");
  AddBlock(0x20, "*U2");
  Settle();
  EXPECT_STREQ(first.name, "*U2");
  EXPECT_STREQ(second.name, "*U18");
  EXPECT_STREQ(dimension.name, "*D3");
}

TEST_F(DwgSettling, SixteenBitNameIsTakenWhole) {
  const auto& header = AddHeader(u"*U", 0x20);
  const auto& beyondAscii = AddHeader(u"*T\u0100", 0x21);
  AddStoredBlock(0x20, drawing_.Utf16(u"*U18"));
  AddStoredBlock(0x21, drawing_.Utf16(u"*T\u0100\u4E00"));
  Settle(TextForm::kUtf16);
  EXPECT_EQ(DecodeText(TextForm::kUtf16, header.name).view(), "*U18");
  EXPECT_EQ(DecodeText(TextForm::kUtf16, beyondAscii.name).view(), "*T\u0100\u4E00");
}

TEST_F(DwgSettling, NameBeyondAsciiIsTakenByteByByte) {
  const auto& header = AddHeader("*U", 0x20);
  AddBlock(0x20, "*U\xC4");
  Settle();
  EXPECT_STREQ(header.name, "*U\xC4");
}

TEST_F(DwgSettling, NamedBlockKeepsItsName) {
  const auto& header = AddHeader("DOOR", 0x20);
  const auto& empty = AddHeader("", 0x20);
  AddBlock(0x20, "DOOR2");
  Settle();
  EXPECT_STREQ(header.name, "DOOR");
  EXPECT_STREQ(empty.name, "");
}

TEST_F(DwgSettling, LayoutBlockKeepsItsNameInAnyLetterCase) {
  const auto& model = AddHeader("*Model_Space", 0x20);
  const auto& upper = AddHeader("*MODEL_SPACE", 0x20);
  const auto& paper = AddHeader("*paper_Space", 0x21);
  const auto& second = AddHeader("*Paper_Space1", 0x22);
  AddBlock(0x20, "*Model_Space7");
  AddBlock(0x21, "*paper_Space7");
  AddBlock(0x22, "*Paper_Space17");
  Settle();
  EXPECT_STREQ(model.name, "*Model_Space");
  EXPECT_STREQ(upper.name, "*MODEL_SPACE");
  EXPECT_STREQ(paper.name, "*paper_Space");
  EXPECT_STREQ(second.name, "*Paper_Space1");
}

TEST_F(DwgSettling, NameThatBeginsOtherwiseIsNotTaken) {
  const auto& header = AddHeader("*U", 0x20);
  const auto& otherCase = AddHeader("*U", 0x21);
  const auto& longer = AddHeader("*U18", 0x22);
  AddBlock(0x20, "*D18");
  AddBlock(0x21, "*u18");
  AddBlock(0x22, "*U1");
  Settle();
  EXPECT_STREQ(header.name, "*U");
  EXPECT_STREQ(otherCase.name, "*U");
  EXPECT_STREQ(longer.name, "*U18");
}

TEST_F(DwgSettling, SixteenBitNameIsComparedByUnits) {
  // The first byte of the BLOCK's third unit is that of the header's.
  const auto& header = AddHeader(u"*U\u0131", 0x20);
  AddStoredBlock(0x20, drawing_.Utf16(u"*U\u0231\u0031"));
  Settle(TextForm::kUtf16);
  EXPECT_EQ(DecodeText(TextForm::kUtf16, header.name).view(), "*U\u0131");
}

TEST_F(DwgSettling, MissingPartsChangeNothing) {
  const auto& noReference = AddHeader("*U", 0);
  const auto& dangling = AddHeader("*U", 0x99);
  const auto& toAnotherType = AddHeader("*U", 0x30);
  const auto& toNameless = AddHeader("*U", 0x31);
  const auto& toDataless = AddHeader("*U", 0x32);
  const auto& nameless = AddHeader(static_cast<const char*>(nullptr), 0x33);
  drawing_.AddBareObject(DWG_TYPE_BLOCK_HEADER, 0x40);
  drawing_.AddEntity(DWG_TYPE_LINE, &EntityTio::LINE, 0x30);
  AddStoredBlock(0x31, nullptr);
  drawing_.AddBareEntity(DWG_TYPE_BLOCK, 0x32);
  AddBlock(0x33, "*U1");
  Settle();
  for (const auto* header : {&noReference, &dangling, &toAnotherType, &toNameless, &toDataless}) {
    EXPECT_STREQ(header->name, "*U");
  }
  EXPECT_EQ(nameless.name, nullptr);
}

TEST_F(DwgSettling, ReferenceToNothingDoesNotMeanABlockWithoutHandle) {
  auto& header = AddHeader("*U", 0);
  header.block_entity = drawing_.Ref(0);
  AddBlock(0, "*U1");
  Settle();
  EXPECT_STREQ(header.name, "*U");
}

TEST_F(DwgSettling, FirstOfSeveralBlocksWithOneHandleCounts) {
  const auto& header = AddHeader("*U", 0x20);
  AddBlock(0x20, "*U1");
  AddBlock(0x20, "*U2");
  Settle();
  EXPECT_STREQ(header.name, "*U1");
}

TEST_F(DwgSettling, PaperSpaceBeforeR13BearsTheUsualName) {
  const auto& paper = AddHeader("*PAPER_SPACE", 0);
  const auto& second = AddHeader("*PAPER_SPACE0", 0);
  const auto& model = AddHeader("*MODEL_SPACE", 0);
  drawing_.data().header.from_version = R_11;
  Settle();
  EXPECT_STREQ(paper.name, "*Paper_Space");
  EXPECT_STREQ(second.name, "*PAPER_SPACE0");
  EXPECT_STREQ(model.name, "*MODEL_SPACE");
}

TEST_F(DwgSettling, PaperSpaceSinceR13KeepsItsName) {
  const auto& paper = AddHeader("*PAPER_SPACE", 0);
  for (const Dwg_Version_Type version : {R_13b1, R_14, R_2000}) {
    drawing_.data().header.from_version = version;
    Settle();
    EXPECT_STREQ(paper.name, "*PAPER_SPACE");
  }
}

TEST_F(DwgSettling, EmptyDrawingIsLeftAlone) {
  Settle();
  EXPECT_EQ(drawing_.data().num_objects, 0U);
}
