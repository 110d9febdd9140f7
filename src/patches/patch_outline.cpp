#include "patches/patch_outline.h"

#include <array>
#include <cmath>

#include "geometry/edge_round.h"
#include "geometry/faults.h"
#include "model/number_text.h"

namespace brivane {
namespace {

constexpr int kSideSteps = 20;
constexpr int kInnerSteps = 20;

// Control point of the inner edge on both sides' own scales: 0.5 would be straight, less bends it
// towards the corner.
constexpr double kInnerBend = 0.35;

PlanePoint InPlane(const Corner& corner) { return {corner.x, corner.y}; }

struct Edges {
  RoundedEdge Foot, Luff, Gaff, Leech;
};

Edges EdgesOf(const SailDefinition& sail) {
  const PlanePoint clew = InPlane(sail.ClewPoint);
  const PlanePoint tack = {0, 0};
  const PlanePoint throat = {0, sail.LuffLength};
  const PlanePoint peak = InPlane(sail.PeakPoint);
  return {MakeRoundedEdge(clew, tack, sail.FootRound, sail.FootRoundPos / 100.0),
          MakeRoundedEdge(tack, throat, sail.LuffRound, sail.LuffRoundPos / 100.0),
          MakeRoundedEdge(throat, peak, sail.GaffRound, sail.GaffRoundPos / 100.0),
          MakeRoundedEdge(peak, clew, sail.LeechRound, sail.LeechRoundPos / 100.0)};
}

// One side of a patch: an edge of the sail walked from the patch's corner.
struct Side {
  RoundedEdge Edge;
  bool FromStart;          // the corner is the edge's start
  double Reach;            // fraction of the edge that the patch covers
  PlanePoint Offset = {};  // from the patch's corner to the edge's, where the stub lies between

  PlanePoint OnEdge(double f) const { return Edge.At(FromStart ? Reach * f : 1 - Reach * f); }

  // From the patch's corner (0) to the end of the side (1); a stub is taken in gradually.
  PlanePoint At(double f) const { return OnEdge(f) - (1 - f) * Offset; }
};

struct Sides {
  Side Height, Width;
};

Sides SidesOf(const SailDefinition& sail, PatchCorner corner, double height, double width) {
  const Edges edges = EdgesOf(sail);
  switch (corner) {
    case PatchCorner::Clew:
      return {{edges.Leech, false, height}, {edges.Foot, true, width}};
    case PatchCorner::Tack:
      return {{edges.Luff, true, height}, {edges.Foot, false, width}};
    case PatchCorner::Head:
      break;
    case PatchCorner::Peak:
      return {{edges.Leech, true, height}, {edges.Gaff, false, width}};
  }
  const Side luff = {edges.Luff, false, height};
  if (!IsTriangular(sail)) return {luff, {edges.Gaff, true, width}};
  const PlanePoint stub = {sail.PeakPoint.x, sail.PeakPoint.y - sail.LuffLength};
  return {luff, {edges.Leech, true, width, stub}};
}

// Both sides' curves added: each is carried along the other, so that no point leaves the sail.
PlanePoint InnerPoint(const Sides& sides, PlanePoint corner, double t) {
  const double bend = 2 * t * (1 - t) * kInnerBend;
  const PlanePoint along = sides.Height.At((1 - t) * (1 - t) + bend) - corner;
  return sides.Width.At(t * t + bend) + along;
}

}  // namespace

std::int16_t PatchPercent(double typed) {
  if (!(typed > kSmallestPatch)) return kSmallestPatch;
  if (typed >= kLargestPatch) return kLargestPatch;
  return HeldToInt16(RoundHalfEven(typed));
}

std::vector<PatchCorner> PatchedCorners(const SailDefinition& sail) {
  std::vector<PatchCorner> corners = {PatchCorner::Clew, PatchCorner::Tack, PatchCorner::Head};
  if (!IsTriangular(sail)) corners.push_back(PatchCorner::Peak);
  return corners;
}

std::string_view PatchCode(PatchCorner corner) {
  static constexpr std::array<std::string_view, kPatchCorners> kCodes = {"cl", "tk", "hd", "pk"};
  return kCodes.at(static_cast<std::size_t>(corner));
}

std::string_view PatchWord(PatchCorner corner) {
  static constexpr std::array<std::string_view, kPatchCorners> kWords = {"clew", "tack", "head",
                                                                         "peak"};
  return kWords.at(static_cast<std::size_t>(corner));
}

std::vector<PlanePoint> PatchOutline(const Sail& sail, PatchCorner corner, int layer) {
  const auto index = static_cast<std::size_t>(corner);
  const double size = (layer == 0 ? 1.0 : kUpperLayerSize) / 100;
  const Sides sides = SidesOf(sail.Definition, corner, sail.Patches.PatchHeight.at(index) * size,
                              sail.Patches.PatchWidth.at(index) * size);
  const PlanePoint start = sides.Height.At(0);

  std::vector<PlanePoint> outline;
  outline.reserve(2 * kSideSteps + kInnerSteps + 2);
  for (int k = 0; k <= kSideSteps; ++k)
    outline.push_back(sides.Height.OnEdge(static_cast<double>(k) / kSideSteps));
  for (int k = 1; k < kInnerSteps; ++k)
    outline.push_back(InnerPoint(sides, start, static_cast<double>(k) / kInnerSteps));
  for (int k = kSideSteps; k > 0; --k)
    outline.push_back(sides.Width.OnEdge(static_cast<double>(k) / kSideSteps));
  if (!(sides.Width.Offset == PlanePoint{})) outline.push_back(sides.Width.OnEdge(0));
  outline.push_back(start);

  for (const PlanePoint& point : outline) {
    RequireFinite(point.x);
    RequireFinite(point.y);
  }
  return outline;
}

PlanePoint PatchLabelPlace(const std::vector<PlanePoint>& outline) {
  const PlanePoint& corner = outline.front();
  const PlanePoint& inner = outline.at(kSideSteps + kInnerSteps / 2);
  const auto middle = [](double a, double b) { return std::round((a + b) * 5) / 10; };
  return {middle(corner.x, inner.x), middle(corner.y, inner.y)};
}

}  // namespace brivane
