#include "geometry/mould.h"

#include <array>
#include <cmath>

namespace brivane {
namespace {

constexpr double kFirstAbscissa = 0.2;
constexpr double kLastAbscissa = 0.6;
constexpr double kAbscissaStep = 0.01;
constexpr double kLeastMaximum = 0.0001;

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
  int Last = 0;
};

constexpr Abscissae AccumulateAbscissae() {
  Abscissae result;
  double x = kFirstAbscissa;
  result.X[0] = x;
  while (x < kLastAbscissa) {
    x += kAbscissaStep;
    result.X[static_cast<std::size_t>(++result.Last)] = x;
  }
  return result;
}

constexpr Abscissae kAbscissae = AccumulateAbscissae();

/// Sample k of the walk; sample 0 stands for the floor below which no maximum is taken.
double Sample(double A, double B, int k) {
  if (k == 0) return kLeastMaximum;
  return SectionProfile(A, B, 1, kAbscissae.X[static_cast<std::size_t>(k)]);
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

double SectionProfile(double A, double B, double S, double X) {
  if (X <= 0 || X >= 1) return 0;
  const double K1 = 1 / ((A + 1) * (A + 2));
  const double K2 = B / 6 - K1;
  return S * (-std::pow(1 - X, A + 2) / ((A + 1) * (A + 2)) - B * X * X * X / 6 + K2 * X + K1);
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

double NormaliserWalk::operator()(double A, double B) {
  if (!(A >= 0 && B >= 0)) return ProfileNormaliser(A, B);
  int k = fall_;
  double before = Sample(A, B, k - 1);
  double here = Sample(A, B, k);
  if (here < before) {  // the first fall lies here or earlier
    while (k > 1) {
      const double earlier = Sample(A, B, k - 2);
      if (!(before < earlier)) break;
      here = before;
      before = earlier;
      --k;
    }
  } else {  // it lies later, or the walk runs to its end
    while (k < kAbscissae.Last && !(here < before)) {
      before = here;
      here = Sample(A, B, ++k);
    }
  }
  fall_ = k;
  // The search may end at its first sample, at the floor; the profile is higher there than a third
  // of its maximum.
  if (!(before >= 3 * kLeastMaximum)) return ProfileNormaliser(A, B);
  return 1 / before;
}

}  // namespace brivane
