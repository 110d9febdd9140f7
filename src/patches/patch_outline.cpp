#include "patches/patch_outline.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <limits>

#include "geometry/faults.h"
#include "geometry/sail_edges.h"
#include "model/number_text.h"

namespace brivane {
namespace {

constexpr int kSideSteps = 20;
constexpr int kInnerSteps = 20;

// Control point of the inner edge on both sides' own scales: 0.5 would be straight, less bends it
// towards the corner.
constexpr double kInnerBend = 0.35;

// A patch is at least this deep at its corner, as a part of its shorter side; everywhere else its
// inner edge keeps this share of it, growing from the ends.
constexpr double kLeastDepth = 0.2;
constexpr double kLeastShare = 0.25;

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
  const SailEdges edges = EdgesOf(sail);
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

using Points = std::vector<PlanePoint>;

Points SidePoints(const Side& side) {
  Points points;
  points.reserve(kSideSteps + 1);
  for (int k = 0; k <= kSideSteps; ++k)
    points.push_back(side.OnEdge(static_cast<double>(k) / kSideSteps));
  return points;
}

// Both sides' curves added: each is carried along the other, so that no point leaves the sail
// where the corner is not blunt.
PlanePoint InnerPoint(const Sides& sides, PlanePoint corner, double t) {
  const double bend = 2 * t * (1 - t) * kInnerBend;
  const PlanePoint along = sides.Height.At((1 - t) * (1 - t) + bend) - corner;
  return sides.Width.At(t * t + bend) + along;
}

double InnerFraction(int step) { return static_cast<double>(step) / kInnerSteps; }

// Share of the swelling that the inner edge's nth point, its ends not counted, takes: half an
// ellipse over both ends.
double Swell(std::size_t n) {
  const double t = InnerFraction(static_cast<int>(n) + 1);
  return 2 * std::sqrt(t * (1 - t));
}

// The patch's border along the sail, from the end of the one side over the corner to the end of
// the other, in the direction of the sail's ring: the sail lies to the right.
struct Border {
  PlanePoint Start;
  PlanePoint Along;  // unit vector along the straight line between both ends
  Points Path;       // turned

  Border(const Points& in, const Points& out) : Start(in.back()) {
    const double bearing = DirectionAngle(in.back().x, in.back().y, out.back().x, out.back().y);
    Along = {std::cos(bearing), std::sin(bearing)};
    Path.reserve(in.size() + out.size());
    for (auto point = in.rbegin(); point != in.rend(); ++point) Path.push_back(Turned(*point));
    for (const PlanePoint& point : out) Path.push_back(Turned(point));
  }

  // Seen from the start: x along the straight line between both ends, y square to it.
  PlanePoint Turned(PlanePoint point) const {
    const PlanePoint from = point - Start;
    return {Dot(Along, from), Cross(Along, from)};
  }

  // Which of the inner points, turned, stands nearest above the corner; none where the corner juts
  // out beyond the ends.
  std::size_t Opposite(const Points& inner) const {
    const double corner = Path[kSideSteps].x;
    if (corner <= 0 || corner >= Path.back().x) return inner.size();
    const auto distance = [corner](PlanePoint point) { return std::abs(point.x - corner); };
    const auto nearest =
        std::min_element(inner.begin(), inner.end(),
                         [&](PlanePoint a, PlanePoint b) { return distance(a) < distance(b); });
    return static_cast<std::size_t>(nearest - inner.begin());
  }

  // How far a turned point lies inside of the border, measured square to that line.
  double Gap(PlanePoint point) const {
    double gap = std::numeric_limits<double>::max();
    const PlanePoint* a = &Path.front();
    for (const PlanePoint& b : Path) {
      if ((a->x > point.x) != (b.x > point.x)) {
        const double t = (point.x - a->x) / (b.x - a->x);
        gap = std::min(gap, Between(*a, b, t).y - point.y);
      }
      a = &b;
    }
    return gap;
  }
};

// The inner edge without its ends. A blunt corner, as that below a steep gaff, leaves it no depth:
// there it swells into the sail.
Points InnerEdge(const Sides& sides, const Points& height, const Points& width) {
  const PlanePoint corner = sides.Height.At(0);
  const Border border = sides.Height.FromStart ? Border(width, height) : Border(height, width);
  const double least =
      kLeastDepth * std::min(Length(height.back() - corner), Length(width.back() - corner));
  Points points;
  Points turned;
  points.reserve(kInnerSteps);
  turned.reserve(kInnerSteps);
  for (int k = 1; k < kInnerSteps; ++k) {
    points.push_back(InnerPoint(sides, corner, InnerFraction(k)));
    turned.push_back(border.Turned(points.back()));
  }

  double swell = 0;
  const std::size_t opposite = border.Opposite(turned);
  if (opposite == points.size()) return points;
  for (std::size_t n = 0; n < points.size(); ++n) {
    const double share = Swell(n);
    const double need = n == opposite ? least : least * kLeastShare * share;
    swell = std::max(swell, (need - border.Gap(turned[n])) / share);
  }
  const PlanePoint inward = {border.Along.y, -border.Along.x};
  for (std::size_t n = 0; n < points.size(); ++n) points[n] = points[n] + swell * Swell(n) * inward;
  return points;
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
  const Points height = SidePoints(sides.Height);
  const Points width = SidePoints(sides.Width);
  const Points inner = InnerEdge(sides, height, width);

  Points outline;
  outline.reserve(2 * kSideSteps + kInnerSteps + 2);
  outline = height;
  outline.insert(outline.end(), inner.begin(), inner.end());
  outline.insert(outline.end(), width.rbegin(), width.rend());
  // Where the stub lies between them, the width's edge does not begin at the corner.
  if (!(outline.back() == outline.front())) outline.push_back(outline.front());

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
