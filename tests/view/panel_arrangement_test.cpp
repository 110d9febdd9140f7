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
using testing::SailOfRectangles;
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
}

TEST(PanelArrangement, AStackHigherThanThePictureGoesOnInAnotherColumn) {
  Sail sail = SailOfRectangles(kCrossCut);
  sail.Definition.FootRound = 300;
  const ViewState view = FittedView(sail.Definition);
  // The picture holds 4500 and 4 % of it, 180, in either margin: 4860. The first two take 4568.
  SetRectangle(sail.Panels, 0, 3000, 3836);
  const auto panels = ArrangePanels(sail, view);
  EXPECT_NEAR(BoxOf(panels[0].Outline).Bottom, -300 - 68 / 2.0, 1e-9);
  EXPECT_NEAR(BoxOf(panels[1].Outline).Top, 4200 + 68 / 2.0, 1e-9);
  EXPECT_NEAR(BoxOf(panels[2].Outline).Bottom, -300 - 68 / 2.0, 1e-9);
  EXPECT_NEAR(BoxOf(panels[2].Outline).Left, 4400 + 3000 + 32, 1e-9);
}

TEST(PanelArrangement, UprightPanelsUseThePicturesMarginsToo) {
  Sail sail = SailOfRectangles(kVerticalCut);
  sail.Definition.FootRound = 300;
  const ViewState view = FittedView(sail.Definition);
  EXPECT_NEAR(BoxOf(ArrangePanels(sail, view)[0].Outline).Bottom, 300, 1e-9);
  SetRectangle(sail.Panels, 0, 4600, 800);  // 100 more than from −300 to 4200
  const auto panels = ArrangePanels(sail, view);
  EXPECT_NEAR(BoxOf(panels[0].Outline).Bottom, -350, 1e-9);
  EXPECT_NEAR(BoxOf(panels[1].Outline).Bottom, -350, 1e-9);
  SetRectangle(sail.Panels, 0, 9000, 800);
  EXPECT_NEAR(BoxOf(ArrangePanels(sail, view)[0].Outline).Bottom, -300 - 180, 1e-9);
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
