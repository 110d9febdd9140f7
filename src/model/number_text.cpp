#include "model/number_text.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <cstdint>

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

/// Rounds on the decimal text of 15 significant digits. The magnitude is at least 0.4 units of the
/// last place: smaller ones have been rounded before.
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
    const auto whole = static_cast<std::int64_t>(scaled);
    const double part = scaled - static_cast<double>(whole);
    if (std::fabs(part - 0.5) > 1e-4)
      return {static_cast<std::uint64_t>(whole + (part > 0.5 ? 1 : 0)), 0};
  }
  return RoundDecimalText(magnitude, places);
}

int DigitCount(std::uint64_t number) {
  std::size_t count = 0;
  while (count < kPowersOfTen.size() && number >= kPowersOfTen[count]) ++count;
  return static_cast<int>(count);
}

/// Writes so many digits in front of end, stepping over the mark before the last places.
void PutDigits(char* end, RoundedDigits number, int digits, int places) {
  for (int place = 0; place < digits; ++place) {
    if (place == places && places > 0) --end;
    const bool fill = place < number.Zeros;
    *--end = fill ? '0' : static_cast<char>('0' + number.Digits % 10);
    if (!fill) number.Digits /= 10;
  }
}

/// The sign goes by the value given, the digits by its magnitude.
void AppendSigned(std::string& out, const NumberPattern& pattern, bool negative, double magnitude,
                  char decimalMark) {
  RefuseNonFinite(magnitude);
  const RoundedDigits number = RoundMagnitude(magnitude, pattern.Places);
  const int digits =
      std::max(DigitCount(number.Digits) + number.Zeros, pattern.Digits + pattern.Places);
  const int length = digits + (pattern.Places > 0 ? 1 : 0);
  out += pattern.Before;
  if (negative) out += '-';
  out.append(static_cast<std::size_t>(length), decimalMark);
  PutDigits(out.data() + out.size(), number, digits, pattern.Places);
  out += pattern.After;
}

void AppendPaddedThousandths(std::string& out, bool negative, double magnitude) {
  AppendSigned(out, {negative ? " " : "  ", 1, 3, " "}, negative, magnitude, '.');
}

/// Up to 15 significant digits in the general form, "-0" as "0". Whole numbers, which most lists of
/// a file are made of, have the same text by a shorter way.
std::string_view GeneralText(std::array<char, 32>& buffer, double value) {
  constexpr double kWholeNumbersEnd = 1e15;
  RefuseNonFinite(value);
  char* const begin = buffer.data();
  char* const last = begin + buffer.size();
  char* end = nullptr;
  if (std::fabs(value) < kWholeNumbersEnd && std::trunc(value) == value) {
    end = std::to_chars(begin, last, static_cast<std::int64_t>(value)).ptr;
  } else {
    end = std::to_chars(begin, last, value, std::chars_format::general, kSignificantDigits).ptr;
    std::replace(begin, end, 'e', 'E');
  }
  return {begin, static_cast<std::size_t>(end - begin)};
}

}  // namespace

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
  AppendSigned(out, {"", 1, places, ""}, value < 0, std::fabs(value), decimalMark);
}

std::string FormatFixed(double value, int places, char decimalMark) {
  std::string text;
  AppendFixed(text, value, places, decimalMark);
  return text;
}

void AppendPattern(std::string& out, const NumberPattern& pattern, double value, char decimalMark) {
  AppendSigned(out, pattern, value < 0, std::fabs(value), decimalMark);
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
