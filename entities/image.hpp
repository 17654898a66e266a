// Records of raster images and PDF underlays: where they stand and which file
// they show. Clip boundaries are not written.
#pragma once

#include <dwg.h>

#include <cstdint>
#include <string_view>

#include "encode/json_out.hpp"
#include "entities/entity_context.hpp"

// Nothing, without a warning, when the image is hidden, has no size, or its
// file is unknown.
void AppendImage(JsonOut& out, const Dwg_Entity_IMAGE& image, const EntityContext& context);

// Nothing, with a warning, when the PDF file was not found.
void AppendPdfUnderlay(JsonOut& out, const Dwg_Entity_PDFUNDERLAY& underlay,
                       const EntityContext& context);

// The keys of an underlay that shows that page of the file.
void AppendUnderlayKeys(JsonOut& out, const Dwg_Entity_PDFUNDERLAY& underlay, std::string_view path,
                        std::int32_t page);
