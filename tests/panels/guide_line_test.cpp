#include <gtest/gtest.h>

#include <cmath>

#include "panels/design_pass.h"
#include "panels/flat_panel.h"
#include "support/panel_measures.h"

namespace brivane {
namespace {

/// A panel between a lower seam on the axis and an upper seam at a height, with slanting edges.
FlatPanel Trapeze(double forwardX, double aftX, double height) {
  FlatPanel panel;
  for (int i = 0; i <= 30; ++i) {
    const auto point = static_cast<std::size_t>(5 + i);
    panel.Lower[point] = {1000 * i / 30.0, 0};
    panel.Upper[point] = {forwardX + (aftX - forwardX) * i / 30.0, height};
  }
  for (int i = 0; i <= 5; ++i) {
    panel.Edge[static_cast<std::size_t>(i)] = Between({0, 0}, {forwardX, height}, i / 5.0);
    panel.Edge[static_cast<std::size_t>(40 - i)] = Between({1000, 0}, {aftX, height}, i / 5.0);
  }
  return panel;
}

TEST(DrawGuideLine, RunsTheSeamWidthInsideTheUpperSeam) {
  FlatPanel panel = Trapeze(0, 1000, 300);
  DrawGuideLine(panel, 20, false);
  EXPECT_EQ(panel.Edge[5], (PlanePoint{0, 300}));
  EXPECT_EQ(panel.Edge[35], (PlanePoint{1000, 300}));
  for (std::size_t point = 6; point <= 34; ++point) EXPECT_NEAR(panel.Edge[point].y, 280, 1e-9);
  EXPECT_NEAR(panel.Edge[6].x, 0, 1e-9);
  EXPECT_NEAR(panel.Edge[34].x, 1000, 1e-9);
  EXPECT_NEAR(panel.Edge[20].x, 500, 1e-9);
}

TEST(DrawGuideLine, EndsOnSlantingEdges) {
  FlatPanel panel = Trapeze(100, 1200, 300);
  DrawGuideLine(panel, 30, false);
  EXPECT_NEAR(panel.Edge[6].x, 90, 1e-9);     // nine tenths up the forward edge
  EXPECT_NEAR(panel.Edge[34].x, 1180, 1e-9);  // and the aft edge
}

TEST(DrawGuideLine, EndsOnTheLowerSeamWhereThePanelRunsIntoACorner) {
  FlatPanel panel = Trapeze(0, 1000, 300);
  for (int i = 0; i <= 30; ++i)
    panel.Upper[static_cast<std::size_t>(5 + i)] = {1000 * i / 30.0, 10.0 * i};
  for (std::size_t point = 0; point <= 5; ++point) panel.Edge[point] = {0, 0};
  DrawGuideLine(panel, 20, false);
  const double slope = 0.3;
  const double meeting = 20 * std::sqrt(1 + slope * slope) / slope;
  EXPECT_NEAR(panel.Edge[6].x, meeting, 1e-9);
  EXPECT_NEAR(panel.Edge[6].y, 0, 1e-9);
}

TEST(DrawGuideLine, KeepsToTheLowerSeamOfAPanelNarrowerThanTheSeam) {
  FlatPanel panel = Trapeze(0, 1000, 15);
  DrawGuideLine(panel, 20, false);
  for (std::size_t point = 6; point <= 34; ++point) EXPECT_EQ(panel.Edge[point].y, 0);
}

TEST(DrawGuideLine, OfTheLastPanelIsItsTopEdge) {
  FlatPanel panel = Trapeze(0, 1000, 300);
  DrawGuideLine(panel, 20, true);
  for (std::size_t point = 5; point <= 35; ++point)
    EXPECT_EQ(panel.Edge[point], panel.Upper[point]);
}

TEST(DrawGuideLine, StaysTheSeamWidthFromTheSeamsOfARealSail) {
  Sail sail;
  DesignPass(sail);
  for (int p = 1; p + 1 < sail.Definition.PanelCount; ++p)
    for (int point = 7; point <= 33; ++point) {
      const PlanePoint at = EdgePoint(sail.Panels, p, point);
      double nearest = 1e9;
      for (int k = 5; k < 35; ++k) {
        const PlanePoint a{sail.Panels.PanelUpperX(p, k), sail.Panels.PanelUpperY(p, k)};
        const PlanePoint b{sail.Panels.PanelUpperX(p, k + 1), sail.Panels.PanelUpperY(p, k + 1)};
        const double t = std::clamp(Dot(at - a, b - a) / Dot(b - a, b - a), 0.0, 1.0);
        nearest = std::min(nearest, Length(at - Between(a, b, t)));
      }
      EXPECT_NEAR(nearest, 20, 1e-3) << p << " " << point;
    }
}

}  // namespace
}  // namespace brivane
