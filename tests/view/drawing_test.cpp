#include "view/drawing.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>

namespace brivane {
namespace {

TEST(Drawing, TakesStrokesAndTextsInOrder) {
  Drawing drawing;
  AddStroke(drawing, {{{0, 0}, {1, 0}}});
  AddStroke(drawing, {{{5, 5}, {5, 5}, {5, 6}}, kRed, PenStyle::Dashed});
  AddText(drawing, {{1, 2}, "Luff"});
  ASSERT_EQ(drawing.Strokes.size(), 2u);
  EXPECT_EQ(drawing.Strokes[0].Ink, kBlack);
  EXPECT_EQ(drawing.Strokes[1].Points.size(), 3u);
  EXPECT_EQ(drawing.Strokes[1].Ink, (Colour{255, 0, 0}));
  ASSERT_EQ(drawing.Texts.size(), 1u);
  EXPECT_EQ(drawing.Texts[0].Text, "Luff");
}

TEST(Drawing, LeavesOutWhatHasNoExtent) {
  Drawing drawing;
  AddStroke(drawing, {});
  AddStroke(drawing, {{{3, 4}}});
  AddStroke(drawing, {{{3, 4}, {3, 4}, {3, 4}}});
  AddText(drawing, {{3, 4}, ""});
  EXPECT_TRUE(drawing.Strokes.empty());
  EXPECT_TRUE(drawing.Texts.empty());
}

TEST(Drawing, LeavesOutWhatIsNotFinite) {
  const double infinite = std::numeric_limits<double>::infinity();
  Drawing drawing;
  AddStroke(drawing, {{{0, 0}, {std::nan(""), 1}, {2, 2}}});
  AddStroke(drawing, {{{0, 0}, {1, 1}, {2, infinite}}});
  AddText(drawing, {{-infinite, 4}, "Luff"});
  EXPECT_TRUE(drawing.Strokes.empty());
  EXPECT_TRUE(drawing.Texts.empty());
}

}  // namespace
}  // namespace brivane
