#include "view/line_pixels.h"

#include <algorithm>
#include <cmath>
#include <utility>

namespace brivane {

namespace {

/// A pixel is covered in steps of one 256th.
constexpr int kWhole = 256;

/// The four parts of a pixel with eight bits of room above each.
constexpr std::uint64_t kParts = 0x00ff00ff00ff00ff;
constexpr std::uint64_t kHalves = 0x0080008000800080;
constexpr int kRoom = 24;

constexpr std::uint64_t Spread(std::uint32_t pixel) {
  return (pixel | (static_cast<std::uint64_t>(pixel) << kRoom)) & kParts;
}

/// Lays the ink over the pixel, of which it covers so much.
void Cover(std::uint32_t& pixel, std::uint64_t spreadInk, unsigned covered) {
  const std::uint64_t sum = Spread(pixel) * (kWhole - covered) + spreadInk * covered + kHalves;
  const std::uint64_t parts = (sum / kWhole) & kParts;
  pixel = static_cast<std::uint32_t>(parts | (parts >> kRoom));
}

/// One direction of the picture: the way from a pixel to the next, and the pixels of the box.
struct Axis {
  std::ptrdiff_t Step;
  int First;
  int End;
};

/// A straight piece of a line seen along its longer extent: it takes two pixels, side by side
/// across it, for each pixel along.
struct Leg {
  Axis Along;
  Axis Across;
  PlanePoint From;  ///< x along, y across
  PlanePoint To;
};

/// Puts the legs of one line, one after another.
class LinePen {
 public:
  LinePen(const PixelRows& picture, const PixelBox& box, std::uint32_t ink, LineEdge edge)
      : pixels_(picture.Pixels.data()),
        columns_{1, std::max(box.Left, 0), std::min(box.Right, picture.Box().Right)},
        rows_{picture.RowLength, std::max(box.Top, 0), std::min(box.Bottom, picture.Box().Bottom)},
        ink_(Spread(ink)),
        isSmooth_(edge == LineEdge::Smooth) {}

  /// A leg after one that ran another way begins half a pixel sooner, as the line does, so that no
  /// corner is open; the last one ends as much later.
  void Draw(PlanePoint from, PlanePoint to, bool isLast) {
    const bool isSteep = std::abs(to.y - from.y) > std::abs(to.x - from.x);
    Leg leg{columns_, rows_, from, to};
    if (isSteep) leg = {rows_, columns_, {from.y, from.x}, {to.y, to.x}};
    const double extent = leg.To.x - leg.From.x;
    if (!(extent != 0)) return;
    const std::ptrdiff_t way = extent > 0 ? leg.Along.Step : -leg.Along.Step;
    const double sooner = way == before_ ? 0 : 0.5;
    const double later = isLast ? 0.5 : 0;
    before_ = way;
    const double rise = (leg.To.y - leg.From.y) / extent;
    if (extent > 0)
      Fill(leg, rise, leg.From.x - sooner, leg.To.x + later);
    else
      Fill(leg, rise, leg.To.x - later, leg.From.x + sooner);
  }

 private:
  /// Covers the pixels whose middle lies along the leg between two places.
  void Fill(const Leg& leg, double rise, double least, double most) {
    const double first = std::ceil(std::max(least - 0.5, static_cast<double>(leg.Along.First)));
    const double end = std::ceil(std::min(most - 0.5, static_cast<double>(leg.Along.End)));
    if (!(first < end)) return;
    const double perPixel = rise * kWhole;
    // Across, in 256ths of a pixel, from the middle of the row before the first.
    const double start =
        (leg.From.y + 0.5 + (0.5 - leg.From.x) * rise) * kWhole + (isSmooth_ ? 0.5 : kWhole / 2.0);
    const double lowest = leg.Across.First * static_cast<double>(kWhole);
    const double highest = (leg.Across.End + 1) * static_cast<double>(kWhole);
    for (int i = static_cast<int>(first); i < static_cast<int>(end); ++i) {
      const double place = start + i * perPixel;
      if (place >= lowest && place < highest) CoverPair(leg, i, static_cast<std::int64_t>(place));
    }
  }

  void CoverPair(const Leg& leg, int along, std::int64_t place) {
    const std::int64_t across = place / kWhole;
    const unsigned covered = isSmooth_ ? static_cast<unsigned>(place % kWhole) : 0;
    const std::ptrdiff_t second = along * leg.Along.Step + across * leg.Across.Step;
    if (across > leg.Across.First) Cover(pixels_[second - leg.Across.Step], ink_, kWhole - covered);
    if (across < leg.Across.End) Cover(pixels_[second], ink_, covered);
  }

  std::uint32_t* pixels_;
  Axis columns_;
  Axis rows_;
  std::uint64_t ink_;
  bool isSmooth_;
  std::ptrdiff_t before_ = 0;  ///< from pixel to pixel along the leg before
};

}  // namespace

void PutLine(const PixelRows& picture, const PixelBox& box, std::span<const PlanePoint> points,
             std::uint32_t ink, LineEdge edge) {
  LinePen pen(picture, box, ink, edge);
  for (std::size_t k = 1; k < points.size(); ++k)
    pen.Draw(points[k - 1], points[k], k + 1 == points.size());
}

}  // namespace brivane
