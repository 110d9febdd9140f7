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

PlanePoint Unit(PlanePoint a) {
  const double length = Length(a);
  return length > 0 ? (1 / length) * a : PlanePoint{1, 0};
}

OffsetSeam MoveInside(const FlatPanel& panel, double seamWidth) {
  std::array<PlanePoint, kSeamPoints> seam;
  std::copy_n(panel.Upper.begin() + kForwardCorner, kSeamPoints, seam.begin());
  OffsetSeam offset;
  PlanePoint before = Unit(seam[1] - seam[0]);
  const PlanePoint first = before;
  for (std::size_t i = 0; i < seam.size(); ++i) {
    const PlanePoint after = i + 1 < seam.size() ? Unit(seam[i + 1] - seam[i]) : before;
    // Inside is to the right going aft; the mitre keeps the width along both neighbours.
    const PlanePoint normals{before.y + after.y, -before.x - after.x};
    offset[i + 1] = seam[i] + (seamWidth / std::max(1 + Dot(before, after), 0.1)) * normals;
    before = after;
  }
  const double reach = Length(seam.back() - seam.front()) + seamWidth;
  offset.front() = offset[1] - reach * first;
  offset.back() = offset[Index(kSeamPoints)] + reach * before;
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
  const auto k = std::min(static_cast<std::size_t>(place), seam.size() - 2);
  return Between(seam[k], seam[k + 1], place - static_cast<double>(k));
}

/// The height of the lower seam at one x after another, going aft, mm.
class LowerHeight {
 public:
  explicit LowerHeight(const FlatPanel& panel) : panel_(panel) {}

  double At(double x) {
    while (point_ + 1 < kAftCorner && panel_.Lower[Index(point_ + 1)].x < x) ++point_;
    const PlanePoint a = panel_.Lower[Index(point_)];
    const PlanePoint b = panel_.Lower[Index(point_ + 1)];
    return b.x > a.x ? a.y + (b.y - a.y) * (x - a.x) / (b.x - a.x) : a.y;
  }

 private:
  const FlatPanel& panel_;
  int point_ = kForwardCorner;
};

/// Points 6 and 34 at two places of the offset seam, 7 to 33 spread between them over the seam
/// itself, without its lengthened ends.
void SpreadAlong(FlatPanel& panel, const OffsetSeam& seam, double from, double to) {
  panel.Edge[Index(kFirstOnCut)] = PointAt(seam, from);
  panel.Edge[Index(kLastOnCut)] = PointAt(seam, to);
  const double start = std::clamp(from, 1.0, static_cast<double>(kSeamPoints));
  const double end = std::clamp(to, start, static_cast<double>(kSeamPoints));
  LowerHeight lower(panel);
  for (int point = kFirstOnCut + 1; point < kLastOnCut; ++point) {
    const double share = (point - kFirstOnCut) * (1.0 / (kLastOnCut - kFirstOnCut));
    PlanePoint at = PointAt(seam, start + (end - start) * share);
    at.y = std::max(at.y, lower.At(at.x));
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
