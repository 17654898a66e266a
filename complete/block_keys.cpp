#include "complete/block_keys.hpp"

#include <algorithm>
#include <exception>
#include <string_view>
#include <system_error>

#include "complete/common_keys.hpp"
#include "document/pdf_files.hpp"
#include "encode/json_text.hpp"

namespace {

namespace fs = std::filesystem;

void AppendFlag(JsonOut& out, std::string_view key, bool isSet) {
  if (isSet) {
    AppendBoolKey(out, key, true);
  }
}

void AppendReference(JsonOut& out, const Dwg_Object_BLOCK_HEADER& block,
                     const CompleteContext& context) {
  const std::string path(context.Decode(block.xref_pname));
  AppendQuotedKey(out, ",\"xref\":{\"path\":", path);
  AppendBoolKey(out, ",\"overlay\":", block.xrefoverlaid != 0);
  AppendBoolKey(out, ",\"found\":", IsFileFound(path, context.base.drawing.folder));
  out += '}';
}

}  // namespace

bool IsFileFound(const std::string& path, const fs::path& folder) try {
  if (path.empty()) {
    return false;
  }
  if (!ResolvePdf(path, folder).empty()) {
    return true;
  }
  // Drawings mostly come from Windows.
  std::string slashed = path;
  std::replace(slashed.begin(), slashed.end(), '\\', '/');
  const fs::path relative(std::u8string(slashed.begin(), slashed.end()));
  std::error_code error;
  return !folder.empty() && !relative.is_absolute() && fs::exists(folder / relative, error);
} catch (const std::exception&) {
  return false;  // a path that this system cannot express
}

void AppendBlockKeys(JsonOut& out, const Dwg_Object& object, const Dwg_Object_BLOCK_HEADER& block,
                     const CompleteContext& context) {
  AppendHandleKey(out, ",\"handle\":", object.handle.value);
  AppendIntKey(out, ",\"units\":", block.insert_units);
  if (block.base_pt.z != 0) {
    AppendNumberKey(out, ",\"baseZ\":", block.base_pt.z);
  }
  AppendFlag(out, ",\"anonymous\":", block.anonymous != 0);
  AppendFlag(out, ",\"hasAttributes\":", block.hasattrs != 0);
  AppendBoolKey(out, ",\"explodable\":", block.explodable != 0);
  AppendFlag(out, ",\"scaledUniformly\":", block.block_scaling != 0);
  const DecodedText description = context.Decode(block.description);
  if (!description.view().empty()) {
    AppendQuotedKey(out, ",\"description\":", description);
  }
  if (block.blkisxref != 0 || block.xrefoverlaid != 0) {
    AppendReference(out, block, context);
  }
}
