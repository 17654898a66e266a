// The section of the picture that a drawing keeps of itself.
#pragma once

#include <cstddef>
#include <span>
#include <string>
#include <string_view>

#include "complete/complete_context.hpp"
#include "encode/json_out.hpp"

// `thumbnail`: its kind and the bytes of a picture file in base 64. Nothing without one.
void AppendThumbnail(JsonOut& out, const CompleteContext& context);

using Bytes = std::span<const unsigned char>;

struct Picture {
  std::string_view kind;  // "BMP", "WMF" or "PNG"; empty when there is none
  Bytes bytes;            // a BMP without its file header
};

// The picture in the preview section of a DWG, which begins behind its sentinel: a
// directory of kinds and sizes, and what they describe in the same order.
Picture PictureOfPreview(Bytes preview);

// The 14 bytes that a BMP file has before such a bitmap.
std::string BitmapFileHeader(Bytes bitmap);

std::string Base64(Bytes bytes);
