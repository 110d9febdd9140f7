#include "panels/flat_panel.h"

#include <algorithm>
#include <cmath>
#include <optional>

namespace brivane {
namespace {

constexpr int kSeamPoints = kAftCorner - kForwardCorner + 1;
constexpr int kFirstOnCut = kForwardCorner + 1;  ///< guide points that lie on the cut
constexpr int kLastOnCut = kAftCorner - 1;

std::size_t Index(int point) { return static_cast<std::size_t>(point); }

/// The upper seam moved inside by the seam width and lengthened at both ends.
using OffsetSeam = std::array<PlanePoint, kSeamPoints + 2>;

/// Unit vectors along the edges of the upper seam, the last one twice. Coordinates stand apart, so
/// that the compiler computes two of them at once.
struct Directions {
  std::array<double, kSeamPoints> X, Y;
};

Directions DirectionsOf(const PlanePoint* seam) {
  Directions directions;
  for (std::size_t i = 0; i + 1 < kSeamPoints; ++i) {
    const PlanePoint edge = seam[i + 1] - seam[i];
    const double length = Length(edge);
    const double empty = length > 0 ? 0.0 : 1.0;  // two points in one place: the axis' direction
    const double scale = 1 / (length + empty);
    directions.X[i] = scale * edge.x + empty;
    directions.Y[i] = scale * edge.y;
  }
  directions.X.back() = directions.X[kSeamPoints - 2];
  directions.Y.back() = directions.Y[kSeamPoints - 2];
  return directions;
}

OffsetSeam MoveInside(const FlatPanel& panel, double seamWidth) {
  const PlanePoint* seam = &panel.Upper[kForwardCorner];
  const auto& [x, y] = DirectionsOf(seam);
  const PlanePoint first{x.front(), y.front()};
  const PlanePoint last{x.back(), y.back()};
  OffsetSeam offset;
  // Inside is to the right going aft.
  offset[1] = seam[0] + seamWidth * PlanePoint{first.y, -first.x};
  for (std::size_t i = 1; i < kSeamPoints; ++i) {
    // The mitre keeps the width along both neighbours.
    const double turn = x[i - 1] * x[i] + y[i - 1] * y[i];
    const double scale = seamWidth / std::max(1 + turn, 0.1);
    offset[i + 1] = {seam[i].x + scale * (y[i - 1] + y[i]), seam[i].y - scale * (x[i - 1] + x[i])};
  }
  const double reach = Length(seam[kSeamPoints - 1] - seam[0]) + seamWidth;
  offset.front() = offset[1] - reach * first;
  offset.back() = offset[Index(kSeamPoints)] + reach * last;
  return offset;
}

/// Where the segment a–b crosses c–d, as the fraction of c–d; none when they do not meet.
std::optional<double> Meeting(PlanePoint a, PlanePoint b, PlanePoint c, PlanePoint d) {
  const double before = Cross(b - a, c - a);
  const double after = Cross(b - a, d - a);
  if ((before > 0) == (after > 0) && before != 0 && after != 0) return std::nullopt;
  const double turn = after - before;
  if (turn == 0) return std::nullopt;
  const double onCut = Cross(d - c, a - c) / turn;
  if (onCut < 0 || onCut > 1) return std::nullopt;
  return -before / turn;
}

/// Point n of the cut from an upper corner down the edge and on along the lower seam.
PlanePoint CutPoint(const FlatPanel& panel, bool forward, int n) {
  if (n <= kForwardCorner) return panel.Edge[Index(forward ? kForwardCorner - n : kAftCorner + n)];
  return panel.Lower[Index(forward ? n : kLastPoint - n)];
}

/// Place on the offset seam (segment index plus fraction) at which the cut, walked from an upper
/// corner on, first meets it. The seam is searched from the same end.
std::optional<double> FirstMeeting(const FlatPanel& panel, const OffsetSeam& seam, bool forward) {
  constexpr int kCutSegments = kAftCorner;
  constexpr int kSeamSegments = kSeamPoints + 1;
  for (int n = 0; n < kCutSegments; ++n) {
    const PlanePoint a = CutPoint(panel, forward, n);
    const PlanePoint b = CutPoint(panel, forward, n + 1);
    for (int i = 0; i < kSeamSegments; ++i) {
      const int k = forward ? i : kSeamSegments - 1 - i;
      if (const auto fraction = Meeting(a, b, seam[Index(k)], seam[Index(k + 1)]))
        return k + *fraction;
    }
  }
  return std::nullopt;
}

PlanePoint PointAt(const OffsetSeam& seam, double place) {
  const int k = std::min(static_cast<int>(place), kSeamPoints);
  return Between(seam[Index(k)], seam[Index(k + 1)], place - k);
}

/// The lower seam under one point after another, going aft.
class LowerSeam {
 public:
  explicit LowerSeam(const FlatPanel& panel) : panel_(panel) {
    for (int point = kForwardCorner; point <= kAftCorner; ++point)
      highest_ = std::max(highest_, panel.Lower[Index(point)].y);
  }

  /// Lifts the point onto the seam where it lies below. Beyond the seam's ends there is none: the
  /// panel ends at its edges.
  void Lift(PlanePoint& at) {
    const PlanePoint* lower = panel_.Lower.data();
    // Nearly always: there is no need to search for the edge below.
    if (at.y >= highest_) return;
    if (at.x < lower[kForwardCorner].x || at.x > lower[kAftCorner].x) return;
    while (point_ + 1 < kAftCorner && lower[point_ + 1].x < at.x) ++point_;
    const PlanePoint a = lower[point_];
    const PlanePoint b = lower[point_ + 1];
    const double height = b.x > a.x ? a.y + (b.y - a.y) * (at.x - a.x) / (b.x - a.x) : a.y;
    at.y = std::max(at.y, height);
  }

 private:
  const FlatPanel& panel_;
  double highest_ = 0;  ///< the seam's ends lie at 0
  int point_ = kForwardCorner;
};

/// Points 6 and 34 at two places of the offset seam, 7 to 33 spread between them over the seam
/// itself, without its lengthened ends.
void SpreadAlong(FlatPanel& panel, const OffsetSeam& seam, double from, double to) {
  panel.Edge[Index(kFirstOnCut)] = PointAt(seam, from);
  panel.Edge[Index(kLastOnCut)] = PointAt(seam, to);
  const double start = std::clamp(from, 1.0, static_cast<double>(kSeamPoints));
  const double end = std::clamp(to, start, static_cast<double>(kSeamPoints));
  LowerSeam lower(panel);
  for (int point = kFirstOnCut + 1; point < kLastOnCut; ++point) {
    const double share = (point - kFirstOnCut) * (1.0 / (kLastOnCut - kFirstOnCut));
    PlanePoint at = PointAt(seam, start + (end - start) * share);
    lower.Lift(at);
    panel.Edge[Index(point)] = at;
  }
}

}  // namespace

void DrawGuideLine(FlatPanel& panel, double seamWidth, bool lastPanel) {
  if (lastPanel) {
    std::copy_n(panel.Upper.begin() + kForwardCorner, kSeamPoints,
                panel.Edge.begin() + kForwardCorner);
    return;
  }
  const OffsetSeam seam = MoveInside(panel, seamWidth);
  const auto from = FirstMeeting(panel, seam, true);
  const auto to = FirstMeeting(panel, seam, false);
  if (from && to && *from < *to)
    SpreadAlong(panel, seam, *from, *to);
  else
    std::copy_n(panel.Lower.begin() + kFirstOnCut, kLastOnCut - kFirstOnCut + 1,
                panel.Edge.begin() + kFirstOnCut);
}

}  // namespace brivane
