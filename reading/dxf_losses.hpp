// What LibreDWG's DXF reader leaves out of a drawing while it reads: what it
// cannot read, and objects that no document holds.
#pragma once

#include <cstddef>
#include <map>
#include <string>

#include "reading/dxf/dxf_repairs.hpp"

// Lets the reads that follow on this thread pass over the objects that no
// document needs.
void ReadNeededObjectsOnly();

// Lets them read all objects again.
void ReadAllObjects();

// Counts from its construction on what the reads of this thread leave out, and
// stops when it is destroyed. One at a time on a thread.
class DxfLosses {
 public:
  DxfLosses();
  ~DxfLosses();
  DxfLosses(const DxfLosses&) = delete;
  DxfLosses& operator=(const DxfLosses&) = delete;

  // Entities of types that the library does not know, by the name that the file
  // gives them.
  const std::map<std::string, std::size_t>& unknownEntities() const { return unknownEntities_; }

  // Records that could not be read, at offsets into what was read.
  const DxfRepairs& unreadable() const { return unreadable_; }

 private:
  void AddUnknown(const char* name, bool isEntity);
  void AddUnreadable(std::size_t offset, bool isEntity);

  std::map<std::string, std::size_t> unknownEntities_;
  DxfRepairs unreadable_;
};
