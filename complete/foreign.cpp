#include "complete/foreign.hpp"

#include <cstddef>
#include <span>
#include <string>
#include <string_view>

#include "complete/proxy_graphics.hpp"
#include "encode/json_text.hpp"
#include "entities/drawing_access.hpp"

namespace {

// The class numbers of drawings begin here.
constexpr std::size_t kFirstClass = 500;

const Dwg_Class* ClassAt(std::size_t number, const CompleteContext& context) {
  const auto classes = SpanOf(context.dwg().dwg_class, context.dwg().num_classes);
  return number < kFirstClass || number - kFirstClass >= classes.size()
             ? nullptr
             : &classes[number - kFirstClass];
}

// One byte a character, whatever form the drawing's texts have.
std::string NameOf(const char* text) {
  return text == nullptr ? std::string{} : std::string(DecodeText(TextForm::kWindows1252, text));
}

void AppendForeign(JsonOut& out, const Dwg_Object_Entity& entity, const Dwg_Class* known,
                   std::string_view fallback, const CompleteContext& context) {
  const std::size_t start = out.size();
  const std::string name = known == nullptr ? std::string{} : NameOf(known->dxfname);
  if (!name.empty()) {
    AppendQuotedKey(out, ",\"className\":", name);
    AppendQuotedKey(out, ",\"cppName\":", context.Decode(known->cppname));
  }
  const std::size_t keys = out.size();
  AppendStoredGraphics(out, StoredGraphics(entity), context);
  if (out.size() == keys) {
    out.Truncate(start);
    ++context.base.findings.skippedTypes[name.empty() ? std::string(fallback) : name];
  }
}

}  // namespace

void AppendProxy(JsonOut& out, const Dwg_Entity_PROXY_ENTITY& proxy, const CompleteContext& context,
                 const EntityOrigin& origin) {
  AppendForeign(out, *origin.object.tio.entity, ClassAt(proxy.class_id, context), "PROXY_ENTITY",
                context);
}

void AppendUnknown(JsonOut& out, const Dwg_Object_Entity& entity, const CompleteContext& context,
                   const EntityOrigin& origin) {
  AppendForeign(out, entity, ClassAt(origin.object.type, context), "UNKNOWN_ENT", context);
}
