#include "reading/dxf/dxf_header.hpp"

#include <gtest/gtest.h>

TEST(DxfHeader, NamesAndTexts) {
  const DxfHeader header = HeaderOfDxf(
      "999\nwritten by hand\n0\nSECTION\n2\nHEADER\n9\n$ACADVER\n1\nAC1015\n9\n$EXTMIN\n10\n1.0\n"
      "20\n2.0\n9\n$CUSTOMPROPERTYTAG\n1\nA\n9\n$CUSTOMPROPERTY\n1\n\n0\nENDSEC\n0\nSECTION\n2\n"
      "ENTITIES\n9\n$LATER\n0\nENDSEC\n0\nEOF\n");
  EXPECT_EQ(header.names, (std::set<std::string, std::less<>>{"ACADVER", "CUSTOMPROPERTY",
                                                              "CUSTOMPROPERTYTAG", "EXTMIN"}));
  const std::vector<std::pair<std::string, std::string>> texts = {
      {"ACADVER", "AC1015"}, {"CUSTOMPROPERTYTAG", "A"}, {"CUSTOMPROPERTY", ""}};
  EXPECT_EQ(header.texts, texts);
}

TEST(DxfHeader, NothingInAnEmptyText) {
  EXPECT_TRUE(HeaderOfDxf("").names.empty());
}
