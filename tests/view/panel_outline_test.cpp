#include "view/panel_outline.h"

#include <gtest/gtest.h>

#include <cmath>
#include <stdexcept>

#include "view/view_sails.h"

namespace brivane {
namespace {

using testing::SailOfRectangles;

TEST(PanelOutline, RunsRoundThePanel) {
  const Sail sail = SailOfRectangles(kCrossCut);
  const std::vector<PlanePoint> outline = PanelOutline(sail.Panels, 1);
  ASSERT_EQ(outline.size(), 75u);
  EXPECT_EQ(outline.front(), (PlanePoint{0, 0}));
  EXPECT_EQ(outline[6], (PlanePoint{0, 700}));  // forward edge, 1 to 6
  EXPECT_EQ(outline[7], (PlanePoint{0, 700}));  // upper seam, 7 to 37
  EXPECT_EQ(outline[37], (PlanePoint{2000, 700}));
  EXPECT_EQ(outline[38], (PlanePoint{2000, 700}));  // aft edge, 38 to 43
  EXPECT_EQ(outline[43], (PlanePoint{2000, 0}));
  EXPECT_EQ(outline[44], (PlanePoint{2000, 0}));  // lower seam back, 44 to 74
  EXPECT_EQ(outline.back(), (PlanePoint{0, 0}));
}

TEST(PanelOutline, APanelThatIsNotThereHasNoPoints) {
  Sail sail = SailOfRectangles(kCrossCut);
  EXPECT_TRUE(PanelOutline(sail.Panels, 3).empty());
  sail.Panels.PanelUpperY(1, 20) = std::nan("");
  EXPECT_TRUE(PanelOutline(sail.Panels, 1).empty());
  EXPECT_THROW(PanelOutline(sail.Panels, 91), std::out_of_range);
}

TEST(PanelGuide, RunsAcrossEveryPanelButTheLast) {
  const Sail sail = SailOfRectangles(kCrossCut);
  const std::vector<PlanePoint> guide = PanelGuide(sail, 0);
  ASSERT_EQ(guide.size(), 31u);
  EXPECT_EQ(guide[15], (PlanePoint{1500, 780}));
  EXPECT_TRUE(PanelGuide(sail, 2).empty());
}

}  // namespace
}  // namespace brivane
