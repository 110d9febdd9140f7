#include "model/number_text.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <limits>
#include <system_error>

#include "model/failures.h"

namespace brivane {
namespace {

constexpr int kSignificantDigits = 15;

constexpr std::array<std::uint64_t, 19> kPowersOfTen = [] {
  std::array<std::uint64_t, 19> powers{};
  std::uint64_t power = 1;
  for (std::uint64_t& entry : powers) {
    entry = power;
    power *= 10;
  }
  return powers;
}();

// --- Reading -----------------------------------------------------------------------------------

bool IsDigit(char c) { return c >= '0' && c <= '9'; }

bool IsExponentMark(char c) { return c == 'E' || c == 'e' || c == 'D' || c == 'd'; }

bool IsSign(char c) { return c == '+' || c == '-'; }

/// Blank, tab, no-break space and narrow no-break space: what spreadsheets put between thousands.
constexpr std::array<std::string_view, 4> kBlanks = {" ", "\t", "\xC2\xA0", "\xE2\x80\xAF"};

std::string WithoutBlanks(std::string_view text) {
  std::string packed;
  packed.reserve(text.size());
  while (!text.empty()) {
    const auto blank = std::find_if(kBlanks.begin(), kBlanks.end(),
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

LeadingNumber Convert(const ScannedNumber& number) {
  std::string text(number.WholeDigits);
  text.append(".").append(number.Fraction);
  if (text.size() == number.Fraction.size() + 1) text.insert(0, "0");
  if (!number.Exponent.empty()) text.append("E").append(number.Exponent);
  LeadingNumber result;
  const auto parsed = std::from_chars(text.data(), text.data() + text.size(), result.Value);
  if (parsed.ec == std::errc::result_out_of_range || std::isinf(result.Value)) {
    result.Overflow = IsLarge(number);
    result.Value = result.Overflow ? std::numeric_limits<double>::max() : 0.0;
  }
  if (number.Negative && result.Value != 0) result.Value = -result.Value;
  return result;
}

std::string_view Trimmed(std::string_view text) {
  const std::size_t first = text.find_first_not_of(' ');
  if (first == std::string_view::npos) return {};
  return text.substr(first, text.find_last_not_of(' ') - first + 1);
}

// --- Writing -----------------------------------------------------------------------------------

void RefuseNonFinite(double value) {
  if (!std::isfinite(value))
    throw GeometryFault({"A computed value is not a finite number: change the dimensions.",
                         "Une valeur calculée n'est pas un nombre fini : modifiez les "
                         "dimensions."});
}

/// A magnitude rounded to some places: Digits followed by Zeros zeros, without the mark.
struct RoundedDigits {
  std::uint64_t Digits = 0;
  int Zeros = 0;
};

/// Rounds on the decimal text of 15 significant digits.
RoundedDigits RoundDecimalText(double magnitude, int places) {
  std::array<char, 32> text;
  const char* end = std::to_chars(text.data(), text.data() + text.size(), magnitude,
                                  std::chars_format::scientific, kSignificantDigits - 1)
                        .ptr;
  std::uint64_t digits = 0;
  const char* at = text.data();
  for (; *at != 'e'; ++at)
    if (*at != '.') digits = digits * 10 + static_cast<std::uint64_t>(*at - '0');
  int exponent = 0;
  std::from_chars(at[1] == '+' ? at + 2 : at + 1, end, exponent);
  const int shift = exponent - (kSignificantDigits - 1) + places;
  if (shift >= 0) return {digits, shift};
  if (-shift > kSignificantDigits) return {};
  const std::uint64_t divisor = kPowersOfTen[static_cast<std::size_t>(-shift)];
  const std::uint64_t rest = digits % divisor;
  return {digits / divisor + (2 * rest >= divisor ? 1 : 0), 0};
}

/// Rounds by way of a scaled integer where the decimal text cannot come out otherwise: 15 digits
/// of a scaled value below 1e9 are true to 1e-6 or better.
RoundedDigits RoundMagnitude(double magnitude, int places) {
  const double scaled =
      magnitude * static_cast<double>(kPowersOfTen[static_cast<std::size_t>(places)]);
  if (scaled < 1e9) {
    const auto whole = static_cast<std::uint64_t>(scaled);
    const double part = scaled - static_cast<double>(whole);
    if (std::fabs(part - 0.5) > 1e-4) return {whole + (part > 0.5 ? 1 : 0), 0};
  }
  return RoundDecimalText(magnitude, places);
}

void AppendMagnitude(std::string& out, double magnitude, int leastDigits, int places,
                     char decimalMark) {
  const RoundedDigits rounded = RoundMagnitude(magnitude, places);
  std::array<char, 24> text;
  const char* end = std::to_chars(text.data(), text.data() + text.size(), rounded.Digits).ptr;
  const std::size_t length = static_cast<std::size_t>(end - text.data());
  const std::size_t start = out.size();
  const std::size_t least = static_cast<std::size_t>(leastDigits + places);
  const std::size_t total = length + static_cast<std::size_t>(rounded.Zeros);
  if (total < least) out.append(least - total, '0');
  out.append(text.data(), length).append(static_cast<std::size_t>(rounded.Zeros), '0');
  if (places > 0) {
    const std::size_t markAt = std::max(total, least) - static_cast<std::size_t>(places);
    out.insert(start + markAt, 1, decimalMark);
  }
}

/// The sign goes by the value given, the digits by its magnitude.
void AppendSigned(std::string& out, bool negative, double magnitude, int leastDigits, int places,
                  char decimalMark) {
  RefuseNonFinite(magnitude);
  if (negative) out += '-';
  AppendMagnitude(out, magnitude, leastDigits, places, decimalMark);
}

void AppendPaddedThousandths(std::string& out, bool negative, double magnitude) {
  RefuseNonFinite(magnitude);
  out.append(negative ? 1 : 2, ' ');
  AppendSigned(out, negative, magnitude, 1, 3, '.');
  out += ' ';
}

/// Up to 15 significant digits in the general form, "-0" as "0".
std::string_view GeneralText(std::array<char, 32>& buffer, double value) {
  RefuseNonFinite(value);
  const double unsignedZero = value == 0 ? 0.0 : value;
  char* end = std::to_chars(buffer.data(), buffer.data() + buffer.size(), unsignedZero,
                            std::chars_format::general, kSignificantDigits)
                  .ptr;
  std::replace(buffer.data(), end, 'e', 'E');
  return {buffer.data(), static_cast<std::size_t>(end - buffer.data())};
}

}  // namespace

std::string NormaliseDecimalText(std::string& text) {
  std::replace_if(
      text.begin(), text.end(), [](char c) { return c == ',' || c == ';'; }, '.');
  return text + ' ';
}

LeadingNumber ReadLeadingNumber(std::string_view text) {
  const std::string packed = WithoutBlanks(text);
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

void AppendStrNum(std::string& out, double value) {
  std::array<char, 32> buffer;
  std::string_view text = GeneralText(buffer, value);
  const bool negative = text.front() == '-';
  if (negative) text.remove_prefix(1);
  if (text.starts_with("0.")) text.remove_prefix(1);
  out.append(1, negative ? '-' : ' ').append(text);
}

std::string StrNum(double value) {
  std::string text;
  AppendStrNum(text, value);
  return text;
}

std::string PlainNumber(double value) {
  std::array<char, 32> buffer;
  return std::string(GeneralText(buffer, value));
}

void AppendFixed(std::string& out, double value, int places, char decimalMark) {
  AppendSigned(out, value < 0, std::fabs(value), 1, places, decimalMark);
}

std::string FormatFixed(double value, int places, char decimalMark) {
  std::string text;
  AppendFixed(text, value, places, decimalMark);
  return text;
}

void AppendPattern(std::string& out, const NumberPattern& pattern, double value, char decimalMark) {
  RefuseNonFinite(value);
  out += pattern.Before;
  AppendSigned(out, value < 0, std::fabs(value), pattern.Digits, pattern.Places, decimalMark);
  out += pattern.After;
}

std::string FormatPattern(const NumberPattern& pattern, double value, char decimalMark) {
  std::string text;
  AppendPattern(text, pattern, value, decimalMark);
  return text;
}

void AppendNumber3(std::string& out, double value) {
  AppendPaddedThousandths(out, value < 0, std::fabs(value));
}

std::string FormatNumber3(double value) {
  std::string text;
  AppendNumber3(text, value);
  return text;
}

void AppendMetres(std::string& out, double millimetres) {
  AppendPaddedThousandths(out, millimetres < 0, std::fabs(millimetres / 1000));
}

std::string FormatMetres(double millimetres) {
  std::string text;
  AppendMetres(text, millimetres);
  return text;
}

}  // namespace brivane
