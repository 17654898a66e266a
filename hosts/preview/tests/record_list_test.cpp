#include "model/record_list.hpp"

#include <gtest/gtest.h>

#include <string>

namespace preview {
namespace {

std::vector<std::string> TextsOf(std::string_view document, const std::vector<RecordSpan>& spans) {
  std::vector<std::string> texts;
  texts.reserve(spans.size());
  for (const RecordSpan span : spans) {
    texts.emplace_back(document.substr(span.begin, span.size));
  }
  return texts;
}

TEST(ScanDocument, FindsRecordsOfAllLists) {
  const std::string_view document =
      R"({"a":[1,{"entities":[9]}],"assets":[{"name":"B","entities":[{"x":1}]},{"name":"C"}],)"
      R"("entities":[{"b":[{}]}, 7 ,"s"],"layouts":[{"entities":[]},{"entities":[{},{}]}]})";
  const auto scanned = ScanDocument(document);
  ASSERT_TRUE(scanned);
  EXPECT_EQ(TextsOf(document, scanned->entities),
            (std::vector<std::string>{R"({"b":[{}]})", "7 ", R"("s")"}));
  ASSERT_EQ(scanned->assets.size(), 2U);
  EXPECT_EQ(TextsOf(document, scanned->assets[0]), std::vector<std::string>{R"({"x":1})"});
  EXPECT_TRUE(scanned->assets[1].empty());
  ASSERT_EQ(scanned->layouts.size(), 2U);
  EXPECT_TRUE(scanned->layouts[0].empty());
  EXPECT_EQ(scanned->layouts[1].size(), 2U);
  EXPECT_EQ(scanned->rest,
            R"({"a":[1,{"entities":[9]}],"assets":[{"name":"B","entities":[]},{"name":"C"}],)"
            R"("entities":[],"layouts":[{"entities":[]},{"entities":[]}]})");
}

TEST(ScanDocument, KeepsBracketsAndQuotesOfStringsApart) {
  const std::string_view document = R"({"entities":[{"t":"]}\"[{\\"},{"t":"\\\""}]})";
  const auto scanned = ScanDocument(document);
  ASSERT_TRUE(scanned);
  EXPECT_EQ(TextsOf(document, scanned->entities),
            (std::vector<std::string>{R"({"t":"]}\"[{\\"})", R"({"t":"\\\""})"}));
}

TEST(ScanDocument, RefusesWhatDoesNotEnd) {
  for (const char* text : {"{", "{\"a", "{\"a\"", "{\"a\":", "{\"entities\":[", "{\"entities\":[{",
                           "{\"entities\":[{}", "{\"entities\":[{},", "{\"entities\":[{}]",
                           "{\"entities\":[\"\\", "{\"entities\":[,]}", "{}}", "{}{}"}) {
    EXPECT_FALSE(ScanDocument(text)) << text;
  }
}

TEST(RecordList, ParsesARecordWhenItIsAsked) {
  const QByteArray document(R"([{"a":1},{"a":2},{"a":)");
  const RecordList records(document, {{1, 7}, {9, 7}, {17, 5}});
  EXPECT_EQ(records[1]["a"].toInt(), 2);
  EXPECT_TRUE(records[2].isEmpty());
  EXPECT_EQ(records.TextAt(0), R"({"a":1})");
}

}  // namespace
}  // namespace preview
