// The layout of the cross, twist-foot and vertical cuts: one pass with known allowances.

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <vector>

#include "geometry/outline.h"
#include "panels/cross_cut.h"
#include "panels/vertical_cut.h"

namespace brivane {
namespace {

/// A default sail without rounds, its outline computed.
Sail PlainSail(const char* cut) {
  Sail sail;
  sail.Definition.CutType = cut;
  sail.Definition.LuffRound = sail.Definition.LeechRound = sail.Definition.FootRound = 0;
  sail.Definition.GaffRound = 0;
  ComputeOutline(sail.Definition);
  return sail;
}

Steps LayOut(Sail& sail, const Allowances& allowances = {}) {
  const SurfaceFrame frame(sail.Definition);
  return sail.Definition.CutType == kVerticalCut ? VerticalCutPass(frame, allowances, sail)
                                                 : CrossCutPass(frame, allowances, sail);
}

PlanePoint PointAt(const Sail& sail, int line, int point) {
  return {sail.Grid.SurfaceX(line, point), sail.Grid.SurfaceY(line, point)};
}

double CodeOf(const Sail& sail, int line) { return sail.Grid.SurfaceX(line, -1); }

TEST(CrossCut, StepsUpTheLeechSquareToIt) {
  Sail sail = PlainSail(kCrossCut);
  const Steps steps = LayOut(sail);
  const SailDefinition& d = sail.Definition;
  EXPECT_EQ(d.PanelCount, steps.PanelCount);
  EXPECT_EQ(d.PanelCount, 8);  // leech 6752.7 mm, cloth 890 mm
  for (int k = 1; k < d.PanelCount; ++k) {
    const PlanePoint aft = PointAt(sail, k, 35);
    EXPECT_NEAR(aft.x, d.ClewPoint.x - std::sin(d.LeechAngle) * 890 * k, 1e-5);
    EXPECT_NEAR(aft.y, d.ClewPoint.y + std::cos(d.LeechAngle) * 890 * k, 1e-5);
    const PlanePoint forward = PointAt(sail, k, 5);
    EXPECT_NEAR((aft.y - forward.y) / (aft.x - forward.x), std::tan(d.LeechAngle), 1e-8);
  }
}

TEST(CrossCut, PutsThirtyEqualIntervalsOnASeam) {
  Sail sail = PlainSail(kCrossCut);
  LayOut(sail);
  const PlanePoint forward = PointAt(sail, 3, 5);
  const PlanePoint aft = PointAt(sail, 3, 35);
  for (int i = 0; i <= 30; ++i) {
    EXPECT_NEAR(PointAt(sail, 3, 5 + i).x, forward.x + i * (aft.x - forward.x) / 30, 1e-9);
    EXPECT_NEAR(PointAt(sail, 3, 5 + i).y, forward.y + i * (aft.y - forward.y) / 30, 1e-9);
  }
}

TEST(CrossCut, CodesTheEdgeOfEachForwardEnd) {
  Sail sail = PlainSail(kCrossCut);
  LayOut(sail);
  const SailDefinition& d = sail.Definition;
  for (int k = 1; k < d.PanelCount; ++k) {
    const PlanePoint aft = PointAt(sail, k, 35);
    const double c = aft.y - std::tan(d.LeechAngle) * aft.x;
    const double expected = c <= 0 ? 0 : c <= d.LuffLength ? 1 : 2;
    EXPECT_EQ(CodeOf(sail, k), expected) << k;
  }
  EXPECT_EQ(CodeOf(sail, 0), 0);
  EXPECT_EQ(CodeOf(sail, d.PanelCount), 2);
}

TEST(CrossCut, StartsLineZeroAtTheFirstSeamsEndOnTheFoot) {
  Sail sail = PlainSail(kCrossCut);
  LayOut(sail);
  const SailDefinition& d = sail.Definition;
  const PlanePoint start = PointAt(sail, 0, 5);
  ASSERT_EQ(CodeOf(sail, 1), 0);  // the first seam meets the foot
  EXPECT_LT(Length(start - PointAt(sail, 1, 5)), 1e-9);
  EXPECT_NEAR(start.y, d.ClewPoint.y * start.x / d.ClewPoint.x, 1e-9);
  for (int i = 0; i <= 30; ++i) {
    EXPECT_NEAR(PointAt(sail, 0, 5 + i).x, start.x + i * (d.ClewPoint.x - start.x) / 30, 1e-9);
    EXPECT_EQ(sail.Grid.SurfaceZ(0, 5 + i), 0);
  }
  for (int point = 35; point <= 40; ++point) {
    EXPECT_EQ(PointAt(sail, 0, point), (PlanePoint{d.ClewPoint.x, d.ClewPoint.y}));
    EXPECT_EQ(sail.Grid.SurfaceZ(0, point), 0);
  }
}

TEST(CrossCut, StartsLineZeroAtTheOnlySeamsEndOnTheFoot) {
  Sail sail = PlainSail(kCrossCut);
  Allowances allowances{};
  allowances[1] = -20000;
  LayOut(sail, allowances);
  ASSERT_EQ(sail.Definition.PanelCount, 2);
  ASSERT_EQ(CodeOf(sail, 1), 0);
  EXPECT_GT(PointAt(sail, 0, 5).x, 1);
  EXPECT_LT(Length(PointAt(sail, 0, 5) - PointAt(sail, 1, 5)), 1e-9);
}

TEST(CrossCut, EndsLineZeroInTheClewToTheLastBit) {
  for (int foot = 3000; foot < 3100; ++foot) {
    Sail sail;
    sail.Definition.FootLength = foot;
    ComputeOutline(sail.Definition);
    LayOut(sail);
    const PlanePoint clew{sail.Definition.ClewPoint.x, sail.Definition.ClewPoint.y};
    for (int point = 35; point <= 40; ++point) EXPECT_EQ(PointAt(sail, 0, point), clew) << foot;
  }
}

TEST(CrossCut, StartsLineZeroAtTheTackWhenTheFirstSeamMeetsTheLuff) {
  Sail sail = PlainSail(kTwistFootCut);
  LayOut(sail);
  const SailDefinition& d = sail.Definition;
  ASSERT_EQ(CodeOf(sail, 1), 1);
  EXPECT_EQ(CodeOf(sail, 0), 0);
  for (int i = 0; i <= 30; ++i) {
    EXPECT_NEAR(PointAt(sail, 0, 5 + i).x, i / 30.0 * d.ClewPoint.x, 1e-9);
    EXPECT_NEAR(PointAt(sail, 0, 5 + i).y, i / 30.0 * d.ClewPoint.y, 1e-9);
  }
}

TEST(CrossCut, JoinsEachLineToTheOneBefore) {
  for (const char* cut : {kCrossCut, kTwistFootCut, kVerticalCut}) {
    Sail sail;
    sail.Definition.CutType = cut;
    ComputeOutline(sail.Definition);
    LayOut(sail);
    for (int k = 1; k <= sail.Definition.PanelCount; ++k) {
      EXPECT_EQ(PointAt(sail, k, 0), PointAt(sail, k - 1, 5)) << cut << k;
      EXPECT_EQ(sail.Grid.SurfaceZ(k, 0), sail.Grid.SurfaceZ(k - 1, 5)) << cut << k;
      EXPECT_EQ(PointAt(sail, k, 40), PointAt(sail, k - 1, 35)) << cut << k;
      EXPECT_EQ(sail.Grid.SurfaceZ(k, 40), sail.Grid.SurfaceZ(k - 1, 35)) << cut << k;
    }
  }
}

TEST(CrossCut, KeepsEveryCornerOfTheSail) {
  for (const char* cut : {kCrossCut, kTwistFootCut, kVerticalCut}) {
    Sail sail;
    sail.Definition.CutType = cut;
    ComputeOutline(sail.Definition);
    LayOut(sail);
    const SailDefinition& d = sail.Definition;
    for (const PlanePoint corner :
         {PlanePoint{0, 0}, PlanePoint{0, d.LuffLength}, PlanePoint{d.PeakPoint.x, d.PeakPoint.y},
          PlanePoint{d.ClewPoint.x, d.ClewPoint.y}}) {
      bool found = false;
      for (int k = 0; k <= d.PanelCount; ++k)
        for (int point = 0; point <= 40; ++point)
          found |= Length(PointAt(sail, k, point) - corner) < 1e-9;
      EXPECT_TRUE(found) << cut << " " << corner.x << " " << corner.y;
    }
  }
}

TEST(CrossCut, EndsItsSeamsOnTheRoundedEdges) {
  Sail sail;
  sail.Definition.CutType = kCrossCut;
  ComputeOutline(sail.Definition);
  LayOut(sail);
  const SailDefinition& d = sail.Definition;
  const EdgeRoundCurve leech = MakeEdgeRoundCurve(0.6);
  for (int k = 1; k < d.PanelCount; ++k) {
    const PlanePoint aft = PointAt(sail, k, 35);
    // Square to the leech, 890·k mm from the clew: the fraction from the peak is known.
    const double t = 1 - 890.0 * k / d.LeechLength;
    const PlanePoint outward{std::cos(d.LeechAngle), std::sin(d.LeechAngle)};
    const PlanePoint clew{d.ClewPoint.x, d.ClewPoint.y};
    EXPECT_NEAR(Dot(aft - clew, outward), -100 * leech.At(t), 1e-4) << k;
    const PlanePoint forward = PointAt(sail, k, 5);
    if (CodeOf(sail, k) == 1) {
      const double u = forward.y / d.LuffLength;
      EXPECT_NEAR(forward.x, -100 * 4 * u * (1 - u), 1e-8) << k;
    }
  }
}

TEST(CrossCut, RunsItsLastLineAlongTheTopToThePeak) {
  Sail sail = PlainSail(kCrossCut);
  LayOut(sail);
  const SailDefinition& d = sail.Definition;
  EXPECT_EQ(PointAt(sail, d.PanelCount, 5), PointAt(sail, d.PanelCount - 1, 5));
  EXPECT_EQ(PointAt(sail, d.PanelCount, 35), (PlanePoint{d.PeakPoint.x, d.PeakPoint.y}));
}

TEST(CrossCut, GoesOnPastThePeakToAHigherThroat) {
  Sail sail = PlainSail(kCrossCut);
  SailDefinition& d = sail.Definition;
  d.GaffAngle = 2.4;  // a gaff that hangs below the throat
  d.GaffLength = 2000;
  ComputeOutline(d);
  LayOut(sail);
  bool aftOnGaff = false;
  for (int k = 1; k < d.PanelCount; ++k) {
    const PlanePoint aft = PointAt(sail, k, 35);
    const PlanePoint gaff = PlanePoint{d.PeakPoint.x, d.PeakPoint.y} - PlanePoint{0, d.LuffLength};
    aftOnGaff |= std::abs(Cross(gaff, aft - PlanePoint{0, d.LuffLength})) / Length(gaff) < 1e-6 &&
                 aft.x < d.PeakPoint.x - 1;
  }
  EXPECT_TRUE(aftOnGaff);
  EXPECT_EQ(PointAt(sail, d.PanelCount, 35), PointAt(sail, d.PanelCount - 1, 35));
}

TEST(CrossCut, KnowsTheEdgeOfASeamWithinAMillimetreOfACorner) {
  for (const double height : {-0.5, 0.5, 4549.5, 4550.5}) {
    Sail sail = PlainSail(kCrossCut);
    const SailDefinition& d = sail.Definition;
    // The first seam leaves the leech where it comes to this height on the luff line.
    const double perStep = std::cos(d.LeechAngle) + std::tan(d.LeechAngle) * std::sin(d.LeechAngle);
    const double atClew = d.ClewPoint.y - std::tan(d.LeechAngle) * d.ClewPoint.x;
    Allowances allowances{};
    allowances[0] = 890 - (height - atClew) / perStep;
    LayOut(sail, allowances);
    EXPECT_EQ(CodeOf(sail, 1), height < 0 ? 0 : height < 4550 ? 1 : 2) << height;
    if (height > 0 && height < 4550) {
      EXPECT_NEAR(PointAt(sail, 1, 5).y, height, 1e-6);
    }
  }
}

TEST(CrossCut, CoversASailWithOnePanel) {
  Sail sail = PlainSail(kCrossCut);
  Allowances allowances{};
  allowances[0] = -20000;
  LayOut(sail, allowances);
  EXPECT_EQ(sail.Definition.PanelCount, 1);
  EXPECT_EQ(PointAt(sail, 0, 5), (PlanePoint{0, 0}));
  EXPECT_EQ(CodeOf(sail, 0), 0);
}

TEST(CrossCut, StandsAtItsForwardEndBeforeIt) {
  for (const char* cut : {kCrossCut, kTwistFootCut, kVerticalCut}) {
    Sail sail = PlainSail(cut);
    LayOut(sail);
    for (int point = 0; point < 5; ++point)
      EXPECT_EQ(PointAt(sail, 0, point), PointAt(sail, 0, 5)) << cut << point;
    for (int point = 36; point <= 40; ++point)
      EXPECT_EQ(PointAt(sail, 0, point), PointAt(sail, 0, 35)) << cut << point;
  }
}

TEST(TwistFootCut, RaisesItsLowestSeamsAFifthOfTheClothApart) {
  Sail sail = PlainSail(kTwistFootCut);
  LayOut(sail);
  const SailDefinition& d = sail.Definition;
  double before = 0;
  for (int k = 1; k < d.PanelCount && CodeOf(sail, k) == 1; ++k) {
    const double height = PointAt(sail, k, 5).y;
    const PlanePoint aft = PointAt(sail, k, 35);
    const double natural = aft.y - std::tan(d.LeechAngle) * aft.x;
    EXPECT_NEAR(height, std::max(natural, before + 890 / 5.0), 1e-5) << k;
    before = height;
  }
  EXPECT_NEAR(PointAt(sail, 1, 5).y, 178, 1e-9);
}

TEST(TwistFootCut, SharesAShortLuffEvenly) {
  for (const double luff : {1200.0, 700.0}) {
    Sail sail = PlainSail(kTwistFootCut);
    SailDefinition& d = sail.Definition;
    d.LuffLength = luff;
    d.FootLength = 3500;
    d.DiagonalLength = 3700;
    d.GaffLength = 5;
    d.ClothWidth = 400;
    ComputeOutline(d);
    LayOut(sail);
    // Where each seam would come to the luff by itself.
    std::vector<double> natural;
    for (int k = 1; k < d.PanelCount; ++k) {
      const double aftX = d.ClewPoint.x - std::sin(d.LeechAngle) * 400 * k;
      const double aftY = d.ClewPoint.y + std::cos(d.LeechAngle) * 400 * k;
      natural.push_back(aftY - std::tan(d.LeechAngle) * aftX);
    }
    // A fifth of the cloth, or what the lowest seams can have each on their share of the luff.
    double gap = 400 / 5.0;
    for (std::size_t i = 0; i < natural.size(); ++i) {
      const double k = static_cast<double>(i) + 1;
      gap = std::min(gap, std::max(natural[i] / k, luff / (k + 1)));
    }
    double before = 0;
    for (int k = 1; k < d.PanelCount; ++k) {
      const double height = std::max(natural[static_cast<std::size_t>(k - 1)], before + gap);
      if (height < luff) {
        EXPECT_NEAR(PointAt(sail, k, 5).y, height, 1e-5) << luff << " " << k;
      }
      EXPECT_GT(height, before) << luff << " " << k;
      before = height;
    }
    EXPECT_EQ(gap < 80, luff < 1000) << luff;
  }
}

TEST(TwistFootCut, RaisesItsOnlySeamToHalfOfAVeryShortLuff) {
  Sail sail = PlainSail(kTwistFootCut);
  SailDefinition& d = sail.Definition;
  d.LuffLength = 300;
  d.FootLength = 3500;
  d.DiagonalLength = 3550;
  d.GaffLength = 3600;
  d.GaffAngle = 0.5;
  d.ClothWidth = 1000;  // a fifth of it is more than the half
  ComputeOutline(d);
  Allowances allowances{};
  allowances[1] = -20000;
  LayOut(sail, allowances);
  ASSERT_EQ(d.PanelCount, 2);
  EXPECT_NEAR(PointAt(sail, 1, 5).x, 0, 1e-9);
  EXPECT_NEAR(PointAt(sail, 1, 5).y, 150, 1e-9);
}

TEST(VerticalCut, RunsLineZeroDownTheRoundedLeech) {
  Sail sail;
  sail.Definition.CutType = kVerticalCut;
  ComputeOutline(sail.Definition);
  LayOut(sail);
  const SailDefinition& d = sail.Definition;
  EXPECT_EQ(CodeOf(sail, 0), 2);
  EXPECT_EQ(PointAt(sail, 0, 5), (PlanePoint{d.PeakPoint.x, d.PeakPoint.y}));
  EXPECT_EQ(PointAt(sail, 0, 35), (PlanePoint{d.ClewPoint.x, d.ClewPoint.y}));
  const PlanePoint middle = PointAt(sail, 0, 5 + 18);  // 60 % from the peak
  const PlanePoint chord = Between(PointAt(sail, 0, 5), PointAt(sail, 0, 35), 0.6);
  EXPECT_NEAR(Length(middle - chord), 100, 1e-9);
}

TEST(VerticalCut, StepsAlongTheFootParallelToTheLeech) {
  Sail sail = PlainSail(kVerticalCut);
  LayOut(sail);
  const SailDefinition& d = sail.Definition;
  for (int k = 1; k < d.PanelCount; ++k) {
    const PlanePoint aft = PointAt(sail, k, 35);
    EXPECT_NEAR(aft.x, d.ClewPoint.x - std::cos(d.FootAngle) * 890 * k, 1e-8) << k;
    EXPECT_NEAR(aft.y, d.ClewPoint.y - std::sin(d.FootAngle) * 890 * k, 1e-8) << k;
    const PlanePoint seam = PointAt(sail, k, 5) - aft;
    EXPECT_NEAR(std::atan2(-seam.x, seam.y), d.LeechAngle, 1e-9) << k;
  }
}

TEST(VerticalCut, StepsOverTheWholeOfAFootThatRises) {
  Sail sail = PlainSail(kVerticalCut);
  SailDefinition& d = sail.Definition;
  d.DiagonalLength = 5000;
  ComputeOutline(d);
  const Steps steps = LayOut(sail);
  // Seams parallel to the leech end where the later of tack and throat is passed.
  const PlanePoint clew{d.ClewPoint.x, d.ClewPoint.y};
  const PlanePoint leech = PlanePoint{d.PeakPoint.x, d.PeakPoint.y} - clew;
  const PlanePoint alongFoot = (-1 / d.FootLength) * clew;
  const double throat = Cross(leech, PlanePoint{0, d.LuffLength} - clew) / Cross(leech, alongFoot);
  const double covered =
      steps.Distance[static_cast<std::size_t>(steps.PanelCount - 1)] + steps.LastStep;
  EXPECT_NEAR(covered, std::max(d.FootLength, throat), 1e-3);
}

TEST(VerticalCut, RunsItsLastLineDownTheLuffToTheTack) {
  Sail sail = PlainSail(kVerticalCut);
  LayOut(sail);
  const SailDefinition& d = sail.Definition;
  EXPECT_EQ(PointAt(sail, d.PanelCount, 35), (PlanePoint{0, 0}));
  EXPECT_EQ(CodeOf(sail, d.PanelCount), CodeOf(sail, d.PanelCount - 1));
  EXPECT_EQ(CodeOf(sail, d.PanelCount), 1);
  EXPECT_EQ(PointAt(sail, d.PanelCount, 5), PointAt(sail, d.PanelCount - 1, 5));
}

TEST(VerticalCut, CodesItsLastLineAsItsLastSeam) {
  for (const EdgeCode last : {EdgeCode::Gaff, EdgeCode::Luff}) {
    Sail sail = PlainSail(kVerticalCut);
    const SailDefinition& d = sail.Definition;
    const PlanePoint clew{d.ClewPoint.x, d.ClewPoint.y};
    const PlanePoint leech = PlanePoint{d.PeakPoint.x, d.PeakPoint.y} - clew;
    const PlanePoint throat{0, d.LuffLength};
    const double through = Cross(leech, throat - clew) / Cross(leech, (-1 / d.FootLength) * clew);
    // Two seams: both before the one that would run through the throat, or on either side of it.
    Allowances allowances{};
    allowances[0] = 890 - (through - 300);
    allowances[1] = 890 - (last == EdgeCode::Gaff ? 200 : 400);
    allowances[2] = -20000;
    LayOut(sail, allowances);
    ASSERT_EQ(d.PanelCount, 3);
    EXPECT_EQ(CodeOf(sail, 1), 2);
    EXPECT_EQ(CodeOf(sail, 2), last == EdgeCode::Gaff ? 2 : 1);
    EXPECT_EQ(CodeOf(sail, 3), CodeOf(sail, 2));
  }
}

TEST(VerticalCut, EndsItsSeamsOnTheRoundedFoot) {
  Sail sail;
  sail.Definition.CutType = kVerticalCut;
  ComputeOutline(sail.Definition);
  LayOut(sail);
  const SailDefinition& d = sail.Definition;
  const PlanePoint clew{d.ClewPoint.x, d.ClewPoint.y};
  const PlanePoint along = (1 / d.FootLength) * clew;
  for (int k = 1; k < d.PanelCount; ++k) {
    const PlanePoint aft = PointAt(sail, k, 35);
    const double t = Dot(aft, along) / d.FootLength;
    if (t > 0) {
      EXPECT_NEAR(-Cross(along, aft), 170 * 4 * t * (1 - t), 1e-8) << k;
    }
  }
}

TEST(VerticalCut, KnowsTheEdgesOfASeamWithinAMillimetreOfACorner) {
  for (const double beyond : {-0.5, 0.5}) {
    Sail sail = PlainSail(kVerticalCut);
    SailDefinition& d = sail.Definition;
    const PlanePoint clew{d.ClewPoint.x, d.ClewPoint.y};
    const PlanePoint leech = PlanePoint{d.PeakPoint.x, d.PeakPoint.y} - clew;
    const PlanePoint alongFoot = (-1 / d.FootLength) * clew;
    // The first seam leaves the foot half a millimetre before or behind the place from which it
    // would run through the throat.
    const PlanePoint throat{0, d.LuffLength};
    const double through = Cross(leech, throat - clew) / Cross(leech, alongFoot);
    Allowances allowances{};
    allowances[0] = 890 - (through + beyond);
    LayOut(sail, allowances);
    EXPECT_EQ(CodeOf(sail, 1), beyond < 0 ? 2 : 1);
  }
  for (const double beyond : {-0.5, 0.5}) {
    Sail sail = PlainSail(kVerticalCut);
    SailDefinition& d = sail.Definition;
    d.GaffLength = 5500;  // the peak lies aft of the clew, so that the tack comes before the throat
    d.GaffAngle = 1.2;
    ComputeOutline(d);
    Allowances allowances{};
    allowances[0] = 890 - (d.FootLength + beyond);
    LayOut(sail, allowances);
    const PlanePoint aft = PointAt(sail, 1, 35);
    EXPECT_EQ(aft.x > 1e-9, beyond < 0) << aft.x << " " << aft.y;
  }
}

TEST(VerticalCut, GoesOnPastTheTackToTheThroat) {
  Sail sail = PlainSail(kVerticalCut);
  SailDefinition& d = sail.Definition;
  d.GaffLength = 5500;  // the peak lies aft of the clew
  d.GaffAngle = 1.2;
  ComputeOutline(d);
  ASSERT_LT(d.LeechAngle, 0);
  LayOut(sail);
  bool aftOnLuff = false;
  for (int k = 1; k < d.PanelCount; ++k) {
    const PlanePoint aft = PointAt(sail, k, 35);
    aftOnLuff |= std::abs(aft.x) < 1e-9 && aft.y > 1;
  }
  EXPECT_TRUE(aftOnLuff);
  EXPECT_EQ(PointAt(sail, d.PanelCount, 35), PointAt(sail, d.PanelCount - 1, 35));
}

TEST(Layout, LeavesTheSailAloneWhenThereAreTooManyPanels) {
  for (const char* cut : {kCrossCut, kVerticalCut}) {
    Sail sail = PlainSail(cut);
    sail.Definition.ClothWidth = 45;
    const Steps steps = LayOut(sail);
    EXPECT_TRUE(steps.TooMany) << cut;
    EXPECT_EQ(sail.Grid, SurfaceGrid{}) << cut;
    EXPECT_EQ(sail.Definition.PanelCount, 0) << cut;
  }
}

}  // namespace
}  // namespace brivane
