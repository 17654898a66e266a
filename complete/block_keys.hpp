// The further keys of a block definition.
#pragma once

#include <dwg.h>

#include <filesystem>
#include <string>

#include "complete/complete_context.hpp"
#include "encode/json_out.hpp"

// `handle`, `units`, flags, `description`, `baseZ` and, of an external reference, its
// path and whether the file was found.
void AppendBlockKeys(JsonOut& out, const Dwg_Object& object, const Dwg_Object_BLOCK_HEADER& block,
                     const CompleteContext& context);

// Whether there is a file of that path, as it stands or seen from `folder`, or one of its
// name in `folder`.
bool IsFileFound(const std::string& path, const std::filesystem::path& folder);
