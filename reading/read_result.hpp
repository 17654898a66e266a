// What LibreDWG tells about a drawing that it has read.
#pragma once

#include <string>

// Whether a reader's result has a bit that leaves no usable drawing. Several
// bits that LibreDWG calls critical are not among them: what could be read is
// converted.
bool IsFatalResult(int result);

// The names of a result's set bits, lowest first, separated by ", ".
std::string ErrorNames(int result);
