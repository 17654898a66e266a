#include "complete/properties.hpp"

#include <algorithm>
#include <array>
#include <cstdio>
#include <string_view>

#include "complete/json_object.hpp"
#include "encode/json_list.hpp"
#include "encode/json_text.hpp"
#include "entities/drawing_access.hpp"

namespace {

constexpr std::uint32_t kMillisecondsPerDay = 86400000;

struct TextProperty {
  std::string_view key;
  std::string_view variable;  // of a DXF header
  char* Dwg_SummaryInfo::*member;
};

constexpr std::array kTexts = {
    TextProperty{"title", "TITLE", &Dwg_SummaryInfo::TITLE},
    TextProperty{"subject", "SUBJECT", &Dwg_SummaryInfo::SUBJECT},
    TextProperty{"author", "AUTHOR", &Dwg_SummaryInfo::AUTHOR},
    TextProperty{"keywords", "KEYWORDS", &Dwg_SummaryInfo::KEYWORDS},
    TextProperty{"comments", "COMMENTS", &Dwg_SummaryInfo::COMMENTS},
    TextProperty{"lastSavedBy", "LASTSAVEDBY", &Dwg_SummaryInfo::LASTSAVEDBY},
    TextProperty{"revision", "REVISIONNUMBER", &Dwg_SummaryInfo::REVISIONNUMBER},
    TextProperty{"hyperlinkBase", "HYPERLINKBASE", &Dwg_SummaryInfo::HYPERLINKBASE},
};

// LibreDWG changes the bytes of a DXF file's, so that these come from the file itself.
const char* StoredText(const TextProperty& property, const CompleteContext& context) {
  const DxfHeader* header = context.base.drawing.dxfHeader;
  if (header == nullptr) {
    return context.dwg().summaryinfo.*property.member;
  }
  const auto found = std::ranges::find(header->texts, property.variable,
                                       &std::pair<std::string, std::string>::first);
  return found == header->texts.end() ? nullptr : found->second.c_str();
}

void AppendTexts(JsonObject& object, const CompleteContext& context) {
  for (const TextProperty& property : kTexts) {
    const DecodedText text = context.Decode(StoredText(property, context));
    if (!text.view().empty()) {
      object.Item(property.key, [&] { AppendQuoted(object.out(), text); });
    }
  }
}

void AppendCustom(JsonList& list, const char* name, const char* value,
                  const CompleteContext& context) {
  list.Item([&] {
    AppendQuotedKey(list.out(), "{\"name\":", context.Decode(name));
    AppendQuotedKey(list.out(), ",\"value\":", context.Decode(value));
    list.out() += '}';
  });
}

// A DXF header has a name and a value in turn.
void AppendDxfCustoms(JsonList& list, const DxfHeader& header, const CompleteContext& context) {
  const char* name = nullptr;
  for (const auto& [variable, text] : header.texts) {
    if (variable == "CUSTOMPROPERTYTAG") {
      name = text.c_str();
    } else if (variable == "CUSTOMPROPERTY" && name != nullptr) {
      AppendCustom(list, name, text.c_str(), context);
      name = nullptr;
    }
  }
}

void AppendCustoms(JsonObject& object, const CompleteContext& context) {
  object.Item("custom", [&] {
    const std::size_t start = object.out().size();
    JsonList list(object.out());
    if (const DxfHeader* header = context.base.drawing.dxfHeader) {
      AppendDxfCustoms(list, *header, context);
    } else {
      const Dwg_SummaryInfo& info = context.dwg().summaryinfo;
      for (const auto& property : SpanOf<Dwg_SummaryInfo_Property>(info.props, info.num_props)) {
        AppendCustom(list, property.tag, property.value, context);
      }
    }
    list.Close();
    if (list.IsEmpty()) {
      object.out().Truncate(start);
    }
  });
}

void AppendTime(JsonObject& object, std::string_view key, const BITCODE_TIMEBLL& time) {
  const std::string text = TimeText(time.days, time.ms);
  if (!text.empty()) {
    object.Item(key, [&] { AppendQuoted(object.out(), text); });
  }
}

void AppendTimes(JsonObject& object, const Dwg_Header_Variables& vars) {
  AppendTime(object, "created", vars.TDCREATE);
  AppendTime(object, "updated", vars.TDUPDATE);
  const double days =
      vars.TDINDWG.days + static_cast<double>(vars.TDINDWG.ms) / kMillisecondsPerDay;
  if (days > 0) {
    object.Item("editingDays", [&] { AppendNumber(object.out(), days); });
  }
}

}  // namespace

void AppendProperties(JsonOut& out, const CompleteContext& context) {
  JsonObject object(out, ",\"properties\":{");
  AppendTexts(object, context);
  AppendTimes(object, context.dwg().header_vars);
  AppendCustoms(object, context);
  object.Close();
}

// The civil calendar from a count of days, by eras of 400 years that begin in March.
std::string TimeText(std::uint32_t julianDay, std::uint32_t milliseconds) {
  constexpr std::uint32_t kFirstDay = 1721426;  // of the year 1
  constexpr std::uint32_t kLastDay = 5373484;   // of the year 9999
  if (julianDay < kFirstDay || julianDay > kLastDay || milliseconds >= kMillisecondsPerDay) {
    return {};
  }
  constexpr std::uint32_t kDaysOfEra = 146097;
  constexpr std::uint32_t kMarchOfYear0 = 1721120;
  const std::uint32_t days = julianDay - kMarchOfYear0;
  const std::uint32_t dayOfEra = days % kDaysOfEra;
  const std::uint32_t yearOfEra =
      (dayOfEra - dayOfEra / 1460 + dayOfEra / 36524 - dayOfEra / 146096) / 365;
  const std::uint32_t dayOfYear = dayOfEra - (365 * yearOfEra + yearOfEra / 4 - yearOfEra / 100);
  const std::uint32_t monthFromMarch = (5 * dayOfYear + 2) / 153;
  const std::uint32_t day = dayOfYear - (153 * monthFromMarch + 2) / 5 + 1;
  const std::uint32_t month = monthFromMarch < 10 ? monthFromMarch + 3 : monthFromMarch - 9;
  const std::uint32_t year = days / kDaysOfEra * 400 + yearOfEra + (month <= 2 ? 1 : 0);
  const std::uint32_t seconds = milliseconds / 1000;
  std::array<char, 64> text{};
  std::snprintf(text.data(), text.size(), "%04u-%02u-%02uT%02u:%02u:%02u", year, month, day,
                seconds / 3600, seconds / 60 % 60, seconds % 60);
  return text.data();
}
