#include <bit>
#include <cmath>
#include <cstdint>
#include <stdexcept>
#include <vector>

#include "bench_sails.h"
#include "geometry/surface.h"
#include "harness.h"
#include "model/sail_file.h"
#include "plain/plain_pass.h"

namespace bench {
namespace {

using namespace brivane;

struct GridPoint {
  double x = 0;
  double y = 0;
};

/// The points of all lines of the layout.
std::vector<GridPoint> PointsOf(const Sail& sail) {
  std::vector<GridPoint> points;
  for (int line = 0; line <= sail.Definition.PanelCount; ++line)
    for (int point = 0; point <= kLastPoint; ++point)
      points.push_back({sail.Grid.SurfaceX(line, point), sail.Grid.SurfaceY(line, point)});
  return points;
}

void RequireSameBits(const SurfaceFrame& frame, const std::vector<GridPoint>& points) {
  PlainSail plain(SailDataText(SeventyPanels()));
  plain.Design();
  for (const GridPoint& at : points)
    if (std::bit_cast<std::uint64_t>(SurfacePointZ(frame, at.x, at.y)) !=
        std::bit_cast<std::uint64_t>(plain.SurfaceZ(at.x, at.y)))
      throw std::runtime_error("the walk finds another normaliser than the plain search");
}

}  // namespace

Rows SurfaceRows() {
  Sail sail = SeventyPanelSail();
  const SurfaceFrame frame(sail.Definition);
  const std::vector<GridPoint> points = PointsOf(sail);
  RequireSameBits(frame, points);
  const Minima times = TimeInTurns(
      [&] {
        for (const GridPoint& at : points) DoNotOptimize(SurfacePointZ(frame, at.x, at.y));
      },
      [&] {
        for (const GridPoint& at : points)
          DoNotOptimize(std::pow(1 - at.x / 8000, 2 + at.y / 4000));
      });
  return {{"z of 71 x 41 points / one pow each", times.Ratio(), 10, false, Sides(times)}};
}

}  // namespace bench
