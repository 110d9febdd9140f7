#include "geometry/surface.h"

#include <gtest/gtest.h>

#include <cmath>
#include <random>
#include <vector>

#include "geometry/outline.h"
#include "geometry/twist.h"
#include "model/failures.h"

namespace brivane {
namespace {

/// A sail whose foot is square to its luff: luff 4000, foot 3000, no rounds.
SailDefinition SquareSail() {
  SailDefinition sail;
  sail.LuffLength = 4000;
  sail.FootLength = 3000;
  sail.DiagonalLength = 5000;
  sail.GaffLength = 2000;
  sail.GaffAngle = 0.5;
  sail.LuffRound = sail.LeechRound = sail.FootRound = 0;
  sail.GaffRound = 0;
  ComputeOutline(sail);
  return sail;
}

/// x of the straight leech at height y.
double LeechAt(const SailDefinition& sail, double y) {
  const double t = (y - sail.ClewPoint.y) / (sail.PeakPoint.y - sail.ClewPoint.y);
  return sail.ClewPoint.x + t * (sail.PeakPoint.x - sail.ClewPoint.x);
}

TEST(FindForwardEnd, MeetsTheStraightLuff) {
  SailDefinition sail = SquareSail();
  const SurfaceFrame frame(sail);
  const SectionEnd end = FindForwardEnd(frame, 1000, 1500);
  EXPECT_EQ(end.Edge, EdgeCode::Luff);
  EXPECT_NEAR(end.x, 0, 1e-9);
  EXPECT_NEAR(end.y, 1500, 1e-9);
  EXPECT_EQ(end.z, 0);
  EXPECT_NEAR(end.Along, 1500, 1e-9);
}

TEST(FindForwardEnd, MovesAlongTheSectionToTheRoundedLuff) {
  SailDefinition sail;
  sail.DiagonalLength = 5400;  // a foot that rises, so that sections slope
  ComputeOutline(sail);
  const SurfaceFrame frame(sail);
  const SectionEnd end = FindForwardEnd(frame, 1000, 2500);
  EXPECT_EQ(end.Edge, EdgeCode::Luff);
  EXPECT_NEAR(end.y, 2500 + (end.x - 1000) * std::tan(sail.FootAngle), 1e-9);
  const double t = end.y / sail.LuffLength;
  EXPECT_NEAR(end.x, -sail.LuffRound * 4 * t * (1 - t), 1e-9);  // position 50 %: the parabola
}

TEST(FindForwardEnd, TakesTheTackAsFootAndTheThroatAsLuff) {
  SailDefinition sail = SquareSail();
  sail.FootAngle = 0;
  sail.ClewPoint.y = 0;
  const SurfaceFrame frame(sail);
  EXPECT_EQ(FindForwardEnd(frame, 700, 0).Edge, EdgeCode::Foot);
  EXPECT_EQ(FindForwardEnd(frame, 700, 1e-9).Edge, EdgeCode::Luff);
  EXPECT_EQ(FindForwardEnd(frame, 700, 4000).Edge, EdgeCode::Luff);
  EXPECT_EQ(FindForwardEnd(frame, 700, 4000.001).Edge, EdgeCode::Gaff);
}

TEST(SectionEnds, OnTheRoundOfAFootThatRises) {
  SailDefinition sail;
  sail.DiagonalLength = 5000;
  sail.FootRound = 200;
  ComputeOutline(sail);
  const double slope = std::tan(sail.FootAngle);
  ASSERT_GT(slope, 0.2);
  const SurfaceFrame frame(sail);
  const double x = 1600;
  const double y = slope * x - 110;  // c = −110
  for (const bool forward : {true, false}) {
    const SectionEnd end = forward ? FindForwardEnd(frame, x, y) : FindAftEnd(frame, x, y);
    EXPECT_EQ(end.Edge, EdgeCode::Foot);
    EXPECT_NEAR(end.y, slope * end.x - 110, 1e-9);
    // The crossing m = x_end − tan(foot)·c, where the round stands 110·cos(foot) below the foot.
    const double m = end.x + slope * 110;
    const double root = std::sqrt(1 - 110 * std::cos(sail.FootAngle) / 200);
    const double exact = sail.ClewPoint.x * (1 + (forward ? -root : root)) / 2;
    EXPECT_NEAR(m, exact, 2000 / 1024.0) << forward;
    EXPECT_NEAR(end.z, FootDepth(frame, m), 1e-9) << forward;
  }
}

TEST(SurfacePointZ, MeasuresARisingFootsLowestPointSquareToIt) {
  SailDefinition sail;
  sail.DiagonalLength = 5000;
  sail.FootRound = 250;
  sail.LuffRound = sail.LeechRound = sail.GaffRound = 0;
  sail.TwistAngle = 0;
  sail.LuffShape = sail.LeechShape = {0, 0, 0};
  ComputeOutline(sail);
  const SurfaceFrame frame(sail);
  const double e = 250 / std::cos(sail.FootAngle);
  const double x = 800;
  const double y = 1000 + std::tan(sail.FootAngle) * x;  // starts at 1000 mm on the luff
  const SectionEnd aft = FindAftEnd(frame, x, y);
  const double chord = std::hypot(aft.x, aft.y - 1000) + 0.01;
  const double p = std::hypot(x, y - 1000) / chord;
  const double depth = DepthAt(sail, (e + 1000) / (e + sail.PeakPoint.y));
  EXPECT_NEAR(SurfacePointZ(frame, x, y), depth * chord * 4 * p * (1 - p), 1e-6);
}

TEST(FindForwardEnd, MeetsTheGaffWithItsTwist) {
  SailDefinition sail = SquareSail();
  const SurfaceFrame frame(sail);
  const double t = 0.6;
  const double x = t * sail.PeakPoint.x;
  const double y = 4000 + t * (sail.PeakPoint.y - 4000);
  const SectionEnd end = FindForwardEnd(frame, x + 50, y + 50 * std::tan(sail.FootAngle));
  EXPECT_EQ(end.Edge, EdgeCode::Gaff);
  EXPECT_NEAR(end.x, x, 1e-8);
  EXPECT_NEAR(end.y, y, 1e-8);
  EXPECT_NEAR(end.z, 2000 * std::sin(0.5) * t * std::sin(0.21), 1e-8);
}

TEST(FindForwardEnd, FindsTheFootByTenHalvings) {
  SailDefinition sail = SquareSail();
  sail.FootRound = 200;
  sail.FootRoundPos = 35;
  const SurfaceFrame frame(sail);
  const double x = 1400;
  const double y = sail.ClewPoint.y / sail.ClewPoint.x * x - 120;  // 120 mm below the foot
  const SectionEnd end = FindForwardEnd(frame, x, y);
  // 200·4t(1−t) = 120·cos(foot angle), and the foot is square to the luff: t = (1 − √0.4)/2.
  const double exact = 3000 * (1 - std::sqrt(1 - 0.6)) / 2;
  EXPECT_EQ(end.Edge, EdgeCode::Foot);
  EXPECT_NEAR(end.x, exact, 1400 / 1024.0);
  EXPECT_NE(end.x, exact);
  EXPECT_NEAR(std::fmod(end.x * 1024 / 1400, 1), 0, 1e-6);  // a midpoint of ten halvings
  EXPECT_EQ(sail.FootRoundPos, 50);
}

TEST(FindAftEnd, MeetsTheStraightLeech) {
  SailDefinition sail = SquareSail();
  const SurfaceFrame frame(sail);
  const SectionEnd end = FindAftEnd(frame, 1000, 2500);
  EXPECT_NEAR(end.y, 2500, 1e-9);
  EXPECT_NEAR(end.x, LeechAt(sail, 2500), 1e-9);
  // The leech angle carries a hundred-thousandth of a millimetre, and so does the distance.
  EXPECT_NEAR(end.Along, std::hypot(end.x - sail.ClewPoint.x, end.y - sail.ClewPoint.y), 1e-5);
  EXPECT_NEAR(end.z, TwistOffset(sail, end.x, end.y), 1e-12);
}

TEST(FindAftEnd, LiesOnTheRoundedLeechMeasuredFromThePeak) {
  SailDefinition sail = SquareSail();
  sail.LeechRound = 300;
  sail.LeechRoundPos = 65;
  const SurfaceFrame frame(sail);
  const SectionEnd end = FindAftEnd(frame, 1000, 2500);
  EXPECT_NEAR(end.y, 2500, 1e-9);
  const PlanePoint peak{sail.PeakPoint.x, sail.PeakPoint.y};
  const PlanePoint clew{sail.ClewPoint.x, sail.ClewPoint.y};
  const PlanePoint along = (1 / Length(clew - peak)) * (clew - peak);
  const PlanePoint fromPeak = PlanePoint{end.x, end.y} - peak;
  const double t = Dot(fromPeak, along) / Length(clew - peak);
  EXPECT_NEAR(Cross(along, fromPeak), 300 * MakeEdgeRoundCurve(0.65).At(t), 1e-8);
}

TEST(FindAftEnd, MeasuresAlongTheLeechOfASailWhoseFootRises) {
  SailDefinition sail;
  sail.DiagonalLength = 5000;  // a foot that rises by some 500 mm in 3500
  ComputeOutline(sail);
  ASSERT_GT(sail.FootAngle, 0.2);
  const SurfaceFrame frame(sail);
  const double x = 900;
  const double y = 3000;
  // The section y = 3000 + tan(foot)·(x − 900) meets the leech, which runs from the clew to the
  // peak: clew.y + s·up = 3000 + tan(foot)·(clew.x + s·across − 900), s the part of the leech.
  const double slope = std::tan(sail.FootAngle);
  const double up = sail.PeakPoint.y - sail.ClewPoint.y;
  const double across = sail.PeakPoint.x - sail.ClewPoint.x;
  const double part =
      (y + slope * (sail.ClewPoint.x - x) - sail.ClewPoint.y) / (up - slope * across);
  EXPECT_NEAR(FindAftEnd(frame, x, y).Along, part * sail.LeechLength, 1e-4);
}

TEST(SectionEnds, LieOnTheSectionOfASailWhoseFootRises) {
  SailDefinition sail;
  sail.DiagonalLength = 5000;
  sail.LeechRound = 200;
  ComputeOutline(sail);
  const double slope = std::tan(sail.FootAngle);
  const SurfaceFrame frame(sail);
  // Halfway between the sections through the throat and through the peak.
  const double c = (sail.LuffLength + sail.PeakPoint.y - slope * sail.PeakPoint.x) / 2;
  ASSERT_GT(c, sail.LuffLength);
  const SectionEnd forward = FindForwardEnd(frame, 900, c + slope * 900);
  EXPECT_EQ(forward.Edge, EdgeCode::Gaff);
  EXPECT_NEAR(forward.y, c + slope * forward.x, 1e-9);
  const SectionEnd aft = FindAftEnd(frame, 900, c + slope * 900);
  EXPECT_NEAR(aft.y, c + slope * aft.x, 1e-9);
  EXPECT_GT(aft.x, forward.x);
}

TEST(FindAftEnd, EndsOnTheFootBelowTheClew) {
  SailDefinition sail = SquareSail();
  sail.FootRound = 200;
  sail.FootRoundPos = 60;
  const SurfaceFrame frame(sail);
  const double x = 1400;
  const double y = sail.ClewPoint.y / sail.ClewPoint.x * x - 120;
  const SectionEnd end = FindAftEnd(frame, x, y);
  EXPECT_EQ(end.Edge, EdgeCode::Foot);
  EXPECT_NEAR(end.x, 3000 * (1 + std::sqrt(1 - 0.6)) / 2, 1600 / 1024.0);
  EXPECT_EQ(sail.FootRoundPos, 50);
}

TEST(SurfacePointZ, AddsCamberToTheTwistedSection) {
  SailDefinition sail = SquareSail();
  const SurfaceFrame frame(sail);
  const double y = 2200;
  const double x = 1100;
  const double aftX = LeechAt(sail, y);
  const double chord = aftX + 0.01;
  double luffHeight = y / sail.PeakPoint.y;
  double leechHeight = std::hypot(aftX - sail.ClewPoint.x, y - sail.ClewPoint.y) / sail.LeechLength;
  const double A = LuffShapeAt(sail, luffHeight);
  const double B = LeechShapeAt(sail, leechHeight);
  const double p = x / chord;
  const double expected = DepthAt(sail, y / sail.PeakPoint.y) * chord *
                              SectionProfile(A, B, ProfileNormaliser(A, B), p) +
                          TwistOffset(sail, aftX, y) * p;
  EXPECT_NEAR(SurfacePointZ(frame, x, y), expected, 1e-8);
}

TEST(SurfacePointZ, MeasuresTheHeightFromTheLowestPointOfARoundedFoot) {
  for (const double round : {250.0, 1.0}) {
    SailDefinition sail = SquareSail();
    sail.FootRound = round;
    sail.TwistAngle = 0;
    sail.LuffShape = sail.LeechShape = {0, 0, 0};
    const SurfaceFrame frame(sail);
    const double y = 1000;
    const double chord = LeechAt(sail, y) + 0.01;
    const double depth = DepthAt(sail, (round + y) / (round + sail.PeakPoint.y));
    const double p = 1200 / chord;
    EXPECT_NEAR(SurfacePointZ(frame, 1200, y), depth * chord * 4 * p * (1 - p), 1e-6) << round;
  }
}

TEST(SurfacePointZ, IsFlatWithoutDepthAndTwist) {
  SailDefinition sail;
  sail.TwistAngle = 0;
  sail.Depth = {0, 0, 0};
  ComputeOutline(sail);
  const SurfaceFrame frame(sail);
  for (double y = -100; y < 6000; y += 333)
    for (double x = 10; x < 3600; x += 271) EXPECT_EQ(SurfacePointZ(frame, x, y), 0);
}

TEST(SurfacePointZ, LeavesTheFootRoundSymmetricOnceASectionStartsOnTheFoot) {
  SailDefinition sail;
  sail.FootRoundPos = 40;
  ComputeOutline(sail);
  const SurfaceFrame frame(sail);
  SurfacePointZ(frame, 1000, 2000);
  EXPECT_EQ(sail.FootRoundPos, 40);
  SurfacePointZ(frame, 1000, -50);
  EXPECT_EQ(sail.FootRoundPos, 50);
}

TEST(FootDepth, FollowsTheFootSection) {
  SailDefinition sail = SquareSail();
  const SurfaceFrame frame(sail);
  // The default foot section is the parabola: depth 3 % of the foot in the middle.
  EXPECT_NEAR(FootDepth(frame, 1500), 0.03 * 3000, 1e-8);
  EXPECT_NEAR(FootDepth(frame, 750), 0.03 * 3000 * 0.75, 1e-8);
  EXPECT_EQ(FootDepth(frame, -10), 0);
  EXPECT_EQ(FootDepth(frame, 3001), 0);
}

TEST(Twist, GrowsLinearlyInAngleFromClewToPeak) {
  const SailDefinition sail = SquareSail();
  const double middle = (sail.ClewPoint.y + sail.PeakPoint.y) / 2;
  EXPECT_NEAR(TwistOffset(sail, 1500, middle), 1500 * std::sin(0.105), 1e-9);
  EXPECT_EQ(TwistOffset(sail, 1500, sail.ClewPoint.y), 0);
  EXPECT_EQ(TwistOffset(sail, 1500, sail.ClewPoint.y - 5), 0);
  EXPECT_EQ(TwistOffset(sail, 1, sail.PeakPoint.y + 5), sail.PeakPoint.x * std::sin(0.21));
}

TEST(Twist, IsLinearAlongTheGaffAndHeldAtItsEnds) {
  const SailDefinition sail = SquareSail();
  const double whole = 2000 * std::sin(0.5) * std::sin(0.21);
  EXPECT_NEAR(GaffTwist(sail, sail.PeakPoint.x / 4), whole / 4, 1e-9);
  EXPECT_EQ(GaffTwist(sail, -1), 0);
  EXPECT_NEAR(GaffTwist(sail, 1e6), whole, 1e-9);
}

TEST(Twist, OfAGaffOfOneMillimetre) {
  SailDefinition sail = SquareSail();
  sail.PeakPoint.x = 1;
  EXPECT_NEAR(GaffTwist(sail, 0.5), 1000 * std::sin(0.5) * std::sin(0.21), 1e-9);
  sail.PeakPoint.x = 0;
  EXPECT_EQ(GaffTwist(sail, 3), 0);
}

TEST(SurfaceFrame, RefusesWhatCarriesNoSurface) {
  const auto refused = [](auto change) {
    SailDefinition sail = SquareSail();
    change(sail);
    EXPECT_THROW(SurfaceFrame{sail}, GeometryFault);
  };
  refused([](SailDefinition& sail) { sail.PeakPoint.y = sail.ClewPoint.y; });
  refused([](SailDefinition& sail) { sail.ClewPoint.x = 0; });
  refused([](SailDefinition& sail) { sail.PeakPoint.x = -1; });
  refused([](SailDefinition& sail) { sail.DepthPosition = 0; });
  refused([](SailDefinition& sail) { sail.DepthPosition = 10; });
  refused([](SailDefinition& sail) { sail.LuffShape[kMiddle] = -1; });
  refused([](SailDefinition& sail) { sail.LuffShape[kTop] = -2; });
}

TEST(SurfaceFrame, RefusesALuffOrALeechWithoutLength) {
  SailDefinition sail = SquareSail();
  sail.LuffLength = 0;
  EXPECT_THROW(SurfaceFrame{sail}, GeometryFault);
  sail = SquareSail();
  sail.LeechLength = 0;
  EXPECT_THROW(SurfaceFrame{sail}, GeometryFault);
  sail = SquareSail();
  sail.PeakPoint.y = 0;
  sail.ClewPoint.y = -10;
  EXPECT_THROW(SurfaceFrame{sail}, GeometryFault);
  sail = SquareSail();
  sail.PeakPoint.x = 0;
  EXPECT_THROW(SurfaceFrame{sail}, GeometryFault);
}

TEST(SurfaceFrame, CarriesASailOfAnySize) {
  SailDefinition sail = SquareSail();
  for (double* length : {&sail.LuffLength, &sail.LeechLength, &sail.ClewPoint.x, &sail.ClewPoint.y,
                         &sail.PeakPoint.x, &sail.PeakPoint.y, &sail.FootLength, &sail.GaffLength})
    *length /= 10000;  // half a millimetre
  EXPECT_NO_THROW(SurfaceFrame{sail});
  sail.LuffShape = {-0.5, 0.5, 0.5};
  sail.DepthPosition = 0.5;
  EXPECT_NO_THROW(SurfaceFrame{sail});
}

/// z of the points, once all together and once each by itself, must be the same bits.
void ExpectSameTogether(const SurfaceFrame& frame, const std::vector<PlanePoint>& points) {
  std::vector<double> z(points.size() + 1, -1);
  SurfacePointsZ(frame, points, z.data());
  for (std::size_t i = 0; i < points.size(); ++i)
    EXPECT_EQ(z[i], SurfacePointZ(frame, points[i].x, points[i].y)) << i;
  EXPECT_EQ(z.back(), -1);  // nothing is written beyond
}

TEST(SurfacePointsZ, AreThoseOfEachPointByItself) {
  std::mt19937_64 random(11);
  std::uniform_real_distribution<double> unit(-1, 1);
  for (int i = 0; i < 200; ++i) {
    SailDefinition sail = i % 2 == 0 ? SquareSail() : SailDefinition{};
    sail.LuffRound = 150 * unit(random);
    sail.LeechRound = (i % 10 == 0 ? 1000 : 200) * unit(random);
    sail.FootRound = 200 * unit(random);
    sail.LuffRoundPos = static_cast<std::int16_t>(50 + 20 * unit(random));
    ComputeOutline(sail);
    const SurfaceFrame frame(sail);
    std::vector<PlanePoint> points;
    for (int count = 0; count < 42; ++count) {  // along one seam after another, beyond both ends
      const double share = count / 40.0;
      points.push_back({(4000 * share - 200) * (1 + 0.1 * unit(random)),
                        2500 + 2700 * unit(random) + 300 * share});
    }
    ExpectSameTogether(frame, points);
  }
}

TEST(SurfacePointsZ, TakeAnyNumberOfPoints) {
  SailDefinition sail = SquareSail();
  const SurfaceFrame frame(sail);
  for (std::size_t count = 0; count <= 3 * kLanes; ++count) {
    std::vector<PlanePoint> points;
    for (std::size_t i = 0; i < count; ++i)
      points.push_back({100.0 * static_cast<double>(i), 200.0 * static_cast<double>(i)});
    ExpectSameTogether(frame, points);
  }
}

TEST(SurfacePointsZ, MeetTheCornersAndTheEndsOfEveryEdge) {
  SailDefinition sail;
  ComputeOutline(sail);
  const SurfaceFrame frame(sail);
  std::vector<PlanePoint> points;
  for (const RoundedEdge* edge :
       {&frame.Edges.Foot, &frame.Edges.Luff, &frame.Edges.Gaff, &frame.Edges.Leech})
    for (int i = 0; i <= 40; ++i) points.push_back(edge->At(i / 40.0));
  ExpectSameTogether(frame, points);
}

TEST(SurfacePointsZ, RefuseWhatEachPointRefuses) {
  SailDefinition sail = SquareSail();
  sail.Depth[kMiddle] = 1.7e308;
  const SurfaceFrame frame(sail);
  double z[2];
  EXPECT_THROW(SurfacePointsZ(frame, std::vector<PlanePoint>{{500, 10}, {1000, 2500}}, z),
               GeometryFault);
}

TEST(SurfacePointZ, RefusesASectionOnAGaffParallelToTheFoot) {
  SailDefinition sail = SquareSail();
  sail.FootAngle = 0;
  sail.ClewPoint.y = 0;
  sail.PeakPoint.y = sail.LuffLength;
  const SurfaceFrame frame(sail);
  EXPECT_THROW(SurfacePointZ(frame, 500, 4010), GeometryFault);
}

TEST(SurfacePointZ, RefusesAnInfiniteDepth) {
  SailDefinition sail = SquareSail();
  sail.Depth[kMiddle] = 1.7e308;
  const SurfaceFrame frame(sail);
  EXPECT_THROW(SurfacePointZ(frame, 1000, 2500), GeometryFault);
}

}  // namespace
}  // namespace brivane
