#include "document/layers.hpp"

#include <gtest/gtest.h>

#include <string>

#include "tests/support/test_drawing.hpp"
#include "tests/support/written.hpp"

namespace {

class Layers : public testing::Test {
 protected:
  Dwg_Object_LAYER& Add(const std::string& name) {
    auto& layer = drawing_.AddObject(DWG_TYPE_LAYER, &ObjectTio::LAYER);
    layer.name = drawing_.Text(name);
    layer.linewt = 29;
    return layer;
  }

  static std::string Write(TestDrawing& drawing, bool verbose) {
    drawing.Prepass();
    return Inside(Written(AppendLayers, drawing.Context(verbose)));
  }
  std::string Write(bool verbose = false) { return Write(drawing_, verbose); }

  // The colour of the only layer, which the case gives its fields.
  std::string ColorOf(int index, std::uint32_t word) {
    TestDrawing drawing;
    auto& layer = drawing.AddObject(DWG_TYPE_LAYER, &ObjectTio::LAYER);
    layer.name = drawing.Text("A");
    layer.color.index = static_cast<BITCODE_BSd>(index);
    layer.color.rgb = word;
    const std::string out = Write(drawing, false);
    const std::size_t start = out.find("\"color\":") + 8;
    return out.substr(start, out.find('}') + 1 - start);
  }

  TestDrawing drawing_;
};

constexpr const char* kGrey = R"({"r":128,"g":128,"b":128})";
constexpr const char* kBlack = R"({"r":0,"g":0,"b":0})";

}  // namespace

TEST_F(Layers, RecordHasItsKeysInOrder) {
  Add("Walls").color.index = 1;
  EXPECT_EQ(Write(), R"({"name":"Walls","visible":true,"locked":false,)"
                     R"("color":{"r":255,"g":0,"b":0},"lw":"L"})");
}

TEST_F(Layers, DrawingWithoutLayersWritesNothing) {
  EXPECT_EQ(Write(), "");
}

TEST_F(Layers, ObjectOrderIsKept) {
  Add("Z").color.index = 7;
  drawing_.AddObject(DWG_TYPE_STYLE, &ObjectTio::STYLE).name = drawing_.Text("M");
  Add("A").color.index = 7;
  const std::string out = Write();
  EXPECT_LT(out.find("\"Z\""), out.find("\"A\""));
  EXPECT_NE(out.find("},{"), std::string::npos);
  EXPECT_EQ(out.find("\"M\""), std::string::npos);
}

TEST_F(Layers, LayersWithoutANameOrDataAreSkipped) {
  drawing_.AddBareObject(DWG_TYPE_LAYER);
  drawing_.AddObject(DWG_TYPE_LAYER, &ObjectTio::LAYER);
  Add("");
  EXPECT_EQ(Write(), "");
  Add("A").color.index = 7;
  Add("");
  EXPECT_EQ(Write().find("{\"name\":\"A\""), 0U);
  EXPECT_EQ(Write().find("},{"), std::string::npos);
}

TEST_F(Layers, GoesByTheStoredTypeNumber) {
  Add("A");
  drawing_.last().type = 500;
  EXPECT_EQ(Write(), "");
}

TEST_F(Layers, DataOfAnotherTypeIsNeverReadAsALayer) {
  drawing_.AddObject(DWG_TYPE_DICTIONARY, &ObjectTio::DICTIONARY);
  drawing_.last().type = DWG_TYPE_LAYER;
  EXPECT_EQ(Write(), "");
}

TEST_F(Layers, EightBitNameIsDecodedAndQuoted) {
  Add("T\xFCr \"1\"\t");
  EXPECT_EQ(Write().find("{\"name\":\"T\xC3\xBCr \\\"1\\\"\\t\","), 0U);
}

TEST_F(Layers, SixteenBitNameIsDecoded) {
  auto& layer = Add("");
  layer.name = drawing_.Utf16(u"\u65E5\u672C");
  drawing_.textForm = TextForm::kUtf16;
  EXPECT_EQ(Write().find("{\"name\":\"\xE6\x97\xA5\xE6\x9C\xAC\","), 0U);
}

TEST_F(Layers, OffLayerIsNotVisible) {
  Add("A").off = 1;
  EXPECT_NE(Write().find(R"("visible":false,"locked":false)"), std::string::npos);
}

TEST_F(Layers, FrozenLayerIsVisible) {
  auto& layer = Add("A");
  layer.frozen = 1;
  layer.flag = 1;
  EXPECT_NE(Write().find(R"("visible":true,"locked":false)"), std::string::npos);
}

TEST_F(Layers, LockedLayerIsLocked) {
  Add("A").locked = 1;
  EXPECT_NE(Write().find(R"("visible":true,"locked":true)"), std::string::npos);
}

TEST_F(Layers, TrueColorWinsOverTheIndex) {
  EXPECT_EQ(ColorOf(1, 0xC2102030), R"({"r":16,"g":32,"b":48})");
  EXPECT_EQ(ColorOf(7, 0xC2000000), kBlack);
  EXPECT_EQ(ColorOf(-5, 0xC2FFFFFF), R"({"r":255,"g":255,"b":255})");
}

TEST_F(Layers, IndexedWordWinsOverTheIndex) {
  EXPECT_EQ(ColorOf(1, 0xC3000003), R"({"r":0,"g":255,"b":0})");
  EXPECT_EQ(ColorOf(-1, 0xC3000003), R"({"r":0,"g":255,"b":0})");
  EXPECT_EQ(ColorOf(1, 0xC3FFFF03), R"({"r":0,"g":255,"b":0})");
}

TEST_F(Layers, IndexedWordWithoutAnIndexFallsBackToTheIndex) {
  EXPECT_EQ(ColorOf(1, 0xC3000000), R"({"r":255,"g":0,"b":0})");
  EXPECT_EQ(ColorOf(0, 0xC3000000), kGrey);
  EXPECT_EQ(ColorOf(-3, 0xC3FF0000), kGrey);
}

TEST_F(Layers, IndexSevenIsBlack) {
  EXPECT_EQ(ColorOf(7, 0), kBlack);
  EXPECT_EQ(ColorOf(0, 0xC3000007), kBlack);
  EXPECT_EQ(ColorOf(0, 0x00000007), kBlack);
}

TEST_F(Layers, OtherIndicesComeFromThePalette) {
  EXPECT_EQ(ColorOf(11, 0), R"({"r":255,"g":50,"b":50})");
  EXPECT_EQ(ColorOf(254, 0), R"({"r":255,"g":255,"b":255})");
  EXPECT_EQ(ColorOf(255, 0), kBlack);
}

TEST_F(Layers, IndexWinsOverABareWord) {
  EXPECT_EQ(ColorOf(2, 0x00000005), R"({"r":255,"g":255,"b":0})");
}

TEST_F(Layers, BareWordIsAnIndexWhenNothingElseIs) {
  EXPECT_EQ(ColorOf(0, 0x00000005), R"({"r":0,"g":0,"b":255})");
  EXPECT_EQ(ColorOf(256, 0xC1000005), R"({"r":0,"g":0,"b":255})");
}

TEST_F(Layers, WordWithMoreThanALowByteIsNoIndex) {
  EXPECT_EQ(ColorOf(0, 0x00000105), kGrey);
  EXPECT_EQ(ColorOf(0, 0x00010005), kGrey);
  EXPECT_EQ(ColorOf(-7, 0x00FFFFFF), kGrey);
}

TEST_F(Layers, NoUsableIndexIsGrey) {
  EXPECT_EQ(ColorOf(0, 0), kGrey);
  EXPECT_EQ(ColorOf(-1, 0), kGrey);
  EXPECT_EQ(ColorOf(256, 0), kGrey);
  EXPECT_EQ(ColorOf(257, 0xC5000000), kGrey);
}

TEST_F(Layers, LineweightZeroIsANumber) {
  Add("A").linewt = 0;
  EXPECT_NE(Write().find(R"(},"lw":0})"), std::string::npos);
}

TEST_F(Layers, LineweightIsInHundredthsOfAMillimetre) {
  Add("A").linewt = 23;
  EXPECT_NE(Write().find(R"(},"lw":211})"), std::string::npos);
}

TEST_F(Layers, LineweightCodesFrom24OnAreByLayer) {
  for (const unsigned code : {24U, 29U, 30U, 31U, 255U}) {
    TestDrawing drawing;
    auto& layer = drawing.AddObject(DWG_TYPE_LAYER, &ObjectTio::LAYER);
    layer.name = drawing.Text("A");
    layer.linewt = static_cast<BITCODE_RC>(code);
    const std::string out = Write(drawing, false);
    EXPECT_NE(out.find(R"(},"lw":"L"})"), std::string::npos) << code;
  }
}

TEST_F(Layers, ExplicitTransparencyIsWrittenBehindTheLineweight) {
  auto& layer = Add("A");
  layer.color.alpha_type = 3;
  layer.color.alpha = 0;
  EXPECT_NE(Write().find(R"("lw":"L","alpha":255})"), std::string::npos);
  layer.color.alpha_type = 0xC2;
  layer.color.alpha = 64;
  EXPECT_NE(Write().find(R"("lw":"L","alpha":191})"), std::string::npos);
}

TEST_F(Layers, FullAlphaOrAnotherTypeWritesNoAlpha) {
  auto& layer = Add("A");
  layer.color.alpha_type = 3;
  layer.color.alpha = 255;
  EXPECT_EQ(Write().find("alpha"), std::string::npos);
  layer.color.alpha_type = 1;
  layer.color.alpha = 64;
  EXPECT_EQ(Write().find("alpha"), std::string::npos);
}

TEST_F(Layers, DebugAddsTheStoredColorFields) {
  auto& layer = Add("A");
  layer.color.index = -7;
  layer.color.alpha_type = 3;
  layer.color.alpha = 254;
  layer.color.alpha_raw = 0x80000001;
  EXPECT_EQ(Write(true),
            R"({"name":"A","visible":true,"locked":false,"color":{"r":128,"g":128,"b":128},)"
            R"("lw":"L","alpha":1,"_dbg":{"color_index":-7,"color_alpha_type":3,)"
            R"("color_alpha":254,"color_alpha_raw":2147483649}})");
}
