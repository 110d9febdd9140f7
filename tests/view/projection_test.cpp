#include "view/projection.h"

#include <gtest/gtest.h>

#include <cmath>

#include "geometry/plane.h"

namespace brivane {
namespace {

/// sin 0.6, cos 0.8.
const double kThreeFourFive = std::asin(0.6);

SailDefinition PlainSail() {
  SailDefinition sail;
  sail.LuffLength = 3000;
  sail.LuffRake = 0;
  sail.ClewPoint = {4000, 0, 0};
  sail.PeakPoint = {600, 3800, 0};
  return sail;
}

ViewState View(double scale, double offsetX, double offsetY) {
  ViewState view;
  view.ViewScale = scale;
  view.ViewOffsetX = offsetX;
  view.ViewOffsetY = offsetY;
  return view;
}

TEST(Projection, UnrakeTurnsTheLuffTowardsTheLeech) {
  const PlanMapping plan(kThreeFourFive, ViewState{});
  const PlanePoint luff = plan.Unrake({0, 1000});
  EXPECT_NEAR(luff.x, 600, 1e-9);
  EXPECT_NEAR(luff.y, 800, 1e-9);
  const PlanePoint point = plan.Unrake({100, 200});
  EXPECT_NEAR(point.x, 200, 1e-9);
  EXPECT_NEAR(point.y, 100, 1e-9);
}

TEST(Projection, UnrakeAgreesWithRotatingAboutTheTack) {
  for (const double rake : {-0.6, -0.05, 0.0, 0.05, 0.3, 1.2}) {
    const PlanMapping plan(rake, ViewState{});
    for (const PlanePoint& point :
         {PlanePoint{0, 0}, {0, 4550}, {0, -70}, {3600, 66}, {-120, 900}, {2000, -300}}) {
      double x = point.x;
      double y = point.y;
      RotatePoint(0, 0, x, y, -rake);
      const PlanePoint turned = plan.Unrake(point);
      EXPECT_NEAR(turned.x, x, 1e-9) << rake;
      EXPECT_NEAR(turned.y, y, 1e-9) << rake;
    }
  }
}

TEST(Projection, MapScalesAndMoves) {
  const PlanMapping plan(0, View(2, 10, -5));
  EXPECT_EQ(plan.Map({100, 30}), (PlanePoint{210, 55}));
  EXPECT_EQ(plan.MapSail({0, 0}), (PlanePoint{10, -5}));
}

TEST(Projection, SurfacePointsAreRoundedToSinglePrecision) {
  const PlanePoint mapped = PlanMapping(0, View(1, 0, 0)).Map({1.0 / 3, 16777217});
  EXPECT_EQ(mapped.x, static_cast<double>(1.0f / 3.0f));
  EXPECT_NE(mapped.x, 1.0 / 3);
  EXPECT_EQ(mapped.y, 16777216);  // 2^24 + 1 has no single of its own
}

TEST(Projection, BeyondSinglePrecisionIsInfinite) {
  EXPECT_TRUE(std::isinf(RoundToSingle(1e39)));
  EXPECT_LT(RoundToSingle(-1e39), 0);
  EXPECT_TRUE(std::isinf(RoundToSingle(-1e39)));
  EXPECT_TRUE(std::isnan(RoundToSingle(std::nan(""))));
}

TEST(Projection, DepthShearsBothDirectionsIndependently) {
  // Centre (2000, 1500). u = 1000 · 0.8 + 100 · 0.6 = 860; w = 500 · 0.6 + 100 · 0.8 = 380.
  const SurfaceMapping mapping(PlainSail(), View(1, 0, 0), kThreeFourFive, std::acos(0.6));
  const PlanePoint point = mapping.Map(3000, 2000, 100);
  EXPECT_NEAR(point.x, 2860, 1e-3);
  EXPECT_NEAR(point.y, 1880, 1e-3);
}

TEST(Projection, OneAngleDoesNotDisturbTheOther) {
  const SurfaceMapping straight(PlainSail(), View(1, 0, 0), 0, 0);
  const SurfaceMapping turned(PlainSail(), View(1, 0, 0), 0.7, 0);
  const SurfaceMapping tilted(PlainSail(), View(1, 0, 0), 0, -0.9);
  EXPECT_EQ(turned.Map(300, 900, 77).y, straight.Map(300, 900, 77).y);
  EXPECT_NE(turned.Map(300, 900, 77).x, straight.Map(300, 900, 77).x);
  EXPECT_EQ(tilted.Map(300, 900, 77).x, straight.Map(300, 900, 77).x);
  EXPECT_NE(tilted.Map(300, 900, 77).y, straight.Map(300, 900, 77).y);
}

TEST(Projection, StraightOnIsTheUnrakedPlanWhateverTheDepth) {
  SailDefinition sail = PlainSail();
  sail.LuffRake = 0.05;
  const ViewState view = View(1.7, 40, 60);
  const SurfaceMapping surface(sail, view, 0, 0);
  const PlanMapping plan(sail.LuffRake, view);
  for (const PlanePoint& point : {PlanePoint{0, 0}, {0, 3000}, {4000, 0}, {1234.5, 678.9}}) {
    const PlanePoint seen = surface.Map(point.x, point.y, 345);
    EXPECT_NEAR(seen.x, plan.MapSail(point).x, 1e-3);
    EXPECT_NEAR(seen.y, plan.MapSail(point).y, 1e-3);
  }
}

}  // namespace
}  // namespace brivane
