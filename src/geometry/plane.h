#pragma once

#include <cmath>

#include "model/degrees.h"

namespace brivane {

/// A point or a vector of a plane, mm or surface units.
struct PlanePoint {
  double x = 0;
  double y = 0;
  bool operator==(const PlanePoint&) const = default;
};

/// Points as vectors: sum, difference, multiple, dot product.
constexpr PlanePoint operator+(PlanePoint a, PlanePoint b) { return {a.x + b.x, a.y + b.y}; }
constexpr PlanePoint operator-(PlanePoint a, PlanePoint b) { return {a.x - b.x, a.y - b.y}; }
constexpr PlanePoint operator*(double k, PlanePoint a) { return {k * a.x, k * a.y}; }
constexpr double Dot(PlanePoint a, PlanePoint b) { return a.x * b.x + a.y * b.y; }

/// Twice the signed area of the triangle (0, a, b): positive when b lies to the left of a.
constexpr double Cross(PlanePoint a, PlanePoint b) { return a.x * b.y - a.y * b.x; }

/// Distance from the origin.
inline double Length(PlanePoint a) { return std::sqrt(Dot(a, a)); }

/// The point at the fraction t of the way from a to b.
constexpr PlanePoint Between(PlanePoint a, PlanePoint b, double t) { return a + t * (b - a); }

/// π, as far as the program has always taken it.
inline constexpr double kPi = 3.14159265358979;

/// Angles of a triangle, rad, each opposite the side of the same letter.
struct TriangleAngles {
  double A = 0;
  double B = 0;
  double C = 0;
};

/// Angles of the triangle with the sides a, b, c (any unit, not negative) by the half-angle
/// formulas. Never fails: a triangle without size has three angles of π/3, one that cannot close
/// is flat, with π opposite its longest side.
TriangleAngles SolveTriangle(double a, double b, double c);

/// Bearing of the vector from (x1, y1) to (x2, y2), rad in [0, 2π); 0 for coincident points.
double DirectionAngle(double x1, double y1, double x2, double y2);

/// Rotates (x, y) in place about (cx, cy) by angle, rad, counter-clockwise positive.
void RotatePoint(double cx, double cy, double& x, double& y, double angle);

}  // namespace brivane
