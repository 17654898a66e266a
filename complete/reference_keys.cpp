#include "complete/reference_keys.hpp"

#include <cstddef>
#include <span>
#include <string>

#include "complete/block_clip.hpp"
#include "complete/common_keys.hpp"
#include "complete/plane_keys.hpp"
#include "encode/json_list.hpp"
#include "encode/json_text.hpp"
#include "entities/drawing_access.hpp"

namespace {

void AppendAttribute(JsonOut& out, const Dwg_Object& object, const CompleteContext& context) {
  const auto* attribute =
      object.fixedtype == DWG_TYPE_ATTRIB ? EntityData(object, &EntityTio::ATTRIB) : nullptr;
  if (attribute == nullptr) {
    return;
  }
  AppendQuotedKey(out, "{\"tag\":", context.Decode(attribute->tag));
  AppendQuotedKey(out, ",\"text\":", context.Decode(attribute->text_value));
  AppendHandleKey(out, ",\"handle\":", object.handle.value);
  out += '}';
}

// Old drawings, and texts of some programs, let attributes belong to the block that
// the reference stands in. They follow the reference.
std::span<const Dwg_Object> FollowingAttributes(const Dwg_Object& reference,
                                                const CompleteContext& context) {
  const auto objects = Objects(context.dwg());
  const std::size_t first = std::size_t{reference.index} + 1;
  std::size_t end = first;
  while (end < objects.size() && objects[end].fixedtype == DWG_TYPE_ATTRIB) {
    ++end;
  }
  return first < objects.size() ? objects.subspan(first, end - first)
                                : std::span<const Dwg_Object>{};
}

void AppendAttributes(JsonOut& out, const Dwg_Object& reference, const CompleteContext& context) {
  const std::size_t start = out.size();
  JsonList attributes(out, ",\"attributes\":[");
  for (const Dwg_Object* object : context.base.tables.OwnedBy(reference)) {
    attributes.Item([&] { AppendAttribute(out, *object, context); });
  }
  if (attributes.IsEmpty()) {
    for (const Dwg_Object& object : FollowingAttributes(reference, context)) {
      attributes.Item([&] { AppendAttribute(out, object, context); });
    }
  }
  attributes.Close();
  if (attributes.IsEmpty()) {
    out.Truncate(start);
  }
}

template <typename Insert>
void AppendFurtherKeys(JsonOut& out, const Insert& insert, const CompleteContext& context,
                       const EntityOrigin& origin) {
  AppendNonZeroKey(out, ",\"z\":", insert.ins_pt.z);
  AppendPlaneKeys(out, 0, 0, insert.extrusion);
  const Handle handle = origin.object.handle.value;
  const Handle source =
      context.tables.references.DynamicBlockOf(handle, HandleOf(insert.block_header));
  if (const std::string* name = context.base.tables.blockNames.Find(source)) {
    AppendQuotedKey(out, ",\"dynamicBlock\":", *name);
  }
  AppendAttributes(out, origin.object, context);
  if (const Dwg_Object* const* clip = context.tables.references.clips.Find(handle)) {
    AppendBlockClip(out, **clip,
                    {.position = insert.ins_pt,
                     .scale = insert.scale,
                     .rotation = insert.rotation,
                     .extrusion = insert.extrusion,
                     .block = HandleOf(insert.block_header)},
                    context);
  }
  AppendWorld(out, insert.extrusion, [&](const EntityPlane& plane) {
    AppendSpacePoint(
        out, ",\"position\":", plane.ToWorld(insert.ins_pt.x, insert.ins_pt.y, insert.ins_pt.z));
  });
}

}  // namespace

void AppendInsertFurtherKeys(JsonOut& out, const Dwg_Entity_INSERT& insert,
                             const CompleteContext& context, const EntityOrigin& origin) {
  AppendFurtherKeys(out, insert, context, origin);
}

void AppendArrayedInsertFurtherKeys(JsonOut& out, const Dwg_Entity_MINSERT& insert,
                                    const CompleteContext& context, const EntityOrigin& origin) {
  AppendFurtherKeys(out, insert, context, origin);
}
