#include "complete/text_columns.hpp"

#include <cstddef>
#include <span>
#include <string>

#include "complete/extended_data.hpp"

namespace {

// Group codes of extended data, less 1000.
constexpr unsigned kHandleItem = 5;
constexpr unsigned kRealItem = 40;
constexpr unsigned kIntegerItem = 70;

TextColumns OwnColumns(const Dwg_Entity_MTEXT& mtext) {
  const auto heights = SpanOf<BITCODE_BD>(mtext.column_heights, mtext.num_column_heights);
  return {.type = mtext.column_type,
          .count = mtext.numfragments,
          .width = mtext.column_width,
          .gutter = mtext.gutter,
          .hasAutoHeight = mtext.auto_height != 0,
          .isReversed = mtext.flow_reversed != 0,
          .heights = {heights.begin(), heights.end()},
          .linked = {}};
}

unsigned CodeOf(const Dwg_Eed& item) {
  constexpr unsigned kNone = 255;
  return item.data == nullptr ? kNone : item.data->code;
}

double NumberOf(const Dwg_Eed& item) {
  switch (CodeOf(item)) {
    case kRealItem: return item.data->u.eed_40.real;
    case kIntegerItem: return item.data->u.eed_70.rs;
    default: return 0;
  }
}

unsigned CountOf(const Dwg_Eed& item) {
  return CodeOf(item) == kIntegerItem ? item.data->u.eed_70.rs : 0;
}

// A value behind the number of its field.
void SetField(TextColumns& columns, unsigned field, const Dwg_Eed& item) {
  constexpr unsigned kWidth = 48;
  constexpr unsigned kGutter = 49;
  constexpr unsigned kType = 75;
  constexpr unsigned kCount = 76;
  constexpr unsigned kReversed = 78;
  constexpr unsigned kAutoHeight = 79;
  switch (field) {
    case kWidth: columns.width = NumberOf(item); break;
    case kGutter: columns.gutter = NumberOf(item); break;
    case kType: columns.type = CountOf(item); break;
    case kCount: columns.count = CountOf(item); break;
    case kReversed: columns.isReversed = CountOf(item) != 0; break;
    case kAutoHeight: columns.hasAutoHeight = CountOf(item) != 0; break;
    default: break;
  }
}

// A field is two items, but the heights are a count and as many reals.
void SetFields(TextColumns& columns, std::span<const Dwg_Eed> items) {
  constexpr unsigned kHeights = 50;
  for (std::size_t i = 0; i + 1 < items.size(); i += 2) {
    const unsigned field = CountOf(items[i]);
    if (field != kHeights) {
      SetField(columns, field, items[i + 1]);
      continue;
    }
    for (i += 2; i < items.size() && CodeOf(items[i]) == kRealItem; ++i) {
      columns.heights.push_back(NumberOf(items[i]));
    }
    i -= 2;
  }
}

// What stands between two marks.
std::span<const Dwg_Eed> Between(std::span<const Dwg_Eed> items, std::string_view begin,
                                 std::string_view end, const CompleteContext& context) {
  const auto find = [&](std::string_view mark) {
    std::size_t at = 0;
    while (at < items.size() && ExtendedText(items[at], context) != mark) {
      ++at;
    }
    return at;
  };
  const std::size_t first = find(begin) + 1;
  const std::size_t last = find(end);
  return first < last && last < items.size() ? items.subspan(first, last - first)
                                             : std::span<const Dwg_Eed>{};
}

}  // namespace

TextColumns TextColumnsOf(const Dwg_Entity_MTEXT& mtext, const Dwg_Object& object,
                          const CompleteContext& context) {
  const auto items = ExtendedDataOf(object, context.tables.ownApplication);
  const auto fields =
      Between(items, "ACAD_MTEXT_COLUMN_INFO_BEGIN", "ACAD_MTEXT_COLUMN_INFO_END", context);
  if (mtext.column_type != 0 || fields.empty()) {
    return OwnColumns(mtext);
  }
  TextColumns columns;
  SetFields(columns, fields);
  for (const Dwg_Eed& item :
       Between(items, "ACAD_MTEXT_COLUMNS_BEGIN", "ACAD_MTEXT_COLUMNS_END", context)) {
    if (CodeOf(item) == kHandleItem) {
      // A copy: it may lie unaligned.
      const Handle linked = item.data->u.eed_5.entity;
      columns.linked.push_back(linked);
    }
  }
  return columns;
}
