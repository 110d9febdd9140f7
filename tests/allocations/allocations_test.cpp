#include <gtest/gtest.h>

#include <cstdlib>
#include <new>
#include <string>

#include "geometry/outline.h"
#include "geometry/surface.h"
#include "panels/cross_cut.h"
#include "panels/design_pass.h"
#include "panels/development.h"
#include "panels/vertical_cut.h"
#include "view/drawing.h"
#include "view/line_pixels.h"
#include "view/sail_drawing.h"

// Counts the allocations of the whole program: what runs for every point must make none.

namespace {

long allocations = 0;

}  // namespace

[[gnu::noinline]] void* operator new(std::size_t size) {
  ++allocations;
  if (void* block = std::malloc(size != 0 ? size : 1)) return block;
  throw std::bad_alloc();
}
[[gnu::noinline]] void operator delete(void* block) noexcept { std::free(block); }
[[gnu::noinline]] void operator delete(void* block, std::size_t) noexcept { std::free(block); }

namespace brivane {
namespace {

template <typename Work>
long AllocationsOf(const Work& work) {
  const long before = allocations;
  work();
  return allocations - before;
}

TEST(Allocations, AreCounted) {
  EXPECT_EQ(AllocationsOf([] { delete new int(1); }), 1);
}

TEST(Allocations, SectionProfileMakesNone) {
  double sum = 0;
  EXPECT_EQ(AllocationsOf([&] {
              for (int i = 0; i <= 100; ++i) sum += SectionProfile(3, 0.06, 8, i / 100.0);
            }),
            0);
  EXPECT_GT(sum, 0);
}

TEST(Allocations, ThePointsOfTheSurfaceMakeNone) {
  SailDefinition sail;
  ComputeOutline(sail);
  const SurfaceFrame frame(sail);
  EXPECT_EQ(AllocationsOf([&] {
              for (int i = 0; i < 100; ++i) SurfacePointZ(frame, 10.0 * i, 40.0 * i);
            }),
            0);
}

TEST(Allocations, LayoutAndDevelopmentOfAPassMakeNone) {
  for (const char* cut : {kCrossCut, kTwistFootCut, kVerticalCut}) {
    Sail sail;
    sail.Definition.CutType = cut;
    ComputeOutline(sail.Definition);
    const SurfaceFrame frame(sail.Definition);
    const Allowances allowances{};
    const auto layOut = cut == std::string(kVerticalCut) ? VerticalCutPass : CrossCutPass;
    EXPECT_EQ(AllocationsOf([&] { layOut(frame, allowances, sail); }), 0) << cut;
    ASSERT_GT(sail.Definition.PanelCount, 3);
    EXPECT_EQ(AllocationsOf([&] { DevelopPanels(sail); }), 0) << cut;
  }
}

TEST(Allocations, ADrawingMakesOneForEachLine) {
  Sail sail;
  DesignPass(sail);
  ViewState view;
  view.ViewScale = 1;
  const SurfaceMapping mapping(sail.Definition, view, 0.3, 0);
  Drawing drawing;
  drawing.Strokes.reserve(100);
  // The points of the stroke, and none for each of them.
  EXPECT_EQ(AllocationsOf([&] { AppendSeamLine(sail.Grid, mapping, 1, drawing); }), 1);
  EXPECT_EQ(drawing.Strokes.size(), 1U);
}

TEST(Allocations, PuttingALineIntoPixelsMakesNone) {
  std::uint32_t pixels[100] = {};
  const PixelRows picture{pixels, 10};
  const PlanePoint line[] = {{1, 1}, {9, 4}, {2, 8}};
  EXPECT_EQ(AllocationsOf([&] { PutLine(picture, picture.Box(), line, ~0U, LineEdge::Smooth); }),
            0);
  EXPECT_NE(pixels[11], 0U);
}

}  // namespace
}  // namespace brivane
