#include "complete/ole_frame.hpp"

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>
#include <vector>

#include "complete/common_keys.hpp"
#include "complete/compound_file.hpp"
#include "complete/thumbnail.hpp"
#include "encode/json_list.hpp"
#include "encode/json_text.hpp"
#include "entities/drawing_access.hpp"

namespace {

// Before the embedded object stands a head with the four corners.
constexpr std::size_t kHeadSize = 128;
constexpr std::size_t kCornersAt = 2;
constexpr int kCorners = 4;

bool StartsWith(StoredBytes bytes, std::string_view start) {
  return bytes.size() >= start.size() &&
         std::equal(start.begin(), start.end(), bytes.begin(),
                    [](char a, unsigned char b) { return static_cast<unsigned char>(a) == b; });
}

// The length that a bitmap file's head says, 0 when it is none.
std::size_t BitmapLength(StoredBytes bytes) {
  constexpr std::size_t kLeast = 54;
  constexpr std::size_t kReservedAt = 6;
  if (bytes.size() < kLeast || !StartsWith(bytes, "BM")) {
    return 0;
  }
  const std::size_t length = ByteReader(bytes.subspan(2)).Uint32();
  const bool isReserved = ByteReader(bytes.subspan(kReservedAt)).Uint32() == 0;
  return isReserved && length >= kLeast && length <= bytes.size() ? length : 0;
}

EmbeddedPicture PictureOf(std::string_view kind, StoredBytes bytes) {
  return {.kind = kind, .base64 = Base64(bytes)};
}

// A picture that the bytes begin with.
EmbeddedPicture PictureAtStart(StoredBytes bytes) {
  using namespace std::string_view_literals;
  if (const std::size_t length = BitmapLength(bytes)) {
    return PictureOf("bmp", bytes.first(length));
  }
  if (StartsWith(bytes, "\x89PNG\r\n\x1A\n"sv)) {
    return PictureOf("png", bytes);
  }
  if (StartsWith(bytes, "\xFF\xD8\xFF"sv)) {
    return PictureOf("jpeg", bytes);
  }
  if (StartsWith(bytes, "GIF8"sv)) {
    return PictureOf("gif", bytes);
  }
  return {};
}

// Streams of embedded files begin with the file's length.
EmbeddedPicture PictureInStream(StoredBytes stream) {
  constexpr std::size_t kLengthSize = 4;
  EmbeddedPicture picture = PictureAtStart(stream);
  if (picture.kind.empty() && stream.size() > kLengthSize) {
    picture = PictureAtStart(stream.subspan(kLengthSize));
  }
  return picture;
}

void AppendPicture(JsonOut& out, const EmbeddedPicture& picture) {
  if (picture.kind.empty()) {
    AppendQuotedKey(out, ",\"reason\":", "what is embedded is no bitmap");
    return;
  }
  AppendQuotedKey(out, ",\"pictureKind\":", picture.kind);
  AppendQuotedKey(out, ",\"picture\":", picture.base64);
}

// The library's DWG reader leaves the two corners that a DXF names unread.
void AppendCorners(JsonOut& out, const Dwg_Entity_OLE2FRAME& frame, StoredBytes head,
                   bool isFromDxf) {
  JsonList corners(out, ",\"corners\":[");
  if (isFromDxf || head.size() < kHeadSize) {
    corners.Point(frame.pt1.x, frame.pt1.y, frame.pt1.z);
    corners.Point(frame.pt2.x, frame.pt1.y, frame.pt1.z);
    corners.Point(frame.pt2.x, frame.pt2.y, frame.pt2.z);
    corners.Point(frame.pt1.x, frame.pt2.y, frame.pt2.z);
  } else {
    ByteReader reader(head.subspan(kCornersAt));
    for (int i = 0; i < kCorners; ++i) {
      const double x = reader.Double();
      const double y = reader.Double();
      corners.Point(x, y, reader.Double());
    }
  }
  corners.Close();
}

std::string_view LinkKind(BITCODE_BS type) {
  constexpr BITCODE_BS kLink = 1;
  constexpr BITCODE_BS kEmbedded = 2;
  switch (type) {
    case kLink: return "link";
    case kEmbedded: return "embedded";
    default: return "static";
  }
}

}  // namespace

EmbeddedPicture FindPicture(StoredBytes object) {
  EmbeddedPicture picture = PictureAtStart(object);
  if (!picture.kind.empty()) {
    return picture;
  }
  for (const auto& stream : StreamsOf(object)) {
    picture = PictureInStream(stream);
    if (!picture.kind.empty()) {
      break;
    }
  }
  return picture;
}

void AppendOle2Frame(JsonOut& out, const Dwg_Entity_OLE2FRAME& frame,
                     const CompleteContext& context) {
  const auto data = SpanOf<unsigned char>(frame.data, frame.data_size);
  const bool isFromDxf = (context.dwg().opts & DWG_OPTS_INDXF) != 0;
  AppendQuotedKey(out, ",\"kind\":", LinkKind(frame.type));
  AppendCorners(out, frame, data.first(std::min(kHeadSize, data.size())), isFromDxf);
  AppendPicture(out, FindPicture(data.subspan(std::min(kHeadSize, data.size()))));
}

void AppendOleFrame(JsonOut& out, const Dwg_Entity_OLEFRAME& frame) {
  const auto data = SpanOf<unsigned char>(frame.data, frame.data_size);
  AppendPicture(out, FindPicture(data));
}
