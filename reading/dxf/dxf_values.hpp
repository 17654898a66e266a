// What the group codes of a DXF say about their values, and how a value that
// is not written as it should be is read.
//
// A value is proper when LibreDWG's reader takes it as it stands. Everything
// here looks at one value; none of it knows the record that holds it.
#pragma once

#include <array>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

enum class DxfValueKind : std::uint8_t {
  kNone,  // a group code that has no meaning
  kText,
  kReal,
  kByte,  // 8 bits, signed or not
  kShort,
  kInteger,  // 32 bits
  kLong,     // 64 bits
  kHandle,
  kChunk,  // bytes as hexadecimal digits
};

inline constexpr int kLastDxfGroupCode = 1071;
inline constexpr int kDxfComment = 999;

namespace dxf_values_detail {

struct CodeRange {
  int last;
  DxfValueKind kind;
};

inline constexpr std::array kCodeRanges = {
    CodeRange{4, DxfValueKind::kText},      CodeRange{5, DxfValueKind::kHandle},
    CodeRange{9, DxfValueKind::kText},      CodeRange{59, DxfValueKind::kReal},
    CodeRange{79, DxfValueKind::kShort},    CodeRange{99, DxfValueKind::kInteger},
    CodeRange{102, DxfValueKind::kText},    CodeRange{104, DxfValueKind::kNone},
    CodeRange{105, DxfValueKind::kHandle},  CodeRange{109, DxfValueKind::kNone},
    CodeRange{149, DxfValueKind::kReal},    CodeRange{169, DxfValueKind::kLong},
    CodeRange{179, DxfValueKind::kShort},   CodeRange{209, DxfValueKind::kNone},
    CodeRange{269, DxfValueKind::kReal},    CodeRange{279, DxfValueKind::kShort},
    CodeRange{299, DxfValueKind::kByte},    CodeRange{309, DxfValueKind::kText},
    CodeRange{319, DxfValueKind::kChunk},   CodeRange{369, DxfValueKind::kHandle},
    CodeRange{389, DxfValueKind::kShort},   CodeRange{399, DxfValueKind::kHandle},
    CodeRange{409, DxfValueKind::kShort},   CodeRange{419, DxfValueKind::kText},
    CodeRange{429, DxfValueKind::kInteger}, CodeRange{439, DxfValueKind::kText},
    CodeRange{459, DxfValueKind::kInteger}, CodeRange{469, DxfValueKind::kReal},
    CodeRange{479, DxfValueKind::kText},    CodeRange{998, DxfValueKind::kNone},
    CodeRange{1003, DxfValueKind::kText},   CodeRange{1004, DxfValueKind::kChunk},
    CodeRange{1009, DxfValueKind::kText},   CodeRange{1069, DxfValueKind::kReal},
    CodeRange{1070, DxfValueKind::kShort},  CodeRange{1071, DxfValueKind::kInteger},
};

consteval auto KindsByCode() {
  std::array<DxfValueKind, kLastDxfGroupCode + 1> kinds{};
  std::size_t code = 0;
  for (const CodeRange& range : kCodeRanges) {
    for (; code <= static_cast<std::size_t>(range.last); ++code) {
      kinds.at(code) = range.kind;
    }
  }
  return kinds;
}

inline constexpr auto kKindsByCode = KindsByCode();
static_assert(kCodeRanges.back().last == kLastDxfGroupCode);
static_assert(kKindsByCode[kLastDxfGroupCode] == DxfValueKind::kInteger);

}  // namespace dxf_values_detail

// kNone for codes without a meaning. 480 to 998 are among them.
constexpr DxfValueKind KindOfDxfCode(int code) {
  return code < 0 || code > kLastDxfGroupCode || code == kDxfComment
             ? DxfValueKind::kNone
             : dxf_values_detail::kKindsByCode[static_cast<std::size_t>(code)];
}

// Without blanks, tabs, carriage returns and NUL bytes at both ends.
std::string_view TrimmedDxf(std::string_view value);

// Without them at the end.
std::string_view TrimmedDxfEnd(std::string_view value);

// A line that can stand for a group code: an integer, or a decimal without a
// fraction, with blanks around it. No value for anything else.
std::optional<int> ParseDxfCode(std::string_view line);

// Whether a value stands as LibreDWG's reader takes it.
bool IsProperDxfValue(DxfValueKind kind, std::string_view value);

// Up to 16 hexadecimal digits with blanks around them. 0 for an empty value,
// none for anything else.
std::optional<std::uint64_t> ParseDxfHandle(std::string_view value);

std::string DxfHandleText(std::uint64_t handle);

// How a value that is not proper was read.
enum class DxfValueFlaw : std::uint8_t {
  kNone,     // blanks around it and the like
  kOdd,      // the number that was meant, in another notation
  kBad,      // not of its kind: 0, or what its beginning says
  kOutside,  // out of its kind's range: the nearest that is inside
};

struct MendedDxfValue {
  std::string text;
  DxfValueFlaw flaw = DxfValueFlaw::kNone;
};

// For any kind but kText. A decimal may have a comma, `D` for the exponent or
// a blank within it; what is no number, NaN and infinity become 0.
MendedDxfValue MendDxfValue(DxfValueKind kind, std::string_view value);

// The shortest text that is read as that number again.
std::string DxfRealText(double value);

// The same, written at the end of `text`.
void AppendDxfReal(double value, std::string& text);
