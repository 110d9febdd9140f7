#pragma once

#include <functional>
#include <string>
#include <string_view>
#include <vector>

namespace brivane {

/// Printable area of the paper in surface units, 1440 to an inch. A page's drawing has its origin
/// in the lower left corner of this area, vertical axis up.
struct Paper {
  double Width = 0;
  double Height = 0;
};

/// Surface units to a mm of paper.
inline constexpr double kUnitsPerPaperMm = 1440 / 25.4;

/// Width of a text in a font of a given size, both in surface units. It grows in proportion to the
/// size. The painter hands in the measure of the font that it prints with.
using TextMeasure = std::function<double(std::string_view text, double size)>;

/// A measure that no common font exceeds by much: 0.6 of the size for every character.
double EstimatedTextWidth(std::string_view text, double size);

/// A line of text takes this many times its font's size from its top to the next line's top.
inline constexpr double kLineHeight = 1.25;

/// Number of characters of a UTF-8 text.
std::size_t CharacterCount(std::string_view text);

/// The text broken into lines no wider than the width, at a blank where one is near the end of the
/// line and otherwise inside the word; never empty, and no character is lost but the blank of a
/// break. A line holds at least one character whatever its width.
std::vector<std::string> WrapText(std::string_view text, double width, double size,
                                  const TextMeasure& measure);

}  // namespace brivane
