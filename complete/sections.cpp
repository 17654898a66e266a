#include "complete/sections.hpp"

#include "complete/dimension_styles.hpp"
#include "complete/groups.hpp"
#include "complete/header_variables.hpp"
#include "complete/linetypes.hpp"
#include "complete/properties.hpp"
#include "complete/text_styles.hpp"
#include "complete/thumbnail.hpp"
#include "complete/views.hpp"

void AppendFurtherSections(JsonOut& out, const CompleteContext& context) {
  AppendHeaderVariables(out, context);
  AppendLinetypes(out, context);
  AppendTextStyles(out, context);
  AppendDimensionStyles(out, context);
  AppendViews(out, context);
  AppendCoordinateSystems(out, context);
  AppendGroups(out, context);
  AppendProperties(out, context);
  AppendThumbnail(out, context);
}
