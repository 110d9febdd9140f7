#include <gtest/gtest.h>

#include <algorithm>
#include <array>
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

TEST(DrawGuideLine, EndsOnTheLowerSeamWhereThePanelRunsIntoItsAftCorner) {
  FlatPanel panel = Trapeze(0, 1000, 300);
  for (int i = 0; i <= 30; ++i)
    panel.Upper[static_cast<std::size_t>(5 + i)] = {1000 * i / 30.0, 300 - 10.0 * i};
  for (std::size_t point = 35; point <= 40; ++point) panel.Edge[point] = {1000, 0};
  DrawGuideLine(panel, 20, false);
  const double meeting = 20 * std::sqrt(1 + 0.3 * 0.3) / 0.3;
  EXPECT_NEAR(panel.Edge[34].x, 1000 - meeting, 1e-9);
  EXPECT_NEAR(panel.Edge[34].y, 0, 1e-9);
}

TEST(DrawGuideLine, EndsOnAnEdgeThatLeansFarOutOfAPanelThatBeginsInACorner) {
  FlatPanel panel = Trapeze(0, 400, 100);
  for (int i = 0; i <= 30; ++i)
    panel.Upper[static_cast<std::size_t>(5 + i)] = {400 * i / 30.0, 100 * i / 30.0};
  for (std::size_t point = 0; point <= 5; ++point) panel.Edge[point] = {0, 0};
  DrawGuideLine(panel, 20, false);
  // y = x / 4 − drop meets the edge, y = (1000 − x) / 6.
  const double drop = 20 * std::sqrt(1 + 1 / 16.0);
  const double meeting = (1000 / 6.0 + drop) / (1 / 4.0 + 1 / 6.0);
  EXPECT_NEAR(panel.Edge[34].x, meeting, 1e-9);
  EXPECT_NEAR(panel.Edge[34].y, (1000 - meeting) / 6, 1e-9);
  EXPECT_NEAR(panel.Edge[6].x, 4 * drop, 1e-9);
}

TEST(DrawGuideLine, GoesOnStraightBeyondTheEndsOfABentSeam) {
  // The seam rises by three quarters along its first piece and falls along its last.
  FlatPanel panel = Trapeze(300, 700, 310);
  panel.Upper[5].y = panel.Upper[35].y = 300;
  for (int i = 0; i <= 5; ++i) {
    panel.Edge[static_cast<std::size_t>(i)] = Between({0, 0}, {300, 300}, i / 5.0);
    panel.Edge[static_cast<std::size_t>(40 - i)] = Between({1000, 0}, {700, 300}, i / 5.0);
  }
  DrawGuideLine(panel, 20, false);
  EXPECT_NEAR(panel.Edge[6].x, 200, 1e-9);  // y = 300 + 0.75 (x − 300) − 20 · 1.25 meets y = x
  EXPECT_NEAR(panel.Edge[6].y, 200, 1e-9);
  EXPECT_NEAR(panel.Edge[34].x, 800, 1e-9);
  EXPECT_NEAR(panel.Edge[34].y, 200, 1e-9);
}

TEST(DrawGuideLine, KeepsToTheLowerSeamOfAPanelNarrowerThanTheSeam) {
  FlatPanel panel = Trapeze(0, 1000, 15);
  DrawGuideLine(panel, 20, false);
  for (std::size_t point = 6; point <= 34; ++point)
    EXPECT_EQ(panel.Edge[point], panel.Lower[point]) << point;
  EXPECT_EQ(panel.Edge[5], (PlanePoint{0, 15}));
  EXPECT_EQ(panel.Edge[35], (PlanePoint{1000, 15}));
}

TEST(DrawGuideLine, IsLiftedOntoALowerSeamThatRisesAboveIt) {
  FlatPanel panel = Trapeze(-200, 1200, 300);
  for (std::size_t point = 10; point <= 30; ++point) panel.Lower[point].y = 290;
  DrawGuideLine(panel, 20, false);
  EXPECT_NEAR(panel.Edge[20].x, 500, 1e-9);
  EXPECT_EQ(panel.Edge[20].y, 290);
  EXPECT_NEAR(panel.Edge[7].y, 280, 1e-9);  // forward of the lower seam's end
  for (std::size_t point = 7; point <= 33; ++point) {
    const double x = panel.Edge[point].x;
    const double seam = x < 400 / 3.0 || x > 2600 / 3.0 ? 0
                        : x < 500 / 3.0                 ? 290 * (x - 400 / 3.0) / (100 / 3.0)
                        : x > 2500 / 3.0                ? 290 * (2600 / 3.0 - x) / (100 / 3.0)
                                                        : 290;
    EXPECT_NEAR(panel.Edge[point].y, std::max(280.0, seam), 1e-9) << point;
  }
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

/// Distance from the nearest piece of the upper seam, whose first and last go on beyond their ends.
double DistanceFromSeam(const FlatPanel& panel, PlanePoint at) {
  double nearest = 1e9;
  for (std::size_t k = 5; k < 35; ++k) {
    const PlanePoint a = panel.Upper[k];
    const PlanePoint b = panel.Upper[k + 1];
    if (a == b) continue;
    const double t = Dot(at - a, b - a) / Dot(b - a, b - a);
    const double held = std::clamp(t, k == 5 ? -1e9 : 0.0, k == 34 ? 1e9 : 1.0);
    nearest = std::min(nearest, Length(at - Between(a, b, held)));
  }
  return nearest;
}

TEST(DrawGuideLine, RunsTheSeamWidthInsideASeamOfAnyShapeAndSize) {
  // Upper seams that rise to a crest aft of the middle; both edges lean outward, so that the line
  // meets them beyond the seam's ends. From metres down to a millimetre.
  for (const double size : {1.0, 0.001})
    for (const double lean : {0.0, 60.0}) {
      FlatPanel panel = Trapeze(0, 1000, 300);
      for (std::size_t i = 0; i <= 30; ++i) {
        const double u = static_cast<double>(i) / 30;
        panel.Upper[5 + i] = size * PlanePoint{1000 * u, 300 + 900 * u * u * (1 - u)};
        panel.Lower[5 + i] = size * PlanePoint{(1000 + 2 * lean) * u - lean, 0};
      }
      for (std::size_t i = 0; i <= 5; ++i) {
        const double share = static_cast<double>(i) / 5;
        panel.Edge[i] = Between(panel.Lower[5], panel.Upper[5], share);
        panel.Edge[40 - i] = Between(panel.Lower[35], panel.Upper[35], share);
      }
      DrawGuideLine(panel, 20 * size, false);
      for (std::size_t point = 6; point <= 34; ++point) {
        EXPECT_NEAR(DistanceFromSeam(panel, panel.Edge[point]), 20 * size, 1e-9 * size) << point;
        if (point > 6) {
          EXPECT_LT(panel.Edge[point - 1].x, panel.Edge[point].x) << point;
        }
      }
      // Both ends lie on the edges, which run straight from (−lean, 0) to (0, 300).
      EXPECT_NEAR(panel.Edge[6].x, -lean * (size - panel.Edge[6].y / 300), 1e-9 * size);
      EXPECT_NEAR(panel.Edge[34].x, 1000 * size + lean * (size - panel.Edge[34].y / 300),
                  1e-9 * size);
    }
}

TEST(DrawGuideLine, PassesOverPointsOfTheSeamThatCoincide) {
  FlatPanel panel = Trapeze(0, 1000, 300);
  panel.Upper[6] = panel.Upper[7] = panel.Upper[5];
  panel.Upper[20] = panel.Upper[21];
  panel.Upper[33] = panel.Upper[34] = panel.Upper[35];
  DrawGuideLine(panel, 20, false);
  for (std::size_t point = 6; point <= 34; ++point) {
    EXPECT_NEAR(panel.Edge[point].y, 280, 1e-9) << point;
    EXPECT_GE(panel.Edge[point].x, 0) << point;
    EXPECT_LE(panel.Edge[point].x, 1000) << point;
  }
}

TEST(DrawGuideLine, HoldsToALowerSeamThatRisesAboveTheLine) {
  // 20 mm below an upper seam at 100 mm; the lower one rises to 95 mm at two thirds of its length.
  FlatPanel panel = Trapeze(0, 1000, 100);
  const auto rise = [](int i) { return 95 * 6.75 * (i / 30.0) * (i / 30.0) * (1 - i / 30.0); };
  for (int i = 0; i <= 30; ++i)
    panel.Lower[static_cast<std::size_t>(5 + i)] = {1000 * i / 30.0, rise(i)};
  DrawGuideLine(panel, 20, false);
  EXPECT_EQ(panel.Edge[6], (PlanePoint{0, 80}));
  EXPECT_EQ(panel.Edge[34], (PlanePoint{1000, 80}));
  int above = 0;
  for (int point = 7; point <= 33; ++point) {
    const double x = 1000.0 * (point - 6) / 28;
    const int i = static_cast<int>(x * 30 / 1000);
    const double lower = rise(i) + (rise(i + 1) - rise(i)) * (x * 30 / 1000 - i);
    EXPECT_NEAR(panel.Edge[static_cast<std::size_t>(point)].x, x, 1e-9);
    EXPECT_NEAR(panel.Edge[static_cast<std::size_t>(point)].y, std::max(80.0, lower), 1e-9);
    above += lower > 80;
  }
  EXPECT_GT(above, 8);
}

TEST(DrawGuideLine, HoldsToTheLastPieceOfTheLowerSeam) {
  // It rises from nothing to 95 mm in the piece before and falls over the last 200 mm.
  FlatPanel panel = Trapeze(0, 1000, 100);
  for (int i = 0; i < 29; ++i) panel.Lower[static_cast<std::size_t>(5 + i)] = {i * 28.0, 0};
  panel.Lower[34] = {800, 95};
  DrawGuideLine(panel, 20, false);
  EXPECT_NEAR(panel.Edge[28].y, 80, 1e-9);  // x = 785.7 mm: 95·(785.7 − 784)/16 is below the line
  EXPECT_NEAR(panel.Edge[29].x, 23000 / 28.0, 1e-9);
  EXPECT_NEAR(panel.Edge[29].y, 95 * (1000 - 23000 / 28.0) / 200, 1e-9);
  EXPECT_NEAR(panel.Edge[30].y, 80, 1e-9);
}

TEST(DrawGuideLine, IsNotLiftedBeyondTheEndsOfALowerSeamThatDropsSteeply) {
  // The seam drops by 60 mm within the first 5 mm and rises so again: carried on over its ends it
  // would be far above the panel, whose edges lean out by 100 mm.
  FlatPanel panel = Trapeze(-100, 1100, 300);
  for (std::size_t point = 6; point <= 34; ++point) panel.Lower[point].y = -60;
  panel.Lower[6].x = 5;
  panel.Lower[34].x = 995;
  DrawGuideLine(panel, 20, false);
  for (std::size_t point = 6; point <= 34; ++point)
    EXPECT_NEAR(panel.Edge[point].y, 280, 1e-9) << point;
  EXPECT_LT(panel.Edge[8].x, 0);
  EXPECT_GT(panel.Edge[32].x, 1000);
}

TEST(DrawGuideLine, IsLiftedOntoAHumpOfTheLowerSeamButNotBeyondItsEnds) {
  // The same steep ends, and in the middle a hump that stands higher than the line.
  FlatPanel panel = Trapeze(-100, 1100, 300);
  for (std::size_t point = 6; point <= 34; ++point) panel.Lower[point].y = -60;
  panel.Lower[6].x = 5;
  panel.Lower[34].x = 995;
  for (std::size_t point = 18; point <= 22; ++point) panel.Lower[point].y = 290;
  DrawGuideLine(panel, 20, false);
  EXPECT_NEAR(panel.Edge[20].y, 290, 1e-9);
  for (const std::size_t end : {7, 8, 32, 33}) {
    EXPECT_TRUE(panel.Edge[end].x < 0 || panel.Edge[end].x > 1000) << end;
    EXPECT_NEAR(panel.Edge[end].y, 280, 1e-9) << end;
  }
}

TEST(DrawGuideLine, TakesAStepOfTheLowerSeamAsItsLowerEnd) {
  // The seam falls by 5 mm where it starts; the line starts forward of it on a leaning edge.
  FlatPanel panel = Trapeze(-100, 1000, 100);
  for (std::size_t point = 6; point <= 35; ++point) panel.Lower[point].y = -5;
  panel.Lower[6].x = 0;
  DrawGuideLine(panel, 20, false);
  for (std::size_t point = 7; point <= 33; ++point)
    EXPECT_NEAR(panel.Edge[point].y, 80, 1e-9) << point;
}

TEST(DrawGuideLine, MeetsTheEdgesBehindTheirBends) {
  // Both edges go out flat first, by 30 mm to 11 mm below the seam, and then straight down.
  FlatPanel panel = Trapeze(0, 1000, 300);
  const std::array<PlanePoint, 6> bent = {
      {{-30, 0}, {-30, 100}, {-30, 150}, {-30, 200}, {-30, 289}, {0, 300}}};
  for (std::size_t i = 0; i < bent.size(); ++i) {
    panel.Edge[i] = bent[i];
    panel.Edge[40 - i] = {1000 - bent[i].x, bent[i].y};
  }
  panel.Lower[5] = {-30, 0};
  panel.Lower[35] = {1030, 0};
  DrawGuideLine(panel, 20, false);
  EXPECT_NEAR(panel.Edge[6].x, -30, 1e-9);
  EXPECT_NEAR(panel.Edge[6].y, 280, 1e-9);
  EXPECT_NEAR(panel.Edge[34].x, 1030, 1e-9);
  EXPECT_NEAR(panel.Edge[34].y, 280, 1e-9);
}

TEST(DrawGuideLine, ReachesFarBeyondAShortSeam) {
  // 20 mm below a seam of 100 mm, the leaning edges are met 115 mm beyond its ends.
  FlatPanel panel = Trapeze(0, 100, 300);
  panel.Lower[5] = {-1725, 0};
  panel.Lower[35] = {1825, 0};
  for (std::size_t i = 0; i <= 5; ++i) {
    const double share = static_cast<double>(i) / 5;
    panel.Edge[i] = Between(panel.Lower[5], {0, 300}, share);
    panel.Edge[40 - i] = Between(panel.Lower[35], {100, 300}, share);
  }
  DrawGuideLine(panel, 20, false);
  EXPECT_NEAR(panel.Edge[6].x, -115, 1e-9);
  EXPECT_NEAR(panel.Edge[34].x, 215, 1e-9);
}

TEST(DrawGuideLine, IsTheSeamItselfWithoutASeamWidth) {
  FlatPanel panel = Trapeze(100, 900, 300);
  DrawGuideLine(panel, 0, false);
  for (std::size_t point = 6; point <= 34; ++point) {
    EXPECT_NEAR(panel.Edge[point].x, 100 + 800 * (static_cast<double>(point) - 6) / 28, 1e-9);
    EXPECT_NEAR(panel.Edge[point].y, 300, 1e-9);
  }
}

}  // namespace
}  // namespace brivane
