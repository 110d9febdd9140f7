#include "panels/layout_check.h"

#include <gtest/gtest.h>

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
