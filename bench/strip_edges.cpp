#include "strip_edges.h"

#include <cmath>

namespace bench {
namespace {

using namespace brivane;

enum class Row { Lower, Upper, Edge };

/// Calls visit(row, point, row, point) for each edge of a strip in order.
template <typename Visit>
void ForEachEdge(const Visit& visit) {
  visit(Row::Lower, kForwardCorner, Row::Upper, kForwardCorner);
  for (int i = kForwardCorner; i < kAftCorner; ++i) {
    visit(Row::Lower, i, Row::Lower, i + 1);
    visit(Row::Upper, i, Row::Lower, i + 1);
    visit(Row::Upper, i, Row::Upper, i + 1);
    visit(Row::Lower, i + 1, Row::Upper, i + 1);
  }
  for (int i = 0; i < kForwardCorner; ++i) {
    visit(Row::Edge, i, Row::Edge, i + 1);
    if (i > 0 && i + 1 < kForwardCorner) visit(Row::Edge, i, Row::Edge, kForwardCorner);
  }
  for (int i = kLastPoint; i > kAftCorner; --i) {
    visit(Row::Edge, i, Row::Edge, i - 1);
    if (i < kLastPoint && i - 1 > kAftCorner) visit(Row::Edge, i, Row::Edge, kAftCorner);
  }
}

}  // namespace

void SpaceEdges(const SurfaceGrid& grid, int p, EdgeLengths& lengths) {
  std::size_t n = 0;
  ForEachEdge([&](Row rowA, int a, Row rowB, int b) {
    const int lineA = rowA == Row::Lower ? p : p + 1;
    const int lineB = rowB == Row::Lower ? p : p + 1;
    const double dx = grid.SurfaceX(lineA, a) - grid.SurfaceX(lineB, b);
    const double dy = grid.SurfaceY(lineA, a) - grid.SurfaceY(lineB, b);
    const double dz = grid.SurfaceZ(lineA, a) - grid.SurfaceZ(lineB, b);
    lengths[n++] = std::sqrt(dx * dx + dy * dy + dz * dz);
  });
}

void FlatEdges(const DevelopedPanels& panels, int p, EdgeLengths& lengths) {
  const auto x = [&](Row row, int i) {
    return row == Row::Lower   ? panels.PanelLowerX(p, i)
           : row == Row::Upper ? panels.PanelUpperX(p, i)
                               : panels.PanelEdgeX(p, i);
  };
  const auto y = [&](Row row, int i) {
    return row == Row::Lower   ? panels.PanelLowerY(p, i)
           : row == Row::Upper ? panels.PanelUpperY(p, i)
                               : panels.PanelEdgeY(p, i);
  };
  std::size_t n = 0;
  ForEachEdge([&](Row rowA, int a, Row rowB, int b) {
    const double dx = x(rowA, a) - x(rowB, b);
    const double dy = y(rowA, a) - y(rowB, b);
    lengths[n++] = std::sqrt(dx * dx + dy * dy);
  });
}

}  // namespace bench
