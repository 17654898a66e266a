// A drawing as reading leaves it: one form, whatever file it came from.
#pragma once

#include <dwg.h>

#include <cstddef>
#include <filesystem>
#include <functional>
#include <map>
#include <set>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "encode/palette.hpp"
#include "encode/text_decoding.hpp"

// What the header of a DXF file names: its variables, without their dollar signs, and
// those that are texts with their values, in the order of the file.
struct DxfHeader {
  std::set<std::string, std::less<>> names;
  std::vector<std::pair<std::string, std::string>> texts;
};

struct Drawing {
  Dwg_Data& data;
  TextForm textForm = TextForm::kWindows1252;

  // Told of drawings that were read for all that they hold.
  StoredText storedText = {};
  const DxfHeader* dxfHeader = nullptr;  // of a DXF file

  // Where files beside the drawing are; empty when that is not known.
  std::filesystem::path folder = {};

  // How many entities were left out because the reader knows no such type, by
  // the name that the file gives it. They count like those without a record.
  std::map<std::string, std::size_t> unknownEntities = {};

  // How its strings are read; null for by their form.
  const TextDecoder* decoder = nullptr;

  // What its colour indices stand for.
  const Palette& palette = DefaultPalette();

  // Whether its strings are 8-bit and read by one code page, whatever their own.
  bool MayMisreadText() const { return decoder == nullptr && textForm != TextForm::kUtf16; }

  // A string of the drawing as UTF-8.
  DecodedText Decode(const char* text) const {
    return decoder == nullptr ? DecodeText(textForm, text) : decoder->Decode(text);
  }

  // A decoded multi-line text as it is shown. `room` has to outlive the result.
  std::string_view Shown(std::string_view text, std::string& room) const {
    return decoder == nullptr ? text : decoder->Shown(text, room);
  }
};
