#include "entities/viewport.hpp"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <limits>
#include <vector>

#include "entities/convert_entity.hpp"
#include "tests/support/record_reader.hpp"
#include "tests/support/test_drawing.hpp"
#include "tests/support/written.hpp"

namespace {

using testing::Contains;
using testing::HasSubstr;
using testing::Not;

constexpr unsigned kClipped = 0x10000;

class ViewportTest : public testing::Test {
 protected:
  // A viewport of 4 by 3 paper units; `clip` 0 leaves it rectangular.
  Dwg_Entity_VIEWPORT& AddViewport(Handle handle, Handle clip = 0) {
    auto& viewport = drawing_.AddEntity(DWG_TYPE_VIEWPORT, &EntityTio::VIEWPORT, handle);
    viewport.id = 2;
    viewport.width = 4;
    viewport.height = 3;
    if (clip != 0) {
      viewport.status_flag = kClipped;
      viewport.clip_boundary = drawing_.Ref(clip);
    }
    return viewport;
  }

  void AddOutline(Handle handle) {
    auto& outline = drawing_.AddEntity(DWG_TYPE_LWPOLYLINE, &EntityTio::LWPOLYLINE, handle);
    outline.flag = 512;
    outline.num_points = 3;
    outline.points = drawing_.Array<BITCODE_2RD>({{0, 0}, {4, 0}, {0, 3}});
    drawing_.lastEntity().color.index = 1;
  }

  std::string RecordOf(std::size_t index) {
    EntityContext context = drawing_.Context();
    return Written(convertEntity, drawing_.data().object[index], context);
  }

  TestDrawing drawing_;
};

TEST_F(ViewportTest, IsWrittenWithItsViewAndStatus) {
  Dwg_Entity_VIEWPORT& viewport = AddViewport(0x50);
  viewport.center = {1, 2, 99};
  viewport.VIEWCTR = {5, 6};
  viewport.VIEWSIZE = 7;
  viewport.view_target = {8, 9, 10};
  viewport.VIEWDIR = {0, 0, 1};
  viewport.VIEWTWIST = 0.25;
  viewport.status_flag = 0x80008060;
  EXPECT_EQ(RecordOf(0),
            R"({"type":"VIEWPORT","layer":"0","cx":1,"cy":2,"width":4,"height":3,)"
            R"("viewCtrX":5,"viewCtrY":6,"viewSize":7,"targetX":8,"targetY":9,"targetZ":10,)"
            R"("dirX":0,"dirY":0,"dirZ":1,"twist":0.25,"status":2147516512,"frozenLayers":[]})");
}

TEST_F(ViewportTest, OverallViewportIsNeverWritten) {
  AddViewport(0x50).id = 1;
  EXPECT_EQ(RecordOf(0), "");
}

TEST_F(ViewportTest, OneWithoutSizeIsNotWritten) {
  AddViewport(0x50).width = 0;
  EXPECT_EQ(RecordOf(0), "");
  AddViewport(0x51).height = -3;
  EXPECT_EQ(RecordOf(1), "");
  AddViewport(0x52).width = std::numeric_limits<double>::quiet_NaN();
  EXPECT_EQ(RecordOf(2), "");
}

TEST_F(ViewportTest, FrozenLayersKeepTheirOrderAndLeaveOutUnknownOnes) {
  drawing_.tables.layers.Add(0x10, LayerEntry("WALLS"));
  drawing_.tables.layers.Add(0x11, LayerEntry("A\"B"));
  Dwg_Entity_VIEWPORT& viewport = AddViewport(0x50);
  viewport.frozen_layers = drawing_.Array<Dwg_Object_Ref*>(
      {drawing_.Ref(0x99), drawing_.Ref(0x11), nullptr, drawing_.Ref(0x10), drawing_.Ref(0)});
  viewport.num_frozen_layers = 5;
  EXPECT_THAT(RecordOf(0), HasSubstr(R"("frozenLayers":["A\"B","WALLS"]})"));
}

TEST_F(ViewportTest, FrozenLayerCountWithoutAnArrayIsEmpty) {
  AddViewport(0x50).num_frozen_layers = 4'000'000'000;
  EXPECT_THAT(RecordOf(0), HasSubstr(R"("frozenLayers":[]})"));
}

TEST_F(ViewportTest, ClipOutlineIsNestedWithoutColours) {
  AddViewport(0x50, 0x60);
  AddOutline(0x60);
  EXPECT_THAT(RecordOf(0),
              HasSubstr(R"("frozenLayers":[],"clip":{"type":"LWPOLYLINE","layer":"0",)"
                        R"("closed":true,"points":[[0,0],[4,0],[0,3]],"bulges":[0,0,0]}})"));
}

TEST_F(ViewportTest, OutlineWithoutTheStatusBitIsLeftOut) {
  AddViewport(0x50, 0x60).status_flag = 0xFFFEFFFF;
  AddOutline(0x60);
  EXPECT_THAT(RecordOf(0), Not(HasSubstr("clip")));
}

TEST_F(ViewportTest, MissingClipReferenceGivesNoClip) {
  AddViewport(0x50, 0x60).clip_boundary = nullptr;
  EXPECT_THAT(RecordOf(0), testing::EndsWith(R"("frozenLayers":[]})"));
}

TEST_F(ViewportTest, ClipHandleOfNothingGivesNoClip) {
  AddViewport(0x50, 0x60);
  EXPECT_THAT(RecordOf(0), testing::EndsWith(R"("frozenLayers":[]})"));
  AddViewport(0x51, 0x60).clip_boundary->absolute_ref = 0;
  EXPECT_THAT(RecordOf(1), testing::EndsWith(R"("frozenLayers":[]})"));
}

TEST_F(ViewportTest, ClipHandleInADrawingWithoutAHandleTableGivesNoClip) {
  AddViewport(0x50, 0x60);
  AddOutline(0x60);
  auto* table = drawing_.data().object_map;
  drawing_.data().object_map = nullptr;
  EXPECT_THAT(RecordOf(0), Not(HasSubstr("clip")));
  drawing_.data().object_map = table;
}

TEST_F(ViewportTest, ViewportThatClipsItselfHasNoClip) {
  AddViewport(0x50, 0x50);
  EXPECT_THAT(RecordOf(0), testing::EndsWith(R"("frozenLayers":[]})"));
}

TEST_F(ViewportTest, ClipThatIsNoEntityGivesNoClip) {
  AddViewport(0x50, 0x10);
  drawing_.AddLayer(0x10, "WALLS");
  EXPECT_THAT(RecordOf(0), Not(HasSubstr("clip")));
}

TEST_F(ViewportTest, ClipThatIsNotWrittenGivesNoClip) {
  AddViewport(0x50, 0x60);
  drawing_.AddEntity(DWG_TYPE_LWPOLYLINE, &EntityTio::LWPOLYLINE, 0x60);
  EXPECT_THAT(RecordOf(0), Not(HasSubstr("clip")));
}

TEST_F(ViewportTest, UnsupportedClipIsCountedLikeAnyEntity) {
  AddViewport(0x50, 0x60);
  drawing_.AddBareEntity(DWG_TYPE_REGION, 0x60).name = drawing_.Text("REGION");
  EXPECT_THAT(RecordOf(0), Not(HasSubstr("clip")));
  EXPECT_THAT(drawing_.counts, Contains(testing::Pair("REGION", 1U)));
}

TEST_F(ViewportTest, EveryViewportThatNamesAnOutlineHasIt) {
  AddViewport(0x50, 0x70);
  AddViewport(0x51, 0x70);
  auto& hatch = drawing_.AddEntity(DWG_TYPE_HATCH, &EntityTio::HATCH, 0x70);
  Dwg_HATCH_Path path{};
  path.flag = 2;
  path.num_segs_or_paths = 3;
  path.polyline_paths =
      drawing_.Array<Dwg_HATCH_PolylinePath>(std::vector<Dwg_HATCH_PolylinePath>(3));
  hatch.paths = &path;
  hatch.num_paths = 1;
  EntityContext context = drawing_.Context();
  for (const std::size_t viewport : {0U, 1U}) {
    EXPECT_THAT(Written(convertEntity, drawing_.data().object[viewport], context),
                HasSubstr(R"("clip":{"type":"HATCH","layer":"0","solid":false,)"
                          R"("loops":[[0,0,0,0,0,0]]}})"));
  }
}

TEST_F(ViewportTest, WarningOfAnOutlineCountsForEveryViewport) {
  AddViewport(0x50, 0x70);
  AddViewport(0x51, 0x70);
  drawing_.AddEntity(DWG_TYPE_SPLINE, &EntityTio::SPLINE, 0x70);
  EntityContext context = drawing_.Context();
  JsonOut out;
  convertEntity(out, drawing_.data().object[0], context);
  convertEntity(out, drawing_.data().object[1], context);
  EXPECT_EQ(drawing_.warnings.size(), 2U);
}

TEST_F(ViewportTest, OldStylePolylineClipIsWalked) {
  AddViewport(0x50, 0x60);
  drawing_.AddEntity(DWG_TYPE_POLYLINE_2D, &EntityTio::POLYLINE_2D, 0x60).flag = 1;
  drawing_.AddEntity(DWG_TYPE_VERTEX_2D, &EntityTio::VERTEX_2D).point = {1, 2, 0};
  EXPECT_THAT(RecordOf(0), HasSubstr(R"("clip":{"type":"POLYLINE_2D","layer":"0",)"
                                     R"("closed":true,"points":[[1,2]],"bulges":[0]}})"));
}

TEST_F(ViewportTest, CircleOfClipsIsEnteredOnce) {
  AddViewport(0x50, 0x51);
  AddViewport(0x51, 0x52);
  AddViewport(0x52, 0x50);
  const std::string record = RecordOf(0);
  EXPECT_EQ(CountOf(record, R"("type":"VIEWPORT")"), 3U);
  EXPECT_EQ(CountOf(record, R"("clip":)"), 2U);
}

TEST_F(ViewportTest, CircleThatDoesNotReturnToItsStartEndsToo) {
  AddViewport(0x50, 0x51);
  AddViewport(0x51, 0x52);
  AddViewport(0x52, 0x51);
  EXPECT_EQ(CountOf(RecordOf(0), R"("type":"VIEWPORT")"), 3U);
}

TEST_F(ViewportTest, OutlineStandsInsideUpToEightViewports) {
  for (Handle i = 0; i < 8; ++i) {
    AddViewport(0x50 + i, 0x51 + i);
  }
  AddOutline(0x58);
  const std::string record = RecordOf(0);
  EXPECT_EQ(CountOf(record, R"("clip":)"), 8U);
  EXPECT_EQ(CountOf(record, "LWPOLYLINE"), 1U);
}

TEST_F(ViewportTest, ViewportInsideEightOthersHasNoClip) {
  for (Handle i = 0; i < 12; ++i) {
    AddViewport(0x50 + i, 0x51 + i);
  }
  const std::string record = RecordOf(0);
  EXPECT_EQ(CountOf(record, R"("type":"VIEWPORT")"), 9U);
  EXPECT_EQ(CountOf(record, R"("clip":)"), 8U);
}

TEST_F(ViewportTest, NestingIsForgottenAfterEachRecord) {
  for (Handle i = 0; i < 12; ++i) {
    AddViewport(0x50 + i, 0x51 + i);
  }
  EntityContext context = drawing_.Context();
  const std::string first = Written(convertEntity, drawing_.data().object[0], context);
  EXPECT_EQ(Written(convertEntity, drawing_.data().object[0], context), first);
}

TEST_F(ViewportTest, OverallViewportAsAClipGivesNoClip) {
  AddViewport(0x50, 0x51);
  AddViewport(0x51).id = 1;
  EXPECT_THAT(RecordOf(0), Not(HasSubstr("clip")));
}

}  // namespace
