// The further keys that every entity record of the complete form has, whatever its
// type.
#pragma once

#include <dwg.h>

#include <cstdint>
#include <string_view>

#include "complete/complete_context.hpp"
#include "encode/json_out.hpp"

// `handle`, `owner`, `linetype`, `linetypeScale` and, where it is set, `invisible`.
// The line type is "L" by layer, "K" by block, as colours have it, or a name.
void AppendCommonFurtherKeys(JsonOut& out, const Dwg_Object& object,
                             const Dwg_Object_Entity& entity, const CompleteContext& context);

// The code of a lineweight that an entity or layer does not have of its own.
inline constexpr std::uint8_t kInheritedLineweight = 29;

// Appends `key` and the handle as drawings write it: hexadecimal digits in upper
// case, quoted. Nothing for 0.
void AppendHandleKey(JsonOut& out, std::string_view key, Handle handle);

// The colour of a word with the method in its top byte, as multileaders, gradients and
// extended data store it; a word without a known method counts by `color.index`.
void AppendWordColor(JsonOut& out, std::string_view key, const Dwg_Color& color,
                     const CompleteContext& context);

// `key` and `true`, or nothing.
void AppendTrueKey(JsonOut& out, std::string_view key, bool value);

// `key` and `[x,y,z]`.
void AppendPointKey(JsonOut& out, std::string_view key, double x, double y, double z);
