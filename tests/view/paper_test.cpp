#include "view/paper.h"

#include <gtest/gtest.h>

namespace brivane {
namespace {

using Lines = std::vector<std::string>;

TEST(Paper, CharactersAreCountedNotBytes) {
  EXPECT_EQ(CharacterCount(""), 0u);
  EXPECT_EQ(CharacterCount("abc"), 3u);
  EXPECT_EQ(CharacterCount("coté"), 4u);
  EXPECT_NEAR(EstimatedTextWidth("écoute", 100), 360, 1e-9);
}

TEST(Paper, TextThatFitsStaysWhole) {
  EXPECT_EQ(WrapText("", 600, 10, EstimatedTextWidth), Lines{""});
  EXPECT_EQ(WrapText("0123456789", 60, 10, EstimatedTextWidth), Lines{"0123456789"});
}

TEST(Paper, TextBreaksAtABlankNearTheEndOfTheLine) {
  // Ten characters of 6 units each fit a width of 60.
  EXPECT_EQ(WrapText("one three five", 60, 10, EstimatedTextWidth), (Lines{"one three", "five"}));
  EXPECT_EQ(WrapText("0123456789 x", 60, 10, EstimatedTextWidth), (Lines{"0123456789", "x"}));
}

TEST(Paper, ALongWordBreaksInside) {
  EXPECT_EQ(WrapText("a 0123456789abcdef", 60, 10, EstimatedTextWidth),
            (Lines{"a 01234567", "89abcdef"}));
  EXPECT_EQ(WrapText("éééé", 12, 10, EstimatedTextWidth), (Lines{"éé", "éé"}));
}

TEST(Paper, AnyWidthHoldsACharacter) {
  EXPECT_EQ(WrapText("abc", 0, 10, EstimatedTextWidth), (Lines{"a", "b", "c"}));
}

TEST(Paper, WrappingLosesNothing) {
  const std::string name(200, 'W');
  std::string joined;
  for (const std::string& line : WrapText(name, 1000, 100, EstimatedTextWidth)) {
    EXPECT_LE(EstimatedTextWidth(line, 100), 1000);
    joined += line;
  }
  EXPECT_EQ(joined, name);
}

}  // namespace
}  // namespace brivane
