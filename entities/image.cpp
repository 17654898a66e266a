#include "entities/image.hpp"

#include "encode/json_text.hpp"

namespace {

constexpr unsigned kShowImage = 1;

// The entry of a definition, null when the reference or the entry is missing.
template <typename Entry>
const Entry* FindDefinition(const HandleMap<Entry>& definitions, const Dwg_Object_Ref* reference) {
  const Handle handle = HandleOf(reference);
  return handle == 0 ? nullptr : definitions.Find(handle);
}

void WarnOfMissingPdf(const PdfEntry* entry, const EntityContext& context) {
  const bool isDeclared = entry != nullptr && !entry->declaredPath.empty();
  context.Warn("Skipped 1 PDFUNDERLAY: referenced PDF not found (" +
               (isDeclared ? entry->declaredPath : "unknown path") + ")");
}

}  // namespace

void AppendImage(JsonOut& out, const Dwg_Entity_IMAGE& image, const EntityContext& context) {
  const bool isShown = (image.display_props & kShowImage) != 0;
  if (!isShown || !(image.image_size.x > 0) || !(image.image_size.y > 0)) {
    return;
  }
  const std::string* path = FindDefinition(context.tables.imageDefs, image.imagedef);
  if (path == nullptr || path->empty()) {
    return;
  }
  AppendQuotedKey(out, ",\"path\":", *path);
  AppendNumberKey(out, ",\"px0\":", image.pt0.x);
  AppendNumberKey(out, ",\"py0\":", image.pt0.y);
  AppendNumberKey(out, ",\"ux\":", image.uvec.x);
  AppendNumberKey(out, ",\"uy\":", image.uvec.y);
  AppendNumberKey(out, ",\"vx\":", image.vvec.x);
  AppendNumberKey(out, ",\"vy\":", image.vvec.y);
  AppendNumberKey(out, ",\"sw\":", image.image_size.x);
  AppendNumberKey(out, ",\"sh\":", image.image_size.y);
}

void AppendUnderlayKeys(JsonOut& out, const Dwg_Entity_PDFUNDERLAY& underlay, std::string_view path,
                        std::int32_t page) {
  AppendQuotedKey(out, ",\"path\":", path);
  AppendIntKey(out, ",\"page\":", page);
  AppendNumberKey(out, ",\"ix\":", underlay.ins_pt.x);
  AppendNumberKey(out, ",\"iy\":", underlay.ins_pt.y);
  AppendNumberKey(out, ",\"sx\":", underlay.scale.x);
  AppendNumberKey(out, ",\"sy\":", underlay.scale.y);
  AppendNumberKey(out, ",\"angle\":", underlay.angle);
}

void AppendPdfUnderlay(JsonOut& out, const Dwg_Entity_PDFUNDERLAY& underlay,
                       const EntityContext& context) {
  const PdfEntry* entry = FindDefinition(context.tables.pdfDefs, underlay.definition_id);
  if (entry == nullptr || entry->resolvedPath.empty()) {
    WarnOfMissingPdf(entry, context);
    return;
  }
  AppendUnderlayKeys(out, underlay, entry->resolvedPath, entry->page);
}
