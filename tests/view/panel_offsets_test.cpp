#include "view/panel_offsets.h"

#include <gtest/gtest.h>

#include <cmath>

#include "view/paper_checks.h"
#include "view/view_sails.h"

namespace brivane {
namespace {

using testing::SetRectangle;

std::vector<std::string> TextsOf(const std::vector<PanelOffset>& offsets) {
  std::vector<std::string> texts;
  for (const PanelOffset& offset : offsets) texts.push_back(offset.Text);
  return texts;
}

TEST(PanelOffsets, EveryFifthPointOfBothSeams) {
  DevelopedPanels panels;
  SetRectangle(panels, 2, 3000, 800);
  const PanelOffsets offsets = OffsetsOf(panels, 2);
  EXPECT_EQ(TextsOf(offsets.Lower),
            (std::vector<std::string>{"X=0; Y=0", "X=500; Y=0", "X=1000; Y=0", "X=1500; Y=0",
                                      "X=2000; Y=0", "X=2500; Y=0", "X=3000; Y=0"}));
  EXPECT_EQ(
      TextsOf(offsets.Upper),
      (std::vector<std::string>{" X=0; Y=800", " X=500; Y=800", " X=1000; Y=800", " X=1500; Y=800",
                                " X=2000; Y=800", " X=2500; Y=800", " X=3000; Y=800"}));
}

TEST(PanelOffsets, EndsOfTheEdgesCountWhereTheyLieApart) {
  DevelopedPanels panels;
  SetRectangle(panels, 0, 3000, 800);
  panels.PanelEdgeX(0, 0) = -12;
  panels.PanelEdgeY(0, 0) = 3;
  panels.PanelEdgeX(0, 35) = 3010;
  const PanelOffsets offsets = OffsetsOf(panels, 0);
  ASSERT_EQ(offsets.Lower.size(), 8u);
  EXPECT_EQ(offsets.Lower[0].Text, "X=-12; Y=3");
  ASSERT_EQ(offsets.Upper.size(), 8u);
  EXPECT_EQ(offsets.Upper[7].Text, " X=3010; Y=800");
}

TEST(PanelOffsets, ACornerOfBothSeamsIsListedOnce) {
  DevelopedPanels panels;
  SetRectangle(panels, 0, 3000, 800);
  panels.PanelUpperY(0, kForwardCorner) = 0;
  for (int k = 0; k <= kForwardCorner; ++k) panels.PanelEdgeY(0, k) = 0;
  const PanelOffsets offsets = OffsetsOf(panels, 0);
  EXPECT_EQ(offsets.Lower.size(), 7u);
  EXPECT_EQ(offsets.Upper.size(), 6u);
}

TEST(PanelOffsets, ACornerOfTheSailWithinAnEdgeIsListed) {
  DevelopedPanels panels;
  SetRectangle(panels, 0, 3000, 800);
  for (int k = 1; k < kForwardCorner; ++k) panels.PanelEdgeX(0, k) = -140 + 28 * k;
  panels.PanelEdgeY(0, 1) = 30;  // the tack, where foot and luff meet
  panels.PanelEdgeX(0, 36) = 3100;
  panels.PanelEdgeY(0, 36) = 790;  // the peak
  for (int k = 37; k < kLastPoint; ++k) panels.PanelEdgeX(0, k) = 3100 - 25 * (k - 36);
  const PanelOffsets offsets = OffsetsOf(panels, 0);
  ASSERT_EQ(offsets.Lower.size(), 8u);
  EXPECT_EQ(offsets.Lower[0].Text, "X=-112; Y=30");
  ASSERT_EQ(offsets.Upper.size(), 8u);
  EXPECT_EQ(offsets.Upper[7].Text, " X=3100; Y=790");
}

TEST(PanelOffsets, ARoundEdgeHasNoCorners) {
  DevelopedPanels panels;
  SetRectangle(panels, 0, 3000, 800);
  for (int k = 0; k <= kForwardCorner; ++k) {
    const double t = k / 5.0;
    panels.PanelEdgeX(0, k) = -200 * t * (1 - t);  // 50 mm in 800
  }
  const PanelOffsets offsets = OffsetsOf(panels, 0);
  EXPECT_EQ(offsets.Lower.size(), 7u);
  EXPECT_EQ(offsets.Upper.size(), 7u);
}

TEST(PanelOffsets, ValuesAreRoundedToWholeMillimetres) {
  DevelopedPanels panels;
  SetRectangle(panels, 0, 3000.5, 800);
  panels.PanelLowerY(0, 20) = -0.4;
  panels.PanelLowerY(0, 15) = -0.6;
  const PanelOffsets offsets = OffsetsOf(panels, 0);
  EXPECT_EQ(offsets.Lower[2].Text, "X=1000; Y=-1");
  EXPECT_EQ(offsets.Lower[3].Text, "X=1500; Y=0");
  EXPECT_EQ(offsets.Lower[6].Text, "X=3001; Y=0");
}

TEST(OffsetRow, TextsStandUnderTheirPointsWhereThereIsRoom) {
  const std::vector<PanelOffset> row = {{{0, 0}, "X=0; Y=0"}, {{9, 0}, "X=9; Y=0"}};
  const std::vector<PlanePoint> places = {{1000, 500}, {4000, 520}};
  Drawing page;
  AddOffsetRow(page, row, places, {300, 100, 450, false}, 5000, EstimatedTextWidth);
  ASSERT_EQ(page.Texts.size(), 2u);
  EXPECT_EQ(page.Texts[0].At, (PlanePoint{760, 300}));  // 8 · 60 = 480 wide
  EXPECT_EQ(page.Texts[1].At, (PlanePoint{3760, 300}));
  EXPECT_EQ(page.Strokes[0].Points,
            (std::vector<PlanePoint>{{1000, 500}, {1000, 450}, {1000, 300}}));
}

TEST(OffsetRow, PushedTextsStayAroundTheirPoints) {
  // Two texts of 480 and a gap of 60 about the middle of 3000 and 3100.
  const std::vector<PanelOffset> row = {{{0, 0}, "X=0; Y=0"}, {{9, 0}, "X=9; Y=0"}};
  Drawing page;
  AddOffsetRow(page, row, {{3000, 500}, {3100, 500}}, {300, 100, 450, false}, 6000,
               EstimatedTextWidth);
  EXPECT_NEAR(page.Texts[0].At.x, 3050 - 510, 1e-9);
  EXPECT_NEAR(page.Texts[1].At.x, 3050 + 30, 1e-9);
}

TEST(OffsetRow, CrowdedTextsAreSpreadInOrderWithinTheWidth) {
  std::vector<PanelOffset> row;
  std::vector<PlanePoint> places;
  for (int i = 0; i < 7; ++i) {
    row.push_back({{i * 1.0, 0}, "X=1234; Y=567"});
    places.push_back({5000.0 + i, 500});
  }
  for (const bool above : {false, true}) {
    Drawing page;
    AddOffsetRow(page, row, places, {300, 100, 450, above}, 6000, EstimatedTextWidth);
    testing::ExpectTextsApart(page, EstimatedTextWidth);
    for (std::size_t i = 0; i < 7; ++i) {
      EXPECT_GE(page.Texts[i].At.x, 0);
      EXPECT_LE(page.Texts[i].At.x + 780, 6000 + 1e-9);
      if (i > 0) {
        EXPECT_GT(page.Texts[i].At.x, page.Texts[i - 1].At.x);
      }
      EXPECT_EQ(page.Strokes[i].Points.back().y, above ? 175 : 300);
    }
  }
}

}  // namespace
}  // namespace brivane
