#include "view/panel_arrangement.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>

#include "view/navigation.h"
#include "view/sail_drawing.h"
#include "view/view_sails.h"

namespace brivane {
namespace {

using testing::PlainSail;
using testing::SetRectangle;

ViewState FittedView(const SailDefinition& sail) {
  ViewState view;
  FitView(sail, {12000, 9000}, view);
  return view;
}

struct Box {
  double Left, Right, Bottom, Top;
};

Box BoxOf(const std::vector<PlanePoint>& points) {
  const auto [left, right] =
      std::minmax_element(points.begin(), points.end(), [](auto& a, auto& b) { return a.x < b.x; });
  const auto [low, high] =
      std::minmax_element(points.begin(), points.end(), [](auto& a, auto& b) { return a.y < b.y; });
  return {left->x, right->x, low->y, high->y};
}

Sail SailOfRectangles(const char* cut) {
  Sail sail;
  sail.Definition = PlainSail();
  sail.Definition.CutType = cut;
  sail.Definition.PanelCount = 3;
  SetRectangle(sail.Panels, 0, 3000, 800);
  SetRectangle(sail.Panels, 1, 2000, 700);
  SetRectangle(sail.Panels, 2, 1000, 500);
  return sail;
}

TEST(PanelOutline, RunsRoundThePanel) {
  const Sail sail = SailOfRectangles(kCrossCut);
  const std::vector<PlanePoint> outline = PanelOutline(sail.Panels, 1);
  ASSERT_EQ(outline.size(), 75u);
  EXPECT_EQ(outline.front(), (PlanePoint{0, 0}));
  EXPECT_EQ(outline[6], (PlanePoint{0, 700}));  // forward edge, 1 to 6
  EXPECT_EQ(outline[7], (PlanePoint{0, 700}));  // upper seam, 7 to 37
  EXPECT_EQ(outline[37], (PlanePoint{2000, 700}));
  EXPECT_EQ(outline[38], (PlanePoint{2000, 700}));  // aft edge, 38 to 43
  EXPECT_EQ(outline[43], (PlanePoint{2000, 0}));
  EXPECT_EQ(outline[44], (PlanePoint{2000, 0}));  // lower seam back, 44 to 74
  EXPECT_EQ(outline.back(), (PlanePoint{0, 0}));
}

TEST(PanelOutline, APanelThatIsNotThereHasNoPoints) {
  Sail sail = SailOfRectangles(kCrossCut);
  EXPECT_TRUE(PanelOutline(sail.Panels, 3).empty());
  sail.Panels.PanelUpperY(1, 20) = std::nan("");
  EXPECT_TRUE(PanelOutline(sail.Panels, 1).empty());
  EXPECT_THROW(PanelOutline(sail.Panels, 91), std::out_of_range);
}

TEST(PanelGuide, RunsAcrossEveryPanelButTheLast) {
  const Sail sail = SailOfRectangles(kCrossCut);
  const std::vector<PlanePoint> guide = PanelGuide(sail, 0);
  ASSERT_EQ(guide.size(), 31u);
  EXPECT_EQ(guide[15], (PlanePoint{1500, 780}));
  EXPECT_TRUE(PanelGuide(sail, 2).empty());
}

TEST(PanelArrangement, CrossCutPanelsAreStackedUpwards) {
  const Sail sail = SailOfRectangles(kCrossCut);
  const auto panels = ArrangePanels(sail, FittedView(sail.Definition));
  ASSERT_EQ(panels.size(), 3u);
  // Origin 1.1 · 4000 = 4400; gaps of 4 % of 800 = 32 between.
  const Box first = BoxOf(panels[0].Outline);
  EXPECT_NEAR(first.Left, 4400, 1e-9);
  EXPECT_NEAR(first.Right, 7400, 1e-9);
  EXPECT_NEAR(first.Bottom, 0, 1e-9);
  const Box second = BoxOf(panels[1].Outline);
  EXPECT_NEAR(second.Left, 4400, 1e-9);
  EXPECT_NEAR(second.Bottom, 832, 1e-9);
  const Box third = BoxOf(panels[2].Outline);
  EXPECT_NEAR(third.Bottom, 832 + 732, 1e-9);
  EXPECT_NEAR(third.Top, 832 + 732 + 500, 1e-9);
}

TEST(PanelArrangement, PanelsNestWhereTheirSeamsAllow) {
  // The first panel's upper seam sags 300 in the middle, the second one's lower seam hangs 300.
  Sail sail = SailOfRectangles(kCrossCut);
  SetRectangle(sail.Panels, 1, 3000, 700);
  for (int k = kForwardCorner; k <= kAftCorner; ++k) {
    const double t = (k - kForwardCorner) / 30.0;
    sail.Panels.PanelUpperY(0, k) = 800 - 1200 * t * (1 - t);
    sail.Panels.PanelLowerY(1, k) = -1200 * t * (1 - t);
  }
  const auto panels = ArrangePanels(sail, FittedView(sail.Definition));
  const double shift = panels[1].Outline.front().y - panels[0].Outline.front().y;
  EXPECT_GE(shift, 832);  // never closer than the gap
  EXPECT_LT(shift, 832 + 30);
}

TEST(PanelArrangement, AShortPanelDoesNotSlipDownBesideTheOneBefore) {
  Sail sail = SailOfRectangles(kCrossCut);
  SetRectangle(sail.Panels, 2, 100, 500);
  for (int k = kForwardCorner; k <= kAftCorner; ++k) sail.Panels.PanelUpperX(1, k) += 600;
  for (int k = 0; k <= kForwardCorner; ++k) sail.Panels.PanelEdgeX(1, k) = 120.0 * k;
  const auto panels = ArrangePanels(sail, FittedView(sail.Definition));
  EXPECT_NEAR(BoxOf(panels[2].Outline).Bottom, 832 + 732, 1e-9);
}

TEST(PanelArrangement, VerticalCutPanelsStandSideBySide) {
  const Sail sail = SailOfRectangles(kVerticalCut);
  const auto panels = ArrangePanels(sail, FittedView(sail.Definition));
  ASSERT_EQ(panels.size(), 3u);
  const Box first = BoxOf(panels[0].Outline);
  EXPECT_NEAR(first.Left, 4400, 1e-9);
  EXPECT_NEAR(first.Right, 5200, 1e-9);
  EXPECT_NEAR(first.Bottom, 0, 1e-9);
  EXPECT_NEAR(first.Top, 3000, 1e-9);
  const Box second = BoxOf(panels[1].Outline);
  EXPECT_NEAR(second.Left, 5232, 1e-9);
  EXPECT_NEAR(second.Bottom, 0, 1e-9);  // every panel stands on the base line
  EXPECT_NEAR(second.Top, 2000, 1e-9);
  EXPECT_NEAR(BoxOf(panels[2].Outline).Left, 5232 + 732, 1e-9);
  // Turned, not mirrored: the forward end of the lower seam is at the top left.
  EXPECT_NEAR(panels[0].Outline.front().x, 4400, 1e-9);
  EXPECT_NEAR(panels[0].Outline.front().y, 3000, 1e-9);
}

TEST(PanelArrangement, TheyStartFurtherRightWhereTheSailReachesThere) {
  Sail sail = SailOfRectangles(kCrossCut);
  sail.Definition.PeakPoint = {4500, 3800, 0};
  const auto panels = ArrangePanels(sail, FittedView(sail.Definition));
  EXPECT_NEAR(BoxOf(panels[0].Outline).Left, 4532, 1e-9);
}

TEST(PanelArrangement, AHighStackStartsAsLowAsThePictureReaches) {
  Sail sail = SailOfRectangles(kCrossCut);
  sail.Definition.FootRound = 300;  // the picture reaches 300 below the tack
  const ViewState view = FittedView(sail.Definition);
  EXPECT_NEAR(view.DevelopOriginY, 300, 1e-9);
  EXPECT_NEAR(BoxOf(ArrangePanels(sail, view)[0].Outline).Bottom, 300, 1e-9);
  SetRectangle(sail.Panels, 0, 3000, 2600);  // 300 + 2600 + 700 + 500 + 64
  EXPECT_NEAR(BoxOf(ArrangePanels(sail, view)[2].Outline).Top, 4164, 1e-9);
  SetRectangle(sail.Panels, 0, 3000, 2700);  // 4264 is 64 too high
  EXPECT_NEAR(BoxOf(ArrangePanels(sail, view)[2].Outline).Top, 4200, 1e-9);
  SetRectangle(sail.Panels, 0, 3000, 9000);  // as low as it goes
  EXPECT_NEAR(BoxOf(ArrangePanels(sail, view)[0].Outline).Bottom, -300, 1e-9);
}

TEST(PanelArrangement, NothingIsArrangedWithoutPanels) {
  Sail sail;
  sail.Definition = PlainSail();
  EXPECT_TRUE(ArrangePanels(sail, ViewState{}).empty());
  sail.Definition.PanelCount = 5;  // counted, but erased
  EXPECT_TRUE(ArrangePanels(sail, ViewState{}).empty());
  sail.Definition.PanelCount = -1;
  EXPECT_TRUE(ArrangePanels(sail, ViewState{}).empty());
}

TEST(PanelArrangement, PanelsAreDrawnWithThePlanMappingAndTheirGuideDashed) {
  const Sail sail = SailOfRectangles(kCrossCut);
  ViewState view = FittedView(sail.Definition);
  view.ViewScale = 2;
  view.ViewOffsetX = 100;
  view.ViewOffsetY = 50;
  Drawing drawing;
  AppendDevelopedPanels(sail, view, drawing);
  ASSERT_EQ(drawing.Strokes.size(), 5u);  // three outlines, two guide lines
  EXPECT_EQ(drawing.Strokes[0].Ink, (Colour{0, 0, 0}));
  EXPECT_EQ(drawing.Strokes[0].Pen, PenStyle::Solid);
  EXPECT_EQ(drawing.Strokes[0].Points.front(), (PlanePoint{8900, 50}));
  EXPECT_EQ(drawing.Strokes[1].Pen, PenStyle::Dashed);
  EXPECT_EQ(drawing.Strokes[1].Points.size(), 31u);
  EXPECT_EQ(drawing.Strokes[2].Pen, PenStyle::Solid);
}

}  // namespace
}  // namespace brivane
