// Binary DXF as text.
#pragma once

#include <string>
#include <string_view>

#include "reading/dxf/dxf_repairs.hpp"

// Whether the file begins as a binary DXF does.
bool IsBinaryDxf(std::string_view bytes);

// Writes each group of a binary DXF as two lines, decimals with the digits
// that give the same number again, bytes as hexadecimal digits. Group codes of
// one byte (before R13) and two are told apart by how the first record looks.
// Lines are those of the text that comes out.
std::string TextFromBinaryDxf(std::string_view bytes, DxfRepairs& repairs);
