#include <gtest/gtest.h>

#include <string>
#include <string_view>
#include <vector>

#include "complete/properties.hpp"
#include "complete/thumbnail.hpp"

namespace {

using Buffer = std::vector<unsigned char>;

Buffer Of(std::string_view text) {
  return {text.begin(), text.end()};
}

void AddNumber(Buffer& bytes, std::uint32_t value, unsigned count) {
  for (unsigned i = 0; i < count; ++i) {
    bytes.push_back(static_cast<unsigned char>(value >> (8 * i)));
  }
}

struct Part {
  unsigned kind;
  std::string_view bytes;
};

Buffer Preview(const std::vector<Part>& parts) {
  Buffer preview;
  AddNumber(preview, 0, 4);
  AddNumber(preview, static_cast<std::uint32_t>(parts.size()), 1);
  for (const Part& part : parts) {
    AddNumber(preview, part.kind, 1);
    AddNumber(preview, 12345, 4);
    AddNumber(preview, static_cast<std::uint32_t>(part.bytes.size()), 4);
  }
  for (const Part& part : parts) {
    preview.insert(preview.end(), part.bytes.begin(), part.bytes.end());
  }
  return preview;
}

}  // namespace

// The examples of RFC 4648.
TEST(Base64, EncodesAllRemainders) {
  EXPECT_EQ(Base64({}), "");
  EXPECT_EQ(Base64(Of("f")), "Zg==");
  EXPECT_EQ(Base64(Of("fo")), "Zm8=");
  EXPECT_EQ(Base64(Of("foo")), "Zm9v");
  EXPECT_EQ(Base64(Of("foobar")), "Zm9vYmFy");
  EXPECT_EQ(Base64(Buffer{0xFB, 0xFF}), "+/8=");
}

TEST(Thumbnail, TakesThePictureBehindItsHeader) {
  const Buffer preview = Preview({{1, "header"}, {6, "PNG bytes"}});
  const Picture picture = PictureOfPreview(preview);
  EXPECT_EQ(picture.kind, "PNG");
  EXPECT_EQ(std::string(picture.bytes.begin(), picture.bytes.end()), "PNG bytes");
}

TEST(Thumbnail, PassesOverWhatIsNone) {
  EXPECT_EQ(PictureOfPreview(Preview({{9, "x"}, {2, ""}, {3, "w"}})).kind, "WMF");
  EXPECT_EQ(PictureOfPreview({}).kind, "");
  EXPECT_EQ(PictureOfPreview(Preview({{1, "header"}})).kind, "");
}

TEST(Thumbnail, RejectsSizesBeyondTheEnd) {
  Buffer preview = Preview({{2, "bitmap"}});
  preview.pop_back();
  EXPECT_EQ(PictureOfPreview(preview).kind, "");
  EXPECT_EQ(PictureOfPreview(Buffer{0, 0, 0, 0, 255}).kind, "");
}

TEST(Thumbnail, BitmapsGetAFileHeader) {
  Buffer bitmap;
  AddNumber(bitmap, 40, 4);  // header
  AddNumber(bitmap, 1, 4);
  AddNumber(bitmap, 1, 4);
  AddNumber(bitmap, 1, 2);
  AddNumber(bitmap, 8, 2);  // bits a pixel: 256 colours of 4 bytes follow
  bitmap.resize(40);
  const std::string header = BitmapFileHeader(bitmap);
  ASSERT_EQ(header.size(), 14U);
  EXPECT_EQ(header.substr(0, 2), "BM");
  EXPECT_EQ(static_cast<unsigned char>(header[2]), 54);
  EXPECT_EQ(static_cast<unsigned char>(header[10]) + 256 * static_cast<unsigned char>(header[11]),
            14 + 40 + 1024);
}

TEST(TimeText, JulianDays) {
  EXPECT_EQ(TimeText(2451545, 0), "2000-01-01T00:00:00");
  EXPECT_EQ(TimeText(2440588, 86399999), "1970-01-01T23:59:59");
  EXPECT_EQ(TimeText(2451604, 3661000), "2000-02-29T01:01:01");
  EXPECT_EQ(TimeText(2415080, 0), "1900-03-01T00:00:00");
  EXPECT_EQ(TimeText(1721426, 0), "0001-01-01T00:00:00");
  EXPECT_EQ(TimeText(5373484, 0), "9999-12-31T00:00:00");
}

TEST(TimeText, NoneOutsideTheCalendar) {
  for (const std::uint32_t day : {0U, 1721425U, 5373485U, 0xFFFFFFFFU}) {
    EXPECT_EQ(TimeText(day, 0), "");
  }
  EXPECT_EQ(TimeText(2451545, 86400000), "");
}
