#include "panels/layout_check.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <optional>
#include <random>
#include <vector>

#include "geometry/plane.h"
#include "model/failures.h"

namespace brivane {
namespace {

/// The grid of one strip: a rectangle with its lower forward corner in a place; a height below 0
/// makes a strip that lies the other way round.
SurfaceGrid Rectangle(double width, double height, PlanePoint corner = {}) {
  SurfaceGrid grid;
  const auto put = [&](int line, int point, double x, double y) {
    grid.SurfaceX(line, point) = corner.x + x;
    grid.SurfaceY(line, point) = corner.y + y;
  };
  for (int i = 0; i <= 30; ++i) {
    put(0, 5 + i, width * i / 30, 0);
    put(1, 5 + i, width * i / 30, height);
  }
  for (int i = 0; i <= 5; ++i) {
    put(1, i, 0, height * i / 5);
    put(1, 40 - i, width, height * i / 5);
  }
  return grid;
}

/// The rectangle of 900 × 300 with one of its points moved elsewhere.
SurfaceGrid Moved(int line, int point, double x, double y) {
  SurfaceGrid grid = Rectangle(900, 300);
  grid.SurfaceX(line, point) = x;
  grid.SurfaceY(line, point) = y;
  return grid;
}

bool IsRefused(const SurfaceGrid& grid, int panelCount = 1) {
  try {
    RequireCuttableStrips(grid, panelCount);
    return false;
  } catch (const GeometryFault&) {
    return true;
  }
}

TEST(CuttableStrips, LieAnywhereAndEitherWayRound) {
  for (const double height : {300.0, -300.0})
    for (const double x : {-7000.0, -20.0, 0.0, 7000.0})
      for (const double y : {-3000.0, 0.0, 10.0, 5000.0})
        EXPECT_FALSE(IsRefused(Rectangle(900, height, {x, y}))) << height << " " << x << " " << y;
}

TEST(CuttableStrips, HaveAnAreaOfMoreThanAMillionth) {
  for (const double sign : {1.0, -1.0}) {
    EXPECT_FALSE(IsRefused(Rectangle(1, sign * 1.05e-6)));
    EXPECT_TRUE(IsRefused(Rectangle(1, sign * 0.95e-6)));
  }
  EXPECT_TRUE(IsRefused(Rectangle(0, 0)));
}

TEST(CuttableStrips, HaveAnAreaWhereverItLies) {
  // A strip without width but for one point of a seam.
  for (const double beside : {10.0, -10.0})
    for (const int line : {0, 1})
      for (int point = 6; point < 35; ++point) {
        SurfaceGrid grid = Rectangle(0, 0);
        for (int i = 0; i <= 40; ++i) {
          const double along = 10.0 * std::clamp(i - 5, 0, 30);
          grid.SurfaceY(0, i) = grid.SurfaceY(1, i) = along;
        }
        EXPECT_TRUE(IsRefused(grid));
        grid.SurfaceX(line, point) = beside;
        EXPECT_FALSE(IsRefused(grid)) << beside << " " << line << " " << point;
      }
}

TEST(CuttableStrips, LieTheSameWayRoundAsTheFirst) {
  for (const double height : {300.0, -300.0})
    for (const PlanePoint& corner : {PlanePoint{0, 0}, {7000, -3000}, {-7000, 5000}}) {
      SurfaceGrid grid = Rectangle(900, height, corner);
      for (int point = 0; point <= 40; ++point) {
        grid.SurfaceX(2, point) = grid.SurfaceX(1, point);
        grid.SurfaceY(2, point) = grid.SurfaceY(1, point) + height;
      }
      EXPECT_FALSE(IsRefused(grid, 2));
      for (int point = 0; point <= 40; ++point)
        grid.SurfaceY(2, point) = 2 * (corner.y + height) - grid.SurfaceY(2, point);
      EXPECT_TRUE(IsRefused(grid, 2));
    }
}

TEST(CuttableStrips, MayBeHollow) {
  EXPECT_FALSE(IsRefused(Moved(0, 20, 450, 290)));
  EXPECT_FALSE(IsRefused(Moved(1, 20, 450, 10)));
  EXPECT_FALSE(IsRefused(Moved(1, 3, 400, 150)));
  EXPECT_FALSE(IsRefused(Moved(1, 38, 500, 150)));
}

TEST(CuttableStrips, DoNotCrossTheirFirstPieceOfTheLowerSeam) {
  // The piece from x = 0 to 30; a point of the forward edge is pulled down through it.
  EXPECT_TRUE(IsRefused(Moved(1, 2, 15, -5)));
  EXPECT_TRUE(IsRefused(Moved(1, 7, 15, -5)));
  EXPECT_TRUE(IsRefused(Moved(1, 38, 15, -5)));
}

TEST(CuttableStrips, DoNotCrossTheirLastPieceOfTheForwardEdge) {
  // The piece from y = 60 down to 0; a point of a seam is pulled forward through it.
  EXPECT_TRUE(IsRefused(Moved(0, 8, -5, 30)));
  EXPECT_TRUE(IsRefused(Moved(1, 10, -5, 30)));
  EXPECT_TRUE(IsRefused(Moved(1, 38, -5, 30)));
}

TEST(CuttableStrips, DoNotCrossAnyOtherPiece) {
  EXPECT_TRUE(IsRefused(Moved(0, 20, 450, 310)));  // lower seam through the upper one
  EXPECT_TRUE(IsRefused(Moved(1, 20, 450, -10)));
  EXPECT_TRUE(IsRefused(Moved(0, 20, 910, 150)));  // through the aft edge
  EXPECT_TRUE(IsRefused(Moved(1, 3, 910, 150)));
  EXPECT_TRUE(IsRefused(Moved(1, 37, -10, 150)));
  EXPECT_TRUE(IsRefused(Moved(1, 37, 885, 310)));  // through the end of the upper seam
  EXPECT_TRUE(IsRefused(Moved(1, 37, 885, -10)));  // through the end of the lower seam
}

TEST(CuttableStrips, MayReachIntoEachOthersHollows) {
  // The lower seam's tip stands in a dent of the upper seam, above the line that would bridge it.
  SurfaceGrid grid = Moved(0, 20, 450, 305);
  grid.SurfaceY(1, 20) = 310;
  EXPECT_FALSE(IsRefused(grid));
  grid = Moved(1, 20, 450, -5);
  grid.SurfaceY(0, 20) = -10;
  EXPECT_FALSE(IsRefused(grid));
}

TEST(CuttableStrips, MayHaveADentInTheTack) {
  // The dent of the upper seam stands in (0, 0), the lower seam's tip in it.
  SurfaceGrid grid = Rectangle(900, 300, {-450, -310});
  grid.SurfaceY(0, 20) = -5;
  EXPECT_TRUE(IsRefused(grid));
  grid.SurfaceY(1, 20) = 0;
  EXPECT_FALSE(IsRefused(grid));
}

TEST(CuttableStrips, DoNotCrossTheFirstPieceNextToTheCornerThatTheyEndIn) {
  // The seams part at a corner; the second point of one is lifted over the first piece of the
  // other, which is longer.
  for (const bool upper : {false, true})
    for (const bool aft : {false, true})
      for (const bool standing : {false, true}) {
        SurfaceGrid grid;
        const auto put = [&](int line, int point, double x, double y) {
          (standing ? grid.SurfaceY : grid.SurfaceX)(line, aft ? 40 - point : point) = x;
          (standing ? grid.SurfaceX : grid.SurfaceY)(line, aft ? 40 - point : point) = y;
        };
        for (int i = 1; i <= 30; ++i) {
          put(0, 5 + i, 10 * i + (upper ? 20 : 0), 0);
          put(1, 5 + i, 10 * i + (upper ? 0 : 20), 10 * i);
        }
        put(1, 39, 300, 150);
        put(1, 40, 300, 0);
        for (int point = 36; point < 39; ++point) put(1, point, 300 + point, 200);
        put(0, 35, 300, 0);
        EXPECT_FALSE(IsRefused(grid)) << upper << aft << standing;
        put(upper ? 1 : 0, 7, 20, upper ? -2 : 15);
        EXPECT_TRUE(IsRefused(grid)) << upper << aft << standing;
      }
}

/// Whether the strip's outline crosses itself, by every pair of its pieces; no value where a pair
/// only just does or only just does not.
std::optional<bool> CrossesByEveryPair(const SurfaceGrid& grid) {
  std::vector<PlanePoint> outline;
  for (int i = 5; i <= 35; ++i) outline.push_back({grid.SurfaceX(0, i), grid.SurfaceY(0, i)});
  for (int i = 39; i >= 1; --i) outline.push_back({grid.SurfaceX(1, i), grid.SurfaceY(1, i)});
  const std::size_t count = outline.size();
  const auto area = [&](std::size_t i, std::size_t j) {
    const PlanePoint from = outline[i];
    return Cross(outline[(i + 1) % count] - from, outline[j % count] - from);
  };
  bool crosses = false;
  for (std::size_t i = 0; i < count; ++i)
    for (std::size_t k = i + 2; k < count; ++k) {
      if (i == 0 && k + 1 == count) continue;
      const double c = area(i, k), d = area(i, k + 1), a = area(k, i), b = area(k, i + 1);
      if (std::min({std::abs(a), std::abs(b), std::abs(c), std::abs(d)}) < 1e-3 &&
          std::max(a * b, c * d) < 1)
        return std::nullopt;
      crosses |= a * b < 0 && c * d < 0;
    }
  return crosses;
}

double TwiceTheArea(const SurfaceGrid& grid) {
  double twice = 0;
  const auto add = [&](int line, int point, int nextLine, int nextPoint) {
    twice += Cross({grid.SurfaceX(line, point), grid.SurfaceY(line, point)},
                   {grid.SurfaceX(nextLine, nextPoint), grid.SurfaceY(nextLine, nextPoint)});
  };
  for (int i = 5; i < 35; ++i) add(0, i, 0, i + 1);
  for (int i = 40; i > 0; --i) add(1, i, 1, i - 1);
  return twice;
}

TEST(CuttableStrips, AreThoseThatNoPairOfPiecesCrosses) {
  std::mt19937_64 random(31);
  std::uniform_real_distribution<double> unit(-1, 1);
  int crossing = 0, simple = 0;
  for (int i = 0; i < 6000; ++i) {
    // Lying, standing, and so large that every pair is looked at; with some points moved, often
    // just over the opposite seam, and the seams bent.
    const double size = i % 5 == 0 ? 100 : 1;
    SurfaceGrid grid = Rectangle(900 * size, 300 * size, {500 * unit(random), 500 * unit(random)});
    const double bend = 200 * size * unit(random);
    for (int line = 0; line <= 1; ++line)
      for (int point = 0; point <= 40; ++point) {
        const double along = (grid.SurfaceX(line, point) - grid.SurfaceX(0, 5)) / (900 * size);
        const double taper = i % 3 == 0 ? 1 : i % 3 == 1 ? along : 1 - along;
        double& y = grid.SurfaceY(line, point);
        y = y * taper + bend * along * (1 - along) + 3 * size * unit(random);
        grid.SurfaceX(line, point) += 3 * size * unit(random);
      }
    for (int moved = i % 4; moved > 0; --moved) {
      const int point = 5 + static_cast<int>(30 * std::abs(unit(random)));
      grid.SurfaceX(moved % 2, point) += 40 * size * unit(random);
      grid.SurfaceY(moved % 2, point) += 400 * size * unit(random);
    }
    if (i % 4 == 0) std::swap(grid.SurfaceX, grid.SurfaceY);
    for (SurfaceTable* table : {&grid.SurfaceX, &grid.SurfaceY}) {
      (*table)(1, 0) = (*table)(0, 5);
      (*table)(1, 40) = (*table)(0, 35);
    }
    const std::optional<bool> crosses = CrossesByEveryPair(grid);
    if (!crosses || std::abs(TwiceTheArea(grid)) < 1) continue;
    ++(*crosses ? crossing : simple);
    // The first strip may lie either way round: its area alone refuses none.
    EXPECT_EQ(IsRefused(grid), *crosses) << i;
  }
  EXPECT_GT(crossing, 1000);
  EXPECT_GT(simple, 1000);
}

TEST(CuttableStrips, DoNotCrossTheNextPieceButOne) {
  SurfaceGrid grid = Moved(1, 2, 10, 20);  // the forward edge: 180 mm, down to 20, up to 100, 0
  grid.SurfaceX(1, 1) = 10;
  grid.SurfaceY(1, 1) = 100;
  EXPECT_TRUE(IsRefused(grid));
  grid = Moved(0, 20, 520, 10);  // the lower seam: to 520, back to 430, down to 510
  grid.SurfaceX(0, 21) = 430;
  grid.SurfaceY(0, 21) = 8;
  EXPECT_TRUE(IsRefused(grid));
  EXPECT_TRUE(IsRefused(Moved(0, 6, -5, 30)));  // the second piece through the last
}

TEST(CuttableStrips, MayTouchThemselves) {
  EXPECT_FALSE(IsRefused(Moved(0, 20, 450, 300)));
  EXPECT_FALSE(IsRefused(Moved(1, 20, 450, 0)));
  EXPECT_FALSE(IsRefused(Moved(0, 20, 900, 150)));
}

}  // namespace
}  // namespace brivane
