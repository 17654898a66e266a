// Records of OLE2FRAME and OLEFRAME: objects of other programs that are embedded in the
// drawing.
#pragma once

#include <dwg.h>

#include <string>
#include <string_view>

#include "complete/complete_context.hpp"
#include "complete/stored_bytes.hpp"
#include "encode/json_out.hpp"

// The corners of the place where it is shown, in the world, and the picture inside when
// it is one that can be shown.
void AppendOle2Frame(JsonOut& out, const Dwg_Entity_OLE2FRAME& frame,
                     const CompleteContext& context);
void AppendOleFrame(JsonOut& out, const Dwg_Entity_OLEFRAME& frame);

// A picture among the bytes of an embedded object.
struct EmbeddedPicture {
  std::string_view kind = {};  // "bmp", "png", "jpeg", "gif"; empty when there is none
  std::string base64 = {};
};
EmbeddedPicture FindPicture(StoredBytes object);
