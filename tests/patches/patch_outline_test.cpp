#include "patches/patch_outline.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdint>
#include <limits>
#include <utility>

#include "geometry/outline.h"
#include "model/failures.h"

namespace brivane {
namespace {

// A luff of 4000 mm with a round of 100 mm at its middle, where the round is a parabola:
// 4·t·(1 − t). Foot straight from the tack to the clew.
Sail RoundedSail() {
  Sail sail;
  SailDefinition& definition = sail.Definition;
  definition.LuffLength = 4000;
  definition.ClewPoint = {3000, 0, 0};
  definition.PeakPoint = {1500, 5000, 0};
  definition.LuffRound = 100;
  definition.LuffRoundPos = 50;
  definition.FootRound = 50;
  definition.FootRoundPos = 50;
  definition.GaffRound = 0;
  definition.LeechRound = 0;
  sail.Patches.PatchHeight = {10, 20, 10, 10};
  sail.Patches.PatchWidth = {10, 40, 10, 10};
  return sail;
}

void ExpectPoint(const PlanePoint& point, double x, double y) {
  EXPECT_NEAR(point.x, x, 1e-9);
  EXPECT_NEAR(point.y, y, 1e-9);
}

TEST(PatchOutline, FollowsTheRoundsOfBothEdges) {
  const auto outline = PatchOutline(RoundedSail(), PatchCorner::Tack, 0);
  ASSERT_EQ(outline.size(), 61u);
  ExpectPoint(outline[0], 0, 0);
  // Half way up the side: a tenth of the luff, outward to the left by 100·4·0.1·0.9.
  ExpectPoint(outline[10], -36, 400);
  // Its end: a fifth of the luff.
  ExpectPoint(outline[20], -64, 800);
  // The other side ends at two fifths of the foot, below it by 50·4·0.4·0.6.
  ExpectPoint(outline[40], 1200, -48);
  ExpectPoint(outline[50], 600, -32);
  ExpectPoint(outline[60], 0, 0);
}

TEST(PatchOutline, TheUpperLayerGoesFourFifthsAsFarOnTheSameEdges) {
  const auto outline = PatchOutline(RoundedSail(), PatchCorner::Tack, 1);
  // 16 % of the luff: 100·4·0.16·0.84; 32 % of the foot: 50·4·0.32·0.68.
  ExpectPoint(outline[20], -53.76, 640);
  ExpectPoint(outline[40], 960, -43.52);
}

TEST(PatchOutline, EachCornerTakesItsOwnEdges) {
  Sail sail = RoundedSail();
  sail.Definition.LuffRound = sail.Definition.FootRound = 0;
  const auto ends = [&](PatchCorner corner) {
    const auto outline = PatchOutline(sail, corner, 0);
    return std::array<PlanePoint, 3>{outline[0], outline[20], outline[40]};
  };
  const auto clew = ends(PatchCorner::Clew);
  ExpectPoint(clew[0], 3000, 0);
  ExpectPoint(clew[1], 2850, 500);  // a tenth of the leech
  ExpectPoint(clew[2], 2700, 0);    // a tenth of the foot
  const auto head = ends(PatchCorner::Head);
  ExpectPoint(head[0], 0, 4000);
  ExpectPoint(head[1], 0, 3600);    // of the luff
  ExpectPoint(head[2], 150, 4100);  // of the gaff
  const auto peak = ends(PatchCorner::Peak);
  ExpectPoint(peak[0], 1500, 5000);
  ExpectPoint(peak[1], 1650, 4500);  // of the leech
  ExpectPoint(peak[2], 1350, 4900);  // of the gaff
}

TEST(PatchOutline, HeightAndWidthAreTheSizesOfTheirOwnCorner) {
  Sail sail = RoundedSail();
  sail.Definition.LuffRound = sail.Definition.FootRound = 0;
  sail.Patches.PatchHeight = {1, 2, 3, 4};
  sail.Patches.PatchWidth = {5, 6, 7, 8};
  const auto at = [&](PatchCorner corner, std::size_t index) {
    return PatchOutline(sail, corner, 0)[index];
  };
  EXPECT_NEAR(at(PatchCorner::Clew, 20).y, 50, 1e-9);
  EXPECT_NEAR(at(PatchCorner::Clew, 40).x, 2850, 1e-9);
  EXPECT_NEAR(at(PatchCorner::Tack, 20).y, 80, 1e-9);
  EXPECT_NEAR(at(PatchCorner::Tack, 40).x, 180, 1e-9);
  EXPECT_NEAR(at(PatchCorner::Head, 20).y, 3880, 1e-9);
  EXPECT_NEAR(at(PatchCorner::Head, 40).x, 105, 1e-9);
  EXPECT_NEAR(at(PatchCorner::Peak, 20).y, 4800, 1e-9);
  EXPECT_NEAR(at(PatchCorner::Peak, 40).x, 1380, 1e-9);
}

TEST(PatchOutline, TheInnerEdgeBendsTowardsTheCorner) {
  Sail sail = RoundedSail();
  sail.Definition.LuffRound = sail.Definition.FootRound = 0;
  const auto outline = PatchOutline(sail, PatchCorner::Tack, 0);
  // On straight edges a parabola between the ends (0, 800) and (1200, 0), control point at 0.35 of
  // both: the middle at 0.25 + 0.35/2.
  ExpectPoint(outline[30], 0.425 * 1200, 0.425 * 800);
  for (std::size_t k = 21; k < 40; ++k) {
    const double share = outline[k].x / 1200 + outline[k].y / 800;
    EXPECT_LT(share, 1);
    EXPECT_GT(share, 0.84);
  }
  // Hollow everywhere: every turn is to the same side, away from the turn at the corners.
  for (std::size_t k = 21; k < 40; ++k) {
    const PlanePoint in = outline[k] - outline[k - 1];
    const PlanePoint out = outline[k + 1] - outline[k];
    EXPECT_GT(Cross(in, out), 0) << k;
  }
}

TEST(PatchOutline, NoPeakPatchWithoutAGaff) {
  SailDefinition sail;
  EXPECT_EQ(PatchedCorners(sail), (std::vector<PatchCorner>{PatchCorner::Clew, PatchCorner::Tack,
                                                            PatchCorner::Head, PatchCorner::Peak}));
  sail.GaffLength = 6;
  EXPECT_EQ(PatchedCorners(sail).size(), 4u);
  sail.GaffLength = 5.9;
  EXPECT_EQ(PatchedCorners(sail),
            (std::vector<PatchCorner>{PatchCorner::Clew, PatchCorner::Tack, PatchCorner::Head}));
}

TEST(PatchOutline, TheHeadOfATriangularSailRunsDownTheLeech) {
  Sail sail;
  sail.Definition.GaffLength = 0;
  sail.Definition.LeechRound = 0;
  ComputeOutline(sail.Definition);
  const auto outline = PatchOutline(sail, PatchCorner::Head, 0);
  ASSERT_EQ(outline.size(), 62u);
  const Corner& peak = sail.Definition.PeakPoint;
  const Corner& clew = sail.Definition.ClewPoint;
  ExpectPoint(outline[0], 0, 4550);
  EXPECT_NEAR(outline[20].y, 4550 * 0.92, 1e-9);
  ExpectPoint(outline[40], peak.x + 0.12 * (clew.x - peak.x), peak.y + 0.12 * (clew.y - peak.y));
  // The stub is part of it: no corner is cut off.
  ExpectPoint(outline[60], peak.x, peak.y);
  ExpectPoint(outline[61], 0, 4550);
}

TEST(PatchOutline, ABluntCornerGetsAPatchWithDepth) {
  // Luff and gaff stand in one line: without the swelling the patch would have no area.
  Sail sail = RoundedSail();
  sail.Definition.LuffRound = 0;
  sail.Definition.PeakPoint = {0, 6000, 0};
  for (int layer = 0; layer < kPatchLayers; ++layer) {
    const auto outline = PatchOutline(sail, PatchCorner::Head, layer);
    const double shorter = (layer == 0 ? 1 : 0.8) * 200;  // a tenth of the gaff
    double deepest = 0;
    for (std::size_t k = 21; k < 40; ++k) {
      EXPECT_GT(outline[k].x, 0);
      deepest = std::max(deepest, outline[k].x);
    }
    EXPECT_GE(deepest, 0.2 * shorter - 1e-9);
    EXPECT_LE(deepest, 0.3 * shorter);
  }
}

TEST(PatchOutline, ABluntCornersDepthIsAFifthOfItsShorterSide) {
  // Luff and gaff in one line, the patch 400 mm down and 200 mm up: both inner curves run along it,
  // nearest to the corner at 13 of 20 steps. There the patch is a fifth of 200 mm deep, and around
  // it half an ellipse.
  Sail sail = RoundedSail();
  sail.Definition.LuffRound = 0;
  sail.Definition.PeakPoint = {0, 6000, 0};
  const auto swell = [](std::size_t k) {
    const double t = static_cast<double>(k) / 20;
    return 2 * std::sqrt(t * (1 - t));
  };
  for (int layer = 0; layer < kPatchLayers; ++layer) {
    const auto outline = PatchOutline(sail, PatchCorner::Head, layer);
    const double size = layer == 0 ? 1 : 0.8;
    for (std::size_t k = 1; k < 20; ++k) {
      const double t = static_cast<double>(k) / 20;
      const double bend = 0.7 * t * (1 - t);
      EXPECT_NEAR(outline[20 + k].x, 40 * size * swell(k) / swell(13), 1e-9) << k;
      EXPECT_NEAR(outline[20 + k].y,
                  4000 + size * (200 * (t * t + bend) - 400 * ((1 - t) * (1 - t) + bend)), 1e-9);
    }
  }
}

TEST(PatchOutline, ASlimPatchWhoseCornerJutsOutKeepsItsParabola) {
  // A clew of 9 degrees, one side of the patch long and the other short: the corner lies beyond
  // the line between their ends, and the parabola is not swollen.
  Sail sail = RoundedSail();
  SailDefinition& definition = sail.Definition;
  definition.LuffRound = definition.FootRound = 0;
  definition.PeakPoint = {500, 400, 0};
  for (const auto& [height, width] : {std::pair<std::int16_t, std::int16_t>{5, 40}, {40, 5}}) {
    sail.Patches.PatchHeight[0] = height;
    sail.Patches.PatchWidth[0] = width;
    const auto outline = PatchOutline(sail, PatchCorner::Clew, 0);
    const PlanePoint up = (height / 100.0) * PlanePoint{-2500, 400};
    const PlanePoint along = (width / 100.0) * PlanePoint{-3000, 0};
    for (std::size_t k = 0; k <= 20; ++k) {
      const double t = static_cast<double>(k) / 20;
      const double bend = 0.7 * t * (1 - t);
      const PlanePoint at =
          PlanePoint{3000, 0} + ((1 - t) * (1 - t) + bend) * up + (t * t + bend) * along;
      ExpectPoint(outline[20 + k], at.x, at.y);
    }
  }
}

TEST(PatchOutline, TheInnerEdgeOfATriangularHeadTakesTheStubInGradually) {
  Sail sail;
  sail.Definition.GaffLength = 0;
  sail.Definition.LuffRound = sail.Definition.LeechRound = 0;
  ComputeOutline(sail.Definition);
  const SailDefinition& d = sail.Definition;
  const double luff = sail.Patches.PatchHeight[2] / 100.0;
  const double leech = sail.Patches.PatchWidth[2] / 100.0;
  const auto outline = PatchOutline(sail, PatchCorner::Head, 0);
  for (std::size_t k = 1; k < 20; ++k) {
    const double t = static_cast<double>(k) / 20;
    const double bend = 0.7 * t * (1 - t);
    const double down = luff * ((1 - t) * (1 - t) + bend);
    const double along = t * t + bend;
    // From the throat down the luff, and from the peak down the leech less the rest of the stub.
    const double x = d.PeakPoint.x + leech * along * (d.ClewPoint.x - d.PeakPoint.x) -
                     (1 - along) * d.PeakPoint.x;
    const double y = d.PeakPoint.y + leech * along * (d.ClewPoint.y - d.PeakPoint.y) -
                     (1 - along) * (d.PeakPoint.y - d.LuffLength) - d.LuffLength * down;
    EXPECT_NEAR(outline[20 + k].x, x, 1e-9) << k;
    EXPECT_NEAR(outline[20 + k].y, y, 1e-9) << k;
  }
}

TEST(PatchOutline, CodesAndWords) {
  EXPECT_EQ(PatchCode(PatchCorner::Clew), "cl");
  EXPECT_EQ(PatchCode(PatchCorner::Tack), "tk");
  EXPECT_EQ(PatchCode(PatchCorner::Head), "hd");
  EXPECT_EQ(PatchCode(PatchCorner::Peak), "pk");
  EXPECT_EQ(PatchWord(PatchCorner::Clew), "clew");
  EXPECT_EQ(PatchWord(PatchCorner::Tack), "tack");
  EXPECT_EQ(PatchWord(PatchCorner::Head), "head");
  EXPECT_EQ(PatchWord(PatchCorner::Peak), "peak");
}

TEST(PatchOutline, TypedSizesAreWholeAndWithinOneToFifty) {
  EXPECT_EQ(PatchPercent(12), 12);
  EXPECT_EQ(PatchPercent(12.4), 12);
  EXPECT_EQ(PatchPercent(12.5), 12);
  EXPECT_EQ(PatchPercent(13.5), 14);
  EXPECT_EQ(PatchPercent(1.4), 1);
  EXPECT_EQ(PatchPercent(49.6), 50);
  EXPECT_EQ(PatchPercent(0), 1);
  EXPECT_EQ(PatchPercent(-8), 1);
  EXPECT_EQ(PatchPercent(51), 50);
  EXPECT_EQ(PatchPercent(1e300), 50);
  EXPECT_EQ(PatchPercent(-1e300), 1);
  EXPECT_EQ(PatchPercent(std::numeric_limits<double>::quiet_NaN()), 1);
}

TEST(PatchOutline, ASailThatIsNotFiniteIsAFault) {
  Sail sail = RoundedSail();
  sail.Definition.LuffRound = std::numeric_limits<double>::infinity();
  EXPECT_THROW(PatchOutline(sail, PatchCorner::Tack, 0), GeometryFault);
}

TEST(PatchOutline, TheLabelStandsBetweenTheCornerAndTheInnerEdge) {
  Sail sail = RoundedSail();
  sail.Definition.LuffRound = sail.Definition.FootRound = 0;
  const PlanePoint label = PatchLabelPlace(PatchOutline(sail, PatchCorner::Tack, 0));
  ExpectPoint(label, 0.425 * 600, 0.425 * 400);
}

}  // namespace
}  // namespace brivane
