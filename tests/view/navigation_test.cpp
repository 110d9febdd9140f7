#include "view/navigation.h"

#include <gtest/gtest.h>

#include <cmath>
#include <random>

#include "view/outline_curve.h"
#include "view/projection.h"
#include "view/view_sails.h"

namespace brivane {
namespace {

using testing::PlainSail;
using testing::RandomSail;

TEST(Navigation, ScrollBarsRunThroughHundredthsOfARadian) {
  EXPECT_EQ(ScrollAngle(0), 0);
  EXPECT_EQ(ScrollAngle(50), 0.5);
  EXPECT_EQ(ScrollAngle(-157), -1.57);
  EXPECT_EQ(ScrollAngle(400), 1.57);
  EXPECT_EQ(ScrollAngle(-400), -1.57);
}

TEST(Navigation, ThePictureKeepsFivePerCentAllRound) {
  const PictureSize picture = SizeOfPixels(200, 100);
  EXPECT_EQ(picture.Width, 3000);
  EXPECT_EQ(picture.Height, 1500);
  EXPECT_NEAR(ScaleWidth(picture), 3300, 1e-9);
  const PlanePoint topLeft = SurfacePointAt(picture, 0, 0);
  EXPECT_NEAR(topLeft.x, -150, 1e-9);
  EXPECT_NEAR(topLeft.y, 1575, 1e-9);
  const PlanePoint bottomRight = SurfacePointAt(picture, 1, 1);
  EXPECT_NEAR(bottomRight.x, 3150, 1e-9);
  EXPECT_NEAR(bottomRight.y, -75, 1e-9);
}

TEST(Navigation, FractionsAndSurfacePointsAreInverse) {
  const PictureSize picture{9000, 6000};
  const PlanePoint fraction = FractionAt(picture, SurfacePointAt(picture, 0.125, 0.75));
  EXPECT_NEAR(fraction.x, 0.125, 1e-12);
  EXPECT_NEAR(fraction.y, 0.75, 1e-12);
  EXPECT_EQ(FractionAt({0, 0}, {5, 5}), PlanePoint{});
}

TEST(FitView, UprightSailWithoutRounds) {
  // Across 2.3 · 4000 = 9200; upwards 3800 + 800 / 2 = 4200.
  ViewState view;
  ASSERT_TRUE(FitView(PlainSail(), {9300, 10000}, view));
  EXPECT_NEAR(view.ViewScale, 1, 1e-12);
  EXPECT_EQ(view.ViewOffsetX, 0);
  EXPECT_EQ(view.ViewOffsetY, 0);
  EXPECT_NEAR(view.DevelopOriginX, 4400, 1e-9);
  EXPECT_EQ(view.DevelopOriginY, 0);

  ASSERT_TRUE(FitView(PlainSail(), {20000, 2200}, view));
  EXPECT_NEAR(view.ViewScale, 0.5, 1e-12);  // the height decides: 2100 / 4200
}

TEST(FitView, RoundsMoveTheSailIntoThePicture) {
  SailDefinition sail = PlainSail();
  sail.LuffRound = 100;
  sail.FootRound = 200;
  ViewState view;
  ASSERT_TRUE(FitView(sail, {4750, 100000}, view));  // 4650 / 9300
  EXPECT_NEAR(view.ViewScale, 0.5, 1e-12);
  EXPECT_NEAR(view.ViewOffsetX, 50, 1e-9);
  EXPECT_NEAR(view.ViewOffsetY, 100, 1e-9);
  EXPECT_NEAR(view.DevelopOriginX, 4500, 1e-9);
  EXPECT_NEAR(view.DevelopOriginY, 200, 1e-9);

  ASSERT_TRUE(FitView(sail, {100000, 2300}, view));  // 2200 / (4200 + 200)
  EXPECT_NEAR(view.ViewScale, 0.5, 1e-12);
}

TEST(FitView, AForwardRakeOverhangsTheTack) {
  SailDefinition sail = PlainSail();
  sail.LuffRake = -std::asin(0.1);  // the throat 300 mm ahead of the tack
  const FitExtents fit = ExtentsToFit(sail);
  EXPECT_NEAR(fit.LuffOverhang, 300, 1e-9);
  EXPECT_NEAR(fit.Horizontal, 9500, 1e-9);
  // The clew is lifted, so that nothing lies below the tack.
  EXPECT_EQ(fit.BelowTack, 0);
  // Peak: 600 · 0.1 + 3800 · √0.99.
  EXPECT_NEAR(fit.Vertical, 60 + 3800 * std::sqrt(0.99) + 400, 1e-9);
}

TEST(FitView, AnAftRakeLowersTheClewBelowTheTack) {
  SailDefinition sail = PlainSail();
  sail.LuffRake = std::asin(0.1);
  const FitExtents fit = ExtentsToFit(sail);
  EXPECT_EQ(fit.LuffOverhang, 0);
  EXPECT_NEAR(fit.BelowTack, 400, 1e-9);
  EXPECT_NEAR(fit.Vertical, -60 + 3800 * std::sqrt(0.99) + 400 + 400, 1e-9);
}

TEST(FitView, AHighGaffRoundCountsWhereHalfAClothDoesNotCoverIt) {
  SailDefinition sail = PlainSail();
  sail.PeakPoint = {1000, 3000, 0};
  sail.GaffRound = 300;
  EXPECT_NEAR(ExtentsToFit(sail).Vertical, 3400, 1e-9);
  sail.GaffRound = 600;
  EXPECT_NEAR(ExtentsToFit(sail).Vertical, 3600, 1e-9);
}

TEST(FitView, WithoutAnOutlineTheViewStays) {
  ViewState view;
  view.ViewScale = 3;
  EXPECT_FALSE(FitView(SailDefinition{}, {9000, 6000}, view));
  SailDefinition broken = PlainSail();
  broken.PeakPoint.x = std::nan("");
  EXPECT_FALSE(FitView(broken, {9000, 6000}, view));
  EXPECT_EQ(view.ViewScale, 3);
}

TEST(FitView, APictureSmallerThanTheAllowanceStillGivesAScale) {
  ViewState view;
  ASSERT_TRUE(FitView(PlainSail(), {0, 0}, view));
  EXPECT_GT(view.ViewScale, 0);
  EXPECT_TRUE(std::isfinite(view.ViewScale));
}

TEST(FitView, ASailWithoutWidthIsFittedByItsHeight) {
  SailDefinition sail = PlainSail();
  sail.ClewPoint = {0, -600, 0};
  sail.PeakPoint = {0, 3400, 0};
  ViewState view;
  ASSERT_TRUE(FitView(sail, {9000, 2300}, view));  // 2200 / (3400 + 800 / 2 + 600)
  EXPECT_NEAR(view.ViewScale, 0.5, 1e-12);
  EXPECT_EQ(view.ViewOffsetX, 0);
  EXPECT_NEAR(view.ViewOffsetY, 300, 1e-9);
}

TEST(FitView, ASailTooSmallToBeSeenHasAScaleStill) {
  SailDefinition sail = PlainSail();
  sail.LuffLength = 1e-310;
  sail.ClewPoint = {1e-310, 0, 0};
  sail.PeakPoint = {0, 1e-310, 0};
  sail.ClothWidth = 0;
  ViewState view;
  ASSERT_TRUE(FitView(sail, {9100, 5100}, view));  // as if it were 1 mm high
  EXPECT_NEAR(view.ViewScale, 5000, 1e-9);
}

TEST(FitView, TheWholeRoundedOutlineIsSeenForEverySail) {
  std::mt19937 random(20000625);
  int checked = 0;
  for (int i = 0; i < 3000; ++i) {
    const SailDefinition sail = RandomSail(random);
    for (const PictureSize& picture :
         {PictureSize{12000, 9000}, PictureSize{5000, 12000}, PictureSize{16000, 4000}}) {
      ViewState view;
      ASSERT_TRUE(FitView(sail, picture, view));
      const PlanMapping plan(sail.LuffRake, view);
      const OutlineCurve outline = RoundedOutline(sail);
      for (int edge = 0; edge < 4; ++edge) {
        for (const PlanePoint& point : outline[edge]) {
          const PlanePoint at = plan.MapSail(point);
          ASSERT_GE(at.x, -0.0401 * picture.Width) << i;
          ASSERT_LE(at.x, picture.Width - 100 + 0.01) << i;
          ASSERT_GE(at.y, -0.01) << i;
          ASSERT_LE(at.y, picture.Height - 100 + 0.01) << i;
          ++checked;
        }
      }
    }
  }
  EXPECT_EQ(checked, 3000 * 3 * 4 * kEdgePoints);
}

TEST(Navigation, APanMovesByTheDrag) {
  ViewState view;
  view.ViewOffsetX = 10;
  Pan(view, {100, 200}, {350, 150});
  EXPECT_EQ(view.ViewOffsetX, 260);
  EXPECT_EQ(view.ViewOffsetY, -50);
}

ViewState UnitView() {
  ViewState view;
  view.ViewScale = 1;
  view.ViewOffsetX = 100;
  view.ViewOffsetY = 200;
  return view;
}

TEST(Zoom, ARectangleOf300UnitsOrLessChangesNothing) {
  ViewState view = UnitView();
  EXPECT_FALSE(ZoomToRectangle(view, {9000, 6000}, 5000, {1000, 1000}, {1300, 4000}));
  EXPECT_FALSE(ZoomToRectangle(view, {9000, 6000}, 5000, {1000, 1000}, {1000, 1000}));
  EXPECT_EQ(view.ViewScale, 1);
  EXPECT_EQ(view.ViewOffsetX, 100);
  EXPECT_EQ(view.ViewOffsetY, 200);
  EXPECT_TRUE(ZoomToRectangle(view, {9000, 6000}, 5000, {1000, 1000}, {1300.5, 4000}));
}

TEST(Zoom, TheRectangleFillsThePicture) {
  // k = 0.9 · 1.1 · 9000 / 3000 = 2.97; the middle (2500, 2000) comes to (4500, 3000).
  const double k = 2.97;
  for (const bool swapped : {false, true}) {
    ViewState view = UnitView();
    const PlanePoint a{1000, 1500};
    const PlanePoint b{4000, 2500};
    ASSERT_TRUE(ZoomToRectangle(view, {9000, 6000}, 5000, swapped ? b : a, swapped ? a : b));
    EXPECT_NEAR(view.ViewScale, k, 1e-12);
    EXPECT_NEAR(view.ViewOffsetX, 4500 - 2400 * k, 1e-9);
    EXPECT_NEAR(view.ViewOffsetY, 3000 - 1800 * k, 1e-9);
  }
}

TEST(Zoom, ATallRectangleIsMeasuredByTheScaleWidthToo) {
  ViewState view = UnitView();
  ASSERT_TRUE(ZoomToRectangle(view, {9000, 6000}, 5000, {0, 0}, {1000, 4455}));
  EXPECT_NEAR(view.ViewScale, 2, 1e-12);  // 0.9 · 9900 / 4455
}

TEST(Zoom, GrowsNoFurtherThanTheLongestDiagonal) {
  ViewState view = UnitView();
  for (int i = 0; i < 6; ++i) ZoomToRectangle(view, {9000, 6000}, 5000, {1000, 1000}, {2000, 2000});
  EXPECT_NEAR(view.ViewScale * 5000, 264000, 1e-6);
}

TEST(Zoom, AViewThatWasNeverFittedIsNotZoomed) {
  ViewState view;
  EXPECT_FALSE(ZoomToRectangle(view, {9000, 6000}, 5000, {0, 0}, {1000, 1000}));
  EXPECT_FALSE(ZoomAbout(view, 5000, {0, 0}, 1));
  EXPECT_EQ(view.ViewScale, 0);
}

TEST(Zoom, TheWheelKeepsThePointUnderThePointer) {
  ViewState view = UnitView();
  ASSERT_TRUE(ZoomAbout(view, 5000, {700, 900}, 2));
  EXPECT_NEAR(view.ViewScale, 1.44, 1e-12);
  // The sail's point (600, 700) stays at (700, 900).
  EXPECT_NEAR(600 * view.ViewScale + view.ViewOffsetX, 700, 1e-9);
  EXPECT_NEAR(700 * view.ViewScale + view.ViewOffsetY, 900, 1e-9);
  ASSERT_TRUE(ZoomAbout(view, 5000, {700, 900}, -2));
  EXPECT_NEAR(view.ViewScale, 1, 1e-12);
  EXPECT_NEAR(view.ViewOffsetX, 100, 1e-9);
}

TEST(Zoom, TheWheelStopsAtBothEnds) {
  ViewState view = UnitView();
  EXPECT_TRUE(ZoomAbout(view, 5000, {0, 0}, 100));
  EXPECT_NEAR(view.ViewScale * 5000, 264000, 1e-6);
  const double widest = view.ViewScale;
  ZoomAbout(view, 5000, {0, 0}, 1);
  EXPECT_NEAR(view.ViewScale, widest, 1e-9);
  EXPECT_TRUE(ZoomAbout(view, 5000, {0, 0}, -1000));
  EXPECT_NEAR(view.ViewScale * 5000, 300, 1e-9);
}

}  // namespace
}  // namespace brivane
