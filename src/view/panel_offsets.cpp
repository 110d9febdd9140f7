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

/// Left ends of texts that are to stand under their points: in order, apart, and within the width.
std::vector<double> SpreadTexts(const std::vector<PlanePoint>& places,
                                const std::vector<double>& widths, double gap, double width) {
  std::vector<double> lefts(places.size());
  double free = 0;
  for (std::size_t i = 0; i < places.size(); ++i) {
    lefts[i] = std::max(free, places[i].x - widths[i] / 2);
    free = lefts[i] + widths[i] + gap;
  }
  double end = width;
  for (std::size_t i = places.size(); i-- > 0;) {
    lefts[i] = std::min(lefts[i], end - widths[i]);
    end = lefts[i] - gap;
  }
  return lefts;
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
  for (int k = kForwardCorner; k <= kAftCorner; k += kEvery)
    addUpper({panels.PanelUpperX(panel, k), panels.PanelUpperY(panel, k)});
  addUpper(edge(kForwardCorner));
  addUpper(edge(kAftCorner));
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
