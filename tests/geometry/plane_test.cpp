#include "geometry/plane.h"

#include <gtest/gtest.h>

#include <random>

namespace brivane {
namespace {

constexpr double kFullPi = 3.14159265358979323846;

TEST(SolveTriangle, GivesTheAnglesOfTheThreeFourFiveTriangle) {
  const TriangleAngles angles = SolveTriangle(3, 4, 5);
  EXPECT_NEAR(angles.A, std::asin(0.6), 1e-15);
  EXPECT_NEAR(angles.B, std::asin(0.8), 1e-15);
  EXPECT_NEAR(angles.C, kFullPi / 2, 1e-15);
}

TEST(SolveTriangle, AgreesWithTheLawOfCosinesOnRandomTriangles) {
  std::mt19937_64 random(11);
  std::uniform_real_distribution<double> side(1, 10);
  for (int i = 0; i < 1000; ++i) {
    const double a = side(random);
    const double b = side(random);
    const double c = std::abs(a - b) + (a + b - std::abs(a - b)) * (0.05 + 0.09 * side(random));
    const TriangleAngles angles = SolveTriangle(a, b, c);
    EXPECT_NEAR(angles.A, std::acos((b * b + c * c - a * a) / (2 * b * c)), 1e-12);
    EXPECT_NEAR(angles.B, std::acos((a * a + c * c - b * b) / (2 * a * c)), 1e-12);
    EXPECT_NEAR(angles.A + angles.B + angles.C, kFullPi, 1e-14);
  }
}

TEST(SolveTriangle, TakesATriangleWithoutSizeAsEquilateral) {
  const TriangleAngles angles = SolveTriangle(0, 0, 0);
  EXPECT_EQ(angles.A, 3.14159265358979 / 3);
  EXPECT_EQ(angles.B, 3.14159265358979 / 3);
  EXPECT_EQ(angles.C, 3.14159265358979 / 3);
}

TEST(SolveTriangle, FlattensATriangleThatCannotClose) {
  const auto expect = [](const TriangleAngles& angles, double a, double b, double c) {
    EXPECT_EQ(angles.A, a);
    EXPECT_EQ(angles.B, b);
    EXPECT_EQ(angles.C, c);
  };
  constexpr double kStraight = 3.14159265358979;
  expect(SolveTriangle(10, 4, 5), kStraight, 0, 0);
  expect(SolveTriangle(4, 10, 5), 0, kStraight, 0);
  expect(SolveTriangle(4, 5, 10), 0, 0, kStraight);
  expect(SolveTriangle(4, 5, 9), 0, 0, kStraight);
}

TEST(SolveTriangle, FlattensWithinATenMillionthOfHalfThePerimeter) {
  // Half the perimeter of 1, 1, 2 − 2e is 2 − e, from which the long side is short by e.
  EXPECT_EQ(SolveTriangle(1, 1, 2 - 2 * 1.9e-7).C, 3.14159265358979);
  EXPECT_LT(SolveTriangle(1, 1, 2 - 2 * 2.1e-7).C, 3.1416 - 0.001);
  EXPECT_GT(SolveTriangle(1, 1, 2 - 2 * 2.1e-7).A, 1e-4);
}

TEST(SolveTriangle, KnowsTheSmallestTriangleWithASize) {
  // A perimeter of a millionth of a millimetre and more.
  EXPECT_NEAR(SolveTriangle(2.625e-7, 3.5e-7, 4.375e-7).C, kFullPi / 2, 1e-9);
  EXPECT_EQ(SolveTriangle(2.4e-7, 3.2e-7, 4e-7).C, 3.14159265358979 / 3);
}

TEST(SolveTriangle, StaysAccurateForVeryFlatTriangles) {
  // A triangle of base 2 and height 1e-3: its base angles are atan(1e-3).
  const double arm = std::sqrt(1 + 1e-6);
  EXPECT_NEAR(SolveTriangle(arm, arm, 2).A, std::atan(1e-3), 1e-9);
}

TEST(DirectionAngle, UsesItsTwelveDigitTurns) {
  EXPECT_EQ(DirectionAngle(3, 4, 3, 4), 0);
  EXPECT_EQ(DirectionAngle(3, 4, 3, 9), 1.570796326795);
  EXPECT_EQ(DirectionAngle(3, 4, 3, -9), 4.712388980385);
  EXPECT_EQ(DirectionAngle(0, 0, -1, 0), 3.14159265359);
  EXPECT_EQ(DirectionAngle(0, 0, 1, 0), 0);
  EXPECT_EQ(DirectionAngle(0, 0, 1, 1), std::atan(1.0));
  EXPECT_EQ(DirectionAngle(0, 0, -1, 1), std::atan(-1.0) + 3.14159265359);
  EXPECT_EQ(DirectionAngle(0, 0, -1, -1), std::atan(1.0) + 3.14159265359);
  EXPECT_EQ(DirectionAngle(0, 0, 1, -1), std::atan(-1.0) + 6.28318530718);
  EXPECT_EQ(DirectionAngle(7, 9, 10, 13), std::atan(4.0 / 3));
}

TEST(RotatePoint, TurnsCounterClockwiseAboutItsCentre) {
  double x = 13;
  double y = 20;
  RotatePoint(10, 20, x, y, kFullPi / 2);
  EXPECT_NEAR(x, 10, 1e-12);
  EXPECT_NEAR(y, 23, 1e-12);
}

TEST(RotatePoint, HandlesEveryQuadrant) {
  for (const auto& [dx, dy] : {std::pair{3.0, 4.0}, {-3.0, 4.0}, {-3.0, -4.0}, {3.0, -4.0}}) {
    double x = 1 + dx;
    double y = 2 + dy;
    RotatePoint(1, 2, x, y, 0.3);
    EXPECT_NEAR(x, 1 + dx * std::cos(0.3) - dy * std::sin(0.3), 1e-12);
    EXPECT_NEAR(y, 2 + dx * std::sin(0.3) + dy * std::cos(0.3), 1e-12);
  }
}

TEST(RotatePoint, LeavesTheCentreAndTurnsThePointsAboveAndBelowIt) {
  double x = 5;
  double y = 6;
  RotatePoint(5, 6, x, y, 1);
  EXPECT_EQ(x, 5);
  EXPECT_EQ(y, 6);

  x = 0, y = 2;
  RotatePoint(0, 0, x, y, 0.5);
  EXPECT_NEAR(x, -2 * std::sin(0.5), 1e-12);
  EXPECT_NEAR(y, 2 * std::cos(0.5), 1e-12);

  x = 0, y = -2;
  RotatePoint(0, 0, x, y, 0.5);
  EXPECT_NEAR(x, 2 * std::sin(0.5), 1e-12);
  EXPECT_NEAR(y, -2 * std::cos(0.5), 1e-12);
}

TEST(RotatePoint, TurnsAPointLessThanAMillimetreBesideItsCentre) {
  for (const double way : {1.0, -1.0}) {
    double x = way * 0.5;
    double y = 0.25;
    RotatePoint(0, 0, x, y, kFullPi / 2);
    EXPECT_NEAR(x, -0.25, 1e-14) << way;
    EXPECT_NEAR(y, way * 0.5, 1e-14) << way;
  }
}

TEST(RotatePoint, TurnsAPointLessThanAMillimetreAboveItsCentre) {
  double x = 0;
  double y = 0.5;
  RotatePoint(0, 0, x, y, 0.5);
  EXPECT_NEAR(x, -0.5 * std::sin(0.5), 1e-15);
  EXPECT_NEAR(y, 0.5 * std::cos(0.5), 1e-15);

  x = 0, y = -0.5;
  RotatePoint(0, 0, x, y, 0.5);
  EXPECT_NEAR(x, 0.5 * std::sin(0.5), 1e-15);
  EXPECT_NEAR(y, -0.5 * std::cos(0.5), 1e-15);
}

}  // namespace
}  // namespace brivane
