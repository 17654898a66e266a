#include "complete/proxy_graphics.hpp"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "tests/support/byte_writer.hpp"
#include "tests/support/drawn_types.hpp"

namespace {

using Bytes = std::vector<unsigned char>;

// The head's two numbers, then items with their sizes.
class Graphics {
 public:
  Graphics() { writer_.Long(0).Long(0); }

  Graphics& Add(std::uint32_t kind, const ByteWriter& data) {
    writer_.Long(static_cast<std::uint32_t>(data.bytes().size()) + 8).Long(kind);
    writer_.Bytes(data.bytes());
    return *this;
  }

  Bytes bytes() const { return writer_.bytes(); }

 private:
  ByteWriter writer_;
};

class ProxyGraphics : public testing::Test {
 protected:
  std::string Written(const Bytes& bytes) {
    drawing.Prepass();
    Drawing drawn = drawing.drawing();
    const CompleteTables complete = BuildCompleteTables(drawn, drawing.tables);
    const EntityContext base = drawing.Context();
    JsonOut out;
    AppendStoredGraphics(out, bytes, CompleteContext{.base = base, .tables = complete});
    return out.Text();
  }
  std::string Item(std::uint32_t kind, const ByteWriter& data) {
    return Written(Graphics().Add(kind, data).bytes());
  }

  DrawnTypes drawing;
};

}  // namespace

TEST_F(ProxyGraphics, Circle) {
  EXPECT_EQ(Item(2, ByteWriter().Doubles({1, 2, 3, 4, 0, 0, 1})),
            R"(,"graphics":[{"type":"CIRCLE","center":[1,2,3],"radius":4,"normal":[0,0,1]}])");
}

TEST_F(ProxyGraphics, ThreePointCurves) {
  const ByteWriter points = ByteWriter().Doubles({1, 0, 0, 0, 1, 0, -1, 0, 0});
  EXPECT_EQ(Item(3, points),
            R"(,"graphics":[{"type":"CIRCLE_3P","points":[[1,0,0],[0,1,0],[-1,0,0]]}])");
  EXPECT_EQ(Item(5, points),
            R"(,"graphics":[{"type":"ARC_3P","points":[[1,0,0],[0,1,0],[-1,0,0]]}])");
}

TEST_F(ProxyGraphics, Arc) {
  EXPECT_EQ(Item(4, ByteWriter().Doubles({1, 2, 3, 4, 0, 0, 1, 1, 0, 0, 0.5}).Long(0)),
            R"(,"graphics":[{"type":"ARC","center":[1,2,3],"radius":4,"normal":[0,0,1],)"
            R"("startDirection":[1,0,0],"sweepRad":0.5}])");
}

TEST_F(ProxyGraphics, EllipticArc) {
  EXPECT_EQ(Item(44, ByteWriter().Doubles({1, 2, 3, 0, 0, 1, 5, 4, 0.1, 0.2, 0.3}).Long(0)),
            R"(,"graphics":[{"type":"ELLIPSE","center":[1,2,3],"normal":[0,0,1],)"
            R"("majorRadius":5,"minorRadius":4,"startParam":0.1,"endParam":0.2,)"
            R"("rotationRad":0.3}])");
}

TEST_F(ProxyGraphics, PolylinesAndPolygons) {
  const ByteWriter two = ByteWriter().Long(2).Doubles({1, 2, 3, 4, 5, 6});
  EXPECT_EQ(Item(6, two), R"(,"graphics":[{"type":"POLYLINE","points":[[1,2,3],[4,5,6]]}])");
  EXPECT_EQ(Item(7, two), R"(,"graphics":[{"type":"POLYGON","points":[[1,2,3],[4,5,6]]}])");
  EXPECT_EQ(Item(32, ByteWriter().Long(1).Doubles({1, 2, 3, 0, 0, 1})),
            R"(,"graphics":[{"type":"POLYLINE","points":[[1,2,3]],"normal":[0,0,1]}])");
}

TEST_F(ProxyGraphics, MeshesAndShells) {
  EXPECT_EQ(Item(8, ByteWriter().Long(1).Long(2).Doubles({1, 2, 3, 4, 5, 6})),
            R"(,"graphics":[{"type":"MESH","rows":1,"columns":2,"points":[[1,2,3],[4,5,6]]}])");
  EXPECT_EQ(Item(9, ByteWriter()
                        .Long(3)
                        .Doubles({0, 0, 0, 1, 0, 0, 0, 1, 0})
                        .Long(6)
                        .Long(3)
                        .Long(0)
                        .Long(1)
                        .Long(2)
                        .Long(0xFFFFFFFF)
                        .Long(1)),
            R"(,"graphics":[{"type":"SHELL","points":[[0,0,0],[1,0,0],[0,1,0]],)"
            R"("faces":[[0,1,2],[1]],"holes":[1]}])");
}

TEST_F(ProxyGraphics, Texts) {
  const ByteWriter place = ByteWriter().Doubles({1, 2, 0, 0, 0, 1, 1, 0, 0});
  EXPECT_EQ(Item(10, ByteWriter(place).Doubles({2.5, 1, 0}).Text("Wall")),
            R"(,"graphics":[{"type":"TEXT","position":[1,2,0],"normal":[0,0,1],)"
            R"("direction":[1,0,0],"height":2.5,"widthFactor":1,"obliqueRad":0,"text":"Wall"}])");
  EXPECT_EQ(Item(36, ByteWriter(place).Doubles({2.5, 1, 0}).WideText(u"Ж")),
            R"(,"graphics":[{"type":"TEXT","position":[1,2,0],"normal":[0,0,1],)"
            R"("direction":[1,0,0],"height":2.5,"widthFactor":1,"obliqueRad":0,"text":"Ж"}])");
  EXPECT_EQ(Item(11, ByteWriter(place)
                         .Text("ab")
                         .Long(2)
                         .Long(1)
                         .Doubles({2.5, 1, 0, 100})
                         .Long(0)
                         .Long(0)
                         .Long(0)
                         .Long(1)
                         .Long(0)
                         .Text("txt.shx")
                         .Text("")),
            R"(,"graphics":[{"type":"TEXT","position":[1,2,0],"normal":[0,0,1],)"
            R"("direction":[1,0,0],"text":"ab","isRaw":true,"height":2.5,"widthFactor":1,)"
            R"("obliqueRad":0,"tracking":100,"isUnderlined":true,"fontFile":"txt.shx",)"
            R"("bigFontFile":""}])");
}

TEST_F(ProxyGraphics, EndlessLines) {
  const ByteWriter points = ByteWriter().Doubles({1, 2, 3, 4, 5, 6});
  EXPECT_EQ(Item(12, points), R"(,"graphics":[{"type":"XLINE","points":[[1,2,3],[4,5,6]]}])");
  EXPECT_EQ(Item(13, points), R"(,"graphics":[{"type":"RAY","points":[[1,2,3],[4,5,6]]}])");
}

// Flags 16 (bulges) and 512 (closed) are the short 0x0210; counts are long codes 01,
// a byte each. Then two points, the second with the code 11 for whole numbers, and
// two bulges 1 (code 01) and 0 (code 10). Bit by bit:
//   00 00010000 00000010 | 01 00000010 | 01 00000010 | x y | 11 x 11 y | 01 10
TEST_F(ProxyGraphics, LightweightPolyline) {
  std::string bits =
      "00"
      "00010000"
      "00000010"
      "01"
      "00000010"
      "01"
      "00000010";
  const auto number = [](double value) {
    const Bytes bytes = ByteWriter().Double(value).bytes();
    std::string text;
    for (const unsigned char byte : bytes) {
      for (unsigned bit = 8; bit-- > 0;) {
        text += (byte >> bit & 1U) != 0 ? '1' : '0';
      }
    }
    return text;
  };
  bits += number(1) + number(2) + "11" + number(3) + "11" + number(4) + "01" + "10";
  Bytes packed((bits.size() + 7) / 8);
  for (std::size_t i = 0; i < bits.size(); ++i) {
    packed[i / 8] =
        static_cast<unsigned char>(packed[i / 8] | (bits[i] == '1' ? 0x80U >> (i % 8) : 0U));
  }
  EXPECT_EQ(Item(33, ByteWriter().Long(static_cast<std::uint32_t>(packed.size())).Bytes(packed)),
            R"(,"graphics":[{"type":"LWPOLYLINE","closed":true,"points":[[1,2],[3,4]],)"
            R"("bulges":[1,0],"widths":[],"constantWidth":0,"elevation":0,"normal":[0,0,1]}])");
}

TEST_F(ProxyGraphics, AttributesHoldForWhatFollows) {
  const ByteWriter line = ByteWriter().Long(1).Doubles({1, 2, 3});
  const Graphics graphics = Graphics()
                                .Add(6, line)
                                .Add(14, ByteWriter().Long(0))
                                .Add(20, ByteWriter().Long(1))
                                .Add(23, ByteWriter().Long(25))
                                .Add(24, ByteWriter().Double(2))
                                .Add(25, ByteWriter().Double(3))
                                .Add(7, line)
                                .Add(22, ByteWriter().Long(0xC2010203))
                                .Add(23, ByteWriter().Long(0xFFFFFFFF))
                                .Add(6, line);
  EXPECT_EQ(Written(graphics.bytes()),
            R"(,"graphics":[{"type":"POLYLINE","points":[[1,2,3]]},)"
            R"({"type":"POLYGON","points":[[1,2,3]],"color":"K","linetypeScale":2,"lw":25,)"
            R"("thickness":3,"filled":true},)"
            R"({"type":"POLYLINE","points":[[1,2,3]],"color":{"r":1,"g":2,"b":3},)"
            R"("linetypeScale":2,"thickness":3}])");
}

TEST_F(ProxyGraphics, MatricesAreItems) {
  ByteWriter matrix;
  for (int i = 1; i <= 16; ++i) {
    matrix.Double(i);
  }
  EXPECT_EQ(Written(Graphics().Add(29, matrix).Add(31, ByteWriter()).bytes()),
            R"(,"graphics":[{"type":"PUSH_MATRIX","matrix":[[1,2,3,4],[5,6,7,8],[9,10,11,12],)"
            R"([13,14,15,16]]},{"type":"POP_MATRIX"}])");
}

TEST_F(ProxyGraphics, WhatIsUnknownOrOfNoSenseIsLeftOut) {
  EXPECT_EQ(Item(1, ByteWriter().Doubles({0, 0, 0, 1, 1, 1})), "");
  EXPECT_EQ(Item(999, ByteWriter().Long(1)), "");
  EXPECT_EQ(Item(6, ByteWriter().Long(0xFFFFFFFF).Doubles({1, 2, 3})), "");
  EXPECT_EQ(Item(8, ByteWriter().Long(0xFFFFFFFF).Long(0xFFFFFFFF)), "");
  EXPECT_EQ(Item(9, ByteWriter().Long(1).Doubles({1, 2, 3}).Long(0xFFFFFFFF)), "");
  EXPECT_EQ(Item(33, ByteWriter().Long(0xFFFFFFFF)), "");
  EXPECT_EQ(Written({}), "");
  EXPECT_EQ(Written({1, 2, 3}), "");
}

// Cut anywhere, the items before the cut remain.
TEST_F(ProxyGraphics, MayEndAnywhere) {
  const Bytes whole = Graphics()
                          .Add(2, ByteWriter().Doubles({1, 2, 3, 4, 0, 0, 1}))
                          .Add(6, ByteWriter().Long(1).Doubles({1, 2, 3}))
                          .bytes();
  constexpr std::size_t kAfterCircle = 8 + 8 + 56;
  for (std::size_t size = 0; size < whole.size(); ++size) {
    const std::string text = Written(Bytes(whole.begin(), whole.begin() + static_cast<long>(size)));
    EXPECT_EQ(text.empty(), size < kAfterCircle) << size;
    EXPECT_EQ(text.find("POLYLINE"), std::string::npos) << size;
  }
}

TEST_F(ProxyGraphics, RecordsOfProxiesAndOfUnknownClasses) {
  Bytes bytes = Graphics().Add(6, ByteWriter().Long(1).Doubles({1, 2, 3})).bytes();
  auto& classes = drawing.New<Dwg_Class>();
  classes.dxfname = drawing.Text("WALL");
  classes.cppname = drawing.Text("AcmeWall");
  drawing.data().dwg_class = &classes;
  drawing.data().num_classes = 1;
  drawing.AddBareEntity(DWG_TYPE_UNKNOWN_ENT, 0x50).type = 500;
  const auto set = [&](Dwg_Object_Entity& entity) {
    entity.preview_exists = 1;
    entity.preview = bytes.data();
    entity.preview_size = bytes.size();
  };
  set(drawing.lastEntity());
  EXPECT_TRUE(drawing.RecordOf(drawing.last())
                  .starts_with(R"({"type":"UNKNOWN_ENT","layer":"0","className":"WALL",)"
                               R"("cppName":"AcmeWall","graphics":[{"type":"POLYLINE",)"));
  drawing.AddEntity(DWG_TYPE_PROXY_ENTITY, &EntityTio::PROXY_ENTITY, 0x51).class_id = 500;
  set(drawing.lastEntity());
  EXPECT_TRUE(drawing.RecordOf(drawing.last())
                  .starts_with(R"({"type":"PROXY_ENTITY","layer":"0","className":"WALL",)"));
  EXPECT_TRUE(drawing.counts.empty());
}

TEST_F(ProxyGraphics, EntitiesWithoutGraphicsAreCountedByTheirClass) {
  drawing.AddBareEntity(DWG_TYPE_UNKNOWN_ENT, 0x50).type = 500;
  EXPECT_EQ(drawing.RecordOf(drawing.last()), "");
  EXPECT_EQ(drawing.counts, (std::map<std::string, std::size_t>{{"UNKNOWN_ENT", 1}}));
}
