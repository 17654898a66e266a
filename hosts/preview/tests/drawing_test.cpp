#include "model/drawing.hpp"

#include <gtest/gtest.h>

#include "document.hpp"

namespace preview {
namespace {

TEST(ReadDocument, ReadsTheSections) {
  const Drawing drawing =
      DrawingOf("{'type':'POINT'}", "{'name':'B','baseX':2,'baseY':3,'entities':[{},{}]}", kLayers);
  EXPECT_EQ(drawing.release, "2018");
  EXPECT_EQ(drawing.units, 4);
  EXPECT_EQ(drawing.entities.size(), 1);
  EXPECT_EQ(drawing.blocks["B"].base, QPointF(2, 3));
  EXPECT_EQ(drawing.blocks["B"].entities.size(), 2);
  EXPECT_EQ(drawing.warnings, QStringList("one"));
  ASSERT_EQ(drawing.layers.size(), 3U);
  EXPECT_EQ(drawing.layers[0].lineweight, std::nullopt);
  EXPECT_EQ(drawing.layers[1].lineweight, 50);
  EXPECT_FALSE(drawing.layers[2].visible);
}

TEST(ReadDocument, PutsLayoutsInTheOrderOfTheirTabs) {
  const Drawing drawing = DrawingOf("", "", "",
                                    "{'name':'late','tabOrder':2,'paperW':1,'entities':[]},"
                                    "{'name':'early','tabOrder':1,'paperW':1,'entities':[]}");
  EXPECT_EQ(drawing.layouts[0].name, "early");
  EXPECT_EQ(drawing.layouts[1].name, "late");
}

TEST(ReadDocument, LeavesThePageOutWhenTheDocumentHasNone) {
  EXPECT_FALSE(DrawingOf("", "", "", "{'name':'A','entities':[]}").layouts[0].page);
}

TEST(ReadDocument, ReplacesBytesThatAreNoUtf8) {
  QString problem;
  const auto drawing = ReadDocument(
      "{\"layers\":[{\"name\":\"a\xFF\"}],\"entities\":[],\"warnings\":[]}\n", problem);
  ASSERT_TRUE(drawing);
  EXPECT_EQ(drawing->layers[0].name, QString("a") + QChar(0xFFFD));
}

TEST(ReadDocument, SaysWhatIsWrongWithAnAnswer) {
  QString problem;
  EXPECT_FALSE(ReadDocument("{\"layers\":", problem));
  EXPECT_TRUE(problem.contains("no JSON"));
  EXPECT_FALSE(ReadDocument("{\"error\":\"x\"}", problem));
  EXPECT_TRUE(problem.contains("no document"));
}

}  // namespace
}  // namespace preview
