// Records of SHAPE and TOLERANCE.
#pragma once

#include <dwg.h>

#include <string>
#include <string_view>
#include <vector>

#include "complete/complete_context.hpp"
#include "encode/json_out.hpp"

// Where a shape stands and which of its file's shapes it is. The shape itself is in
// the file.
void AppendShape(JsonOut& out, const Dwg_Entity_SHAPE& shape, const CompleteContext& context);
void AppendShapeFurtherKeys(JsonOut& out, const Dwg_Entity_SHAPE& shape);

// A feature control frame: its text as it is stored and as rows of cells, with the
// symbols of the geometric tolerance font as characters.
void AppendTolerance(JsonOut& out, const Dwg_Entity_TOLERANCE& tolerance,
                     const CompleteContext& context, const EntityOrigin& origin);
void AppendToleranceFurtherKeys(JsonOut& out, const Dwg_Entity_TOLERANCE& tolerance,
                                const CompleteContext& context);

// The rows of a frame's text: "^J" or "\n" ends a row, "%%v" a cell.
using ToleranceCells = std::vector<std::vector<std::string>>;
ToleranceCells ParseTolerance(std::string_view text);
