#include "view/panel_offsets.h"

#include <algorithm>
#include <cmath>
#include <cstddef>

#include "model/number_text.h"

namespace brivane {

namespace {

/// Points closer than this are one, mm.
constexpr double kSamePoint = 0.05;

/// Free between neighbouring texts of a row, in units of the font's size.
constexpr double kTextGap = 0.6;

bool Coincide(PlanePoint a, PlanePoint b) {
  return std::abs(a.x - b.x) < kSamePoint && std::abs(a.y - b.y) < kSamePoint;
}

bool Holds(const std::vector<PanelOffset>& offsets, PlanePoint point) {
  return std::any_of(offsets.begin(), offsets.end(),
                     [&](const PanelOffset& offset) { return Coincide(offset.Point, point); });
}

/// A whole number of mm; never "-0".
std::string WholeMm(double value) { return PlainNumber(std::round(value) + 0.0); }

std::string OffsetText(PlanePoint point, const char* start) {
  return start + WholeMm(point.x) + "; Y=" + WholeMm(point.y);
}

void SortByX(std::vector<PanelOffset>& offsets) {
  std::stable_sort(offsets.begin(), offsets.end(), [](const PanelOffset& a, const PanelOffset& b) {
    return a.Point.x < b.Point.x;
  });
}

/// Neighbouring texts that had to be pushed together.
struct TextGroup {
  std::size_t First = 0;
  std::size_t Count = 0;
  double Width = 0;
  double WishSum = 0;  ///< sum of the left ends of the group that its texts wish for
  double Left = 0;

  /// Where the group lies nearest to all wishes and still within the width.
  void Settle(double width) {
    Left = std::max(0.0, std::min(WishSum / static_cast<double>(Count), width - Width));
  }
};

/// Left ends of texts that are to stand over or under their points: in order, apart, within the
/// width, and together as near to their points as that allows.
std::vector<double> SpreadTexts(const std::vector<PlanePoint>& places,
                                const std::vector<double>& widths, double gap, double width) {
  std::vector<TextGroup> groups;
  groups.reserve(places.size());
  for (std::size_t i = 0; i < places.size(); ++i) {
    groups.push_back({i, 1, widths[i], places[i].x - widths[i] / 2, 0});
    groups.back().Settle(width);
    while (groups.size() > 1) {
      const TextGroup& last = groups.back();
      TextGroup& before = groups[groups.size() - 2];
      if (before.Left + before.Width + gap <= last.Left) break;
      before.WishSum += last.WishSum - static_cast<double>(last.Count) * (before.Width + gap);
      before.Width += gap + last.Width;
      before.Count += last.Count;
      before.Settle(width);
      groups.pop_back();
    }
  }
  std::vector<double> lefts(places.size());
  for (const TextGroup& group : groups) {
    double left = group.Left;
    for (std::size_t i = group.First; i < group.First + group.Count; ++i) {
      lefts[i] = left;
      left += widths[i] + gap;
    }
  }
  return lefts;
}

/// True where the cloth's edge turns sharply at the middle point: a corner of the sail.
bool IsCorner(PlanePoint before, PlanePoint middle, PlanePoint after) {
  constexpr double kSharpTurn = 0.35;  // 20 degrees
  const double ax = middle.x - before.x, ay = middle.y - before.y;
  const double bx = after.x - middle.x, by = after.y - middle.y;
  if (std::hypot(ax, ay) < kSamePoint || std::hypot(bx, by) < kSamePoint) return false;
  return std::abs(std::atan2(ax * by - ay * bx, ax * bx + ay * by)) > kSharpTurn;
}

}  // namespace

PanelOffsets OffsetsOf(const DevelopedPanels& panels, int panel) {
  constexpr int kEvery = 5;
  PanelOffsets offsets;
  const auto addLower = [&](PlanePoint point) {
    if (!Holds(offsets.Lower, point)) offsets.Lower.push_back({point, OffsetText(point, "X=")});
  };
  const auto addUpper = [&](PlanePoint point) {
    if (!Holds(offsets.Lower, point) && !Holds(offsets.Upper, point))
      offsets.Upper.push_back({point, OffsetText(point, " X=")});
  };
  const auto edge = [&](int k) {
    return PlanePoint{panels.PanelEdgeX(panel, k), panels.PanelEdgeY(panel, k)};
  };
  for (int k = kForwardCorner; k <= kAftCorner; k += kEvery)
    addLower({panels.PanelLowerX(panel, k), panels.PanelLowerY(panel, k)});
  addLower(edge(0));
  addLower(edge(kLastPoint));
  std::vector<PlanePoint> upperCorners;
  for (const int first : {0, kAftCorner}) {
    for (int k = first + 1; k < first + kForwardCorner; ++k) {
      if (!IsCorner(edge(k - 1), edge(k), edge(k + 1))) continue;
      const double lowerEnd = edge(first == 0 ? 0 : kLastPoint).y;
      const double upperEnd = edge(first == 0 ? kForwardCorner : kAftCorner).y;
      const bool low = std::abs(edge(k).y - lowerEnd) <= std::abs(edge(k).y - upperEnd);
      low ? addLower(edge(k)) : upperCorners.push_back(edge(k));
    }
  }
  for (int k = kForwardCorner; k <= kAftCorner; k += kEvery)
    addUpper({panels.PanelUpperX(panel, k), panels.PanelUpperY(panel, k)});
  addUpper(edge(kForwardCorner));
  addUpper(edge(kAftCorner));
  for (const PlanePoint& corner : upperCorners) addUpper(corner);
  SortByX(offsets.Lower);
  SortByX(offsets.Upper);
  return offsets;
}

double RowWidth(const std::vector<PanelOffset>& row, const TextMeasure& measure) {
  constexpr double kReference = 200;
  double width = 0;
  for (const PanelOffset& offset : row)
    width += measure(offset.Text, kReference) / kReference + kTextGap;
  return width;
}

void AddOffsetRow(Drawing& page, const std::vector<PanelOffset>& row,
                  const std::vector<PlanePoint>& places, const OffsetRow& at, double width,
                  const TextMeasure& measure) {
  std::vector<double> widths;
  widths.reserve(row.size());
  for (const PanelOffset& offset : row) widths.push_back(measure(offset.Text, at.Size));
  const std::vector<double> lefts = SpreadTexts(places, widths, kTextGap * at.Size, width);
  const double leaderEnd = at.Above ? at.Top - kLineHeight * at.Size : at.Top;
  for (std::size_t i = 0; i < row.size(); ++i) {
    const double middle = lefts[i] + widths[i] / 2;
    AddStroke(page, {{places[i], {places[i].x, at.Knee}, {middle, leaderEnd}}, kBlue});
    AddText(page, {{lefts[i], at.Top}, row[i].Text, kBlack, at.Size});
  }
}

}  // namespace brivane
