#include "harness.h"

#ifndef BRIVANE_HAS_CGAL

#include <cstdio>

namespace bench {

Rows FlatteningRows() {
  std::puts("(libcgal-dev is not installed: its flattening is not compared with)");
  return {};
}

}  // namespace bench

#else

#define CGAL_EIGEN3_ENABLED
#include <CGAL/Polygon_mesh_processing/measure.h>
#include <CGAL/Simple_cartesian.h>
#include <CGAL/Surface_mesh.h>
#include <CGAL/Surface_mesh_parameterization/LSCM_parameterizer_3.h>
#include <CGAL/Surface_mesh_parameterization/Two_vertices_parameterizer_3.h>
#include <CGAL/Surface_mesh_parameterization/parameterize.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <stdexcept>
#include <vector>

#include "bench_sails.h"
#include "panels/development.h"

namespace bench {
namespace {

using namespace brivane;
namespace Flattening = CGAL::Surface_mesh_parameterization;

using Kernel = CGAL::Simple_cartesian<double>;
using Mesh = CGAL::Surface_mesh<Kernel::Point_3>;
using Vertex = Mesh::Vertex_index;

/// A strip as a mesh: the corners of its triangles that have an area, the same triangles as a
/// development's. Points in one place are one vertex.
struct StripMesh {
  Mesh Triangles;
  std::array<Vertex, kLastPoint + 1> Lower, Upper;

  Vertex Add(const SurfaceGrid& grid, int line, int point) {
    const Kernel::Point_3 at(grid.SurfaceX(line, point), grid.SurfaceY(line, point),
                             grid.SurfaceZ(line, point));
    for (const Vertex vertex : Triangles.vertices())
      if (Triangles.point(vertex) == at) return vertex;
    return Triangles.add_vertex(at);
  }
  void AddTriangle(Vertex a, Vertex b, Vertex c) {
    if (a != b && b != c && c != a) Triangles.add_face(a, b, c);
  }
};

StripMesh MeshOf(const SurfaceGrid& grid, int p) {
  StripMesh strip;
  for (int point = kForwardCorner; point <= kAftCorner; ++point)
    strip.Lower[static_cast<std::size_t>(point)] = strip.Add(grid, p, point);
  for (int point = 0; point <= kLastPoint; ++point)
    strip.Upper[static_cast<std::size_t>(point)] = strip.Add(grid, p + 1, point);
  const auto& lower = strip.Lower;
  const auto& upper = strip.Upper;
  for (std::size_t i = kForwardCorner; i < kAftCorner; ++i) {
    strip.AddTriangle(lower[i], lower[i + 1], upper[i]);
    strip.AddTriangle(lower[i + 1], upper[i + 1], upper[i]);
  }
  for (std::size_t i = 0; i + 1 < kForwardCorner; ++i)
    strip.AddTriangle(upper[i], upper[kForwardCorner], upper[i + 1]);
  for (std::size_t i = kAftCorner + 1; i < kLastPoint; ++i)
    strip.AddTriangle(upper[i], upper[kAftCorner], upper[i + 1]);
  return strip;
}

/// Flattens the strip. Returns the greatest error of a seam's edge, relative to the edge, when the
/// result is scaled to the length of both seams; negative where it cannot be flattened.
double Flatten(const SurfaceGrid& grid, int p) {
  StripMesh strip = MeshOf(grid, p);
  auto flat = strip.Triangles.add_property_map<Vertex, Kernel::Point_2>("v:flat").first;
  const auto border = CGAL::Polygon_mesh_processing::longest_border(strip.Triangles).first;
  using Border = Flattening::Two_vertices_parameterizer_3<Mesh>;
  using Lscm = Flattening::LSCM_parameterizer_3<Mesh, Border>;
  if (Flattening::parameterize(strip.Triangles, Lscm(), border, flat) != Flattening::OK) return -1;
  double flatLength = 0;
  double spaceLength = 0;
  std::vector<std::array<double, 2> > edges;
  for (const auto* seam : {&strip.Lower, &strip.Upper})
    for (std::size_t i = kForwardCorner; i < kAftCorner; ++i) {
      const Vertex a = (*seam)[i];
      const Vertex b = (*seam)[i + 1];
      if (a == b) continue;
      const double space =
          std::sqrt(CGAL::squared_distance(strip.Triangles.point(a), strip.Triangles.point(b)));
      const double laid = std::sqrt(CGAL::squared_distance(flat[a], flat[b]));
      edges.push_back({space, laid});
      spaceLength += space;
      flatLength += laid;
    }
  double worst = 0;
  for (const auto& [space, laid] : edges)
    worst = std::max(worst, std::abs(laid * spaceLength / flatLength - space) / space);
  return worst;
}

double OurWorstError(const Sail& sail) {
  double worst = 0;
  const auto take = [&](int p, int line, const PanelTable& xs, const PanelTable& ys) {
    for (int i = kForwardCorner; i < kAftCorner; ++i) {
      const double space =
          std::hypot(sail.Grid.SurfaceX(line, i + 1) - sail.Grid.SurfaceX(line, i),
                     sail.Grid.SurfaceY(line, i + 1) - sail.Grid.SurfaceY(line, i),
                     sail.Grid.SurfaceZ(line, i + 1) - sail.Grid.SurfaceZ(line, i));
      const double laid = std::hypot(xs(p, i + 1) - xs(p, i), ys(p, i + 1) - ys(p, i));
      if (space > 0) worst = std::max(worst, std::abs(laid - space) / space);
    }
  };
  for (int p = 0; p < sail.Definition.PanelCount; ++p) {
    take(p, p, sail.Panels.PanelLowerX, sail.Panels.PanelLowerY);
    take(p, p + 1, sail.Panels.PanelUpperX, sail.Panels.PanelUpperY);
  }
  return worst;
}

}  // namespace

Rows FlatteningRows() {
  Sail sail = SeventyPanelSail();
  const int count = sail.Definition.PanelCount;
  double theirError = 0;
  int refused = 0;
  for (int p = 0; p < count; ++p) {
    const double error = Flatten(sail.Grid, p);
    if (error < 0) ++refused;
    theirError = std::max(theirError, error);
  }
  const Minima times = TimeInTurns(
      [&] {
        for (int p = 0; p < count; ++p) DoNotOptimize(Flatten(sail.Grid, p));
      },
      [&] {
        DevelopPanels(sail);
        for (int p = 0; p < count; ++p) DoNotOptimize(DevelopedWidth(sail.Panels, p));
        ClobberMemory();
      });
  return {{"CGAL's LSCM / development", times.Ratio(), 100, true,
           Sides(times) + ", " + std::to_string(refused) + " strips refused"},
          {"development: seam error / LSCM's", OurWorstError(sail) / theirError, 1, false, {}}};
}

}  // namespace bench

#endif
