#include "entities/image.hpp"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <limits>

#include "tests/support/test_drawing.hpp"
#include "tests/support/written.hpp"

namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

class ImageTest : public testing::Test {
 protected:
  ImageTest() {
    drawing_.tables.imageDefs[0x30] = "plans\\site.png";
    image_.display_props = 1;
    image_.pt0 = {1, 2, 3};
    image_.uvec = {0.1, 0.2, 0};
    image_.vvec = {-0.2, 0.1, 0};
    image_.image_size = {640, 480};
    image_.imagedef = drawing_.Ref(0x30);
  }

  std::string Record() { return drawing_.RecordOf(DWG_TYPE_IMAGE, &EntityTio::IMAGE, image_); }

  TestDrawing drawing_;
  Dwg_Entity_IMAGE image_{};
};

TEST_F(ImageTest, IsWrittenWithItsFileAndPlacement) {
  EXPECT_EQ(Record(), R"({"type":"IMAGE","layer":"0","path":"plans\\site.png","px0":1,"py0":2,)"
                      R"("ux":0.1,"uy":0.2,"vx":-0.2,"vy":0.1,"sw":640,"sh":480})");
}

TEST_F(ImageTest, HiddenOneIsNotWritten) {
  image_.display_props = 0xFE;
  EXPECT_EQ(Record(), "");
}

TEST_F(ImageTest, OneOfNoWidthIsNotWritten) {
  image_.image_size.x = 0;
  EXPECT_EQ(Record(), "");
}

TEST_F(ImageTest, OneOfNegativeHeightIsNotWritten) {
  image_.image_size.y = -1;
  EXPECT_EQ(Record(), "");
}

TEST_F(ImageTest, OneWhoseSizeIsNotANumberIsNotWritten) {
  image_.image_size.x = std::numeric_limits<double>::quiet_NaN();
  EXPECT_EQ(Record(), "");
}

TEST_F(ImageTest, OneWithoutADefinitionIsDroppedSilently) {
  image_.imagedef = nullptr;
  EXPECT_EQ(Record(), "");
  EXPECT_THAT(drawing_.warnings, IsEmpty());
}

TEST_F(ImageTest, DefinitionHandleZeroIsNoDefinition) {
  drawing_.tables.imageDefs[0] = "wrong.png";
  image_.imagedef = drawing_.Ref(0);
  EXPECT_EQ(Record(), "");
}

TEST_F(ImageTest, OneOfAnUnknownDefinitionIsNotWritten) {
  image_.imagedef = drawing_.Ref(0x31);
  EXPECT_EQ(Record(), "");
}

TEST_F(ImageTest, OneOfAnEmptyPathIsNotWritten) {
  drawing_.tables.imageDefs[0x30].clear();
  EXPECT_EQ(Record(), "");
}

class PdfUnderlayTest : public testing::Test {
 protected:
  PdfUnderlayTest() {
    underlay_.definition_id = drawing_.Ref(0x40);
    underlay_.ins_pt = {1, 2, 3};
    underlay_.scale = {4, 5, 6};
    underlay_.angle = 0.5;
  }

  std::string Record() {
    return drawing_.RecordOf(DWG_TYPE_PDFUNDERLAY, &EntityTio::PDFUNDERLAY, underlay_);
  }

  TestDrawing drawing_;
  Dwg_Entity_PDFUNDERLAY underlay_{};
};

TEST_F(PdfUnderlayTest, IsWrittenWithTheFoundFileAndItsPage) {
  drawing_.tables.pdfDefs[0x40] = {"c:\\found.pdf", "declared.pdf", 3};
  EXPECT_EQ(Record(), R"({"type":"PDFUNDERLAY","layer":"0","path":"c:\\found.pdf","page":3,)"
                      R"("ix":1,"iy":2,"sx":4,"sy":5,"angle":0.5})");
  EXPECT_THAT(drawing_.warnings, IsEmpty());
}

TEST_F(PdfUnderlayTest, MissingFileIsNamedRawInTheWarning) {
  drawing_.tables.pdfDefs[0x40] = {"", "plans\\\"site\".pdf", 1};
  EXPECT_EQ(Record(), "");
  EXPECT_THAT(drawing_.warnings,
              ElementsAre("Skipped 1 PDFUNDERLAY: referenced PDF not found (plans\\\"site\".pdf)"));
}

TEST_F(PdfUnderlayTest, UnknownDefinitionGivesTheWarningWithoutAName) {
  EXPECT_EQ(Record(), "");
  EXPECT_THAT(drawing_.warnings,
              ElementsAre("Skipped 1 PDFUNDERLAY: referenced PDF not found (unknown path)"));
}

TEST_F(PdfUnderlayTest, MissingReferenceGivesTheSameWarning) {
  underlay_.definition_id = nullptr;
  EXPECT_EQ(Record(), "");
  EXPECT_THAT(drawing_.warnings, ElementsAre(HasSubstr("(unknown path)")));
}

TEST_F(PdfUnderlayTest, EmptyDeclaredPathGivesTheSameWarning) {
  drawing_.tables.pdfDefs[0x40] = {"", "", 1};
  EXPECT_EQ(Record(), "");
  EXPECT_THAT(drawing_.warnings, ElementsAre(HasSubstr("(unknown path)")));
}

TEST_F(PdfUnderlayTest, EverySkippedUnderlayAddsItsOwnLine) {
  Record();
  Record();
  EXPECT_EQ(drawing_.warnings.size(), 2U);
  EXPECT_EQ(drawing_.warnings[0], drawing_.warnings[1]);
}

}  // namespace
