#include "geometry/mould.h"

#include <algorithm>
#include <array>
#include <cmath>

namespace brivane {
namespace {

constexpr double kFirstAbscissa = 0.2;
constexpr double kLastAbscissa = 0.6;
constexpr double kAbscissaStep = 0.01;
constexpr double kLeastMaximum = 0.0001;

/// Up to here (1 − X)^A changes by less than a factor of 2 within a step, for any X of the walk.
constexpr double kMostExponent = 20;

double DepthHeight(const SailDefinition& sail) { return sail.DepthPosition / 10; }

/// Straight from the foot to the height of maximum depth and from there to the head.
double ShapeAt(const SailDefinition& sail, const std::array<double, 3>& shape, double& h) {
  const double p = DepthHeight(sail);
  if (h < 0)
    h = 0;
  else if (h > 1)
    h = 1;
  if (h > p) return shape[kMiddle] + (h - p) * (shape[kTop] - shape[kMiddle]) / (1 - p);
  return shape[kFoot] + h * (shape[kMiddle] - shape[kFoot]) / p;
}

/// The abscissae of the walk, accumulated and not recomputed, and how many of them it can reach.
struct Abscissae {
  std::array<double, 50> X{};
  std::array<double, 50> InverseRest{};  ///< 1 / (1 − X)
  int Last = 0;
};

constexpr Abscissae AccumulateAbscissae() {
  Abscissae result;
  double x = kFirstAbscissa;
  result.X[0] = x;
  while (x < kLastAbscissa) {
    x += kAbscissaStep;
    result.X[static_cast<std::size_t>(++result.Last)] = x;
    result.InverseRest[static_cast<std::size_t>(result.Last)] = 1 / (1 - x);
  }
  return result;
}

constexpr Abscissae kAbscissae = AccumulateAbscissae();

/// Depth of the section at X within 0 to 1, with the power (1 − X)^(A + 2).
double AtPower(const Section& section, double X, double power) {
  return -power / section.Divisor - section.B * X * X * X / 6 + section.K2 * X + section.K1;
}

/// How the profile rises around a sample, by Taylor's series there, its fourth term bounded.
struct Rise {
  double Before;  ///< from the sample before to this one, divided by their distance
  double After;   ///< from this sample to the next, divided by their distance
  double Doubt;   ///< neither is further off than this
};

/// The rise at sample k, where power is (1 − X)^(A + 2).
Rise RiseAt(const Section& section, int k, double power) {
  constexpr double kStep = kAbscissaStep;
  constexpr double kRounding = 1e-12 / kStep;  // of two samples, as a part of K1 + B
  const auto& [A, B, divisor, K1, K2] = section;
  const double X = kAbscissae.X[static_cast<std::size_t>(k)];
  const double rest = kAbscissae.InverseRest[static_cast<std::size_t>(k)];
  const double entry = power * rest * rest;  // (1 − X)^A
  const double slope = power * rest * (A + 2) * K1 - B * X * X / 2 + K2;
  const double bend = (entry + B * X) * (kStep / 2);
  const double third = (A * entry * rest - B) * (kStep * kStep / 6);
  const double fourth = A * (A + 1) * entry * rest * rest * (kStep * kStep * kStep / 24);
  return {slope + third + bend, slope + third - bend, 2 * fourth + (K1 + B) * kRounding};
}

/// How many samples away the greatest is about, by a parabola through the rises.
int SamplesToPeak(const Rise& rise) {
  const double samples = (rise.Before + rise.After) / (rise.Before - rise.After) / 2;
  return static_cast<int>(std::clamp(samples, -50.0, 50.0));
}

}  // namespace

bool DividesHeight(const SailDefinition& sail) {
  const double p = DepthHeight(sail);
  return p > 0 && p < 1;
}

double DepthAt(const SailDefinition& sail, double h) {
  const double p = DepthHeight(sail);
  const double foot = sail.Depth[kFoot];
  const double middle = sail.Depth[kMiddle];
  double d = 0;
  if (h > 0.99) {
    d = 0;
  } else if (h > p) {
    const double t = (h - p) / (1 - p);
    d = middle + t * t * (sail.Depth[kTop] - middle);
  } else if (h <= 0) {
    d = foot * (1 + 4 * h);
  } else {
    const double t = h / p;
    d = foot + (2 * t - t * t) * (middle - foot);
  }
  if (d < foot / 4) d = foot / 4;
  return d / 100;
}

double LuffShapeAt(const SailDefinition& sail, double& h) {
  return ShapeAt(sail, sail.LuffShape, h);
}

double LeechShapeAt(const SailDefinition& sail, double& h) {
  return ShapeAt(sail, sail.LeechShape, h);
}

Section::Section(double luffExponent, double leechCoefficient)
    : A(luffExponent),
      B(leechCoefficient),
      Divisor((A + 1) * (A + 2)),
      K1(1 / Divisor),
      K2(B / 6 - K1) {}

double Section::At(double X) const {
  if (X <= 0 || X >= 1) return 0;
  return AtPower(*this, X, std::pow(1 - X, A + 2));
}

double SectionProfile(double A, double B, double S, double X) {
  if (X <= 0 || X >= 1) return 0;
  return S * Section(A, B).At(X);
}

double ProfileNormaliser(double A, double B) {
  double X = kFirstAbscissa;
  double best = 0;
  double y = kLeastMaximum;
  while (!(y < best) && X < kLastAbscissa) {
    X += kAbscissaStep;
    best = y;
    y = SectionProfile(A, B, 1, X);
  }
  return 1 / best;
}

double NormaliserWalk::operator()(const Section& section) {
  const auto& [A, B, divisor, K1, K2] = section;
  if (!(A >= 0 && A <= kMostExponent && B >= 0)) return ProfileNormaliser(A, B);
  int low = 1;
  int high = kAbscissae.Last - 1;
  while (low <= high) {
    const int k = std::clamp(greatest_, low, high);
    const double X = kAbscissae.X[static_cast<std::size_t>(k)];
    const double power = std::pow(1 - X, A + 2);
    const Rise rise = RiseAt(section, k, power);
    const bool rising = k == low || rise.Before > rise.Doubt;
    const bool falling = k == high || rise.After < -rise.Doubt;
    if (rising && falling) {
      const double greatest = AtPower(section, X, power);
      // The walk may end at its first sample, at the floor; the profile is higher there than a
      // third of its maximum.
      if (!(greatest >= 3 * kLeastMaximum)) break;
      greatest_ = k;
      return 1 / greatest;
    }
    if (rise.After > rise.Doubt)
      low = k + 1;
    else if (rise.Before < -rise.Doubt)
      high = k - 1;
    else
      break;
    greatest_ = k + SamplesToPeak(rise);
  }
  return ProfileNormaliser(A, B);
}

}  // namespace brivane
