#include "view/panel_arrangement.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstddef>
#include <limits>

#include "view/navigation.h"
#include "view/outline_curve.h"
#include "view/panel_outline.h"

namespace brivane {

namespace {

/// Gap between neighbouring panels, as a share of the cloth width.
constexpr double kGapShare = 0.04;

/// How far panels may reach into the picture's margins above and below, as a share of the fitted
/// height.
constexpr double kMarginShare = 0.04;

/// A stack of panels knows its reach in this many columns across the stacking direction.
constexpr std::size_t kColumns = 256;

/// Where the upper seam stands among the points of an outline.
constexpr std::size_t kUpperSeamStart = 7;
constexpr std::size_t kUpperSeamEnd = 37;

constexpr double kNothing = std::numeric_limits<double>::infinity();

constexpr Extent kNowhere{kNothing, -kNothing, kNothing, -kNothing};

Extent ExtentOf(const std::vector<PlanePoint>& outline) {
  Extent extent = kNowhere;
  for (const PlanePoint& point : outline) extent.Include(point);
  return extent;
}

Extent ExtentOf(const std::vector<PlacedPanel>& panels) {
  Extent extent = kNowhere;
  for (const PlacedPanel& panel : panels)
    for (const PlanePoint& point : panel.Outline) extent.Include(point);
  return extent;
}

template <typename Change>
void ChangePoints(PlacedPanel& panel, Change change) {
  for (PlanePoint& point : panel.Outline) point = change(point);
  for (PlanePoint& point : panel.Guide) point = change(point);
}

/// Lowest and highest y of an outline in every column that it touches.
struct Reach {
  std::array<double, kColumns> Low;
  std::array<double, kColumns> High;
  Reach() {
    Low.fill(kNothing);
    High.fill(-kNothing);
  }
};

class Columns {
 public:
  explicit Columns(const Extent& extent)
      : left_(extent.Left), width_(std::max(extent.Width(), 1e-6) / kColumns) {}

  Reach Of(const std::vector<PlanePoint>& outline) const {
    Reach reach;
    for (std::size_t i = 0; i + 1 < outline.size(); ++i) Add(reach, outline[i], outline[i + 1]);
    return reach;
  }

 private:
  std::size_t ColumnAt(double x) const {
    const double column = std::floor((x - left_) / width_);
    return static_cast<std::size_t>(std::clamp(column, 0.0, kColumns - 1.0));
  }

  static double HeightAt(PlanePoint a, PlanePoint b, double x) {
    const double t = b.x == a.x ? 0 : std::clamp((x - a.x) / (b.x - a.x), 0.0, 1.0);
    return a.y + t * (b.y - a.y);
  }

  void Add(Reach& reach, PlanePoint a, PlanePoint b) const {
    if (a.x > b.x) std::swap(a, b);
    const std::size_t last = ColumnAt(b.x);
    for (std::size_t column = ColumnAt(a.x); column <= last; ++column) {
      const double left = left_ + static_cast<double>(column) * width_;
      double enters = HeightAt(a, b, left);
      double leaves = HeightAt(a, b, left + width_);
      if (a.x == b.x) enters = a.y, leaves = b.y;
      reach.Low[column] = std::min({reach.Low[column], enters, leaves});
      reach.High[column] = std::max({reach.High[column], enters, leaves});
    }
  }

  double left_;
  double width_;
};

/// Lowest point of a panel's upper seam, which the next panel is to lie above: a short panel must
/// not slip down beside the one before.
double UpperSeamBottom(const std::vector<PlanePoint>& outline) {
  double bottom = kNothing;
  for (std::size_t i = kUpperSeamStart; i <= kUpperSeamEnd; ++i)
    bottom = std::min(bottom, outline[i].y);
  return bottom;
}

/// Stacks panels upwards from the first on, every one moved up until it clears all that lie below
/// it. Stops before the panel with which the stack would be higher than the limit and returns its
/// index.
std::size_t StackUpwards(std::vector<PlacedPanel>& panels, std::size_t first, double gap,
                         double highest) {
  const Columns columns(ExtentOf(panels));
  std::array<double, kColumns> skyline;
  skyline.fill(-kNothing);
  const double base = ExtentOf(panels[first].Outline).Bottom;
  double shift = 0;
  double seamBefore = -kNothing;
  for (std::size_t i = first; i < panels.size(); ++i) {
    PlacedPanel& panel = panels[i];
    const Reach reach = columns.Of(panel.Outline);
    const Extent extent = ExtentOf(panel.Outline);
    shift = std::max(shift, seamBefore + gap - extent.Bottom);
    for (std::size_t column = 0; column < kColumns; ++column)
      if (skyline[column] > -kNothing && reach.Low[column] < kNothing)
        shift = std::max(shift, skyline[column] + gap - reach.Low[column]);
    if (i > first && extent.Top + shift - base > highest) return i;
    ChangePoints(panel, [&](PlanePoint point) { return PlanePoint{point.x, point.y + shift}; });
    for (std::size_t column = 0; column < kColumns; ++column)
      skyline[column] = std::max(skyline[column], reach.High[column] + shift);
    seamBefore = UpperSeamBottom(panel.Outline);
  }
  return panels.size();
}

/// Stacks all panels, in columns no higher than the limit from left to right.
void StackInColumns(std::vector<PlacedPanel>& panels, double gap, double highest) {
  double left = -kNothing;
  for (std::size_t first = 0; first < panels.size();) {
    const std::size_t end = StackUpwards(panels, first, gap, highest);
    const auto begin = panels.begin() + static_cast<std::ptrdiff_t>(first);
    const auto stop = panels.begin() + static_cast<std::ptrdiff_t>(end);
    const Extent column = ExtentOf(std::vector<PlacedPanel>{begin, stop});
    const double shift = std::max(0.0, left - column.Left);
    std::for_each(begin, stop, [&](PlacedPanel& panel) {
      ChangePoints(panel, [&](PlanePoint point) { return PlanePoint{point.x + shift, point.y}; });
    });
    left = column.Right + shift + gap;
    first = end;
  }
}

/// Turns the frame of every panel so that its aft end stands on the base line and the panel's
/// height runs along x. Stacking has left the panels apart in y, so they are apart in x now.
void StandUpright(std::vector<PlacedPanel>& panels) {
  for (PlacedPanel& panel : panels)
    ChangePoints(panel, [](PlanePoint point) { return PlanePoint{point.y, point.x}; });
}

std::vector<PlacedPanel> PanelsInTheirFrames(const Sail& sail) {
  std::vector<PlacedPanel> panels;
  const int count = std::min<int>(sail.Definition.PanelCount, kMostPanels);
  panels.reserve(static_cast<std::size_t>(std::max(count, 0)));
  for (int panel = 0; panel < count; ++panel) {
    std::vector<PlanePoint> outline = PanelOutline(sail.Panels, panel);
    if (!outline.empty()) panels.push_back({std::move(outline), PanelGuide(sail, panel)});
  }
  return panels;
}

/// Where the whole arrangement is moved to, mm: as little down from its origin as shows it whole on
/// a fitted picture, at last into both margins.
PlanePoint Shift(const Sail& sail, const ViewState& view, const Extent& arranged, double gap) {
  const Extent outline = UprightExtent(sail.Definition);
  const FitExtents fit = ExtentsToFit(sail.Definition);
  PlanePoint shift{view.DevelopOriginX, view.DevelopOriginY};
  shift.x = std::max(shift.x, outline.Right + gap - arranged.Left);
  const double picturesTop = fit.Vertical - fit.BelowTack;
  const double room = shift.y + arranged.Bottom + fit.BelowTack;
  shift.y -= std::clamp(shift.y + arranged.Top - picturesTop, 0.0, std::max(room, 0.0));
  const double excess = std::max(0.0, shift.y + arranged.Top - picturesTop);
  shift.y -= std::min(excess / 2, kMarginShare * fit.Vertical);
  return shift;
}

}  // namespace

std::vector<PlacedPanel> ArrangePanels(const Sail& sail, const ViewState& view) {
  std::vector<PlacedPanel> panels = PanelsInTheirFrames(sail);
  if (panels.empty() || !HasOutline(sail.Definition)) return {};
  const bool upright = sail.Definition.CutType == kVerticalCut;
  const double gap = kGapShare * sail.Definition.ClothWidth;
  if (upright) {
    for (PlacedPanel& panel : panels) {
      const double end = ExtentOf(panel.Outline).Right;
      ChangePoints(panel, [&](PlanePoint point) { return PlanePoint{end - point.x, point.y}; });
    }
  }
  const double highest = (1 + 2 * kMarginShare) * ExtentsToFit(sail.Definition).Vertical;
  StackInColumns(panels, gap, upright ? kNothing : highest);
  if (upright) StandUpright(panels);
  const PlanePoint shift = Shift(sail, view, ExtentOf(panels), gap);
  for (PlacedPanel& panel : panels)
    ChangePoints(panel, [&](PlanePoint point) {
      return PlanePoint{point.x + shift.x, point.y + shift.y};
    });
  return panels;
}

}  // namespace brivane
