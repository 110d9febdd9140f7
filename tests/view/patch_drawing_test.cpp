#include "view/patch_drawing.h"

#include <gtest/gtest.h>

#include <cmath>
#include <random>

#include "patches/patch_outline.h"
#include "view/view_sails.h"

namespace brivane {
namespace {

using testing::PlainSail;

TEST(PatchDrawing, TheSailFillsTheMiddleOfThePicture) {
  // 4000 wide and 3800 high.
  const ViewState high = PatchView(PlainSail(), {2000, 3000});
  EXPECT_NEAR(high.ViewScale, 0.5, 1e-12);
  EXPECT_NEAR(high.ViewOffsetX, 0, 1e-9);
  EXPECT_NEAR(high.ViewOffsetY, 550, 1e-9);
  const ViewState wide = PatchView(PlainSail(), {6000, 3800});
  EXPECT_NEAR(wide.ViewScale, 1, 1e-12);
  EXPECT_NEAR(wide.ViewOffsetX, 1000, 1e-9);
  EXPECT_NEAR(wide.ViewOffsetY, 0, 1e-9);
}

TEST(PatchDrawing, OutlineAndBothLayersOfEveryCorner) {
  Sail sail;
  sail.Definition = PlainSail();
  const Drawing drawing = PatchDrawing(sail, {6000, 3800});
  ASSERT_EQ(drawing.Strokes.size(), 4u + 8u);
  for (std::size_t i = 0; i < 4; ++i) EXPECT_EQ(drawing.Strokes[i].Ink, (Colour{0, 0, 0}));
  // Every patch starts at its corner: clew, tack, throat, peak.
  const std::vector<PlanePoint> corners = {{5000, 0}, {1000, 0}, {1000, 3000}, {1600, 3800}};
  for (std::size_t corner = 0; corner < 4; ++corner) {
    for (std::size_t layer = 0; layer < 2; ++layer) {
      const Stroke& patch = drawing.Strokes[4 + 2 * corner + layer];
      EXPECT_NEAR(patch.Points.front().x, corners[corner].x, 1e-3);
      EXPECT_NEAR(patch.Points.front().y, corners[corner].y, 1e-3);
      EXPECT_EQ(patch.Points.front(), patch.Points.back());
      EXPECT_EQ(patch.Ink, layer == 0 ? (Colour{0, 0, 255}) : (Colour{255, 0, 0}));
    }
  }
}

TEST(PatchDrawing, WithoutAGaffThereIsNoPeakPatch) {
  std::mt19937 random(51);
  Sail sail;
  do sail.Definition = testing::RandomSail(random);
  while (!IsTriangular(sail.Definition));
  // The stub between throat and peak is an edge of its own.
  EXPECT_EQ(PatchDrawing(sail, {6000, 6000}).Strokes.size(), 4u + 6u);
}

TEST(PatchDrawing, NothingWithoutAnOutlineOrASize) {
  Sail sail;
  EXPECT_TRUE(PatchDrawing(sail, {6000, 6000}).Strokes.empty());
  sail.Definition = PlainSail();
  EXPECT_TRUE(PatchDrawing(sail, {0, 6000}).Strokes.empty());
}

TEST(PatchDrawing, EverySailStaysInThePicture) {
  std::mt19937 random(511);
  for (int i = 0; i < 500; ++i) {
    Sail sail;
    sail.Definition = testing::RandomSail(random);
    for (const Stroke& stroke : PatchDrawing(sail, {5000, 4000}).Strokes) {
      for (const PlanePoint& point : stroke.Points) {
        ASSERT_GE(point.x, -0.05 * 5000);
        ASSERT_LE(point.x, 1.05 * 5000);
        ASSERT_GE(point.y, -0.05 * 4000);
        ASSERT_LE(point.y, 1.05 * 4000);
      }
    }
  }
}

}  // namespace
}  // namespace brivane
