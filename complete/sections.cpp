#include "complete/sections.hpp"

#include "complete/common_keys.hpp"
#include "encode/json_text.hpp"

namespace {

// What drawing needs of the drawing's variables, under the names that DXF gives them.
void AppendHeaderVariables(JsonOut& out, const CompleteContext& context) {
  const Dwg_Header_Variables& vars = context.dwg().header_vars;
  AppendNumberKey(out, ",\"header\":{\"LTSCALE\":", vars.LTSCALE);
  out += '}';
}

}  // namespace

void AppendFurtherSections(JsonOut& out, const CompleteContext& context) {
  AppendHeaderVariables(out, context);
}
