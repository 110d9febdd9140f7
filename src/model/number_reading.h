#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace brivane {

// From text to number, and from number to whole number. Nothing here depends on the locale of the
// process.

/// Replaces every "," and ";" of the text by "." in place and returns the text followed by one
/// blank.
std::string NormaliseDecimalText(std::string& text);

/// What a leading number came to.
struct LeadingNumber {
  double Value = 0;       ///< always finite: the largest double of its sign after an overflow
  bool Overflow = false;  ///< the number lies beyond the range of a double
};

/// The number that the text starts with: an optional sign, digits with at most one ".", and an
/// optional exponent ("E" or "D", either case, an optional sign, at least one digit). Blanks (tabs
/// and no-break spaces too) are skipped wherever they stand. What follows the number is ignored;
/// a text that starts with no number gives 0. Never gives -0.
LeadingNumber ReadLeadingNumber(std::string_view text);

/// The value of ReadLeadingNumber alone, for typed text. Always finite.
double Val(std::string_view text);

/// The value of a text that is a number from end to end, blanks around it aside; an empty or
/// blank text gives 0. Both "." and the given mark serve as the decimal mark. Nothing where the
/// text is something else.
std::optional<LeadingNumber> ReadWholeNumberText(std::string_view text, char decimalMark);

// --- Whole numbers -----------------------------------------------------------------------------

/// The whole part towards minus infinity.
double WholePart(double value);

/// The nearest whole number, halves to the even neighbour.
double RoundHalfEven(double value);

/// A whole number as 16 bits; nothing where it lies outside -32768..32767.
std::optional<std::int16_t> ToInt16(double whole);

/// A whole number held within -32768..32767.
std::int16_t HeldToInt16(double whole);

}  // namespace brivane
