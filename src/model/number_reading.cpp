#include "model/number_reading.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <limits>
#include <system_error>

namespace brivane {
namespace {

bool IsDigit(char c) { return c >= '0' && c <= '9'; }

bool IsExponentMark(char c) { return c == 'E' || c == 'e' || c == 'D' || c == 'd'; }

bool IsSign(char c) { return c == '+' || c == '-'; }

/// Blank, tab, no-break space and narrow no-break space: what spreadsheets put between thousands.
constexpr std::array<std::string_view, 4> kBlanks = {" ", "\t", "\xC2\xA0", "\xE2\x80\xAF"};

bool StartsBlank(char c) { return c == ' ' || c == '\t' || c == '\xC2' || c == '\xE2'; }

std::string WithoutBlanks(std::string_view text) {
  std::string packed;
  packed.reserve(text.size());
  while (!text.empty()) {
    const auto blank =
        !StartsBlank(text.front())
            ? kBlanks.end()
            : std::find_if(kBlanks.begin(), kBlanks.end(),
                           [&](std::string_view each) { return text.starts_with(each); });
    if (blank == kBlanks.end()) packed += text.front();
    text.remove_prefix(blank == kBlanks.end() ? 1 : blank->size());
  }
  return packed;
}

std::size_t SkipDigits(std::string_view text, std::size_t at) {
  while (at < text.size() && IsDigit(text[at])) ++at;
  return at;
}

/// The pieces of the number at the front of a text without blanks.
struct ScannedNumber {
  bool Negative = false;
  std::string_view WholeDigits;
  std::string_view Fraction;
  std::string_view Exponent;  ///< sign and digits, empty where there is none
  std::size_t Length = 0;     ///< 0 where the text starts with no number
};

/// End of the exponent that starts at the position, which stays where there is none.
std::size_t SkipExponent(std::string_view text, std::size_t at) {
  if (at >= text.size() || !IsExponentMark(text[at])) return at;
  std::size_t digits = at + 1;
  if (digits < text.size() && IsSign(text[digits])) ++digits;
  const std::size_t end = SkipDigits(text, digits);
  return end > digits ? end : at;
}

ScannedNumber ScanNumber(std::string_view text) {
  ScannedNumber number;
  std::size_t at = 0;
  if (!text.empty() && IsSign(text[0])) {
    number.Negative = text[0] == '-';
    at = 1;
  }
  const std::size_t wholeEnd = SkipDigits(text, at);
  number.WholeDigits = text.substr(at, wholeEnd - at);
  at = wholeEnd;
  if (at < text.size() && text[at] == '.') {
    const std::size_t fractionEnd = SkipDigits(text, at + 1);
    number.Fraction = text.substr(at + 1, fractionEnd - at - 1);
    at = fractionEnd;
  }
  if (number.WholeDigits.empty() && number.Fraction.empty()) return {};
  const std::size_t end = SkipExponent(text, at);
  if (end > at) number.Exponent = text.substr(at + 1, end - at - 1);
  number.Length = end;
  return number;
}

/// The exponent's value, held far beyond what a double can take.
long long ExponentValue(std::string_view exponent) {
  constexpr long long kFar = 1'000'000'000;
  const bool negative = exponent.starts_with('-');
  long long value = 0;
  for (const char c : exponent)
    if (IsDigit(c)) value = std::min(value * 10 + (c - '0'), kFar);
  return negative ? -value : value;
}

/// Whether a number that no double can take is too large; otherwise it is too small.
bool IsLarge(const ScannedNumber& number) {
  const long long exponent = ExponentValue(number.Exponent);
  const std::size_t first = number.WholeDigits.find_first_not_of('0');
  if (first != std::string_view::npos)
    return static_cast<long long>(number.WholeDigits.size() - first) + exponent > 0;
  return exponent > static_cast<long long>(number.Fraction.find_first_not_of('0'));
}

/// The value of so few digits that they, and the power of ten that they are parts of, are exact:
/// one division rounds them. Nothing for any other number.
std::optional<double> ValueOfFewDigits(const ScannedNumber& number) {
  constexpr std::size_t kMostDigits = 15;
  constexpr std::array<double, kMostDigits + 1> kPowers = {
      1e0, 1e1, 1e2, 1e3, 1e4, 1e5, 1e6, 1e7, 1e8, 1e9, 1e10, 1e11, 1e12, 1e13, 1e14, 1e15};
  if (!number.Exponent.empty()) return std::nullopt;
  if (number.WholeDigits.size() + number.Fraction.size() > kMostDigits) return std::nullopt;
  std::int64_t digits = 0;
  for (const char c : number.WholeDigits) digits = 10 * digits + (c - '0');
  for (const char c : number.Fraction) digits = 10 * digits + (c - '0');
  return static_cast<double>(digits) / kPowers[number.Fraction.size()];
}

LeadingNumber ConvertAny(const ScannedNumber& number) {
  std::string text(number.WholeDigits);
  text.append(".").append(number.Fraction);
  if (!number.Exponent.empty()) text.append("E").append(number.Exponent);
  LeadingNumber result;
  const auto parsed = std::from_chars(text.data(), text.data() + text.size(), result.Value);
  if (parsed.ec == std::errc::result_out_of_range || std::isinf(result.Value)) {
    result.Overflow = IsLarge(number);
    result.Value = result.Overflow ? std::numeric_limits<double>::max() : 0.0;
  }
  return result;
}

LeadingNumber Convert(const ScannedNumber& number) {
  const std::optional<double> few = ValueOfFewDigits(number);
  LeadingNumber result = few ? LeadingNumber{*few, false} : ConvertAny(number);
  if (number.Negative && result.Value != 0) result.Value = -result.Value;
  return result;
}

std::string_view Trimmed(std::string_view text) {
  const std::size_t first = text.find_first_not_of(' ');
  if (first == std::string_view::npos) return {};
  return text.substr(first, text.find_last_not_of(' ') - first + 1);
}

}  // namespace

std::string NormaliseDecimalText(std::string& text) {
  std::replace_if(
      text.begin(), text.end(), [](char c) { return c == ',' || c == ';'; }, '.');
  return text + ' ';
}

LeadingNumber ReadLeadingNumber(std::string_view text) {
  text.remove_prefix(std::min(text.find_first_not_of(' '), text.size()));
  const bool isPacked = std::none_of(text.begin(), text.end(), StartsBlank);
  const std::string copy = isPacked ? std::string() : WithoutBlanks(text);
  const std::string_view packed = isPacked ? text : std::string_view(copy);
  const ScannedNumber number = ScanNumber(packed);
  return number.Length == 0 ? LeadingNumber{} : Convert(number);
}

double Val(std::string_view text) { return ReadLeadingNumber(text).Value; }

std::optional<LeadingNumber> ReadWholeNumberText(std::string_view text, char decimalMark) {
  std::string packed(Trimmed(text));
  if (packed.empty()) return LeadingNumber{};
  std::replace(packed.begin(), packed.end(), decimalMark, '.');
  const ScannedNumber number = ScanNumber(packed);
  if (number.Length != packed.size()) return std::nullopt;
  return Convert(number);
}

double WholePart(double value) { return std::floor(value); }

double RoundHalfEven(double value) {
  const double below = std::floor(value);
  const double part = value - below;
  if (part < 0.5) return below;
  if (part > 0.5) return below + 1;
  return std::fmod(below, 2) == 0 ? below : below + 1;
}

std::optional<std::int16_t> ToInt16(double whole) {
  if (whole >= -32768 && whole <= 32767) return static_cast<std::int16_t>(whole);
  return std::nullopt;
}

std::int16_t HeldToInt16(double whole) {
  return static_cast<std::int16_t>(std::clamp(whole, -32768.0, 32767.0));
}

}  // namespace brivane
