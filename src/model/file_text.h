#pragma once

#include <array>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <string>
#include <string_view>

#include "model/number_text.h"

namespace brivane {

/// The text of a file as it grows. A piece is put straight behind the end, where room has been
/// asked for once: a file is tens of thousands of short pieces.
class FileText {
 public:
  /// A text of about so many bytes; it may become longer.
  explicit FileText(std::size_t expectedBytes = 0) { Enlarge(expectedBytes); }
  FileText(const FileText&) = delete;
  FileText& operator=(const FileText&) = delete;

  FileText& operator+=(std::string_view words) {
    char* const at = Room(words.size());
    std::memcpy(at, words.data(), words.size());
    EndAt(at + words.size());
    return *this;
  }
  FileText& operator+=(char byte) { return *this += std::string_view(&byte, 1); }

  std::size_t Size() const { return static_cast<std::size_t>(end_ - text_.data()); }

  /// Where the text ends, with room for so many bytes behind.
  char* Room(std::size_t bytes) {
    if (static_cast<std::size_t>(text_.data() + text_.size() - end_) < bytes) Enlarge(bytes);
    return end_;
  }
  /// Takes what has been put there as text, up to the end given.
  void EndAt(char* end) { end_ = end; }

  /// The finished text. Nothing may follow.
  std::string Take();

 private:
  void Enlarge(std::size_t bytes);

  std::string text_;  ///< and what is still room
  char* end_ = text_.data();
};

// --- Numbers, put in place ---------------------------------------------------------------------

/// The longest number of a fixed pattern: sign, 309 digits, mark, 9 places.
inline constexpr std::size_t kLongestFixed = 320;

/// Writes a number as AppendFixed does, the sign aside, and returns its end. For any number.
char* PutAnyFixed(char* at, double magnitude, int places, char decimalMark);

/// The two digits of each number below 100, one pair behind the other.
inline constexpr std::array<char, 200> kDigitPairs = [] {
  std::array<char, 200> pairs{};
  for (std::size_t number = 0; number < 100; ++number) {
    pairs[2 * number] = static_cast<char>('0' + number / 10);
    pairs[2 * number + 1] = static_cast<char>('0' + number % 10);
  }
  return pairs;
}();

/// Writes the digits of a number below 100, with a leading zero. Returns their end, as those below.
inline char* PutPair(char* at, std::uint32_t number) {
  std::memcpy(at, kDigitPairs.data() + 2 * number, 2);
  return at + 2;
}

/// Writes a whole number without leading zeros.
inline char* PutWhole(char* at, std::uint32_t number) {
  if (number >= 10000) {
    at = PutWhole(at, number / 10000);
    at = PutPair(at, number / 100 % 100);
    return PutPair(at, number % 100);
  }
  if (number >= 1000) return PutPair(PutPair(at, number / 100), number % 100);
  if (number >= 100) {
    *at = static_cast<char>('0' + number / 100);
    return PutPair(at + 1, number % 100);
  }
  if (number >= 10) return PutPair(at, number);
  *at = static_cast<char>('0' + number);
  return at + 1;
}

/// Writes so many places of a number, with leading zeros.
template <int Places>
char* PutPlaces(char* at, std::uint32_t number) {
  for (int place = Places; place-- > 0; number /= 10)
    at[place] = static_cast<char>('0' + number % 10);
  return at + Places;
}

/// Writes the words as they are. Returns their end.
inline char* PutWords(char* at, std::string_view words) {
  std::memcpy(at, words.data(), words.size());
  return at + words.size();
}

/// Writes a number as AppendFixed does. Nearly every number of a sail is settled here: its scaled
/// value is small, and so far from a tie that its decimal text rounds the same way.
template <int Places>
char* PutFixed(char* at, bool negative, double magnitude, char decimalMark) {
  constexpr std::array<std::uint32_t, 4> kUnits = {1, 10, 100, 1000};
  constexpr std::uint32_t kUnit = kUnits[Places];
  *at = '-';
  at += negative ? 1 : 0;
  const double scaled = magnitude * kUnit;
  if (!(scaled < 1e9)) return PutAnyFixed(at, magnitude, Places, decimalMark);
  const auto below = static_cast<std::int32_t>(scaled);
  const double part = scaled - below;
  if (std::fabs(part - 0.5) <= 1e-4) return PutAnyFixed(at, magnitude, Places, decimalMark);
  const std::uint32_t rounded = static_cast<std::uint32_t>(below) + (part > 0.5 ? 1 : 0);
  at = PutWhole(at, rounded / kUnit);
  *at = decimalMark;
  return PutPlaces<Places>(at + 1, rounded % kUnit);
}

/// AppendPattern for one pattern, of one digit and 1 to 3 places.
template <const NumberPattern& Pattern>
void AppendPattern(FileText& text, double value, char decimalMark) {
  static_assert(Pattern.Digits == 1 && Pattern.Places >= 1 && Pattern.Places <= 3);
  char* at = text.Room(Pattern.Before.size() + kLongestFixed + Pattern.After.size());
  at = PutWords(at, Pattern.Before);
  at = PutFixed<Pattern.Places>(at, value < 0, std::fabs(value), decimalMark);
  text.EndAt(PutWords(at, Pattern.After));
}

/// AppendNumber3 of a value by its sign and its magnitude.
inline void AppendSignedNumber3(FileText& text, bool negative, double magnitude) {
  char* at = PutWords(text.Room(kLongestFixed + 3), "  ");
  at = PutFixed<3>(negative ? at - 1 : at, negative, magnitude, '.');
  text.EndAt(PutWords(at, " "));
}

/// Appends what FormatNumber3 makes of a value.
inline void AppendNumber3(FileText& text, double value) {
  AppendSignedNumber3(text, value < 0, std::fabs(value));
}

/// Appends what FormatMetres makes of millimetres.
inline void AppendMetres(FileText& text, double millimetres) {
  AppendSignedNumber3(text, millimetres < 0, std::fabs(millimetres / 1000));
}

/// AppendStrNum of a whole number.
inline void AppendStrNum(FileText& text, int number) {
  char* const at = text.Room(16);
  *at = number < 0 ? '-' : ' ';
  const auto magnitude = static_cast<std::uint32_t>(number);
  text.EndAt(PutWhole(at + 1, number < 0 ? 0 - magnitude : magnitude));
}

/// AppendStrNum of any number.
void AppendStrNum(FileText& text, double value);

}  // namespace brivane
