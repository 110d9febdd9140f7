#include "geometry/edge_round.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <random>
#include <vector>

namespace brivane {
namespace {

/// Distance of a point from a line, mm.
double DistanceFrom(const PlaneLine& line, PlanePoint point) {
  return std::abs(Cross(line.Direction, point - line.Through)) / Length(line.Direction);
}

TEST(EdgeRoundCurve, VanishesAtTheEndsAndPeaksAtItsPosition) {
  for (const double p : {0.3, 0.35, 0.5, 0.6, 0.7}) {
    const EdgeRoundCurve curve = MakeEdgeRoundCurve(p);
    EXPECT_NEAR(curve.At(0), 0, 1e-14) << p;
    EXPECT_NEAR(curve.At(1), 0, 1e-14) << p;
    EXPECT_EQ(curve.At(p), 1) << p;
    EXPECT_EQ(curve.SlopeAt(p), 0) << p;
  }
}

TEST(EdgeRoundCurve, IsTheParabolaInTheMiddle) {
  const EdgeRoundCurve curve = MakeEdgeRoundCurve(0.5);
  for (const double t : {0.1, 0.25, 0.8}) EXPECT_NEAR(curve.At(t), 4 * t * (1 - t), 1e-14);
}

TEST(EdgeRoundCurve, HoldsThePositionBetweenThirtyAndSeventyPercent) {
  EXPECT_EQ(MakeEdgeRoundCurve(0.2).p, 0.3);
  EXPECT_EQ(MakeEdgeRoundCurve(0.9).p, 0.7);
}

TEST(EdgeRoundCurve, DipsLittleTowardsTheFarCorner) {
  for (const double p : {0.3, 0.7})
    for (double t = 0.01; t < 1; t += 0.01) {
      // A cubic that peaks this far off centre must dip a little beyond its chord.
      EXPECT_GE(MakeEdgeRoundCurve(p).At(t), -0.07) << p << " " << t;
      EXPECT_LE(MakeEdgeRoundCurve(p).At(t), 1 + 1e-14) << p << " " << t;
    }
}

TEST(RoundedEdge, BulgesToTheLeftOfItsDirection) {
  const RoundedEdge luff = MakeRoundedEdge({0, 0}, {0, 4000}, 100, 0.5);
  EXPECT_NEAR(luff.At(0.5).x, -100, 1e-12);
  EXPECT_NEAR(luff.At(0.5).y, 2000, 1e-12);
  EXPECT_EQ(luff.At(0), (PlanePoint{0, 0}));
  EXPECT_EQ(luff.At(1), (PlanePoint{0, 4000}));
  EXPECT_EQ(luff.At(-3), (PlanePoint{0, 0}));
  EXPECT_EQ(luff.At(7), (PlanePoint{0, 4000}));
}

TEST(RoundedEdge, KnowsItsSteepestSlope) {
  for (const double p : {0.3, 0.45, 0.5, 0.7}) {
    const RoundedEdge edge = MakeRoundedEdge({0, 0}, {0, 1}, 1, p);
    double steepest = 0;
    for (double t = 0; t <= 1; t += 0.0001)
      steepest = std::max(steepest, std::abs(edge.Curve.SlopeAt(t)));
    EXPECT_NEAR(edge.SteepestSlope, steepest, 1e-3) << p;
    EXPECT_GE(edge.SteepestSlope, steepest - 1e-9) << p;
  }
}

TEST(CrossingFraction, IsTheStraightCrossingWithoutARound) {
  const RoundedEdge luff = MakeRoundedEdge({0, 0}, {0, 4000}, 0, 0.5);
  EXPECT_NEAR(CrossingFraction(luff, {{500, 1000}, {1, 0}}), 0.25, 1e-15);
}

TEST(CrossingFraction, LiesOnTheLineAndOnTheRound) {
  std::mt19937_64 random(5);
  std::uniform_real_distribution<double> unit(0, 1);
  for (int i = 0; i < 2000; ++i) {
    const double length = 200 + 20000 * unit(random);
    const double round = length * (0.35 * unit(random) - 0.1);
    const RoundedEdge edge =
        MakeRoundedEdge({10, 20}, {10, 20 + length}, round, 0.3 + 0.4 * unit(random));
    const double target = unit(random);
    const PlanePoint through = edge.At(target);
    const PlaneLine line{through, {1, unit(random) - 0.5}};
    const double t = CrossingFraction(edge, line);
    ASSERT_GE(t, 0);
    ASSERT_LE(t, 1);
    if (t > 0 && t < 1) {
      EXPECT_LT(DistanceFrom(line, edge.At(t)), 1e-9) << i;
    }
  }
}

TEST(CrossingFraction, PicksTheCrossingNearestToTheStraightEdges) {
  // Parabola of 400 mm over 1000 mm: x = −1600t(1 − t), y = 1000t; the line is y = 700 + x.
  const RoundedEdge edge = MakeRoundedEdge({0, 0}, {0, 1000}, 400, 0.5);
  const PlaneLine line{{0, 700}, {1, 1}};
  // 1000t + 1600t(1 − t) = 700 → 1600t² − 2600t + 700 = 0 → t = (2600 − √(2600² −
  // 4·1600·700))/3200.
  const double expected = (2600 - std::sqrt(2600.0 * 2600 - 4 * 1600 * 700.0)) / 3200;
  EXPECT_NEAR(CrossingFraction(edge, line), expected, 1e-14);
}

TEST(CrossingFraction, MeetsASteepRoundTwiceAndTakesTheNearer) {
  // The line runs almost along the edge: x = −60 + 0.01(y − 100). On the parabola x = −400·4t(1−t)
  // it is met near both ends; the straight edge is met far above, at y = 6100.
  const RoundedEdge edge = MakeRoundedEdge({0, 0}, {0, 1000}, 400, 0.5);
  const double t = CrossingFraction(edge, {{-60, 100}, {0.01, 1}});
  EXPECT_GT(t, 0.9);
  EXPECT_LT(DistanceFrom({{-60, 100}, {0.01, 1}}, edge.At(t)), 1e-9);
}

TEST(CrossingFraction, TakesTheNearerOfTwoAlsoWhereTheLineLeavesTheEdgeFaster) {
  // x = −1600t(1 − t) = −450 + 200t: 1600t² − 1800t + 450 = 0, t = (1800 ± 600)/3200. The straight
  // edge is met at 200t = 450, beyond its end.
  const RoundedEdge edge = MakeRoundedEdge({0, 0}, {0, 1000}, 400, 0.5);
  EXPECT_NEAR(CrossingFraction(edge, {{-450, 0}, {0.2, 1}}), 0.75, 1e-14);
}

TEST(CrossingFraction, TakesTheFirstCrossingOfALineAlongTheEdge) {
  // 1600t(1 − t) = 300 at t = ¼ and ¾; the straight edge is never met.
  const RoundedEdge edge = MakeRoundedEdge({0, 0}, {0, 1000}, 400, 0.5);
  EXPECT_NEAR(CrossingFraction(edge, {{-300, 0}, {0, 1}}), 0.25, 1e-14);
}

TEST(CrossingFraction, TakesTheCornerThatTheLineRunsThroughAndNotAnotherCrossing) {
  // Through the end: 1600t(1 − t) = 200(1 − t) once more at t = ⅛. Through the start likewise.
  const RoundedEdge edge = MakeRoundedEdge({0, 0}, {0, 1000}, 400, 0.5);
  EXPECT_NEAR(CrossingFraction(edge, {{0, 1000}, {0.2, 1}}), 1, 1e-14);
  EXPECT_NEAR(CrossingFraction(edge, {{0, 1000}, {-0.2, -1}}), 1, 1e-14);
  EXPECT_NEAR(CrossingFraction(edge, {{0, 0}, {-0.2, 1}}), 0, 1e-14);
  EXPECT_NEAR(CrossingFraction(edge, {{0, 0}, {0.2, -1}}), 0, 1e-14);
}

/// The crossing nearest to the straight edge's, found by walking along the edge in small steps;
/// below 0 where there is none or where two are about as near.
double WalkedCrossing(const RoundedEdge& edge, const PlaneLine& line, double straight) {
  constexpr int kSteps = 20000;
  const auto side = [&](int i) {
    return Cross(line.Direction, edge.At(static_cast<double>(i) / kSteps) - line.Through) > 0;
  };
  std::vector<double> crossings;
  for (int i = 0; i < kSteps; ++i)
    if (side(i) != side(i + 1)) crossings.push_back((i + 0.5) / kSteps);
  const auto away = [&](double t) { return std::abs(t - straight); };
  std::sort(crossings.begin(), crossings.end(),
            [&](double a, double b) { return away(a) < away(b); });
  if (crossings.empty()) return -1;
  if (crossings.size() > 1 && away(crossings[1]) - away(crossings[0]) < 1e-3) return -1;
  return crossings[0];
}

TEST(CrossingFraction, AgreesWithAWalkAlongTheEdgeOfAnySize) {
  std::mt19937_64 random(17);
  std::uniform_real_distribution<double> unit(-1, 1);
  int several = 0;
  for (int i = 0; i < 400; ++i) {
    // From a hundredth of a millimetre to metres: no length is a natural one.
    const double length = std::pow(10, 1.5 + 3.5 * unit(random));
    const RoundedEdge edge =
        MakeRoundedEdge({0, 0}, {0, length}, length * unit(random) / 2, 0.5 + 0.2 * unit(random));
    const PlaneLine line{{length * unit(random) / 2, length * (0.5 + unit(random))},
                         {unit(random) / 2, 1}};
    const double along = line.Direction.x * length;
    const double straight = -Cross(line.Direction, edge.Start - line.Through) / along;
    const double walked = WalkedCrossing(edge, line, straight);
    if (walked < 0) continue;
    ++several;
    EXPECT_NEAR(CrossingFraction(edge, line), walked, 1e-4) << i;
  }
  EXPECT_GT(several, 150);
}

TEST(ParallelCrossings, AreFoundQuicklyBitForBit) {
  std::mt19937_64 random(23);
  std::uniform_real_distribution<double> unit(-1, 1);
  int looked = 0;
  int found = 0;
  for (int i = 0; i < 20000; ++i) {
    const double length = std::pow(10, 3 + unit(random));
    const double share = std::pow(10, -3 + 2.5 * unit(random));  // of the round: up to a third
    const PlanePoint start{length * unit(random), length * unit(random)};
    const PlanePoint end = start + length * PlanePoint{unit(random) / 2, i % 2 == 0 ? 1.0 : -1.0};
    const double round = i % 7 == 0 ? 0 : length * share * unit(random);
    const RoundedEdge edge = MakeRoundedEdge(start, end, round, 0.5 + 0.3 * unit(random));
    const double slope = unit(random) / 2;
    const ParallelCrossings crossings(edge, {1, slope});
    Lanes y;
    for (double& height : y) {
      const PlanePoint at = edge.At(0.5 + 0.52 * unit(random));
      height = at.y - at.x * slope;
    }
    const Lanes quickly = crossings.QuicklyAt(y);
    for (std::size_t lane = 0; lane < kLanes; ++lane) {
      ++looked;
      if (std::isnan(quickly[lane])) continue;
      ++found;
      EXPECT_EQ(quickly[lane], crossings.At({0, y[lane]})) << i << " " << lane;
    }
  }
  EXPECT_GT(found, looked * 3 / 4);
}

TEST(CrossingFraction, EndsAtTheCornerWhereTheLinePassesBy) {
  const RoundedEdge luff = MakeRoundedEdge({0, 0}, {0, 4000}, 100, 0.5);
  EXPECT_EQ(CrossingFraction(luff, {{0, -10}, {1, 0}}), 0);
  EXPECT_EQ(CrossingFraction(luff, {{0, 4010}, {1, 0}}), 1);
  EXPECT_EQ(CrossingFraction(luff, {{0, 0}, {1, 0}}), 0);
  EXPECT_EQ(CrossingFraction(luff, {{0, 4000}, {1, 0}}), 1);
}

TEST(CrossingFraction, SurvivesAParallelLineAndAnEdgeWithoutLength) {
  const RoundedEdge luff = MakeRoundedEdge({0, 0}, {0, 4000}, 0, 0.5);
  const double parallel = CrossingFraction(luff, {{50, 0}, {0, 1}});
  EXPECT_TRUE(parallel == 0 || parallel == 1);
  const RoundedEdge point = MakeRoundedEdge({3, 4}, {3, 4}, 100, 0.5);
  EXPECT_EQ(point.At(CrossingFraction(point, {{0, 0}, {1, 0}})), (PlanePoint{3, 4}));
}

TEST(ExtentAlong, ReachesToTheBulgeOfTheRound) {
  const RoundedEdge luff = MakeRoundedEdge({0, 0}, {0, 4000}, 100, 0.4);
  EXPECT_NEAR(ExtentAlong(luff, {1, 0}).Low, -100, 1e-12);
  EXPECT_NEAR(ExtentAlong(luff, {1, 0}).High, 0, 1e-12);
  EXPECT_NEAR(ExtentAlong(luff, {0, 1}).High, 4000, 1e-12);
}

TEST(ExtentAlong, AgreesWithSamplingATiltedEdge) {
  const RoundedEdge edge = MakeRoundedEdge({0, 1000}, {900, 1100}, -80, 0.35);
  const PlanePoint direction{-0.05, 1};
  double low = 1e9;
  for (int i = 0; i <= 100000; ++i) low = std::min(low, Dot(direction, edge.At(i / 100000.0)));
  EXPECT_NEAR(ExtentAlong(edge, direction).Low, low, 1e-6);
}

TEST(ExtentAlong, AgreesWithSamplingOnEdgesOfAnySize) {
  std::mt19937_64 random(19);
  std::uniform_real_distribution<double> unit(-1, 1);
  for (int i = 0; i < 200; ++i) {
    const double length = std::pow(10, 1.5 + 3.5 * unit(random));
    const RoundedEdge edge = MakeRoundedEdge({unit(random), unit(random)}, {unit(random), length},
                                             length * unit(random) / 2, 0.5 + 0.2 * unit(random));
    const PlanePoint direction{1, unit(random) / 4};
    double low = Dot(direction, edge.Start);
    double high = low;
    for (int k = 0; k <= 4000; ++k) {
      const double reach = Dot(direction, edge.At(k / 4000.0));
      low = std::min(low, reach);
      high = std::max(high, reach);
    }
    EXPECT_NEAR(ExtentAlong(edge, direction).Low, low, 1e-5 * length) << i;
    EXPECT_NEAR(ExtentAlong(edge, direction).High, high, 1e-5 * length) << i;
  }
}

}  // namespace
}  // namespace brivane
