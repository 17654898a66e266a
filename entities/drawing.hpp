// A drawing as reading leaves it: one form, whatever file it came from.
#pragma once

#include <dwg.h>

#include <cstddef>
#include <filesystem>
#include <map>
#include <string>

#include "encode/text_decoding.hpp"

struct Drawing {
  Dwg_Data& data;
  TextForm textForm = TextForm::kWindows1252;

  // Where files beside the drawing are; empty when that is not known.
  std::filesystem::path folder = {};

  // How many entities were left out because the reader knows no such type, by
  // the name that the file gives it. They count like those without a record.
  std::map<std::string, std::size_t> unknownEntities = {};
};
