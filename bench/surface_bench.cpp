#include <array>
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

using LinePoints = std::array<PlanePoint, kLastPoint + 1>;

/// The points of all lines of the layout.
std::vector<LinePoints> PointsOf(const Sail& sail) {
  std::vector<LinePoints> lines(static_cast<std::size_t>(sail.Definition.PanelCount + 1));
  for (std::size_t line = 0; line < lines.size(); ++line)
    for (std::size_t point = 0; point < lines[line].size(); ++point)
      lines[line][point] = {sail.Grid.SurfaceX(int(line), int(point)),
                            sail.Grid.SurfaceY(int(line), int(point))};
  return lines;
}

std::array<double, kLastPoint + 1> Lifted(const SurfaceFrame& frame, const LinePoints& line) {
  std::array<double, kLastPoint + 1> z;
  SurfacePointsZ(frame, line, z.data());
  return z;
}

void RequireSameBits(const SurfaceFrame& frame, const std::vector<LinePoints>& lines) {
  PlainSail plain(SailDataText(SeventyPanels()));
  plain.Design();
  for (const LinePoints& line : lines) {
    const auto z = Lifted(frame, line);
    for (std::size_t point = 0; point < z.size(); ++point)
      if (std::bit_cast<std::uint64_t>(z[point]) !=
          std::bit_cast<std::uint64_t>(plain.SurfaceZ(line[point].x, line[point].y)))
        throw std::runtime_error("the surface lies elsewhere than by the plain search");
  }
}

}  // namespace

Rows SurfaceRows() {
  Sail sail = SeventyPanelSail();
  const SurfaceFrame frame(sail.Definition);
  const std::vector<LinePoints> lines = PointsOf(sail);
  RequireSameBits(frame, lines);
  const Minima times = TimeInTurns(
      [&] {
        for (const LinePoints& line : lines) DoNotOptimize(Lifted(frame, line));
      },
      [&] {
        for (const LinePoints& line : lines)
          for (const PlanePoint& at : line)
            DoNotOptimize(std::pow(1 - at.x / 8000, 2 + at.y / 4000));
      });
  return {{"z of 71 x 41 points / one pow each", times.Ratio(), 10, false, Sides(times)}};
}

}  // namespace bench
