// The bundle that every entity conversion receives, built once per drawing.
// Includes no writer, so that writers can share it.
#pragma once

#include <dwg.h>

#include <string>
#include <string_view>
#include <utility>

#include "encode/text_decoding.hpp"
#include "entities/drawing.hpp"
#include "entities/findings.hpp"
#include "entities/lookup_tables.hpp"

struct WriterMemory;

struct EntityContext {
  // To read.
  const Drawing& drawing;
  const LookupTables& tables;
  bool verbose;  // colours carry their stored fields

  // To write.
  Findings& findings;

  // What single writers keep from one entity to the next; nobody else's matter.
  WriterMemory& memory;

  const Dwg_Data& dwg() const { return drawing.data; }

  // A string of the drawing as UTF-8.
  DecodedText Decode(const char* text) const { return drawing.Decode(text); }

  void Warn(std::string warning) const { findings.warnings.push_back(std::move(warning)); }
};

// The entity that a writer is called for, besides the data of its type.
struct EntityOrigin {
  const Dwg_Object& object;
  std::string_view layer;  // its name, as warnings have it
};
