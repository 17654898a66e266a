#include "complete/text_columns.hpp"

#include <cmath>
#include <cstddef>
#include <cstdint>
#include <span>
#include <string_view>
#include <vector>

#include "complete/attached_data.hpp"

namespace {

// What the CAD program attached, in order.
using Values = std::span<const Dwg_Eed_Data* const>;

// Columns that take their height from the text have no number of their own: as many as
// fit into the text's width, with a gutter between each two.
std::uint32_t ColumnsInWidth(const Dwg_Entity_MTEXT& mtext) {
  const double step = mtext.column_width + mtext.gutter;
  const double count = (mtext.extents_width + mtext.gutter) / step;
  constexpr double kMost = 1e6;
  return step > 0 && count >= 1 && count < kMost ? static_cast<std::uint32_t>(std::lround(count))
                                                 : 0;
}

std::uint32_t OwnCount(const Dwg_Entity_MTEXT& mtext) {
  if (mtext.numfragments != 0) {
    return mtext.numfragments;
  }
  return mtext.num_column_heights != 0 ? mtext.num_column_heights : ColumnsInWidth(mtext);
}

TextColumns OwnColumns(const Dwg_Entity_MTEXT& mtext) {
  const auto heights = SpanOf<BITCODE_BD>(mtext.column_heights, mtext.num_column_heights);
  return {.type = mtext.column_type,
          .count = OwnCount(mtext),
          .width = mtext.column_width,
          .gutter = mtext.gutter,
          .hasAutoHeight = mtext.auto_height != 0,
          .isReversed = mtext.flow_reversed != 0,
          .heights = {heights.begin(), heights.end()},
          .linked = {}};
}

double NumberOf(const Dwg_Eed_Data& value) {
  switch (value.code) {
    case kAttachedReal: return value.u.eed_40.real;
    case kAttachedShort: return value.u.eed_70.rs;
    default: return 0;
  }
}

unsigned CountOf(const Dwg_Eed_Data& value) {
  return value.code == kAttachedShort ? value.u.eed_70.rs : 0U;
}

// A value behind the number of its field.
void SetField(TextColumns& columns, unsigned field, const Dwg_Eed_Data& value) {
  constexpr unsigned kWidth = 48;
  constexpr unsigned kGutter = 49;
  constexpr unsigned kType = 75;
  constexpr unsigned kCount = 76;
  constexpr unsigned kReversed = 78;
  constexpr unsigned kAutoHeight = 79;
  switch (field) {
    case kWidth: columns.width = NumberOf(value); break;
    case kGutter: columns.gutter = NumberOf(value); break;
    case kType: columns.type = CountOf(value); break;
    case kCount: columns.count = CountOf(value); break;
    case kReversed: columns.isReversed = CountOf(value) != 0; break;
    case kAutoHeight: columns.hasAutoHeight = CountOf(value) != 0; break;
    default: break;
  }
}

// A field is two values, but the heights are a count and as many reals.
void SetFields(TextColumns& columns, Values values) {
  constexpr unsigned kHeights = 50;
  for (std::size_t i = 0; i + 1 < values.size(); i += 2) {
    const unsigned field = CountOf(*values[i]);
    if (field != kHeights) {
      SetField(columns, field, *values[i + 1]);
      continue;
    }
    for (i += 2; i < values.size() && values[i]->code == kAttachedReal; ++i) {
      columns.heights.push_back(NumberOf(*values[i]));
    }
    i -= 2;
  }
}

// What stands between two marks.
Values Between(Values values, std::string_view begin, std::string_view end) {
  const auto find = [&](std::string_view mark) {
    std::size_t at = 0;
    while (at < values.size() && !IsAttachedText(*values[at], mark)) {
      ++at;
    }
    return at;
  };
  const std::size_t first = find(begin) + 1;
  const std::size_t last = find(end);
  return first < last && last < values.size() ? values.subspan(first, last - first) : Values{};
}

}  // namespace

TextColumns TextColumnsOf(const Dwg_Entity_MTEXT& mtext, const Dwg_Object& object,
                          const CompleteContext& context) {
  if (mtext.column_type != 0) {
    return OwnColumns(mtext);
  }
  std::vector<const Dwg_Eed_Data*> values;
  ForEachAttached(AttachedDataOf(object), context.tables.acadApplication,
                  [&](const Dwg_Eed_Data& value) { values.push_back(&value); });
  const Values fields =
      Between(values, "ACAD_MTEXT_COLUMN_INFO_BEGIN", "ACAD_MTEXT_COLUMN_INFO_END");
  if (fields.empty()) {
    return OwnColumns(mtext);
  }
  TextColumns columns;
  SetFields(columns, fields);
  for (const Dwg_Eed_Data* value :
       Between(values, "ACAD_MTEXT_COLUMNS_BEGIN", "ACAD_MTEXT_COLUMNS_END")) {
    if (value->code == kAttachedHandle) {
      // A copy: it may lie unaligned.
      const Handle linked = value->u.eed_5.entity;
      columns.linked.push_back(linked);
    }
  }
  return columns;
}
