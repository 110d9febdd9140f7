#include <algorithm>
#include <array>
#include <cmath>

#include "bench_sails.h"
#include "harness.h"
#include "panels/development.h"
#include "strip_edges.h"

namespace bench {
namespace {

using brivane::Sail;

/// Greatest relative difference between an edge on the surface and laid flat. Edges shorter than
/// a thousandth of a millimetre are compared with that.
double WorstRelativeError(const Sail& sail) {
  double worst = 0;
  EdgeLengths space;
  EdgeLengths flat;
  for (int p = 0; p < sail.Definition.PanelCount; ++p) {
    SpaceEdges(sail.Grid, p, space);
    FlatEdges(sail.Panels, p, flat);
    for (std::size_t i = 0; i < space.size(); ++i)
      worst = std::max(worst, std::abs(flat[i] - space[i]) / std::max(space[i], 1e-3));
  }
  return worst;
}

}  // namespace

Rows DevelopmentRows() {
  Sail sail = SeventyPanelSail();
  const int count = sail.Definition.PanelCount;
  const Minima times = TimeInTurns(
      [&] {
        brivane::DevelopPanels(sail);
        for (int p = 0; p < count; ++p) DoNotOptimize(brivane::DevelopedWidth(sail.Panels, p));
        ClobberMemory();
      },
      [&] {
        EdgeLengths lengths;
        for (int p = 0; p < count; ++p) {
          SpaceEdges(sail.Grid, p, lengths);
          DoNotOptimize(lengths);
          ClobberMemory();
        }
      });
  return {
      {"development / the strips' edge lengths", times.Ratio(), 2.2, false, Sides(times)},
      {"development: edge error, 1e-11 relative", WorstRelativeError(sail) / 1e-11, 1, false, {}}};
}

}  // namespace bench
