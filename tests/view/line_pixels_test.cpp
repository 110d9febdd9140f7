#include "view/line_pixels.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <random>
#include <vector>

namespace brivane {
namespace {

constexpr std::uint32_t kWhite = 0xffffffff;
constexpr std::uint32_t kInk = 0xff000000;
constexpr int kGuard = 1000;  ///< pixels around a picture that nobody may touch

/// A white picture with pixels before and behind it that belong to others.
struct Paper {
  Paper(int width, int height)
      : Width(width),
        Height(height),
        Memory(static_cast<std::size_t>(width * height) + 2 * kGuard, kWhite) {}

  PixelRows Rows() {
    return {std::span(Memory).subspan(kGuard, static_cast<std::size_t>(Width * Height)), Width};
  }
  std::uint32_t At(int x, int y) { return Rows().Pixels[static_cast<std::size_t>(y * Width + x)]; }
  /// How dark a pixel is, 0 to 255.
  int Dark(int x, int y) { return 255 - static_cast<int>(At(x, y) & 255); }
  long DarkOfAll() {
    long sum = 0;
    for (const std::uint32_t pixel : Memory) sum += 255 - static_cast<long>(pixel & 255);
    return sum;
  }
  void Put(const std::vector<PlanePoint>& line, LineEdge edge = LineEdge::Smooth) {
    PutLine(Rows(), Rows().Box(), line, kInk, edge);
  }
  bool GuardsAreWhite() const {
    for (std::size_t k = 0; k < kGuard; ++k)
      if (Memory[k] != kWhite || Memory[Memory.size() - 1 - k] != kWhite) return false;
    return true;
  }

  int Width;
  int Height;
  std::vector<std::uint32_t> Memory;
};

TEST(LinePixels, ALineThroughTheMiddlesFillsThem) {
  Paper paper(8, 6);
  paper.Put({{1.5, 2.5}, {4.5, 2.5}});
  for (int x = 1; x <= 4; ++x) EXPECT_EQ(paper.At(x, 2), kInk) << x;
  EXPECT_EQ(paper.DarkOfAll(), 4 * 255);
}

TEST(LinePixels, APixelIsAsDarkAsItIsCovered) {
  Paper paper(8, 8);
  paper.Put({{1.5, 2.0}, {4.5, 2.0}});    // on the border of two rows: half of each
  paper.Put({{1.5, 5.75}, {4.5, 5.75}});  // from 5.25 to 6.25
  for (int x = 1; x <= 4; ++x) {
    EXPECT_EQ(paper.At(x, 1), 0xff808080) << x;
    EXPECT_EQ(paper.At(x, 2), 0xff808080) << x;
    EXPECT_EQ(paper.At(x, 5), 0xff404040) << x;  // (255 · 64 + 128) / 256
    EXPECT_EQ(paper.At(x, 6), 0xffbfbfbf) << x;  // (255 · 192 + 128) / 256
  }
  EXPECT_EQ(paper.DarkOfAll(), 4 * (127 + 127 + 191 + 64));
}

TEST(LinePixels, CoverageIsRoundedToTheNearestStep) {
  Paper paper(3, 4);
  paper.Put({{0.5, 1.5 + 0.75 / 256}, {2.5, 1.5 + 0.75 / 256}});
  EXPECT_EQ(paper.Dark(1, 1), 254);
  EXPECT_EQ(paper.Dark(1, 2), 1);
}

TEST(LinePixels, ASlopedLineGoesOverFromRowToRow) {
  Paper flat(6, 4);
  Paper steep(4, 6);
  flat.Put({{0.5, 1.5}, {4.5, 2.5}});
  steep.Put({{2.5, 4.5}, {1.5, 0.5}});
  const int over[] = {0, 64, 127, 191, 255};
  const int kept[] = {255, 191, 127, 64, 0};
  for (int i = 0; i < 5; ++i) {
    EXPECT_EQ(flat.Dark(i, 1), kept[i]) << i;
    EXPECT_EQ(flat.Dark(i, 2), over[i]) << i;
    EXPECT_EQ(steep.Dark(1, i), kept[i]) << i;
    EXPECT_EQ(steep.Dark(2, i), over[i]) << i;
  }
}

TEST(LinePixels, ASteppedLineTakesTheNearestPixel) {
  Paper paper(6, 4);
  paper.Put({{0.5, 1.5}, {4.5, 2.4}}, LineEdge::Stepped);  // rows 1.5, 1.725, 1.95, 2.175, 2.4
  for (int x = 0; x < 5; ++x) EXPECT_EQ(paper.At(x, x < 3 ? 1 : 2), kInk) << x;
  EXPECT_EQ(paper.DarkOfAll(), 5 * 255);
}

TEST(LinePixels, InkIsMixedPartByPart) {
  Paper paper(3, 3);
  for (std::uint32_t& pixel : paper.Rows().Pixels) pixel = 0xff204060;
  const PlanePoint line[] = {{0.5, 1}, {2.5, 1}};
  PutLine(paper.Rows(), paper.Rows().Box(), line, 0xff0000ff, LineEdge::Smooth);
  EXPECT_EQ(paper.At(1, 0), 0xff1020b0);  // 16.5, 32.5, 176
  EXPECT_EQ(paper.At(1, 1), 0xff1020b0);
  EXPECT_EQ(paper.At(1, 2), 0xff204060);
}

TEST(LinePixels, AJointDoesNotShow) {
  Paper whole(40, 20);
  Paper joined(40, 20);
  whole.Put({{2.25, 3.5}, {34.25, 11.5}});
  joined.Put(
      {{2.25, 3.5}, {10.25, 5.5}, {10.75, 5.625}, {18.25, 7.5}, {18.25, 7.5}, {34.25, 11.5}});
  EXPECT_EQ(joined.Memory, whole.Memory);
}

TEST(LinePixels, CornersAreClosed) {
  Paper paper(8, 8);
  paper.Put({{1.5, 1.5}, {5.5, 1.5}, {5.5, 5.5}});
  for (int i = 1; i <= 5; ++i) EXPECT_EQ(paper.At(i, 1), kInk) << i;
  for (int i = 1; i <= 5; ++i) EXPECT_EQ(paper.At(5, i), kInk) << i;
  EXPECT_EQ(paper.DarkOfAll(), 9 * 255);
  Paper tip(8, 3);
  tip.Put({{1.5, 1.5}, {5.5, 1.5}, {2.5, 1.5}});
  for (int x = 1; x <= 5; ++x) EXPECT_EQ(tip.At(x, 1), kInk) << x;
  EXPECT_EQ(tip.DarkOfAll(), 5 * 255);
}

TEST(LinePixels, ALineIsTheSameThereAndBack) {
  Paper there(40, 20);
  Paper back(40, 20);
  there.Put({{2.25, 3.5}, {34.25, 11.5}});
  back.Put({{34.25, 11.5}, {2.25, 3.5}});
  EXPECT_EQ(there.Memory, back.Memory);
}

TEST(LinePixels, NothingIsPutWhereThereIsNoLine) {
  Paper paper(5, 5);
  paper.Put({});
  paper.Put({{2.5, 2.5}});
  paper.Put({{2.5, 2.5}, {2.5, 2.5}});
  const PlanePoint line[] = {{0, 2}, {5, 2}};
  PutLine({}, {0, 0, 5, 5}, line, kInk, LineEdge::Smooth);
  PutLine(paper.Rows(), {3, 3, 3, 3}, line, kInk, LineEdge::Smooth);
  PutLine(paper.Rows(), {4, 4, 1, 1}, line, kInk, LineEdge::Smooth);
  EXPECT_EQ(paper.DarkOfAll(), 0);
}

// --- Any line ----------------------------------------------------------------------------------

class AnyLine : public testing::Test {
 protected:
  double Between(double least, double most) {
    return std::uniform_real_distribution<double>(least, most)(random_);
  }
  PlanePoint Around(double width, double height) {
    return {Between(-width, 2 * width), Between(-height, 2 * height)};
  }
  /// A coordinate of any size, or none at all.
  double Wild() {
    const double size = std::pow(10, Between(-3, 309));
    const double kinds[] = {size,        -size, Between(-9, 60),
                            1e9,         -1e9,  std::numeric_limits<double>::infinity(),
                            std::nan("")};
    return kinds[static_cast<int>(Between(0, 6.999))];
  }

 private:
  std::mt19937 random_{1};
};

TEST_F(AnyLine, LiesWhereItsPointsAre) {
  constexpr int kSize = 60;
  int seen = 0;
  for (int count = 0; count < 2000; ++count) {
    const PlanePoint from = Around(kSize, kSize);
    const PlanePoint to = Around(kSize, kSize);
    if (std::abs(to.x - from.x) < std::abs(to.y - from.y)) continue;
    Paper paper(kSize, kSize);
    paper.Put({from, to});
    for (int x = 0; x < kSize; ++x) {
      const double along = (x + 0.5 - from.x) / (to.x - from.x);
      const double y = from.y + along * (to.y - from.y);
      if (along < 0 || along > 1 || y < 1 || y > kSize - 1) continue;
      double dark = 0;
      double moment = 0;
      for (int row = 0; row < kSize; ++row) {
        dark += paper.Dark(x, row);
        moment += paper.Dark(x, row) * (row + 0.5);
      }
      ASSERT_NEAR(dark, 255, 1.01) << x;
      ASSERT_NEAR(moment / dark, y, 0.01) << x;  // a 512th, and the rounding of two pixels
      ++seen;
    }
  }
  EXPECT_GT(seen, 10000);
}

TEST_F(AnyLine, IsTheSameInEveryBox) {
  constexpr int kSize = 30;
  for (int count = 0; count < 200; ++count) {
    const std::vector<PlanePoint> line = {Around(kSize, kSize), Around(kSize, kSize),
                                          Around(kSize, kSize)};
    const int column = static_cast<int>(Between(0, kSize));
    const int row = static_cast<int>(Between(0, kSize));
    const LineEdge edge = count % 2 == 0 ? LineEdge::Smooth : LineEdge::Stepped;
    Paper whole(kSize, kSize);
    Paper parts(kSize, kSize);
    whole.Put(line, edge);
    const PixelBox boxes[] = {{0, 0, column, row},
                              {column, 0, kSize, row},
                              {0, row, column, kSize},
                              {column, row, kSize, kSize}};
    for (const PixelBox& box : boxes) {
      Paper part(kSize, kSize);
      PutLine(part.Rows(), box, line, kInk, edge);
      PutLine(parts.Rows(), box, line, kInk, edge);
      for (int k = 0; k < kSize * kSize; ++k) {
        const int x = k % kSize;
        const int y = k / kSize;
        const bool inside = x >= box.Left && x < box.Right && y >= box.Top && y < box.Bottom;
        ASSERT_EQ(part.At(x, y), inside ? whole.At(x, y) : kWhite) << x << ", " << y;
      }
    }
    ASSERT_EQ(parts.Memory, whole.Memory);
  }
}

TEST_F(AnyLine, CrossesThePictureFromFarAway) {
  Paper paper(20, 20);
  paper.Put({{-1e9, -1e9 + 3}, {1e9, 1e9 + 3}});
  paper.Put({{15.5, 3e9}, {15.5, -2e9}});
  for (int x = 0; x < 17; ++x) EXPECT_EQ(paper.At(x, x + 3), kInk) << x;
  for (int y = 0; y < 20; ++y) EXPECT_EQ(paper.At(15, y), kInk) << y;
  EXPECT_EQ(paper.DarkOfAll(), (17 + 20 - 1) * 255);
}

TEST_F(AnyLine, TouchesNothingButThePicture) {
  for (int count = 0; count < 5000; ++count) {
    Paper paper(7, 5);
    const PixelBox box{-3, static_cast<int>(Between(-9, 5)), 7 + count % 3,
                       static_cast<int>(Between(0, 2e9))};
    const std::vector<PlanePoint> line = {{Wild(), Wild()}, {Wild(), Wild()}, {Wild(), Wild()}};
    PutLine(paper.Rows(), box, line, kInk, count % 2 == 0 ? LineEdge::Smooth : LineEdge::Stepped);
    ASSERT_TRUE(paper.GuardsAreWhite()) << count;
    for (int x = 0; x < 7 && box.Top > 0; ++x) ASSERT_EQ(paper.At(x, box.Top - 1), kWhite) << count;
  }
}

}  // namespace
}  // namespace brivane
