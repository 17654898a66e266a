#include "complete/groups.hpp"

#include <string>
#include <string_view>

#include "complete/common_keys.hpp"
#include "complete/table_section.hpp"
#include "encode/json_text.hpp"

namespace {

void AppendMembers(JsonOut& out, const Dwg_Object_GROUP& group) {
  JsonList members(out, ",\"members\":[");
  for (const Dwg_Object_Ref* member : SpanOf<BITCODE_H>(group.groups, group.num_groups)) {
    members.Item([&] { AppendHandleKey(out, "", HandleOf(member)); });
  }
  members.Close();
}

void AppendGroup(JsonOut& out, const Dwg_Object& object, const Dwg_Object_GROUP& group,
                 const CompleteContext& context) {
  const std::string* name = context.tables.groups.Find(object.handle.value);
  out += "{\"name\":";
  out += name == nullptr ? std::string_view("\"\"") : std::string_view(*name);
  AppendHandleKey(out, ",\"handle\":", object.handle.value);
  AppendQuotedKey(out, ",\"description\":", context.Decode(group.name));
  AppendBoolKey(out, ",\"selectable\":", group.selectable != 0);
  AppendBoolKey(out, ",\"unnamed\":", group.unnamed != 0);
  AppendMembers(out, group);
  out += '}';
}

}  // namespace

void AppendGroups(JsonOut& out, const CompleteContext& context) {
  AppendTableSection(out, ",\"groups\":[", context.tables.objects.groups, &ObjectTio::GROUP,
                     AppendGroup, context);
}
