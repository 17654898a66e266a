#include "reading/dxf/dxf_front_end.hpp"

#include <algorithm>

#include "reading/dxf/dxf_binary.hpp"
#include "reading/dxf/dxf_encoding.hpp"
#include "reading/dxf/dxf_survey.hpp"

namespace {

// LibreDWG says so of these itself.
bool IsDwg(std::string_view bytes) {
  return bytes.starts_with("AC10") || bytes.starts_with("AC1.") || bytes.starts_with("AC2.10") ||
         bytes.starts_with("MC0.0");
}

bool HasOpenEntities(const DxfSurvey& survey) {
  return std::none_of(survey.parts.begin(), survey.parts.end(), [](const DxfPart& part) {
    return part.section == DxfSection::kEntities && part.hasEnd;
  });
}

std::size_t LineIn(std::string_view text, std::size_t offset) {
  const auto end = text.begin() + static_cast<std::ptrdiff_t>(std::min(offset, text.size()));
  return 1 + static_cast<std::size_t>(std::count(text.begin(), end, '\n'));
}

}  // namespace

PreparedDxf::PreparedDxf(std::string_view bytes) : bytes_(bytes), text_(bytes), read_(bytes) {
  if (!IsDwg(bytes)) {
    Prepare();
  }
}

void PreparedDxf::Prepare() {
  if (HasUtf8Mark(bytes_)) {
    repairs_.Add(DxfRepair::kByteOrderMark, 1);
    read_.remove_prefix(kUtf8MarkSize);
  }
  if (IsBinaryDxf(read_)) {
    decoded_ = TextFromBinaryDxf(read_, repairs_);
    read_ = decoded_;
  } else if (IsUtf32(read_)) {
    repairs_.Add(DxfRepair::kUtf32Text, 1);
    decoded_ = Utf8FromUtf32(read_);
    read_ = decoded_;
  } else if (IsUtf16(read_)) {
    repairs_.Add(DxfRepair::kUtf16Text, 1);
    decoded_ = Utf8FromUtf16(read_);
    read_ = decoded_;
  }
  DxfSurvey survey = SurveyDxf(read_);
  const bool hasNul = read_.substr(0, survey.end).find('\0') != std::string_view::npos;
  if (!survey.isProper || hasNul) {
    cleaned_ = CleanDxf(read_);
    repairs_.AddAll(cleaned_->repairs, [](std::size_t line) { return line; });
    read_ = cleaned_->text;
    survey = SurveyDxf(read_);
  } else if (survey.hasEnd) {
    CountTrailingLines(survey.end);
  }
  recordCount_ = survey.recordCount;
  if (survey.parts.empty() || !survey.isProper) {
    outcome_ = Outcome::kNoDxf;
  } else if (!survey.hasEnd && survey.entityCount == 0 && HasOpenEntities(survey)) {
    outcome_ = Outcome::kBrokenOff;
  } else if (survey.needsRewriting) {
    rewritten_ = RewriteDxf(read_, survey);
    repairs_.AddAll(rewritten_->repairs, [this](std::size_t offset) { return ReadLineAt(offset); });
    outcome_ = Outcome::kRewritten;
    text_ = rewritten_->text;
  } else if (read_.data() != bytes_.data()) {
    outcome_ = Outcome::kRewritten;
    text_ = read_;
  }
}

void PreparedDxf::CountTrailingLines(std::size_t end) {
  constexpr std::string_view kNothing{" \t\r\n\0\x1A", 6};
  std::size_t at = read_.find_first_not_of(kNothing, end);
  while (at != std::string_view::npos) {
    repairs_.Add(DxfRepair::kTrailingLines, ReadLineAt(at));
    const std::size_t lineEnd = read_.find('\n', at);
    at = lineEnd == std::string_view::npos ? lineEnd : read_.find_first_not_of(kNothing, lineEnd);
  }
}

std::size_t PreparedDxf::ReadLineAt(std::size_t offset) const {
  const std::size_t line = LineIn(read_, offset);
  return cleaned_ ? cleaned_->lines.LineOf(line) : line;
}

std::size_t PreparedDxf::LineAt(std::size_t offset) const {
  if (!rewritten_) {
    return ReadLineAt(offset);
  }
  const auto& origins = rewritten_->origins;
  const auto behind = std::upper_bound(
      origins.begin(), origins.end(), offset,
      [](std::size_t wanted, const DxfOrigin& origin) { return wanted < origin.written; });
  return behind == origins.begin() ? 1 : ReadLineAt((behind - 1)->read);
}
