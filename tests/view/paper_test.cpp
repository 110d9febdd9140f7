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

/// The longest beginning that fits, tried character by character.
std::string FirstLineByHand(const std::string& word, double width) {
  std::string line;
  for (std::size_t i = 0; i < word.size();) {
    std::size_t end = i + 1;
    while (end < word.size() && (static_cast<unsigned char>(word[end]) & 0xC0) == 0x80) ++end;
    const std::string longer = word.substr(0, end);
    if (!line.empty() && EstimatedTextWidth(longer, 10) > width) break;
    line = longer;
    i = end;
  }
  return line;
}

TEST(Paper, ALineHoldsAsMuchAsFits) {
  // Characters of one, two and three bytes in turn, 6 units each.
  std::string word;
  for (int i = 0; i < 40; ++i) word += i % 3 == 0 ? "a" : i % 3 == 1 ? "é" : "日";
  for (double width = 0; width < 260; width += 2)
    EXPECT_EQ(WrapText(word, width, 10, EstimatedTextWidth).front(), FirstLineByHand(word, width))
        << width;
}

TEST(Paper, ALongWordIsMeasuredOnlyNowAndThen) {
  // 4096 characters, as many as a line of a file, in lines of 64.
  std::size_t measured = 0;
  const TextMeasure counting = [&measured](std::string_view text, double size) {
    measured += text.size();
    return EstimatedTextWidth(text, size);
  };
  EXPECT_EQ(WrapText(std::string(4096, '9'), 64 * 6, 10, counting).size(), 64u);
  // Twice 64 to be sure that no more fit, as much to come so far, and six halvings of 64 to 128.
  EXPECT_LE(measured, 64u * (128 + 128 + 6 * 128));
}

}  // namespace
}  // namespace brivane
