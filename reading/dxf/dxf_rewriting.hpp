// Writes a DXF text whose pairs are proper in the form that LibreDWG's reader
// reads rightly: each section once, in order and ended, every entity with a
// handle, an owner and a layer that exists, every block with a record.
//
// What older releases leave out by right is added without a word; what the
// file lacks or contradicts is counted as repaired.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

#include "reading/dxf/dxf_repairs.hpp"
#include "reading/dxf/dxf_survey.hpp"

// Where a record of the new text comes from.
struct DxfOrigin {
  std::size_t written = 0;  // offset in the new text
  std::size_t read = 0;     // offset in the text it was made from
};

struct RewrittenDxf {
  std::string text;  // ends with a line feed
  std::vector<DxfOrigin> origins;
  DxfRepairs repairs;            // by offset in the text that it was made from
  bool isReleaseMadeUp = false;  // the file names none
};

// `survey` is the one of `text`.
RewrittenDxf RewriteDxf(std::string_view text, const DxfSurvey& survey);
