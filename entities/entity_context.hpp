// The bundle that every entity conversion receives, built once per drawing.
// Includes no writer, so that writers can share it.
#pragma once

#include <dwg.h>

#include <string>
#include <string_view>
#include <utility>

#include "encode/text_decoding.hpp"
#include "entities/findings.hpp"
#include "entities/lookup_tables.hpp"

struct WriterMemory;

struct EntityContext {
  // To read.
  const Dwg_Data& dwg;
  TextForm textForm;
  const LookupTables& tables;
  bool verbose;  // colours carry their stored fields

  // To write.
  Findings& findings;

  // What single writers keep from one entity to the next; nobody else's matter.
  WriterMemory& memory;

  // A string of the drawing as UTF-8.
  DecodedText Decode(const char* text) const { return DecodeText(textForm, text); }

  void Warn(std::string warning) const { findings.warnings.push_back(std::move(warning)); }
};

// The entity that a writer is called for, besides the data of its type.
struct EntityOrigin {
  const Dwg_Object& object;
  std::string_view layer;  // its name, as warnings have it
};
