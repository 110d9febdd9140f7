#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <random>
#include <vector>

#include "geometry/edge_round.h"
#include "geometry/outline.h"
#include "model/failures.h"
#include "patches/patch_outline.h"

// Patches of random sails lie inside the sail. The sail's border is sampled here, edge by edge.

namespace brivane {
namespace {

constexpr int kBorderSteps = 200;

using Polygon = std::vector<PlanePoint>;

void AppendEdge(Polygon& border, int steps, const Corner& from, const Corner& to, double round,
                double pos) {
  const RoundedEdge edge = MakeRoundedEdge({from.x, from.y}, {to.x, to.y}, round, pos / 100);
  for (int k = 0; k < steps; ++k) border.push_back(edge.At(static_cast<double>(k) / steps));
}

Polygon BorderOf(const SailDefinition& sail, int steps) {
  const Corner tack;
  const Corner throat = {0, sail.LuffLength, 0};
  Polygon border;
  AppendEdge(border, steps, sail.ClewPoint, tack, sail.FootRound, sail.FootRoundPos);
  AppendEdge(border, steps, tack, throat, sail.LuffRound, sail.LuffRoundPos);
  AppendEdge(border, steps, throat, sail.PeakPoint, sail.GaffRound, sail.GaffRoundPos);
  AppendEdge(border, steps, sail.PeakPoint, sail.ClewPoint, sail.LeechRound, sail.LeechRoundPos);
  return border;
}

bool Cross(const PlanePoint& a, const PlanePoint& b, const PlanePoint& c, const PlanePoint& d) {
  return Cross(b - a, c - a) * Cross(b - a, d - a) < 0 &&
         Cross(d - c, a - c) * Cross(d - c, b - c) < 0;
}

bool CrossesItself(const Polygon& polygon) {
  const std::size_t count = polygon.size();
  for (std::size_t i = 0; i < count; ++i)
    for (std::size_t j = i + 2; j < count; ++j)
      if (Cross(polygon[i], polygon[(i + 1) % count], polygon[j], polygon[(j + 1) % count]))
        return true;
  return false;
}

bool Contains(const Polygon& polygon, const PlanePoint& point) {
  bool inside = false;
  for (std::size_t i = 0, j = polygon.size() - 1; i < polygon.size(); j = i++) {
    const PlanePoint &a = polygon[i], &b = polygon[j];
    if ((a.y > point.y) != (b.y > point.y) &&
        point.x < (b.x - a.x) * (point.y - a.y) / (b.y - a.y) + a.x)
      inside = !inside;
  }
  return inside;
}

double DistanceToBorder(const Polygon& polygon, const PlanePoint& point) {
  double nearest = 1e300;
  for (std::size_t i = 0, j = polygon.size() - 1; i < polygon.size(); j = i++) {
    const PlanePoint side = polygon[j] - polygon[i];
    const double square = Dot(side, side);
    const double t =
        square > 0 ? std::clamp(Dot(point - polygon[i], side) / square, 0.0, 1.0) : 0.0;
    nearest = std::min(nearest, Length(point - polygon[i] - t * side));
  }
  return nearest;
}

// How far the outline, with the middles of its strokes, leaves the polygon, mm.
double Outside(const Polygon& polygon, const Polygon& outline) {
  double farthest = 0;
  for (std::size_t k = 0; k + 1 < outline.size(); ++k)
    for (const PlanePoint& point : {outline[k], 0.5 * (outline[k] + outline[k + 1])})
      if (!Contains(polygon, point))
        farthest = std::max(farthest, DistanceToBorder(polygon, point));
  return farthest;
}

// How far the strokes of the inner edge stand off the smooth line that they stand for: an eighth of
// the second difference, doubled as the line bends unevenly.
double InnerStandOff(const Polygon& outline) {
  double farthest = 0;
  for (std::size_t k = 21; k < 40; ++k)
    farthest = std::max(farthest, Length(outline[k - 1] + outline[k + 1] - 2 * outline[k]) / 4);
  return farthest;
}

double SignedArea(const Polygon& polygon) {
  double area = 0;
  for (std::size_t i = 0, j = polygon.size() - 1; i < polygon.size(); j = i++)
    area += Cross(polygon[j], polygon[i]) / 2;
  return area;
}

// A sail that a sailmaker could draw; nothing where its outline cannot be computed.
class RandomSails {
 public:
  bool Next(Sail& sail) {
    sail = Sail{};
    SailDefinition& d = sail.Definition;
    d.LuffLength = Between(1500, 12000);
    d.FootLength = d.LuffLength * Between(0.3, 1.1);
    const double tack = Between(1.2, 1.75);
    d.DiagonalLength = std::sqrt(d.LuffLength * d.LuffLength + d.FootLength * d.FootLength -
                                 2 * d.LuffLength * d.FootLength * std::cos(tack));
    d.GaffLength = Between(0, 1) < 0.3 ? 0 : d.FootLength * Between(0.1, 0.9);
    d.GaffAngle = Between(0.15, 1.1);
    d.LuffRound = d.LuffLength * Between(-0.02, 0.05);
    d.LeechRound = d.LuffLength * Between(-0.03, 0.08);
    d.FootRound = d.FootLength * Between(0, 0.08);
    d.GaffRound = static_cast<std::int16_t>(d.GaffLength * Between(-0.02, 0.06));
    for (std::int16_t* pos : {&d.LuffRoundPos, &d.LeechRoundPos, &d.FootRoundPos, &d.GaffRoundPos})
      *pos = static_cast<std::int16_t>(Between(20, 80));
    for (std::size_t n = 0; n < 4; ++n) {
      sail.Patches.PatchHeight[n] = PatchPercent(Between(1, 50));
      sail.Patches.PatchWidth[n] = PatchPercent(Between(1, 50));
    }
    try {
      ComputeOutline(d);
    } catch (const GeometryFault&) {
      return false;
    }
    // Edges so hollow that they cross each other make no sail.
    return !CrossesItself(BorderOf(d, 80));
  }

 private:
  double Between(double low, double high) {
    return std::uniform_real_distribution<double>(low, high)(random_);
  }

  std::mt19937 random_{20000625};
};

TEST(PatchInside, BothLayersOfEveryPatchLieInsideTheSail) {
  RandomSails sails;
  Sail sail;
  int tried = 0;
  for (int n = 0; n < 400; ++n) {
    if (!sails.Next(sail)) continue;
    ++tried;
    const Polygon border = BorderOf(sail.Definition, kBorderSteps);
    for (const PatchCorner corner : PatchedCorners(sail.Definition)) {
      const Polygon lower = PatchOutline(sail, corner, 0);
      const Polygon upper = PatchOutline(sail, corner, 1);
      // A stroke of the outline is a chord of the edge; on a hollow edge its middle stands off by
      // up to R·|f''|·step²/8, and so does the sampled border; |f''| ≤ 33.2 at the positions'
      // limits.
      const double reach = std::max(sail.Patches.PatchHeight[static_cast<std::size_t>(corner)],
                                    sail.Patches.PatchWidth[static_cast<std::size_t>(corner)]) /
                           100.0 / 20;
      const SailDefinition& d = sail.Definition;
      const double round =
          std::max({std::abs(d.LuffRound), std::abs(d.LeechRound), std::abs(d.FootRound),
                    static_cast<double>(std::abs(d.GaffRound))});
      const double chord = 33.2 * round * reach * reach / 8 +
                           33.2 * round / (8.0 * kBorderSteps * kBorderSteps) + 0.001;
      EXPECT_LE(Outside(border, lower), chord) << "sail " << n << " " << PatchWord(corner);
      EXPECT_LE(Outside(border, upper), chord) << "sail " << n << " " << PatchWord(corner);
      EXPECT_LE(Outside(lower, upper), std::max(chord, InnerStandOff(lower)))
          << "sail " << n << " " << PatchWord(corner);
      // The same turn, and smaller.
      const double ratio = SignedArea(upper) / SignedArea(lower);
      EXPECT_GT(ratio, 0) << "sail " << n << " " << PatchWord(corner);
      EXPECT_LT(ratio, 1) << "sail " << n << " " << PatchWord(corner);
    }
  }
  EXPECT_GT(tried, 200);
}

TEST(PatchInside, TheDefaultSail) {
  for (const double gaff : {2600.0, 0.0}) {
    Sail sail;
    sail.Definition.GaffLength = gaff;
    ComputeOutline(sail.Definition);
    const Polygon border = BorderOf(sail.Definition, kBorderSteps);
    for (const PatchCorner corner : PatchedCorners(sail.Definition))
      for (int layer = 0; layer < kPatchLayers; ++layer)
        EXPECT_LE(Outside(border, PatchOutline(sail, corner, layer)), 0.02);
  }
}

}  // namespace
}  // namespace brivane
