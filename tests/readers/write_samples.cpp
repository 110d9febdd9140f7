// Writes the default sail in each cut, in every file kind, and what the readers' tests compare the
// files with: write_samples FOLDER. One folder for each cut, each with "surface.txt": the number of
// panels and the area of every strip of the surface grid, mm², one on each line.

#include <array>
#include <charconv>
#include <cmath>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <string>
#include <vector>

#include "export/save_kinds.h"
#include "panels/design_pass.h"

namespace brivane {
namespace {

namespace fs = std::filesystem;

struct Point {
  double x, y, z;
};

/// Area of a triangle in space, negative where it lies clockwise in the sail's plane. A triangle
/// that stands upright on that plane has no sense of its own and takes the given one, 1 or -1.
double SignedArea(const Point& a, const Point& b, const Point& c, double upright) {
  constexpr double kUpright = 1e-6;
  const Point u{b.x - a.x, b.y - a.y, b.z - a.z};
  const Point v{c.x - a.x, c.y - a.y, c.z - a.z};
  const Point n{u.y * v.z - u.z * v.y, u.z * v.x - u.x * v.z, u.x * v.y - u.y * v.x};
  const double area = std::hypot(n.x, n.y, n.z) / 2;
  return std::copysign(area, std::abs(n.z) > kUpright * area ? n.z : upright);
}

Point GridPoint(const SurfaceGrid& grid, int line, int point) {
  return {grid.SurfaceX(line, point), grid.SurfaceY(line, point), grid.SurfaceZ(line, point)};
}

/// Area between an edge piece and the straight line from its one end to the other, points first to
/// first + 5 of a line, fanned from the end that lies on the upper seam.
double EdgeArea(const SurfaceGrid& grid, int line, int first, double upright) {
  const Point apex = GridPoint(grid, line, first == 0 ? first + 5 : first);
  double area = 0;
  for (int k = first; k < first + 5; ++k)
    area += SignedArea(apex, GridPoint(grid, line, k), GridPoint(grid, line, k + 1), upright);
  return area;
}

/// 1 where the strip lies to the left of its lower line, -1 where it lies to the right.
double PlanSide(const SurfaceGrid& grid, int panel) {
  const Point a = GridPoint(grid, panel, kForwardCorner), b = GridPoint(grid, panel, kAftCorner);
  constexpr int kMiddlePoint = (kForwardCorner + kAftCorner) / 2;
  const Point c = GridPoint(grid, panel + 1, kMiddlePoint);
  return std::copysign(1.0, (b.x - a.x) * (c.y - a.y) - (b.y - a.y) * (c.x - a.x));
}

/// Area of the strip between two neighbouring lines, folded as it is laid flat: each quadrangle
/// from its upper forward to its lower aft corner.
double StripArea(const SurfaceGrid& grid, int panel) {
  const double side = PlanSide(grid, panel);
  double area = 0;
  for (int k = kForwardCorner; k < kAftCorner; ++k) {
    const Point a = GridPoint(grid, panel, k), b = GridPoint(grid, panel, k + 1);
    const Point c = GridPoint(grid, panel + 1, k + 1), d = GridPoint(grid, panel + 1, k);
    area += SignedArea(a, b, d, side) + SignedArea(b, c, d, side);
  }
  // Both edge pieces run round the strip in the direction opposite to the quadrangles'.
  return area - EdgeArea(grid, panel + 1, 0, -side) - EdgeArea(grid, panel + 1, kAftCorner, -side);
}

std::string Digits(double value) {
  std::array<char, 64> buffer;
  const auto end = std::to_chars(buffer.data(), buffer.data() + buffer.size(), value).ptr;
  return std::string(buffer.data(), end);
}

void WriteSurface(const Sail& sail, const fs::path& path) {
  std::ofstream file(path, std::ios::binary);
  file << std::to_string(sail.Definition.PanelCount) << '\n';
  for (int panel = 0; panel < sail.Definition.PanelCount; ++panel)
    file << Digits(std::abs(StripArea(sail.Grid, panel))) << '\n';
}

/// False where a file could not be written.
bool WriteCut(const char* cut, const fs::path& folder) {
  fs::create_directories(folder);
  Sail sail;
  sail.Definition.CutType = cut;
  DesignPass(sail);
  WriteSurface(sail, folder / "surface.txt");
  for (const SaveKind kind : {SaveKind::SailData, SaveKind::PanelsXY, SaveKind::Plotter,
                              SaveKind::Vrml1, SaveKind::PanelsDxf, SaveKind::Vrml2}) {
    const std::string path = (folder / ProposedName(kind, "Sample")).string();
    const SaveOutcome outcome = SaveSail(kind, sail, path, Language::English, '.');
    if (outcome.Saved()) continue;
    std::fprintf(stderr, "%s: %s\n", path.c_str(), outcome.Failure->Text.c_str());
    return false;
  }
  return true;
}

}  // namespace
}  // namespace brivane

int main(int argc, char** argv) {
  if (argc != 2) return 2;
  const std::filesystem::path folder = argv[1];
  const bool written = brivane::WriteCut(brivane::kCrossCut, folder / "crosscut") &&
                       brivane::WriteCut(brivane::kTwistFootCut, folder / "twistfoot") &&
                       brivane::WriteCut(brivane::kVerticalCut, folder / "vertical");
  return written ? 0 : 1;
}
