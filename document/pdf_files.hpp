// The files and pages that PDF definitions stand for.
#pragma once

#include <cstdint>
#include <filesystem>
#include <string>
#include <string_view>

// The file of a definition: the declared path when something is there, else a
// file of its name in `folder`, unless that is empty. Empty when there is none.
std::string ResolvePdf(const std::string& declaredPath, const std::filesystem::path& folder);

// The part of a declared path that names the file: what follows its last slash
// or backslash, or a leading drive letter. Empty when it ends in a separator.
std::string FileNameComponent(std::string_view declaredPath);

// The page that a PDF definition's name stands for, 1 unless it is a larger
// 32-bit number.
std::int32_t PdfPage(std::string_view name);
