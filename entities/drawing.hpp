// A drawing as reading leaves it: one form, whatever file it came from.
#pragma once

#include <dwg.h>

#include <cstddef>
#include <filesystem>
#include <map>
#include <string>

#include "encode/palette.hpp"
#include "encode/text_decoding.hpp"

struct Drawing {
  Dwg_Data& data;
  TextForm textForm = TextForm::kWindows1252;

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
};
