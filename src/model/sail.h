#pragma once

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>
#include <stdexcept>
#include <vector>

#include "model/sail_definition.h"

namespace brivane {

/// Doubles indexed (row, column), rows 0 to LastRow, columns FirstColumn to LastColumn, all zero
/// at first. An index outside the bounds throws std::out_of_range. Erasing takes no longer than
/// filling has taken: rows that have not been reached for writing are zero as they are. References
/// and pointers to cells are not to be written through after it.
template <int LastRow, int FirstColumn, int LastColumn>
class Table {
 public:
  double& operator()(int row, int column) {
    const std::size_t index = Index(row, column);
    Reach(row);
    return cells_[index];
  }
  double operator()(int row, int column) const { return cells_[Index(row, column)]; }
  /// Column 0 of a row, on which its other columns follow. The row is checked, columns are not.
  double* Points(int row) { return &(*this)(row, 0); }
  const double* Points(int row) const { return &cells_[Index(row, 0)]; }
  void Erase() {
    std::fill_n(cells_.begin(), rowsReached_ * kColumns, 0.0);
    rowsReached_ = 0;
  }
  bool operator==(const Table& other) const { return cells_ == other.cells_; }

 private:
  static constexpr int kColumns = LastColumn - FirstColumn + 1;
  static constexpr std::size_t kCells = static_cast<std::size_t>((LastRow + 1) * kColumns);

  static std::size_t Index(int row, int column) {
    if (row < 0 || row > LastRow || column < FirstColumn || column > LastColumn)
      throw std::out_of_range("Subscript out of range");
    return static_cast<std::size_t>(row * kColumns + column - FirstColumn);
  }

  void Reach(int row) { rowsReached_ = std::max(rowsReached_, row + 1); }

  std::vector<double> cells_ = std::vector<double>(kCells, 0.0);
  int rowsReached_ = 0;
};

using SurfaceTable = Table<91, -1, 43>;  ///< [seam line, point]
using PanelTable = Table<90, 0, 42>;     ///< [panel, point]

/// A layout never has more panels than this.
inline constexpr int kMostPanels = 70;

/// Points along a line or a panel: 0..5 forward edge, 5..35 seam, 35..40 aft edge.
inline constexpr int kForwardCorner = 5;
inline constexpr int kAftCorner = 35;
inline constexpr int kLastPoint = 40;

/// Column of SurfaceX that holds a line's edge code instead of a coordinate.
inline constexpr int kEdgeCodeColumn = -1;

/// Edge on which a section or a seam line ends.
enum class EdgeCode : std::int16_t { Foot = 0, Luff = 1, Gaff = 2 };

/// The three-dimensional points of every line, mm. Line 0 is the first boundary (the foot of the
/// cross cuts, the leech of the vertical cut), line PanelCount the last; panel p is the strip
/// between lines p and p + 1. The edge pieces of line k join line k - 1 to line k: point 0 is the
/// forward end of line k - 1, 5 line k's own, 35 its own aft end, 40 the aft end of line k - 1.
struct SurfaceGrid {
  SurfaceTable SurfaceX, SurfaceY, SurfaceZ;
  void Erase() { SurfaceX.Erase(), SurfaceY.Erase(), SurfaceZ.Erase(); }
  bool operator==(const SurfaceGrid&) const = default;
};

/// The panels laid flat, mm, each in a frame of its own: the chord of the lower seam lies on the x
/// axis from (0, 0) at point 5, the upper seam above it. PanelEdge holds the forward edge (0..5),
/// the guide line (5..35) and the aft edge (35..40).
struct DevelopedPanels {
  PanelTable PanelLowerX, PanelLowerY, PanelUpperX, PanelUpperY, PanelEdgeX, PanelEdgeY;
  void Erase() {
    PanelLowerX.Erase(), PanelLowerY.Erase(), PanelUpperX.Erase();
    PanelUpperY.Erase(), PanelEdgeX.Erase(), PanelEdgeY.Erase();
  }
  bool operator==(const DevelopedPanels&) const = default;
};

/// Sizes of the corner patches in % of the adjoining edges: clew, tack, head, peak.
struct PatchSizes {
  std::array<std::int16_t, 4> PatchHeight = {11, 9, 8, 8};
  std::array<std::int16_t, 4> PatchWidth = {12, 10, 12, 12};
  bool operator==(const PatchSizes&) const = default;
};

/// The current sail: its definition and what has been computed from it. Plain data.
struct Sail {
  SailDefinition Definition;
  SurfaceGrid Grid;
  DevelopedPanels Panels;
  PatchSizes Patches;
};

/// Makes the sail a new one: default definition (computed fields kept) and default patch sizes.
inline void ResetSail(Sail& sail) {
  ResetSailDefinition(sail.Definition);
  sail.Patches = PatchSizes{};
}

}  // namespace brivane
