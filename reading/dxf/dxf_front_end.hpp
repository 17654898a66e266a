// What stands between a DXF file and LibreDWG's reader: takes any DXF that
// other programs write or damage, and gives the reader one that it reads whole.
//
// A file without flaws is passed on as it is.
#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

#include "reading/dxf/dxf_cleaning.hpp"
#include "reading/dxf/dxf_repairs.hpp"
#include "reading/dxf/dxf_rewriting.hpp"

class PreparedDxf {
 public:
  enum class Outcome : std::uint8_t {
    kPassedOn,   // the bytes as they are
    kRewritten,  // text() instead of them
    kNoDxf,      // no section was found
    kBrokenOff,  // ends before any entity
  };

  // A line feed should be the last of the bytes, and a NUL must stand behind
  // it. The bytes must outlive this.
  explicit PreparedDxf(std::string_view bytes);
  ~PreparedDxf() = default;
  PreparedDxf(const PreparedDxf&) = delete;
  PreparedDxf& operator=(const PreparedDxf&) = delete;

  Outcome outcome() const { return outcome_; }

  // What the reader gets: ends with a line feed, with a NUL behind it.
  std::string_view text() const { return text_; }

  // About how many records the text has.
  std::size_t recordCount() const { return recordCount_; }

  // The file names no release; the text names one that it looks like.
  bool IsReleaseMadeUp() const { return rewritten_ && rewritten_->isReleaseMadeUp; }

  const DxfRepairs& repairs() const { return repairs_; }

  // The line of the file that an offset in text() comes from, from 1. For a
  // record that was added, a line near to what it belongs to.
  std::size_t LineAt(std::size_t offset) const;

 private:
  void Prepare();
  std::size_t ReadLineAt(std::size_t offset) const;
  void CountTrailingLines(std::size_t end);

  std::string_view bytes_;
  std::string_view text_;
  Outcome outcome_ = Outcome::kPassedOn;
  DxfRepairs repairs_;
  std::string decoded_;  // when the file was not 8-bit text
  std::optional<CleanedDxf> cleaned_;
  std::optional<RewrittenDxf> rewritten_;
  std::string_view read_;  // what was surveyed
  std::size_t recordCount_ = 0;
};
