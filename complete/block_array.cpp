#include "complete/block_array.hpp"

#include "encode/json_text.hpp"
#include "entities/insert.hpp"

void AppendBlockArray(JsonOut& out, const Dwg_Entity_MINSERT& insert,
                      const CompleteContext& context) {
  AppendFirstCell(out, insert, context.base);
}

void AppendBlockArrayFurtherKeys(JsonOut& out, const Dwg_Entity_MINSERT& insert) {
  AppendIntKey(out, ",\"columns\":", insert.num_cols);
  AppendIntKey(out, ",\"rows\":", insert.num_rows);
  AppendNumberKey(out, ",\"columnSpacing\":", insert.col_spacing);
  AppendNumberKey(out, ",\"rowSpacing\":", insert.row_spacing);
}
