#include "view/paper.h"

#include <algorithm>
#include <cstddef>

namespace brivane {

namespace {

bool StartsCharacter(char byte) { return (static_cast<unsigned char>(byte) & 0xC0) != 0x80; }

/// Where the character that starts at the index ends.
std::size_t NextCharacter(std::string_view text, std::size_t index) {
  do ++index;
  while (index < text.size() && !StartsCharacter(text[index]));
  return index;
}

/// The index, or where the character that it lies in ends.
std::size_t CharacterFrom(std::string_view text, std::size_t index) {
  while (index < text.size() && !StartsCharacter(text[index])) ++index;
  return std::min(index, text.size());
}

/// Length in bytes of the longest beginning that is no wider than the width, at least one
/// character. Found by doubling and halving: measuring takes long, and a name may be a file's line.
std::size_t FittingLength(std::string_view text, double width, double size,
                          const TextMeasure& measure) {
  const auto fits = [&](std::size_t length) {
    return measure(text.substr(0, length), size) <= width;
  };
  std::size_t fitting = NextCharacter(text, 0);
  std::size_t beyond = CharacterFrom(text, 2 * fitting);
  while (fitting < text.size() && fits(beyond)) {
    fitting = beyond;
    beyond = CharacterFrom(text, 2 * fitting);
  }
  while (fitting < text.size() && NextCharacter(text, fitting) < beyond) {
    std::size_t middle = CharacterFrom(text, fitting + (beyond - fitting) / 2);
    if (middle == beyond) middle = NextCharacter(text, fitting);
    (fits(middle) ? fitting : beyond) = middle;
  }
  return fitting;
}

}  // namespace

double EstimatedTextWidth(std::string_view text, double size) {
  return 0.6 * size * static_cast<double>(CharacterCount(text));
}

std::size_t CharacterCount(std::string_view text) {
  return static_cast<std::size_t>(std::count_if(text.begin(), text.end(), StartsCharacter));
}

std::vector<std::string> WrapText(std::string_view text, double width, double size,
                                  const TextMeasure& measure) {
  std::vector<std::string> lines;
  while (!text.empty()) {
    const std::size_t fitting = FittingLength(text, width, size, measure);
    if (fitting == text.size()) break;
    const std::size_t blank = text.substr(0, fitting + 1).rfind(' ');
    const bool nearEnd = blank != std::string_view::npos && blank > fitting / 2;
    lines.emplace_back(text.substr(0, nearEnd ? blank : fitting));
    text.remove_prefix(nearEnd ? blank + 1 : fitting);
  }
  if (!text.empty() || lines.empty()) lines.emplace_back(text);
  return lines;
}

}  // namespace brivane
