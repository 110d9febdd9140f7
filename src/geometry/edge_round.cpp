#include "geometry/edge_round.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdint>
#include <limits>

namespace brivane {
namespace {

/// Newton's step squares the error: after one this short nothing is left to gain.
constexpr double kLastStep = 1e-9;

/// The zero between low and high, where the distance has different signs: Newton's steps, held
/// within the shrinking bracket by halving.
double ZeroBetween(const LineDistance& distance, double low, double high, double start,
                   bool rising) {
  constexpr int kMostSteps = 100;
  constexpr double kNarrowestBracket = 1e-16;
  double t = std::clamp(start, low, high);
  for (int step = 0; step < kMostSteps && high - low > kNarrowestBracket; ++step) {
    const double value = distance.At(t);
    if (value == 0) return t;
    ((value < 0) == rising ? low : high) = t;
    const double slope = distance.SlopeAt(t);
    const double next = slope != 0 ? t - value / slope : low;
    // Before the bracket is asked: from a zero met but for its last digit a step may not move.
    if (slope != 0 && std::abs(next - t) <= kLastStep) return std::clamp(next, low, high);
    t = next > low && next < high ? next : low + (high - low) / 2;
  }
  return t;
}

/// Where the distance turns, in order, within (0, 1): its stretches between are monotone.
int TurningPoints(const LineDistance& distance, std::array<double, 2>& turns) {
  const EdgeRoundCurve& curve = distance.curve;
  const double square = 3 * curve.c * distance.across;
  const double linear = 2 * curve.b * distance.across;
  int count = 0;
  const auto keep = [&](double u) {
    const double t = u + curve.p;
    if (t > 0 && t < 1) turns[static_cast<std::size_t>(count++)] = t;
  };
  const double discriminant = linear * linear - 4 * square * distance.along;
  if (discriminant < 0) return 0;
  // The root without cancellation first, the other from the product of both.
  const double q = -(linear + std::copysign(std::sqrt(discriminant), linear)) / 2;
  if (square != 0) keep(q / square);
  if (q != 0) keep(distance.along / q);
  if (count == 2 && turns[0] > turns[1]) std::swap(turns[0], turns[1]);
  return count;
}

/// The crossing nearest to the straight edge's among all stretches; below 0 where there is none.
double NearestCrossing(const LineDistance& distance, double straight) {
  std::array<double, 2> turns{};
  const int count = TurningPoints(distance, turns);
  double best = -1;
  double low = 0;
  for (int stretch = 0; stretch <= count; ++stretch) {
    const double high = stretch < count ? turns[static_cast<std::size_t>(stretch)] : 1;
    if ((distance.At(low) <= 0) != (distance.At(high) <= 0)) {
      const double t =
          ZeroBetween(distance, low, high, straight, distance.At(low) < distance.At(high));
      if (best < 0 || std::abs(t - straight) < std::abs(best - straight)) best = t;
    }
    low = high;
  }
  return best;
}

constexpr double kNotFound = std::numeric_limits<double>::quiet_NaN();

/// Several searches as in ZeroBetween, along the same gentle edge, for as long as they take
/// Newton's steps alone.
struct NewtonLanes {
  Lanes constant;  ///< of the distance
  Lanes t;         ///< NaN where the search is given up
  Lanes longest;   ///< how long the next step may be
  Lanes found;     ///< NaN until it is
};

/// A step of all searches. A step points to the zero; one no longer than half of the step before
/// stays within the bracket, since all that follow one step do not make up its length. So the
/// bracket need not be kept. Every choice is one between two values at hand, which the compiler
/// makes for two lanes at once.
void TakeNewtonsStep(const LineDistance distance, NewtonLanes& lanes) {
  for (std::size_t i = 0; i < kLanes; ++i) {
    const double t = lanes.t[i];
    const double found = lanes.found[i];
    const double value =
        lanes.constant[i] + distance.along * t + distance.across * distance.curve.At(t);
    const double next = t - value / distance.SlopeAt(t);
    const double change = std::abs(next - t);
    const bool inside = (std::abs(next - 0.5) < 0.5) & (change <= lanes.longest[i]);
    const double held = inside ? next : kNotFound;
    const double last = change <= kLastStep ? held : kNotFound;
    lanes.found[i] = std::isnan(found) ? last : found;
    lanes.t[i] = held;
    lanes.longest[i] = change / 2;
  }
}

bool AnySearching(const NewtonLanes& lanes) {
  std::int64_t searching = 0;
  for (std::size_t i = 0; i < kLanes; ++i)
    searching += std::isnan(lanes.found[i]) & !std::isnan(lanes.t[i]) ? 1 : 0;
  return searching != 0;
}

}  // namespace

EdgeRoundCurve MakeEdgeRoundCurve(double position) {
  const double p = std::clamp(position, 0.3, 0.7);
  const double b = (3 * p - 1 - 3 * p * p) / (p * p * (1 - p) * (1 - p));
  return {p, b, (1 + b * p * p) / (p * p * p)};
}

PlanePoint RoundedEdge::At(double t) const {
  if (t <= 0) return Start;
  if (t >= 1) return End;
  return Between(Start, End, t) + Round * Curve.At(t) * Outward;
}

RoundedEdge MakeRoundedEdge(PlanePoint start, PlanePoint end, double round, double position) {
  RoundedEdge edge{start, end, {}, round, MakeEdgeRoundCurve(position), 0};
  const PlanePoint along = end - start;
  const double length = Length(along);
  if (length > 0) edge.Outward = (1 / length) * PlanePoint{-along.y, along.x};
  const EdgeRoundCurve& curve = edge.Curve;
  // The cubic bends over within (0, 1) as well, but with its greatest round at 0.3 to 0.7 of the
  // edge it is never steeper there than at the nearer end.
  edge.SteepestSlope = std::max(std::abs(curve.SlopeAt(0)), std::abs(curve.SlopeAt(1)));
  return edge;
}

double CrossingFraction(const RoundedEdge& edge, const PlaneLine& line) {
  return ParallelCrossings(edge, line.Direction).At(line.Through);
}

ParallelCrossings::ParallelCrossings(const RoundedEdge& edge, PlanePoint direction)
    : start_(edge.Start),
      direction_(direction),
      distance_{0, Cross(direction, edge.End - edge.Start),
                Cross(direction, edge.Outward) * edge.Round, edge.Curve} {
  const double steepest = std::abs(distance_.across) * edge.SteepestSlope;
  monotone_ = steepest < std::abs(distance_.along);
  gentle_ = steepest < 0.9 * std::abs(distance_.along);
}

double ParallelCrossings::At(PlanePoint through) const {
  LineDistance distance = distance_;
  distance.constant = Cross(direction_, start_ - through);
  // The round vanishes at both corners, so that the distances there are the straight edge's.
  if (distance.constant == 0) return 0;
  if (distance.constant + distance.along == 0) return 1;
  const double straight = distance.along != 0 ? -distance.constant / distance.along : 0;
  if (monotone_ && straight > 0 && straight < 1)
    return ZeroBetween(distance, 0, 1, straight, distance.along > 0);
  const double crossing = monotone_ ? -1 : NearestCrossing(distance, straight);
  if (crossing >= 0) return crossing;
  return straight < 0.5 ? 0 : 1;
}

Lanes ParallelCrossings::QuicklyAt(const Lanes& y) const {
  constexpr int kUsualSteps = 3;
  constexpr int kMostSteps = 5;
  NewtonLanes lanes;
  lanes.found.fill(kNotFound);
  if (!gentle_) return lanes.found;
  for (std::size_t i = 0; i < kLanes; ++i) {
    const double constant = direction_.x * (start_.y - y[i]) - direction_.y * start_.x;
    const double straight = -constant / distance_.along;
    lanes.constant[i] = constant;
    lanes.t[i] = (straight > 0) & (straight < 1) ? straight : kNotFound;
    lanes.longest[i] = 1;
  }
  for (int step = 0; step < kMostSteps; ++step) {
    if (step >= kUsualSteps && !AnySearching(lanes)) break;
    TakeNewtonsStep(distance_, lanes);
  }
  return lanes.found;
}

EdgeReach ExtentAlong(const RoundedEdge& edge, PlanePoint direction) {
  const LineDistance reach{Dot(direction, edge.Start), Dot(direction, edge.End - edge.Start),
                           Dot(direction, edge.Outward) * edge.Round, edge.Curve};
  const double start = Dot(direction, edge.Start);
  const double end = Dot(direction, edge.End);
  EdgeReach extent{std::min(start, end), std::max(start, end)};
  std::array<double, 2> turns{};
  const int count = TurningPoints(reach, turns);
  for (int i = 0; i < count; ++i) {
    const double value = reach.At(turns[static_cast<std::size_t>(i)]);
    extent.Low = std::min(extent.Low, value);
    extent.High = std::max(extent.High, value);
  }
  return extent;
}

}  // namespace brivane
