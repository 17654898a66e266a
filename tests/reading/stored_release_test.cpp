#include "reading/stored_release.hpp"

#include <gtest/gtest.h>

namespace {

using namespace std::string_literals;

TEST(StoredReleaseOfDwg, IsWhatTheFileBeginsWith) {
  EXPECT_EQ(StoredReleaseOfDwg("AC1032\0"s), "AC1032");
  EXPECT_EQ(StoredReleaseOfDwg("AC1009"), "AC1009");
  EXPECT_EQ(StoredReleaseOfDwg("AC2.10\0"s), "AC2.10");
  EXPECT_EQ(StoredReleaseOfDwg("AC1.2\0\0"s), "AC1.2");
}

TEST(StoredReleaseOfDwg, IsNoOtherText) {
  EXPECT_EQ(StoredReleaseOfDwg(""), "");
  EXPECT_EQ(StoredReleaseOfDwg("AC"), "");
  EXPECT_EQ(StoredReleaseOfDwg("AC9999x"), "");
  EXPECT_EQ(StoredReleaseOfDwg("Secret "), "");
  EXPECT_EQ(StoredReleaseOfDwg("INVALID"), "");
}

TEST(StoredReleaseOfDxf, IsTheHeaderVariable) {
  EXPECT_EQ(StoredReleaseOfDxf("  0\nSECTION\n  2\nHEADER\n  9\n$ACADVER\n  1\nAC1015\n"),
            "AC1015");
  EXPECT_EQ(StoredReleaseOfDxf("999\r\nx\r\n  9\r\n$ACADVER\r\n     1\r\nAC1021\r\n"), "AC1021");
}

TEST(StoredReleaseOfDxf, IsTheHeaderVariableOfABinaryFile) {
  EXPECT_EQ(StoredReleaseOfDxf("AutoCAD Binary DXF\r\n\x1A\0\x09$ACADVER\0\x01"
                               "AC1009\0"s),
            "AC1009");
  EXPECT_EQ(StoredReleaseOfDxf("AutoCAD Binary DXF\r\n\x1A\0\x09\0$ACADVER\0\x01\0"
                               "AC1032\0"s),
            "AC1032");
}

TEST(StoredReleaseOfDxf, IsNoOtherText) {
  EXPECT_EQ(StoredReleaseOfDxf(""), "");
  EXPECT_EQ(StoredReleaseOfDxf("  9\n$ACADVER"), "");
  EXPECT_EQ(StoredReleaseOfDxf("  9\n$ACADVER\n  1\nSecret\n"), "");
  EXPECT_EQ(StoredReleaseOfDxf("  0\nTEXT\n  1\nAC1032\n"), "");
  const std::string farAway = "$ACADVER\n" + std::string(100, ' ') + "AC1032";
  EXPECT_EQ(StoredReleaseOfDxf(farAway), "");
}

}  // namespace
