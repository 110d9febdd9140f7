#include "geometry/mould.h"

#include <gtest/gtest.h>

#include <cmath>
#include <random>

namespace brivane {
namespace {

TEST(DepthAt, FollowsTheDefaultMould) {
  const SailDefinition sail;
  EXPECT_DOUBLE_EQ(DepthAt(sail, 0), 0.03);
  EXPECT_DOUBLE_EQ(DepthAt(sail, 0.4), 0.10);
  EXPECT_DOUBLE_EQ(DepthAt(sail, 1), 0.0075);
  EXPECT_NEAR(DepthAt(sail, 0.99), 0.05165, 5e-6);
  EXPECT_DOUBLE_EQ(DepthAt(sail, 0.991), 0.0075);
  EXPECT_DOUBLE_EQ(DepthAt(sail, 0.2), 0.03 + 0.75 * 0.07);  // t = ½, 2t − t² = ¾
  EXPECT_NEAR(DepthAt(sail, 0.7), 0.10 - 0.25 * 0.05, 1e-15);
}

TEST(DepthAt, RunsOutBelowTheFootDownToItsFloor) {
  const SailDefinition sail;
  EXPECT_DOUBLE_EQ(DepthAt(sail, -0.1), 0.018);
  EXPECT_DOUBLE_EQ(DepthAt(sail, -0.5), 0.0075);
}

TEST(DepthAt, KeepsTheFloorInsideTheSail) {
  SailDefinition sail;
  sail.Depth = {8, 10, 0};
  EXPECT_DOUBLE_EQ(DepthAt(sail, 0.98), 0.02);
}

TEST(DepthAt, KeepsAQuarterOfTheFootsDepthAtTheHead) {
  SailDefinition sail;
  sail.Depth = {8, 10, 1};  // at 0.98 the parabola has fallen to 10 − (0.58/0.6)²·9 = 1.59
  EXPECT_DOUBLE_EQ(DepthAt(sail, 0.98), 0.02);
  sail.Depth = {8, 10, 1.8};  // 10 − 0.9344·8.2 = 2.34: above the floor
  EXPECT_NEAR(DepthAt(sail, 0.98), (10 - 0.58 * 0.58 / 0.36 * 8.2) / 100, 1e-15);
  sail.Depth = {8, 10, 0.8};
  EXPECT_NEAR(DepthAt(sail, 0.94), (10 - 0.54 * 0.54 / 0.36 * 9.2) / 100, 1e-15);  // 2.55
}

TEST(DepthAt, FallsToThreeQuartersOverASixteenthBelowTheFoot) {
  const SailDefinition sail;
  EXPECT_DOUBLE_EQ(DepthAt(sail, -1 / 16.0), 0.03 * 0.75);
  EXPECT_DOUBLE_EQ(DepthAt(sail, -3 / 16.0), 0.0075);
  EXPECT_NEAR(DepthAt(sail, -0.19), 0.0075, 1e-15);  // the line has fallen to 0.24 of the foot
}

TEST(ShapeAt, StartsFromTheFootsOwnShape) {
  SailDefinition sail;
  sail.LuffShape = {2, 4, 7};
  for (const auto& [height, shape] :
       {std::pair{0.0, 2.0}, {0.1, 2.5}, {0.4, 4.0}, {0.7, 5.5}, {1.0, 7.0}}) {
    double h = height;
    EXPECT_DOUBLE_EQ(LuffShapeAt(sail, h), shape) << height;
  }
}

TEST(ShapeAt, IsStraightFromFootToMiddleToHead) {
  const SailDefinition sail;
  double h = 0.4;
  EXPECT_DOUBLE_EQ(LuffShapeAt(sail, h), 3);
  h = 1;
  EXPECT_DOUBLE_EQ(LuffShapeAt(sail, h), 6);
  h = 0.2;
  EXPECT_DOUBLE_EQ(LuffShapeAt(sail, h), 1.5);
  h = 0.7;
  EXPECT_DOUBLE_EQ(LeechShapeAt(sail, h), 0.07);
  h = 0.1;
  EXPECT_DOUBLE_EQ(LeechShapeAt(sail, h), 0.015);
}

TEST(DividesHeight, BetweenFootAndHeadAlone) {
  SailDefinition sail;
  for (const double inside : {0.001, 1.0, 8.0, 9.999}) {
    sail.DepthPosition = inside;
    EXPECT_TRUE(DividesHeight(sail)) << inside;
  }
  constexpr double kVanishing = 5e-324;  // a tenth of it is 0
  for (const double outside : {-1.0, 0.0, kVanishing, 10.0, 11.0}) {
    sail.DepthPosition = outside;
    EXPECT_FALSE(DividesHeight(sail)) << outside;
  }
}

TEST(ShapeAt, ClampsTheHeightInPlace) {
  const SailDefinition sail;
  double h = 1.5;
  EXPECT_DOUBLE_EQ(LuffShapeAt(sail, h), 6);
  EXPECT_EQ(h, 1);
  h = -0.5;
  EXPECT_DOUBLE_EQ(LeechShapeAt(sail, h), 0);
  EXPECT_EQ(h, 0);
}

TEST(SectionProfile, IsZeroAtAndBeyondItsEnds) {
  for (const double x : {-1.0, 0.0, 1.0, 2.0}) EXPECT_EQ(SectionProfile(3, 0.06, 1, x), 0);
}

TEST(SectionProfile, IsTheParabolaWithoutShape) {
  EXPECT_DOUBLE_EQ(SectionProfile(0, 0, 1, 0.5), 0.125);
  for (const double x : {0.1, 0.3, 0.9})
    EXPECT_NEAR(SectionProfile(0, 0, 2, x), x * (1 - x), 1e-15);
}

TEST(SectionProfile, HasTheCurvatureOfItsFactors) {
  for (const double A : {0.0, 2.0, 6.0})
    for (const double B : {0.0, 0.08, 1.0})
      for (const double x : {0.2, 0.5, 0.8}) {
        const double d = 1e-4;
        const double curvature = (SectionProfile(A, B, 1, x - d) - 2 * SectionProfile(A, B, 1, x) +
                                  SectionProfile(A, B, 1, x + d)) /
                                 (d * d);
        EXPECT_NEAR(curvature, -(std::pow(1 - x, A) + B * x), 1e-6);
      }
}

TEST(SectionProfile, ComesDownToZeroAtItsEnds) {
  for (const double A : {0.0, 3.0})
    for (const double B : {0.0, 1.0}) {
      EXPECT_NEAR(SectionProfile(A, B, 1, 1e-9), 0, 1e-8) << A << B;
      EXPECT_NEAR(SectionProfile(A, B, 1, 1 - 1e-9), 0, 1e-8) << A << B;
    }
}

TEST(ProfileNormaliser, OfTheParabolaIsEight) { EXPECT_NEAR(ProfileNormaliser(0, 0), 8, 1e-12); }

TEST(ProfileNormaliser, TakesTheFirstSampleOfAProfileThatIsFullestBeforeIt) {
  // A = 20 is fullest at X = 1 − (1/22)^(1/21) = 0.137.
  const double X = 0.2 + 0.01;
  EXPECT_EQ(ProfileNormaliser(20, 0), 1 / SectionProfile(20, 0, 1, X));
}

TEST(ProfileNormaliser, TakesSampleFiftyNineOfAProfileThatIsFullestBeyondIt) {
  // A = −0.9 is fullest at X = 1 − (1/1.1)^10 = 0.614.
  double X = 0.2;
  for (int i = 0; i < 39; ++i) X += 0.01;
  EXPECT_NEAR(X, 0.59, 1e-12);
  EXPECT_EQ(ProfileNormaliser(-0.9, 0), 1 / SectionProfile(-0.9, 0, 1, X));
}

TEST(ProfileNormaliser, OfAFlatProfileIsTenThousand) {
  EXPECT_EQ(ProfileNormaliser(200, 0), 10000);  // 1/(201·202) is below 0.0001 everywhere
}

TEST(NormaliserWalk, IsBitIdenticalToTheSearchFromTheStart) {
  std::mt19937_64 random(3);
  std::uniform_real_distribution<double> unit(0, 1);
  NormaliserWalk walk;
  for (int i = 0; i < 20000; ++i) {
    const double scale = unit(random) < 0.1 ? 100 : 8;
    const double A = scale * unit(random);
    const double B = unit(random) < 0.1 ? 1000 * unit(random) : 0.3 * unit(random);
    EXPECT_EQ(walk({A, B}), ProfileNormaliser(A, B)) << A << " " << B;
  }
}

TEST(NormaliserWalk, IsBitIdenticalWhereTheProfileAllButVanishes) {
  std::mt19937_64 random(4);
  std::uniform_real_distribution<double> unit(0, 1);
  NormaliserWalk walk;
  for (int i = 0; i < 20000; ++i) {
    const double A = std::pow(10, unit(random) < 0.1 ? 300 * unit(random) : 4 * unit(random));
    const double B = unit(random) < 0.5 ? 0 : 0.01 * unit(random);
    EXPECT_EQ(walk({A, B}), ProfileNormaliser(A, B)) << A << " " << B;
    walk({3, 0.06});  // so that the next walk begins somewhere else than at its start
  }
}

TEST(NormaliserWalk, IsBitIdenticalFromOneSectionToTheNext) {
  // From a parabola, fullest in the middle, to sections that are fullest before the first sample
  // and beyond the last, in small steps and by every factor of the mould window.
  NormaliserWalk walk;
  for (int i = 0; i <= 20000; ++i) {
    const double A = i / 800.0;
    const double B = i < 10000 ? 0 : (i - 10000) / 1000.0;
    EXPECT_EQ(walk({A, B}), ProfileNormaliser(A, B)) << A << " " << B;
  }
  for (int luff = 0; luff <= 100; ++luff)
    for (int leech = 0; leech <= 100; ++leech)
      EXPECT_EQ(walk({luff / 10.0, leech / 500.0}), ProfileNormaliser(luff / 10.0, leech / 500.0))
          << luff << " " << leech;
}

TEST(NormaliserWalk, IsBitIdenticalWhereTwoSamplesAreAllButAlike) {
  // The leech coefficient at which samples k and k + 1 are equal, and next to it on both sides.
  NormaliserWalk walk;
  for (const double A : {0.0, 0.5, 1.0, 3.0, 6.0, 12.0}) {
    double X = 0.2;
    for (int k = 1; k < 39; ++k) {
      X += 0.01;
      const auto rise = [&](double B) {
        return SectionProfile(A, B, 1, X + 0.01) - SectionProfile(A, B, 1, X);
      };
      const double equal = -rise(0) / (rise(1) - rise(0));  // the rise is linear in B
      if (!(equal > 0)) continue;
      for (const double part : {-1e-3, -1e-6, -1e-9, -1e-12, -1e-15, 0.0, 1e-15, 1e-12, 1e-9, 1e-6})
        EXPECT_EQ(walk({A, equal * (1 + part)}), ProfileNormaliser(A, equal * (1 + part)))
            << A << " " << k << " " << part;
    }
  }
}

TEST(NormaliserWalk, FallsBackToTheSearchForFactorsBelowZero) {
  NormaliserWalk walk;
  EXPECT_EQ(walk({-0.9, 0}), ProfileNormaliser(-0.9, 0));
  EXPECT_EQ(walk({3, -0.5}), ProfileNormaliser(3, -0.5));
  EXPECT_EQ(walk({200, 0}), 10000);
}

}  // namespace
}  // namespace brivane
