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

/// Length in bytes of the longest beginning that is no wider than the width, at least one
/// character.
std::size_t FittingLength(std::string_view text, double width, double size,
                          const TextMeasure& measure) {
  std::size_t length = NextCharacter(text, 0);
  while (length < text.size()) {
    const std::size_t longer = NextCharacter(text, length);
    if (measure(text.substr(0, longer), size) > width) break;
    length = longer;
  }
  return length;
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
  while (!text.empty() && measure(text, size) > width) {
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
