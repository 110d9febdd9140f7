#include "view/outline_curve.h"

#include <gtest/gtest.h>

#include <cmath>
#include <stdexcept>

#include "view/view_sails.h"

namespace brivane {
namespace {

using testing::PlainSail;

TEST(OutlineCurve, RunsRoundTheSailFromTackToTack) {
  const OutlineCurve outline = RoundedOutline(PlainSail());
  EXPECT_EQ(outline.Luff.front(), (PlanePoint{0, 0}));
  EXPECT_EQ(outline.Luff.back(), (PlanePoint{0, 3000}));
  EXPECT_EQ(outline.Gaff.front(), (PlanePoint{0, 3000}));
  EXPECT_EQ(outline.Gaff.back(), (PlanePoint{600, 3800}));
  EXPECT_EQ(outline.Leech.front(), (PlanePoint{600, 3800}));
  EXPECT_EQ(outline.Leech.back(), (PlanePoint{4000, 0}));
  EXPECT_EQ(outline.Foot.front(), (PlanePoint{4000, 0}));
  EXPECT_EQ(outline.Foot.back(), (PlanePoint{0, 0}));
  EXPECT_EQ(&outline[2], &outline.Leech);
  EXPECT_THROW(outline[4], std::out_of_range);
}

TEST(OutlineCurve, EveryRoundBulgesAwayFromTheSail) {
  SailDefinition sail = PlainSail();
  sail.LuffRound = 100;
  sail.GaffRound = 50;
  sail.LeechRound = 200;
  sail.FootRound = 150;
  sail.LuffRoundPos = sail.GaffRoundPos = sail.LeechRoundPos = sail.FootRoundPos = 50;
  const OutlineCurve outline = RoundedOutline(sail);
  EXPECT_NEAR(outline.Luff[10].x, -100, 1e-9);
  EXPECT_NEAR(outline.Luff[10].y, 1500, 1e-9);
  EXPECT_NEAR(outline.Foot[10].x, 2000, 1e-9);
  EXPECT_NEAR(outline.Foot[10].y, -150, 1e-9);
  // The gaff rises 800 in 600: its outward side is (−0.8, 0.6).
  EXPECT_NEAR(outline.Gaff[10].x, 300 - 40, 1e-9);
  EXPECT_NEAR(outline.Gaff[10].y, 3400 + 30, 1e-9);
  // The leech falls 3800 in 3400.
  const double leech = std::hypot(3400.0, 3800.0);
  EXPECT_NEAR(outline.Leech[10].x, 2300 + 200 * 3800 / leech, 1e-9);
  EXPECT_NEAR(outline.Leech[10].y, 1900 + 200 * 3400 / leech, 1e-9);
}

TEST(OutlineCurve, AHollowGoesInward) {
  SailDefinition sail = PlainSail();
  sail.LuffRound = -80;
  EXPECT_NEAR(RoundedOutline(sail).Luff[10].x, 80, 1e-9);
}

TEST(OutlineCurve, TheRoundIsGreatestAtItsPosition) {
  SailDefinition sail = PlainSail();
  sail.LuffRound = 100;
  sail.LuffRoundPos = 65;
  const OutlineCurve outline = RoundedOutline(sail);
  EXPECT_NEAR(outline.Luff[13].x, -100, 1e-9);  // 13 / 20 = 0.65
  EXPECT_GT(outline.Luff[12].x, -100);
  EXPECT_GT(outline.Luff[14].x, -100);
  // At the middle: u = −0.15, b = (1.95 − 1 − 1.2675) / (0.65² · 0.35²) = −6.134525…,
  // c = (1 + b · 0.4225) / 0.274625 = −5.796538…: 1 + b · 0.0225 − c · 0.003375 = 0.881536….
  EXPECT_NEAR(outline.Luff[10].x, -88.1536, 1e-3);
}

TEST(OutlineCurve, TheLeechPositionCountsFromThePeak) {
  SailDefinition sail = PlainSail();
  sail.LeechRound = 200;
  sail.LeechRoundPos = 60;
  const OutlineCurve outline = RoundedOutline(sail);
  const double leech = std::hypot(3400.0, 3800.0);
  EXPECT_NEAR(outline.Leech[12].x, 600 + 0.6 * 3400 + 200 * 3800 / leech, 1e-9);
  EXPECT_NEAR(outline.Leech[12].y, 3800 - 0.6 * 3800 + 200 * 3400 / leech, 1e-9);
}

TEST(OutlineCurve, ExtentOfTheUprightSail) {
  SailDefinition sail = PlainSail();
  sail.LuffRound = 100;
  sail.FootRound = 150;
  const Extent extent = UprightExtent(sail);
  EXPECT_NEAR(extent.Left, -100, 1e-9);
  EXPECT_NEAR(extent.Right, 4000, 1e-9);
  EXPECT_NEAR(extent.Bottom, -150, 1e-9);
  EXPECT_NEAR(extent.Top, 3800, 1e-9);
}

TEST(OutlineCurve, ASailThatWasNotComputedHasNone) {
  EXPECT_FALSE(HasOutline(SailDefinition{}));
  EXPECT_TRUE(HasOutline(PlainSail()));
  SailDefinition broken = PlainSail();
  broken.LuffRound = std::nan("");
  EXPECT_FALSE(HasOutline(broken));
}

}  // namespace
}  // namespace brivane
