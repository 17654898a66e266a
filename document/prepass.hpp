// The one pass over a drawing's objects that fills the lookup tables.
#pragma once

#include <dwg.h>

#include <filesystem>

#include "entities/lookup_tables.hpp"

// Fills every table in object order; a later object replaces an earlier one of
// the same handle. Missing names or data simply leave their entries out.
// `unicodeText` says whether strings are UTF-16. PDF files that are not where
// the drawing says are looked for in `drawingFolder`, unless that is empty.
LookupTables BuildLookupTables(const Dwg_Data& dwg, bool unicodeText,
                               const std::filesystem::path& drawingFolder);

// The part of a declared path that names the file: what follows its last slash
// or backslash, or a leading drive letter. Empty when it ends in a separator.
std::string FileNameComponent(std::string_view declaredPath);

// The page that a PDF definition's name stands for, 1 unless it is a larger
// 32-bit number.
std::int32_t PdfPage(std::string_view name);
