#include "reading/dxf/dxf_cleaning.hpp"

#include <algorithm>
#include <optional>
#include <unordered_map>
#include <utility>

#include "encode/ascii.hpp"
#include "reading/dxf/dxf_pairs.hpp"
#include "reading/dxf/dxf_record.hpp"
#include "reading/dxf/dxf_values.hpp"

namespace {

constexpr char kEndOfFileByte = '\x1A';
constexpr int kVariableCode = 9;

// Whether carriage returns end lines on their own, and not only with a line
// feed behind them.
bool HasLoneReturns(std::string_view text) {
  std::size_t at = text.find('\r');
  while (at != std::string_view::npos) {
    const std::size_t behind = text.find_first_not_of('\r', at);
    if (behind == std::string_view::npos || text[behind] != '\n') {
      return true;
    }
    at = text.find('\r', behind);
  }
  return false;
}

// Whether each line feed but a last one has a carriage return behind it: the two in
// the other order. Blank lines look like lines that end as usual then.
bool HasReversedEnds(std::string_view text) {
  const std::size_t first = text.find('\n');
  std::size_t at = first;
  while (at != std::string_view::npos && at + 1 < text.size()) {
    if (text[at + 1] != '\r') {
      return false;
    }
    at = text.find('\n', at + 1);
  }
  return first != std::string_view::npos;
}

// The lines of a text, ended by a line feed, a carriage return or both.
class Lines {
 public:
  explicit Lines(std::string_view text, DxfRepairs& repairs)
      : hasLoneReturns_(HasLoneReturns(text)), hasReversedEnds_(HasReversedEnds(text)) {
    std::size_t at = 0;
    while (at < text.size()) {
      const std::size_t end = text.find_first_of("\r\n", at);
      if (end == std::string_view::npos) {
        lines_.push_back(text.substr(at));
        return;
      }
      lines_.push_back(text.substr(at, end - at));
      at = BehindEnd(text, end, repairs);
    }
  }

  std::size_t size() const { return lines_.size(); }
  std::string_view operator[](std::size_t i) const { return lines_[i]; }

  // Leaves out every second line where all of these are blank.
  void JoinDoubledEnds(DxfRepairs& repairs);

  // The line of the file, from 1.
  std::size_t NumberOf(std::size_t i) const { return i * stride_ + 1; }

 private:
  std::size_t BehindEnd(std::string_view text, std::size_t end, DxfRepairs& repairs) const {
    if (text[end] == '\n') {
      const bool isReversed = hasReversedEnds_ && end + 1 < text.size();
      if (isReversed) {
        repairs.Add(DxfRepair::kLineEnds, lines_.size());
      }
      return end + (isReversed ? 2 : 1);
    }
    // Some programs double the carriage return before a line feed.
    const std::size_t feed = hasLoneReturns_ ? end + 1 : text.find_first_not_of('\r', end);
    const bool hasFeed = feed < text.size() && text[feed] == '\n';
    if (!hasFeed || feed != end + 1) {
      repairs.Add(DxfRepair::kLineEnds, lines_.size());
    }
    return hasFeed ? feed + 1 : end + 1;
  }

  bool hasLoneReturns_;
  bool hasReversedEnds_;
  std::size_t stride_ = 1;  // lines of the file for each
  std::vector<std::string_view> lines_;
};

bool IsBlankLine(std::string_view line) {
  return std::all_of(line.begin(), line.end(), [](char c) {
    return c == ' ' || c == '\t' || c == '\0' || c == kEndOfFileByte;
  });
}

void Lines::JoinDoubledEnds(DxfRepairs& repairs) {
  constexpr std::size_t kFewest = 8;
  if (lines_.size() < kFewest) {
    return;
  }
  for (std::size_t i = 1; i < lines_.size(); i += 2) {
    if (!IsBlankLine(lines_[i])) {
      return;
    }
  }
  repairs.Add(DxfRepair::kStrayLines, 2, lines_.size() / 2);
  for (std::size_t i = 0; i < lines_.size(); i += 2) {
    lines_[i / 2] = lines_[i];
  }
  lines_.resize((lines_.size() + 1) / 2);
  stride_ = 2;
}

bool IsPlainCode(std::string_view line) {
  const std::string_view text = TrimmedDxf(line);
  return std::all_of(text.begin(), text.end(), IsDigit);
}

// Codes of texts that people write, and that may have been broken.
constexpr bool IsFreeText(int code) {
  constexpr int kExtendedText = 1000;
  return code == 1 || code == 3 || code == kExtendedText || (code >= 300 && code <= 309);
}

bool IsNameLike(std::string_view value) {
  const std::string_view name = TrimmedDxf(value);
  const auto isLetter = [](char c) { return (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z'); };
  return std::any_of(name.begin(), name.end(), isLetter) &&
         std::all_of(name.begin(), name.end(), [&](char c) {
           return isLetter(c) || IsDigit(c) || c == '_' || c == '*' || c == '$' || c == '-' ||
                  c == '.' || c == ':';
         });
}

// Whether a value may stand behind a code, flaws of one line forgiven.
bool IsLikely(int code, std::string_view value) {
  constexpr int kSubclass = 100;
  const DxfValueKind kind = KindOfDxfCode(code);
  switch (kind) {
    case DxfValueKind::kNone: return code == kDxfComment;
    case DxfValueKind::kText:
      return code == 0           ? IsNameLike(value)
             : code == kSubclass ? !ParseDxfCode(value).has_value()
                                 : true;
    case DxfValueKind::kHandle: return ParseDxfHandle(value).has_value();
    default:
      // "3.0" is an integer that some programs write.
      return ParseDxfCode(value).has_value() ||
             MendDxfValue(kind, value).flaw != DxfValueFlaw::kBad;
  }
}

struct LoosePair {
  int code = 0;
  std::string value;
  std::size_t line = 0;  // of the code, from 0
};

class Cleaner {
 public:
  explicit Cleaner(std::string_view text) : lines_(text, out_.repairs) {
    out_.text.reserve(text.size());
    lines_.JoinDoubledEnds(out_.repairs);
  }

  CleanedDxf Run() {
    while (at_ < lines_.size() && !isEnd_) {
      const auto code = ParseDxfCode(lines_[at_]);
      // A decimal may be one, but is rather a value.
      const bool isCode = code && (IsPlainCode(lines_[at_]) || BeginsPairs(at_));
      if (isCode && !(!IsPlainCode(lines_[at_]) && TakeShifted())) {
        TakePair(*code);
      } else if (!isCode) {
        Resynchronise();
      }
    }
    WritePending();
    CountTrailingLines();
    return std::move(out_);
  }

 private:
  void Report(DxfRepair kind, std::size_t line) { out_.repairs.Add(kind, lines_.NumberOf(line)); }

  // Whether pairs begin there, blank lines and codes below 0 between them
  // forgiven: three of them, or one that begins a record, or what is left.
  bool BeginsPairs(std::size_t at) const {
    constexpr int kEnough = 3;
    constexpr int kMostForgiven = 4;
    int count = 0;
    for (int forgiven = 0; count < kEnough;) {
      if (at >= lines_.size()) {
        return count != 0;
      }
      const auto code = ParseDxfCode(lines_[at]);
      const bool isBlank = IsBlankLine(lines_[at]);
      if (isBlank || (code && *code < 0)) {
        at += isBlank ? 1 : 2;
        if (++forgiven > kMostForgiven) {
          return false;
        }
        continue;
      }
      if (!code || at + 1 >= lines_.size() || !IsLikelyAhead(*code, lines_[at + 1])) {
        return false;
      }
      if (*code == 0) {
        return true;
      }
      ++count;
      at += 2;
    }
    return true;
  }

  // An empty value is read as 0.
  static bool IsLikelyAhead(int code, std::string_view value) {
    return IsLikely(code, value) ||
           (IsBlankLine(value) && KindOfDxfCode(code) != DxfValueKind::kNone && code != 0);
  }

  void TakePair(int code) {
    if (at_ + 1 >= lines_.size()) {
      Report(DxfRepair::kMissingValues, at_);
      at_ = lines_.size();
      return;
    }
    const bool isWhole = IsLikely(code, lines_[at_ + 1]) || BeginsPairs(at_ + 2);
    if (!isWhole && BeginsPairs(at_ + 1)) {
      Report(DxfRepair::kMissingValues, at_);
      ++at_;
    } else if (!isWhole && at_ + 2 < lines_.size() && IsLikely(code, lines_[at_ + 2]) &&
               BeginsPairs(at_ + 3)) {
      Report(DxfRepair::kStrayLines, at_ + 1);
      Accept(code, lines_[at_ + 2], 3);
    } else {
      Accept(code, lines_[at_ + 1], 2);
    }
  }

  void Accept(int code, std::string_view value, std::size_t lineCount) {
    WritePending();
    if (!IsPlainCode(lines_[at_])) {
      Report(DxfRepair::kGroupCodes, at_);
    }
    pending_ = LoosePair{.code = code, .value = std::string(value), .line = at_};
    at_ += lineCount;
    if (code == 0) {
      isEnd_ = DxfRecordName(value) == "EOF";
    }
  }

  // The line is no group code.
  void Resynchronise() {
    if (TakeShifted()) {
      return;
    }
    const std::size_t first = at_;
    while (at_ < lines_.size() && (at_ == first || !BeginsPairs(at_))) {
      TakeStray();
      ++at_;
    }
  }

  // A line was lost or doubled: what was taken for the last value is a code.
  bool TakeShifted() {
    if (!pending_ || pending_->line + 2 != at_ || !IsPlainCode(pending_->value)) {
      return false;
    }
    const auto code = ParseDxfCode(pending_->value);
    const bool wasText = KindOfDxfCode(pending_->code) == DxfValueKind::kText;
    const bool isText = code && *code != 0 && KindOfDxfCode(*code) == DxfValueKind::kText;
    if (IsBlankLine(lines_[at_]) || (isText && !wasText)) {
      return false;
    }
    const bool isShifted = code && at_ + 1 < lines_.size() && IsLikely(*code, lines_[at_]) &&
                           BeginsPairs(at_ + 1) && ParseDxfCode(lines_[at_ + 1]) != code;
    if (!isShifted) {
      return false;
    }
    Report(DxfRepair::kMissingValues, pending_->line);
    pending_ = LoosePair{.code = *code, .value = std::string(lines_[at_]), .line = at_ - 1};
    isEnd_ = *code == 0 && DxfRecordName(pending_->value) == "EOF";
    ++at_;
    return true;
  }

  void TakeStray() {
    const std::string_view line = lines_[at_];
    if (IsBlankLine(line) || !pending_ || !IsFreeText(pending_->code)) {
      Report(DxfRepair::kStrayLines, at_);
      return;
    }
    Report(DxfRepair::kBrokenTexts, at_);
    pending_->value += record_ == "MTEXT" ? "\\P" : " ";
    pending_->value += line;
  }

  // Output.

  void WritePending() {
    if (pending_) {
      const LoosePair pair = *std::exchange(pending_, std::nullopt);
      Write(pair);
    }
  }

  void Write(const LoosePair& pair) {
    constexpr int kHandleCode = 5;
    if (pair.code == kDxfComment) {
      return;
    }
    const DxfValueKind kind = KindOfDxfCode(pair.code);
    if (kind == DxfValueKind::kNone) {
      Report(DxfRepair::kUnknownCodes, pair.line);
    } else if (kind == DxfValueKind::kText || (pair.code == kHandleCode && record_ == "DIMSTYLE")) {
      WriteText(pair);
    } else if (kind == DxfValueKind::kHandle) {
      WriteHandle(pair);
    } else {
      MendedDxfValue mended = MendDxfValue(kind, pair.value);
      ReportFlaw(kind, mended.flaw, pair.line + 1);
      WritePair(pair, mended.text);
    }
  }

  void ReportFlaw(DxfValueKind kind, DxfValueFlaw flaw, std::size_t line) {
    const bool isReal = kind == DxfValueKind::kReal;
    switch (flaw) {
      case DxfValueFlaw::kNone: return;
      case DxfValueFlaw::kOdd: Report(DxfRepair::kOddDecimals, line); return;
      case DxfValueFlaw::kOutside:
        Report(isReal ? DxfRepair::kDecimalsOutside : DxfRepair::kIntegersOutside, line);
        return;
      case DxfValueFlaw::kBad:
        Report(isReal                         ? DxfRepair::kBadDecimals
               : kind == DxfValueKind::kChunk ? DxfRepair::kBadChunks
                                              : DxfRepair::kBadIntegers,
               line);
    }
  }

  void WriteHandle(const LoosePair& pair) {
    if (ParseDxfHandle(pair.value).has_value()) {
      WritePair(pair, TrimmedDxf(pair.value));
      return;
    }
    Report(DxfRepair::kBadHandles, pair.line + 1);
    // Those that refer to it write it the same way.
    const auto [at, isNew] =
        newHandles_.try_emplace(std::string(TrimmedDxf(pair.value)), newHandles_.size());
    constexpr std::uint64_t kFirstNew = 0x7F000000;
    WritePair(pair, DxfHandleText(kFirstNew + at->second));
  }

  void WriteText(const LoosePair& pair) {
    std::string value = pair.value;
    const auto nulCount = static_cast<std::size_t>(std::count(value.begin(), value.end(), '\0'));
    if (nulCount != 0) {
      out_.repairs.Add(DxfRepair::kNulBytes, lines_.NumberOf(pair.line + 1), nulCount);
      std::erase(value, '\0');
    }
    if (pair.code == 0 || IsTitle(pair)) {
      WriteName(pair, value);
      return;
    }
    if (pair.code == kVariableCode && IsInHeader()) {
      WriteVariable(pair, value);
      return;
    }
    if (IsDxfNameCode(record_, pair.code)) {
      value = UsualDxfName(value);
    }
    std::string_view rest = value;
    while (rest.size() > kMostDxfValueBytes && record_ == "MTEXT" && pair.code <= 3) {
      // MTEXT goes on in as many parts as it takes.
      WritePair({.code = 3, .value = {}, .line = pair.line}, rest.substr(0, kMostDxfValueBytes));
      rest.remove_prefix(kMostDxfValueBytes);
    }
    if (rest.size() > kMostDxfValueBytes) {
      Report(DxfRepair::kLongTexts, pair.line + 1);
      rest = rest.substr(0, kMostDxfValueBytes);
    }
    WritePair(pair, IsDxfNameCode(record_, pair.code) ? TrimmedDxfEnd(rest) : rest);
  }

  // Where variables stand, with and without the section's beginning.
  bool IsInHeader() const { return record_.empty() || record_ == "SECTION" || record_ == "ENDSEC"; }

  // The name of a section or table.
  bool IsTitle(const LoosePair& pair) const {
    return pair.code == 2 && (record_ == "SECTION" || record_ == "TABLE");
  }

  void WriteName(const LoosePair& pair, const std::string& value) {
    const std::string name = DxfRecordName(value);
    if (name != value) {
      Report(DxfRepair::kRecordNames, pair.line + 1);
    }
    if (pair.code == 0) {
      record_ = name;
    }
    WritePair(pair, name);
  }

  // The name of a header variable.
  void WriteVariable(const LoosePair& pair, const std::string& value) {
    const std::string name = UsualDxfVariable(value);
    if (name != value) {
      Report(DxfRepair::kRecordNames, pair.line + 1);
    }
    WritePair(pair, name);
  }

  void WritePair(const LoosePair& pair, std::string_view value) {
    out_.lines.Add(pairCount_++, lines_.NumberOf(pair.line));
    out_.text += std::to_string(pair.code);
    out_.text += '\n';
    out_.text += value.substr(0, kMostDxfValueBytes);
    out_.text += '\n';
  }

  void CountTrailingLines() {
    for (; at_ < lines_.size(); ++at_) {
      if (!IsBlankLine(lines_[at_])) {
        Report(DxfRepair::kTrailingLines, at_);
      }
    }
  }

  CleanedDxf out_;
  Lines lines_;
  std::size_t at_ = 0;  // the next line
  std::optional<LoosePair> pending_;
  std::string record_;
  bool isEnd_ = false;
  std::size_t pairCount_ = 0;
  std::unordered_map<std::string, std::size_t> newHandles_;
};

}  // namespace

void DxfLineMap::Add(std::size_t pair, std::size_t line) {
  if (!steps_.empty() && steps_.back().line + 2 * (pair - steps_.back().pair) == line) {
    return;
  }
  steps_.push_back({pair, line});
}

std::size_t DxfLineMap::LineOf(std::size_t cleanLine) const {
  const std::size_t pair = (cleanLine - 1) / 2;
  const auto behind =
      std::upper_bound(steps_.begin(), steps_.end(), pair,
                       [](std::size_t wanted, const Step& step) { return wanted < step.pair; });
  if (behind == steps_.begin()) {
    return cleanLine;
  }
  const Step& step = *(behind - 1);
  return step.line + (cleanLine - 1 - 2 * step.pair);
}

CleanedDxf CleanDxf(std::string_view text) {
  return Cleaner(text).Run();
}
