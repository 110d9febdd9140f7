#include "model/panel_walk.h"

#include <gtest/gtest.h>

#include <stdexcept>
#include <vector>

namespace brivane {
namespace {

/// Tables whose every cell tells where it stands: line (1 lower, 2 upper, 3 edge), panel and point,
/// in y as in x but below zero.
DevelopedPanels Numbered() {
  DevelopedPanels panels;
  for (int panel = 0; panel <= 90; ++panel)
    for (int k = 0; k <= kLastPoint; ++k) {
      const double place = 100 * panel + k;
      panels.PanelLowerX(panel, k) = 10000 + place;
      panels.PanelUpperX(panel, k) = 20000 + place;
      panels.PanelEdgeX(panel, k) = 30000 + place;
      panels.PanelLowerY(panel, k) = -10000 - place;
      panels.PanelUpperY(panel, k) = -20000 - place;
      panels.PanelEdgeY(panel, k) = -30000 - place;
    }
  return panels;
}

template <typename Stretches>
std::vector<double> Walk(int panel, const Stretches& stretches) {
  static const DevelopedPanels panels = Numbered();
  std::vector<double> places;
  for (const PanelStretch& stretch : stretches)
    WalkStretch(panels, panel, stretch, [&](double x, double y) {
      EXPECT_EQ(y, -x);
      places.push_back(x);
    });
  return places;
}

/// Appends the numbers from first to last, one apart.
void Append(std::vector<double>& numbers, int first, int last) {
  for (int each = first; each != last; each += first < last ? 1 : -1) numbers.push_back(each);
  numbers.push_back(last);
}

TEST(PanelWalk, TheOutlineRunsRoundThePanelAndComesBack) {
  std::vector<double> expected = {10205};
  Append(expected, 30200, 30205);
  Append(expected, 20205, 20235);
  Append(expected, 30235, 30240);
  Append(expected, 10235, 10205);
  EXPECT_EQ(Walk(2, kPanelOutline), expected);
  EXPECT_EQ(CountOf(kPanelOutline), 75);
}

TEST(PanelWalk, TheTopPanelIsCutAlongItsEdgeTable) {
  std::vector<double> expected = {19005};
  Append(expected, 39000, 39040);
  Append(expected, 19035, 19005);
  EXPECT_EQ(Walk(90, kTopPanelOutline), expected);
  EXPECT_EQ(CountOf(kTopPanelOutline), 73);
}

TEST(PanelWalk, AcrossThePanelRunTheLowerSeamAndTheGuideLine) {
  std::vector<double> expected;
  Append(expected, 10005, 10035);
  Append(expected, 30005, 30035);
  EXPECT_EQ(Walk(0, std::vector{kLowerSeam, kGuideLine}), expected);
  expected.clear();
  Append(expected, 30035, 30005);
  EXPECT_EQ(Walk(0, std::vector{kGuideLine.Reversed()}), expected);
  EXPECT_EQ(kGuideLine.Count(), 31);
}

TEST(PanelWalk, RefusesAPanelThatTheTablesDoNotHave) {
  EXPECT_THROW(Walk(-1, kPanelOutline), std::out_of_range);
  EXPECT_THROW(Walk(91, kPanelOutline), std::out_of_range);
}

}  // namespace
}  // namespace brivane
