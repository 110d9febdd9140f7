#include "geometry/outline.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>

#include "geometry/plane.h"
#include "model/failures.h"

namespace brivane {
namespace {

SailDefinition Outlined(SailDefinition sail) {
  ComputeOutline(sail);
  return sail;
}

double ShoelaceArea(const SailDefinition& sail) {
  const PlanePoint clew{sail.ClewPoint.x, sail.ClewPoint.y};
  const PlanePoint peak{sail.PeakPoint.x, sail.PeakPoint.y};
  const PlanePoint throat{0, sail.LuffLength};
  return (Cross(clew, peak) + Cross(peak, throat)) / 2;
}

double RoundArea(const SailDefinition& sail) {
  return 0.7 * (sail.LuffLength * sail.LuffRound + sail.LeechLength * sail.LeechRound +
                sail.FootLength * sail.FootRound + sail.GaffLength * sail.GaffRound);
}

TEST(ComputeOutline, PlacesTheCornersOfTheDefaultSail) {
  const SailDefinition sail = Outlined({});
  EXPECT_NEAR(std::atan2(sail.ClewPoint.x, sail.ClewPoint.y), 1.55248, 5e-6);
  EXPECT_NEAR(sail.ClewPoint.x, 3599.40, 5e-3);
  EXPECT_NEAR(sail.ClewPoint.y, 65.93, 5e-3);
  EXPECT_EQ(sail.ClewPoint.z, 0);
  // Clew by the law of cosines: y = (luff² + foot² − diagonal²) / (2·luff).
  EXPECT_NEAR(sail.ClewPoint.y, (4550.0 * 4550 + 3600.0 * 3600 - 5750.0 * 5750) / (2 * 4550), 1e-9);
  EXPECT_NEAR(sail.PeakPoint.x, 2600 * std::sin(0.7), 1e-9);
  EXPECT_NEAR(sail.PeakPoint.y, 4550 + 2600 * std::cos(0.7), 1e-9);
  EXPECT_NEAR(sail.PeakPoint.z, 2600 * std::sin(0.7) * std::sin(0.21), 1e-9);
  EXPECT_NEAR(sail.FootAngle, std::atan2(sail.ClewPoint.y, sail.ClewPoint.x), 1e-15);
}

TEST(ComputeOutline, ComputesLeechAndAngle) {
  const SailDefinition sail = Outlined({});
  const double across = sail.ClewPoint.x - sail.PeakPoint.x;
  const double up = sail.PeakPoint.y - sail.ClewPoint.y;
  EXPECT_NEAR(sail.LeechLength, std::hypot(across, up), 1e-9);
  EXPECT_NEAR(sail.LeechAngle, std::atan(across / (up + 0.00001)), 1e-15);
}

TEST(ComputeOutline, TruncatesTheAreaToHundredths) {
  for (double foot = 3000; foot < 3600; foot += 7) {
    SailDefinition sail;
    sail.FootLength = foot;
    ComputeOutline(sail);
    const double exact = (ShoelaceArea(sail) + RoundArea(sail)) / 1e6;
    EXPECT_LE(sail.SailArea, exact + 1e-9) << foot;
    EXPECT_GT(sail.SailArea, exact - 0.01 - 1e-9) << foot;
    EXPECT_NEAR(std::round(sail.SailArea * 100), sail.SailArea * 100, 1e-9) << foot;
  }
}

TEST(ComputeOutline, ShowsJustUnderTenSquareMetresAsTruncated) {
  // A right triangle of 4000 × 5000 less what makes it 9.999 m²: the foot is shortened to match.
  SailDefinition sail;
  sail.LuffLength = 5000;
  sail.GaffLength = 5;
  sail.LuffRound = sail.LeechRound = sail.FootRound = 0;
  double low = 3900;
  double high = 4100;
  for (int i = 0; i < 100; ++i) {  // an area of 9.999 m², found by halving
    sail.FootLength = (low + high) / 2;
    sail.DiagonalLength = std::hypot(sail.FootLength, 5000);
    sail.GaffLength = 5;
    ComputeOutline(sail);
    (ShoelaceArea(sail) < 9.999e6 ? low : high) = sail.FootLength;
  }
  EXPECT_NEAR(ShoelaceArea(sail), 9.999e6, 1);
  EXPECT_EQ(sail.SailArea, 9.99);
}

TEST(ComputeOutline, MakesAStubOfAGaffShorterThanSixMillimetres) {
  SailDefinition sail;
  sail.GaffLength = 5.9;
  ComputeOutline(sail);
  // Angle at the throat between luff and diagonal, by the law of cosines.
  const double throat =
      std::acos((4550.0 * 4550 + 5750.0 * 5750 - 3600.0 * 3600) / (2 * 4550.0 * 5750.0));
  EXPECT_EQ(sail.GaffLength, 5);
  EXPECT_EQ(sail.GaffRound, 0);
  EXPECT_NEAR(sail.PeakPoint.x, 5 * std::cos(throat), 1e-9);
  EXPECT_NEAR(sail.PeakPoint.y, 4550 + 9 * std::sin(throat), 1e-9);
  EXPECT_NEAR(sail.GaffAngle, 3.14159265358979 / 2 - throat - 0.03, 1e-12);
}

TEST(ComputeOutline, PutsThePeakIntoThePlaneWithoutTwist) {
  for (const double gaff : {2600.0, 5.0}) {
    SailDefinition sail;
    sail.GaffLength = gaff;
    sail.TwistAngle = 0;
    sail.PeakPoint.z = 77;
    ComputeOutline(sail);
    EXPECT_EQ(sail.PeakPoint.z, 0) << gaff;
    EXPECT_EQ(sail.ClewPoint.z, 0) << gaff;
  }
}

TEST(ComputeOutline, KeepsAGaffOfSixMillimetres) {
  SailDefinition sail;
  sail.GaffLength = 6;
  ComputeOutline(sail);
  EXPECT_EQ(sail.GaffLength, 6);
  EXPECT_EQ(sail.GaffAngle, 0.7);
  EXPECT_NEAR(sail.PeakPoint.x, 6 * std::sin(0.7), 1e-12);
}

TEST(ComputeOutline, SurvivesAPeakLevelWithTheClew) {
  SailDefinition sail;
  sail.GaffAngle = 2;
  ComputeOutline(sail);
  // Raise the gaff until the peak is level with the clew.
  sail.GaffLength = 5000;
  sail.GaffAngle = std::acos((sail.ClewPoint.y - sail.LuffLength) / 5000);
  ComputeOutline(sail);
  EXPECT_NEAR(std::abs(sail.LeechAngle), std::acos(-1) / 2, 1e-6);
}

TEST(ComputeOutline, FlattensASailThatCannotClose) {
  SailDefinition sail;
  sail.DiagonalLength = 20000;
  ComputeOutline(sail);
  EXPECT_NEAR(sail.ClewPoint.x, 0, 1e-9);
  EXPECT_NEAR(sail.ClewPoint.y, -3600, 1e-9);
}

TEST(ComputeOutline, LeavesTheRecordAloneAfterAFault) {
  for (const double bad : {std::numeric_limits<double>::infinity(), 1e300, 1.7e308}) {
    SailDefinition sail;
    sail.LuffLength = bad;
    sail.GaffLength = 3;
    const SailDefinition before = sail;
    EXPECT_THROW(ComputeOutline(sail), GeometryFault) << bad;
    EXPECT_EQ(sail, before) << bad;
  }
}

TEST(ClampRounds, HoldsEachRoundWithinItsEdge) {
  SailDefinition sail = Outlined({});
  sail.LuffRound = 500;
  sail.LeechRound = -700;
  sail.FootRound = 361;
  sail.GaffRound = 300;
  ClampRounds(sail);
  EXPECT_EQ(sail.LuffRound, 455);
  EXPECT_EQ(sail.LeechRound, -std::floor(0.1 * sail.LeechLength));
  EXPECT_EQ(sail.FootRound, 360);
  EXPECT_EQ(sail.GaffRound, 260);
  sail.LuffRound = -228;
  sail.LeechRound = 5000;
  sail.FootRound = -1;
  sail.GaffRound = -131;
  ClampRounds(sail);
  EXPECT_EQ(sail.LuffRound, -227);
  EXPECT_EQ(sail.LeechRound, std::floor(0.25 * sail.LeechLength));
  EXPECT_EQ(sail.FootRound, 0);
  EXPECT_FALSE(std::signbit(sail.FootRound));
  EXPECT_EQ(sail.GaffRound, -130);
}

TEST(ClampRounds, LeavesWhatLiesWithinTheLimits) {
  SailDefinition sail = Outlined({});
  sail.LuffRound = 455;
  sail.LeechRound = -600;
  sail.FootRound = 0;
  sail.GaffRound = -130;
  const SailDefinition before = sail;
  ClampRounds(sail);
  EXPECT_EQ(sail, before);
}

TEST(ClampRounds, TakesTheRoundOffAGaffShorterThanFiftyMillimetres) {
  SailDefinition sail = Outlined({});
  sail.GaffLength = 49.9;
  sail.GaffRound = 2;
  ClampRounds(sail);
  EXPECT_EQ(sail.GaffRound, 0);
  sail.GaffLength = 50;
  sail.GaffRound = 7;
  ClampRounds(sail);
  EXPECT_EQ(sail.GaffRound, 5);
}

TEST(ClampCloth, HoldsClothAndSeam) {
  SailDefinition sail;
  sail.ClothWidth = 2000;
  ClampCloth(sail);
  EXPECT_EQ(sail.ClothWidth, 1725);
  EXPECT_EQ(sail.SeamWidth, 20);
  sail.ClothWidth = 1726;
  ClampCloth(sail);
  EXPECT_EQ(sail.ClothWidth, 1725);

  sail = {};
  sail.SeamWidth = 0;
  ClampCloth(sail);
  EXPECT_EQ(sail.ClothWidth, 890);
  EXPECT_EQ(sail.SeamWidth, 10);

  sail = {};
  sail.ClothWidth = -5;
  ClampCloth(sail);
  EXPECT_EQ(sail.ClothWidth, 116);  // 5750/50 + 1
  EXPECT_EQ(sail.SeamWidth, 12);    // 11.6, to the nearest
}

TEST(ClampCloth, LeavesWhatStandsAtItsLimits) {
  SailDefinition sail;  // the diagonal is 5750
  sail.ClothWidth = 115;
  sail.SeamWidth = 11;
  ClampCloth(sail);
  EXPECT_EQ(sail.ClothWidth, 115);
  EXPECT_EQ(sail.SeamWidth, 11);
  sail.ClothWidth = 114;
  ClampCloth(sail);
  EXPECT_EQ(sail.ClothWidth, 116);

  sail = {};
  sail.ClothWidth = 900;
  for (const auto& [given, held] : {std::pair{90, 90}, {91, 90}, {98, 90}, {9, 9}, {8, 10}}) {
    sail.SeamWidth = static_cast<std::int16_t>(given);
    ClampCloth(sail);
    EXPECT_EQ(sail.SeamWidth, held) << given;
  }
}

TEST(ClampCloth, RoundsHalvesToTheEvenNeighbour) {
  SailDefinition sail;
  sail.DiagonalLength = 1000;
  sail.ClothWidth = 125;
  sail.SeamWidth = 100;
  ClampCloth(sail);
  EXPECT_EQ(sail.SeamWidth, 12);  // 12.5
  sail.ClothWidth = 135;
  sail.SeamWidth = 100;
  ClampCloth(sail);
  EXPECT_EQ(sail.SeamWidth, 14);  // 13.5
}

TEST(ClampCloth, RefusesAClothBeyondSixteenBits) {
  SailDefinition sail;
  sail.DiagonalLength = 2e6;
  EXPECT_THROW(ClampCloth(sail), GeometryFault);
}

TEST(ClampCloth, HoldsTheSeamsOfAVeryWideCloth) {
  SailDefinition sail;
  sail.DiagonalLength = 50000;
  sail.ClothWidth = 10100;
  sail.SeamWidth = 100;  // less than 101
  ClampCloth(sail);
  EXPECT_EQ(sail.SeamWidth, 102);
}

TEST(ClampCloth, TakesTheLargestNumberOfSixteenBits) {
  SailDefinition sail;
  sail.DiagonalLength = 109223.3;  // three tenths are 32766.99
  sail.ClothWidth = 32767;
  ClampCloth(sail);
  EXPECT_EQ(sail.ClothWidth, 32767);
  sail.ClothWidth = 890;
  sail.DiagonalLength = 1638330;  // a fiftieth and one millimetre more are 32767.6
  EXPECT_THROW(ClampCloth(sail), GeometryFault);
}

TEST(RecomputeOutline, ErasesWhatIsStale) {
  Sail sail;
  sail.Grid.SurfaceX(3, 7) = 1;
  sail.Panels.PanelUpperY(2, 9) = 1;
  sail.Definition.PanelCount = 9;
  RecomputeOutline(sail);
  EXPECT_EQ(sail.Grid, SurfaceGrid{});
  EXPECT_EQ(sail.Panels, DevelopedPanels{});
  EXPECT_EQ(sail.Definition.PanelCount, 0);
  EXPECT_GT(sail.Definition.LeechLength, 0);
}

}  // namespace
}  // namespace brivane
