#include "complete/table.hpp"

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <span>
#include <string>
#include <string_view>

#include "complete/common_keys.hpp"
#include "complete/lookup.hpp"
#include "complete/plane_keys.hpp"
#include "complete/property_color.hpp"
#include "complete/stored_bytes.hpp"
#include "encode/fast/portable_math.hpp"
#include "encode/json_list.hpp"
#include "encode/json_text.hpp"
#include "entities/drawing_access.hpp"

namespace {

// A cell of either form that shows a block; all others show text.
constexpr unsigned kBlockCell = 2;

// Which of its properties a cell of the old form sets for itself.
constexpr unsigned kOwnAlignment = 1;
constexpr unsigned kOwnBackground = 4;
constexpr unsigned kOwnContentColor = 8;
constexpr unsigned kOwnTextHeight = 32;

// Counts that a damaged file makes larger than what is there end at the arrays.
template <typename T>
void AppendNumbers(JsonOut& out, std::string_view key, std::span<const T> items,
                   double (*value)(const T&)) {
  JsonList list(out, key);
  for (const T& item : items) {
    list.Number(value(item));
  }
  list.Close();
}

double Itself(const BITCODE_BD& value) {
  return value;
}

void AppendPlace(JsonOut& out, std::size_t row, std::size_t column) {
  AppendIntKey(out, "{\"row\":", static_cast<std::int64_t>(row));
  AppendIntKey(out, ",\"column\":", static_cast<std::int64_t>(column));
}

void AppendText(JsonOut& out, std::string_view text) {
  AppendQuotedKey(out, ",\"text\":", text);
}

void AppendCellBlock(JsonOut& out, const Dwg_Object_Ref* block, double scale,
                     const CompleteContext& context) {
  if (const std::string* name = BlockName(block, context)) {
    AppendQuotedKey(out, ",\"blockName\":", *name);
    AppendNumberKey(out, ",\"blockScale\":", scale);
  }
}

std::string Decoded(const char* text, const CompleteContext& context) {
  return std::string(context.Decode(text));
}

// A string value is stored as bytes: 16-bit units up to a zero.
std::string StoredString(const Dwg_TABLE_value& value) {
  constexpr BITCODE_BL kString = 4;
  constexpr BITCODE_BL kGeneral = 512;
  if (value.data_type != kString && value.data_type != kGeneral) {
    return {};
  }
  ByteReader reader(SpanOf<unsigned char>(value.data_date, value.data_size));
  const std::u16string units = reader.WideText();
  return std::string(DecodeText(TextForm::kUtf16, reinterpret_cast<const char*>(units.data())));
}

// From release 2007 on a cell's text is a value: as it is shown, else as it is stored.
std::string TextOf(const Dwg_TABLE_value& value, const CompleteContext& context) {
  const std::string shown = Decoded(value.value_string, context);
  const std::string stored = shown.empty() ? StoredString(value) : shown;
  return stored.empty() ? Decoded(value.data_string, context) : stored;
}

std::string TextOf(const Dwg_TABLE_Cell& cell, const CompleteContext& context) {
  const std::string text = TextOf(cell.value, context);
  return text.empty() ? Decoded(cell.text_value, context) : text;
}

void AppendOwnFormat(JsonOut& out, const Dwg_TABLE_Cell& cell, const CompleteContext& context) {
  const unsigned own = cell.additional_data_flag == 0 ? 0U : cell.cell_flag_override;
  if (cell.cell_alignment != 0 || (own & kOwnAlignment) != 0) {
    AppendIntKey(out, ",\"alignment\":", cell.cell_alignment);
  }
  if (cell.text_height > 0 || (own & kOwnTextHeight) != 0) {
    AppendNumberKey(out, ",\"textHeight\":", cell.text_height);
  }
  if ((own & kOwnBackground) != 0) {
    out += ",\"background\":";
    AppendPropertyColor(out, cell.bg_color, context);
  }
  if ((own & kOwnContentColor) != 0) {
    out += ",\"textColor\":";
    AppendPropertyColor(out, cell.content_color, context);
  }
  if (const std::string* style = context.tables.textStyles.Find(HandleOf(cell.text_style))) {
    out += ",\"textStyle\":";
    out += *style;
  }
}

void AppendOldCell(JsonOut& out, const Dwg_TABLE_Cell& cell, const CompleteContext& context) {
  if (cell.type == kBlockCell) {
    AppendCellBlock(out, cell.block_handle, cell.block_scale, context);
  } else {
    AppendText(out, TextOf(cell, context));
  }
  if (cell.rotation != 0) {
    AppendNumberKey(out, ",\"rotationRad\":", cell.rotation);
  }
  AppendOwnFormat(out, cell, context);
  out += '}';
}

void AppendRange(JsonOut& out, std::uint64_t row, std::uint64_t column, std::uint64_t lastRow,
                 std::uint64_t lastColumn) {
  AppendIntKey(out, "{\"row\":", static_cast<std::int64_t>(row));
  AppendIntKey(out, ",\"column\":", static_cast<std::int64_t>(column));
  AppendIntKey(out, ",\"lastRow\":", static_cast<std::int64_t>(lastRow));
  AppendIntKey(out, ",\"lastColumn\":", static_cast<std::int64_t>(lastColumn));
  out += '}';
}

// A cell that covers others says how many columns and rows it has.
void AppendCoveringCells(JsonOut& out, std::span<const Dwg_TABLE_Cell> cells, std::size_t columns) {
  JsonList ranges(out, ",\"merged\":[");
  for (std::size_t i = 0; i < cells.size(); ++i) {
    const std::uint64_t width = std::max<std::uint64_t>(cells[i].merged_width_flag, 1);
    const std::uint64_t height = std::max<std::uint64_t>(cells[i].merged_height_flag, 1);
    if (width > 1 || height > 1) {
      const std::size_t row = i / columns;
      const std::size_t column = i % columns;
      ranges.Item([&] { AppendRange(out, row, column, row + height - 1, column + width - 1); });
    }
  }
  ranges.Close();
}

void AppendOldForm(JsonOut& out, const Dwg_Entity_TABLE& table, const CompleteContext& context) {
  AppendNumbers(out, ",\"columnWidths\":[", SpanOf<BITCODE_BD>(table.col_widths, table.num_cols),
                Itself);
  AppendNumbers(out, ",\"rowHeights\":[", SpanOf<BITCODE_BD>(table.row_heights, table.num_rows),
                Itself);
  const std::size_t columns = std::max<std::size_t>(table.num_cols, 1);
  const auto cells = SpanOf(table.cells, table.num_cols == 0 ? 0 : table.num_cells);
  JsonList list(out, ",\"cells\":[");
  for (std::size_t i = 0; i < cells.size(); ++i) {
    list.Item([&] {
      AppendPlace(out, i / columns, i % columns);
      AppendOldCell(out, cells[i], context);
    });
  }
  list.Close();
  AppendCoveringCells(out, cells, columns);
}

void AppendNewCell(JsonOut& out, const Dwg_TableCell& cell, const CompleteContext& context) {
  constexpr BITCODE_BL kBlockContent = 4;
  for (const auto& content : SpanOf(cell.cell_contents, cell.num_cell_contents)) {
    if (content.type == kBlockContent) {
      AppendCellBlock(out, content.handle, content.content_format.block_scale, context);
      break;
    }
    const std::string text = TextOf(content.value, context);
    if (!text.empty()) {
      AppendText(out, text);
      break;
    }
  }
  const Dwg_ContentFormat& format = cell.cellstyle.content_format;
  if (format.cell_alignment != 0) {
    AppendIntKey(out, ",\"alignment\":", format.cell_alignment);
  }
  if (format.text_height > 0) {
    AppendNumberKey(out, ",\"textHeight\":", format.text_height);
  }
  if (format.rotation != 0) {
    AppendNumberKey(out, ",\"rotationRad\":", format.rotation);
  }
  out += '}';
}

void AppendMergedRanges(JsonOut& out, const Dwg_FormattedTableData& data) {
  JsonList ranges(out, ",\"merged\":[");
  for (const auto& range : SpanOf(data.merged_cells, data.num_merged_cells)) {
    ranges.Item([&] {
      AppendRange(out, range.top_row, range.left_col, range.bottom_row, range.right_col);
    });
  }
  ranges.Close();
}

void AppendNewForm(JsonOut& out, const Dwg_Entity_TABLE& table, const CompleteContext& context) {
  const auto columns = SpanOf(table.tdata.cols, table.tdata.num_cols);
  const auto rows = SpanOf(table.tdata.rows, table.tdata.num_rows);
  AppendNumbers<Dwg_TableDataColumn>(
      out, ",\"columnWidths\":[", columns,
      [](const Dwg_TableDataColumn& column) { return double{column.width}; });
  AppendNumbers<Dwg_TableRow>(out, ",\"rowHeights\":[", rows,
                              [](const Dwg_TableRow& row) { return double{row.height}; });
  JsonList list(out, ",\"cells\":[");
  for (std::size_t row = 0; row < rows.size(); ++row) {
    const auto cells = SpanOf(rows[row].cells, rows[row].num_cells);
    for (std::size_t column = 0; column < cells.size(); ++column) {
      list.Item([&] {
        AppendPlace(out, row, column);
        AppendNewCell(out, cells[column], context);
      });
    }
  }
  list.Close();
  AppendMergedRanges(out, table.fdata);
}

}  // namespace

void AppendTable(JsonOut& out, const Dwg_Entity_TABLE& table, const CompleteContext& context) {
  if (const std::string* block = BlockName(table.block_header, context)) {
    AppendQuotedKey(out, ",\"blockName\":", *block);
  }
  AppendNumberKey(out, ",\"x\":", table.ins_pt.x);
  AppendNumberKey(out, ",\"y\":", table.ins_pt.y);
  AppendNumberKey(out, ",\"rotationRad\":", table.rotation);
  if (table.cells == nullptr && table.tdata.rows != nullptr) {
    AppendNewForm(out, table, context);
  } else {
    AppendOldForm(out, table, context);
  }
}

void AppendTableFurtherKeys(JsonOut& out, const Dwg_Entity_TABLE& table,
                            const CompleteContext& context) {
  const BITCODE_3BD& direction = table.cells == nullptr ? table.hor_dir : table.horiz_direction;
  AppendPointKey(out, ",\"position\":", table.ins_pt.x, table.ins_pt.y, table.ins_pt.z);
  AppendPointKey(out, ",\"horizontalDirection\":", direction.x, direction.y, direction.z);
  const auto* style =
      ReferencedObject(table.tablestyle, DWG_TYPE_TABLESTYLE, &ObjectTio::TABLESTYLE, context);
  if (style != nullptr) {
    AppendQuotedKey(out, ",\"tableStyle\":", context.Decode(style->name));
  }
  AppendPlaneKeys(out, 0, 0, table.extrusion);
}
