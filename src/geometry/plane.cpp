#include "geometry/plane.h"

namespace brivane {
namespace {

/// A side this much (relative to half the perimeter) short of the other two makes a flat triangle.
constexpr double kFlatness = 0.0000001;

double HalfAngle(double s, double opposite, double left, double right) {
  return 2 * std::atan(std::sqrt((s - left) * (s - right) / (s * (s - opposite))));
}

}  // namespace

TriangleAngles SolveTriangle(double a, double b, double c) {
  if (a + b + c < 0.000001) return {kPi / 3, kPi / 3, kPi / 3};
  const double s = (a + b + c) / 2;
  if (s - a < s * kFlatness) return {kPi, 0, 0};
  if (s - b < s * kFlatness) return {0, kPi, 0};
  if (s - c < s * kFlatness) return {0, 0, kPi};
  return {HalfAngle(s, a, b, c), HalfAngle(s, b, a, c), HalfAngle(s, c, a, b)};
}

double DirectionAngle(double x1, double y1, double x2, double y2) {
  // Twelve digits on purpose, not full double precision.
  constexpr double kQuarterTurn = 1.570796326795;
  constexpr double kThreeQuarterTurn = 4.712388980385;
  constexpr double kHalfTurn = 3.14159265359;
  constexpr double kFullTurn = 6.28318530718;

  if (x2 == x1) return y2 > y1 ? kQuarterTurn : y2 < y1 ? kThreeQuarterTurn : 0;
  const double angle = std::atan((y2 - y1) / (x2 - x1));
  if (x2 < x1) return angle + kHalfTurn;
  return y2 >= y1 ? angle : angle + kFullTurn;
}

void RotatePoint(double cx, double cy, double& x, double& y, double angle) {
  const double dx = x - cx;
  const double dy = y - cy;
  const double r = std::sqrt(dx * dx + dy * dy);
  double theta = 0;
  if (dx == 0) {
    theta = dy > 0 ? kPi / 2 : dy < 0 ? -kPi / 2 : 0;
  } else {
    theta = std::atan(dy / dx);
    if (dx < 0) theta += kPi;
  }
  x = cx + r * std::cos(theta + angle);
  y = cy + r * std::sin(theta + angle);
}

}  // namespace brivane
