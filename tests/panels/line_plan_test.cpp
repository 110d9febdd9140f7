#include "panels/line_plan.h"

#include <gtest/gtest.h>

#include <array>
#include <optional>

#include "geometry/outline.h"

namespace brivane {
namespace {

TEST(StepOff, StepsByTheClothLessEachAllowance) {
  Allowances allowances{};
  allowances[0] = 10;
  allowances[2] = -5;
  const Steps steps = StepOff(900, allowances, {3000, 0, 0});
  EXPECT_EQ(steps.PanelCount, 4);
  EXPECT_EQ(steps.Distance[1], 890);
  EXPECT_EQ(steps.Distance[2], 1790);
  EXPECT_EQ(steps.Distance[3], 2695);
  EXPECT_EQ(steps.LastStep, 305);
  EXPECT_EQ(steps.NarrowSteps, 0);
  EXPECT_FALSE(steps.TooMany);
}

TEST(StepOff, RaisesANarrowStepToExactlyFortyMillimetres) {
  Allowances allowances{};
  allowances[0] = 860.001;
  const Steps steps = StepOff(900, allowances, {1000, 0, 0});
  EXPECT_EQ(steps.Distance[1], 40);
  EXPECT_EQ(steps.NarrowSteps, 1);
  allowances[0] = 860;
  EXPECT_EQ(StepOff(900, allowances, {1000, 0, 0}).NarrowSteps, 0);
}

TEST(StepOff, CoversASmallSailWithOnePanel) {
  const Steps steps = StepOff(900, {}, {900, 0, 0});
  EXPECT_EQ(steps.PanelCount, 1);
  EXPECT_EQ(steps.LastStep, 900);
}

TEST(StepOff, TripsAtTheSeventyFirstLine) {
  EXPECT_EQ(StepOff(100, {}, {7000, 0, 0}).PanelCount, 70);
  EXPECT_FALSE(StepOff(100, {}, {7000, 0, 0}).TooMany);
  EXPECT_TRUE(StepOff(100, {}, {7000.001, 0, 0}).TooMany);
}

TEST(StepOff, KeepsSeamsOutOfAHollow) {
  // Below the hollow where there is room, else at its upper corner.
  EXPECT_EQ(StepOff(900, {}, {2000, 700, 950}).Distance[1], 700);
  EXPECT_EQ(StepOff(900, {}, {2000, 899.5, 950}).Distance[1], 899.5);
  Allowances allowances{};
  allowances[0] = 200;
  const Steps steps = StepOff(900, allowances, {2500, 730, 1800});
  EXPECT_EQ(steps.Distance[1], 700);
  EXPECT_EQ(steps.Distance[2], 1800);  // 730 lies less than 40 mm on
}

class OnDefaultSail : public ::testing::Test {
 protected:
  OnDefaultSail() { ComputeOutline(sail_); }
  Boundary Ring() const {
    return {{frame().Edges.Foot, frame().Edges.Luff, frame().Edges.Gaff, frame().Edges.Leech}};
  }
  const SurfaceFrame& frame() const {
    if (!frame_) frame_.emplace(sail_);
    return *frame_;
  }
  mutable SailDefinition sail_;
  mutable std::optional<SurfaceFrame> frame_;
};

TEST_F(OnDefaultSail, PlacesOnTheBoundaryAreItsCorners) {
  const Boundary ring = Ring();
  EXPECT_EQ(ring.At(kClew), (PlanePoint{sail_.ClewPoint.x, sail_.ClewPoint.y}));
  EXPECT_EQ(ring.At(kTack), (PlanePoint{0, 0}));
  EXPECT_EQ(ring.At(kThroat), (PlanePoint{0, 4550}));
  EXPECT_EQ(ring.At(kPeak), (PlanePoint{sail_.PeakPoint.x, sail_.PeakPoint.y}));
  EXPECT_EQ(ring.At(kClewAgain), ring.At(kClew));
  EXPECT_NEAR(ring.At(1.5).x, -100, 1e-9);
}

TEST_F(OnDefaultSail, AWalkPassesThroughTheCornersBetweenItsEnds) {
  const Boundary ring = Ring();
  SurfaceGrid grid;
  PutBoundary(frame(), ring, 0.98, 2.05, grid, 3, 1, 4);
  bool tack = false;
  bool throat = false;
  for (int point = 1; point <= 4; ++point) {
    tack |= grid.SurfaceX(3, point) == 0 && grid.SurfaceY(3, point) == 0;
    throat |= grid.SurfaceX(3, point) == 0 && grid.SurfaceY(3, point) == 4550;
  }
  EXPECT_TRUE(tack);
  EXPECT_TRUE(throat);
}

TEST_F(OnDefaultSail, AWalkGivesEachFurtherIntervalToTheLongestStretch) {
  const auto places = [&](double from, double to) {
    SurfaceGrid grid;
    PutBoundary(frame(), Ring(), from, to, grid, 1, 1, 4);
    std::array<PlanePoint, 4> points;
    for (int point = 1; point <= 4; ++point)
      points[static_cast<std::size_t>(point - 1)] = {grid.SurfaceX(1, point),
                                                     grid.SurfaceY(1, point)};
    return points;
  };
  const auto expect = [&](const std::array<PlanePoint, 4>& points, std::array<double, 4> along) {
    for (std::size_t i = 0; i < 4; ++i)
      EXPECT_LT(Length(points[i] - Ring().At(along[i])), 1e-9) << i;
  };
  // A tenth of the foot of 3600 mm, three tenths of the luff of 4550 mm: the luff's intervals go
  // 1365, 683, 455, 341 mm while the foot keeps its one of 360 to 370 mm.
  expect(places(0.9, 1.3), {1, 1.075, 1.15, 1.225});
  // Three tenths of each: 1080 and 1365 mm; the luff 683, the foot 540, the luff 455.
  expect(places(0.7, 1.3), {0.85, 1, 1.1, 1.2});
  // Round the throat: a tenth of the luff, a tenth of the gaff of 2600 mm and back again.
  expect(places(1.9, 2.1), {1.9 + 0.1 / 3, 1.9 + 0.2 / 3, 2, 2.05});
  expect(places(2.1, 1.9), {2.05, 2, 1.9 + 0.2 / 3, 1.9 + 0.1 / 3});
}

TEST_F(OnDefaultSail, AWalkOverThreeEdgesSharesItsIntervalsAmongAll) {
  // Back over 130 mm of the gaff, the luff of 4550 mm and half of the foot, some 1800 mm, in thirty
  // intervals: one, twenty-one of 217 mm, eight of 225 mm.
  SurfaceGrid grid;
  PutBoundary(frame(), Ring(), 2.05, 0.5, grid, 1, 6, 34);
  const auto expect = [&](int point, double place) {
    const PlanePoint at{grid.SurfaceX(1, point), grid.SurfaceY(1, point)};
    EXPECT_LT(Length(at - Ring().At(place)), 1e-9) << point;
  };
  for (int k = 0; k <= 21; ++k) expect(6 + k, 2 - k / 21.0);
  for (int k = 1; k <= 7; ++k) expect(27 + k, 1 - 0.5 * k / 8.0);
}

TEST_F(OnDefaultSail, AWalkRunsBothWaysOverTheSamePlaces) {
  const Boundary ring = Ring();
  SurfaceGrid grid;
  PutBoundary(frame(), ring, 0.9, 1.3, grid, 1, 1, 4);
  PutBoundary(frame(), ring, 1.3, 0.9, grid, 2, 1, 4);
  for (int point = 1; point <= 4; ++point) {
    EXPECT_NEAR(grid.SurfaceX(1, point), grid.SurfaceX(2, 5 - point), 1e-9);
    EXPECT_NEAR(grid.SurfaceY(1, point), grid.SurfaceY(2, 5 - point), 1e-9);
  }
}

TEST_F(OnDefaultSail, AWalkWithoutLengthStaysInItsPlace) {
  SurfaceGrid grid;
  PutBoundary(frame(), Ring(), 1.25, 1.25, grid, 1, 1, 4);
  const PlanePoint at = Ring().At(1.25);
  for (int point = 1; point <= 4; ++point) EXPECT_EQ(grid.SurfaceX(1, point), at.x);
}

TEST(StepOff, LeavesAHollowOnlyToItsEdges) {
  // Seams at the very edges of a hollow stay; the lower edge is taken at exactly forty millimetres.
  EXPECT_EQ(StepOff(900, {}, {2000, 900, 950}).Distance[1], 900);
  EXPECT_EQ(StepOff(900, {}, {2000, 850, 900}).Distance[1], 900);
  EXPECT_EQ(StepOff(900, {}, {2000, 40, 950}).Distance[1], 40);
  EXPECT_EQ(StepOff(900, {}, {2000, 39.9, 950}).Distance[1], 950);
}

TEST_F(OnDefaultSail, TheClewIsNotLifted) {
  SurfaceGrid grid;
  PutPlace(frame(), Ring(), kClewAgain, grid, 0, 35);
  EXPECT_EQ(grid.SurfaceZ(0, 35), 0);
  PutPlace(frame(), Ring(), kPeak, grid, 0, 5);
  EXPECT_NEAR(grid.SurfaceZ(0, 5), sail_.PeakPoint.z, 0.1);
}

TEST_F(OnDefaultSail, BoundsReachTheLastCornerAndKnowAHollow) {
  const PlanePoint upLeech{-frame().SinLeech, frame().CosLeech};
  const StepBounds bounds = BoundsAlong(frame(), upLeech, frame().Edges.Gaff);
  EXPECT_NEAR(bounds.LastCorner, sail_.LeechLength, 1e-5);
  EXPECT_EQ(bounds.HollowHigh, 0);  // the gaff bulges outward
  const RoundedEdge hollow = MakeRoundedEdge({0, 5000}, {2000, 5000}, -100, 0.5);
  const StepBounds hollowed = BoundsAlong(frame(), {0, 1}, hollow);
  const double clew = sail_.ClewPoint.y;
  EXPECT_NEAR(hollowed.LastCorner, 5000 - clew, 1e-9);
  EXPECT_NEAR(hollowed.HollowLow, 4900 - clew - 40, 1e-9);
  EXPECT_NEAR(hollowed.HollowHigh, 5000 - clew, 1e-9);
}

}  // namespace
}  // namespace brivane
