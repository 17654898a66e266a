// Records of tables (ACAD_TABLE; the library names the type TABLE).
#pragma once

#include <dwg.h>

#include "complete/complete_context.hpp"
#include "encode/json_out.hpp"

// Where the table stands and the name of its anonymous block, which holds all of it
// as drawn, in the keys of an INSERT; then sizes of columns and rows and the cells, row
// after row. Drawings of release 2010 and later store the cells in another form than
// older ones; both give the same keys.
void AppendTable(JsonOut& out, const Dwg_Entity_TABLE& table, const CompleteContext& context);

void AppendTableFurtherKeys(JsonOut& out, const Dwg_Entity_TABLE& table,
                            const CompleteContext& context);
