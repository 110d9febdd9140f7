#include "model/number_text.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <bit>
#include <cfloat>
#include <cmath>
#include <cstdint>
#include <cstdio>
#include <limits>
#include <random>
#include <string>

#include "model/failures.h"

namespace brivane {
namespace {

// --- A second route: the C library's digits, worked on as texts --------------------------------

std::string LibraryText(const char* format, double value) {
  char buffer[512];
  std::snprintf(buffer, sizeof buffer, format, value);
  std::string text = buffer;
  std::replace(text.begin(), text.end(), ',', '.');  // of a French locale
  return text;
}

std::string StrNumBySecondRoute(double value) {
  std::string text = LibraryText("%.15G", std::fabs(value));
  if (text.substr(0, 2) == "0.") text.erase(0, 1);
  return (value < 0 ? "-" : " ") + text;
}

/// Adds one to the last digit of a string of digits.
std::string Incremented(std::string digits) {
  for (std::size_t at = digits.size(); at-- > 0;) {
    if (digits[at] != '9') {
      ++digits[at];
      return digits;
    }
    digits[at] = '0';
  }
  return "1" + digits;
}

/// Rounds the 15 significant digits by hand: written out in full, cut, and one added to the last
/// digit where a 5 or more follows.
std::string FixedBySecondRoute(double value, int places) {
  const std::string scientific = LibraryText("%.14E", std::fabs(value));
  std::string digits = scientific.substr(0, 1) + scientific.substr(2, 14);
  int point = std::stoi(scientific.substr(scientific.find('E') + 1)) + 1;
  while (point <= 0) {
    digits.insert(0, "0");
    ++point;
  }
  digits.insert(0, "0");  // room for a carry
  const std::size_t kept = static_cast<std::size_t>(point + 1 + places);
  if (digits.size() < kept + 1) digits.append(kept + 1 - digits.size(), '0');
  std::string rounded = digits.substr(0, kept);
  if (digits[kept] >= '5') rounded = Incremented(rounded);
  const std::size_t whole = rounded.size() - static_cast<std::size_t>(places);
  std::string front = rounded.substr(0, whole);
  front.erase(0, std::min(front.find_first_not_of('0'), front.size() - 1));
  std::string text = (value < 0 ? "-" : "") + front;
  if (places > 0) text += "." + rounded.substr(whole);
  return text;
}

// --- StrNum ------------------------------------------------------------------------------------

TEST(StrNum, PutsABlankOrAMinusInFront) {
  EXPECT_EQ(StrNum(4550), " 4550");
  EXPECT_EQ(StrNum(-100), "-100");
  EXPECT_EQ(StrNum(0), " 0");
  EXPECT_EQ(StrNum(-0.0), " 0");
  EXPECT_EQ(StrNum(50), " 50");
}

TEST(StrNum, DropsTheZeroBeforeThePoint) {
  EXPECT_EQ(StrNum(0.05), " .05");
  EXPECT_EQ(StrNum(-0.5), "-.5");
  EXPECT_EQ(StrNum(10.5), " 10.5");
  EXPECT_EQ(StrNum(0.21), " .21");
}

TEST(StrNum, CarriesFifteenDigits) {
  EXPECT_EQ(StrNum(1.0 / 3), " .333333333333333");
  EXPECT_EQ(StrNum(0.1 + 0.2), " .3");
  EXPECT_EQ(StrNum(1234.5678), " 1234.5678");
  EXPECT_EQ(StrNum(123456789012345), " 123456789012345");
}

TEST(StrNum, UsesAnExponentForLargeAndSmallMagnitudes) {
  EXPECT_EQ(StrNum(1e16), " 1E+16");
  EXPECT_EQ(StrNum(0.00001), " 1E-05");
  EXPECT_EQ(StrNum(0.0001), " .0001");
  EXPECT_EQ(StrNum(-2.5e-7), "-2.5E-07");
  EXPECT_EQ(StrNum(DBL_MAX), " 1.79769313486232E+308");
  EXPECT_EQ(StrNum(DBL_TRUE_MIN), " 4.94065645841247E-324");
}

TEST(StrNum, AgreesWithTheSecondRouteOnRandomDoubles) {
  std::mt19937_64 random(1);
  for (int round = 0; round < 200000; ++round) {
    const double value = std::bit_cast<double>(random());
    if (!std::isfinite(value)) continue;
    ASSERT_EQ(StrNum(value), StrNumBySecondRoute(value));
  }
}

TEST(StrNum, AgreesWithTheSecondRouteOnPlainDecimals) {
  std::mt19937_64 random(2);
  std::uniform_int_distribution<std::int64_t> digits(-999999999, 999999999);
  for (int round = 0; round < 100000; ++round) {
    const double value = static_cast<double>(digits(random)) / 10000;
    ASSERT_EQ(StrNum(value), StrNumBySecondRoute(value));
    ASSERT_EQ(Val(StrNum(value)), value);
  }
}

TEST(StrNum, AgreesWithTheSecondRouteOnWholeNumbers) {
  double value = 1;
  for (int power = 0; power < 20; ++power, value *= 10)
    for (const double near : {value - 1, value, value + 1, value * 7, -value})
      EXPECT_EQ(StrNum(near), StrNumBySecondRoute(near));
}

TEST(PlainNumber, ShowsWhatAUserExpects) {
  EXPECT_EQ(PlainNumber(4550), "4550");
  EXPECT_EQ(PlainNumber(0.5), "0.5");
  EXPECT_EQ(PlainNumber(-0.5), "-0.5");
  EXPECT_EQ(PlainNumber(-0.0), "0");
  EXPECT_EQ(PlainNumber(-100), "-100");
}

// --- Fixed places ------------------------------------------------------------------------------

TEST(FixedPlaces, RoundHalvesAwayFromZeroOnTheDecimalText) {
  EXPECT_EQ(FormatFixed(2.675, 2, '.'), "2.68");  // the double lies below 2.675
  EXPECT_EQ(FormatFixed(-2.675, 2, '.'), "-2.68");
  EXPECT_EQ(FormatFixed(1.005, 2, '.'), "1.01");
  EXPECT_EQ(FormatFixed(0.5, 0, '.'), "1");
  EXPECT_EQ(FormatFixed(2.5, 0, '.'), "3");
  EXPECT_EQ(FormatFixed(0.25, 1, '.'), "0.3");
  EXPECT_EQ(FormatFixed(0.05, 1, '.'), "0.1");
  EXPECT_EQ(FormatFixed(0.04999, 1, '.'), "0.0");
  EXPECT_EQ(FormatFixed(1234.567, 2, '.'), "1234.57");
  EXPECT_EQ(FormatFixed(9.995, 2, '.'), "10.00");
  EXPECT_EQ(FormatFixed(9999999.995, 2, '.'), "10000000.00");
  EXPECT_EQ(FormatFixed(0.1 + 0.7 + 0.05, 1, '.'), "0.9");  // 0.85 but for its last bits
}

TEST(FixedPlaces, KeepTheMinusOfAValueBelowZero) {
  EXPECT_EQ(FormatFixed(-0.001, 2, '.'), "-0.00");
  EXPECT_EQ(FormatFixed(-DBL_TRUE_MIN, 2, '.'), "-0.00");
  EXPECT_EQ(FormatFixed(-0.0, 2, '.'), "0.00");
  EXPECT_EQ(FormatFixed(0, 2, '.'), "0.00");
}

TEST(FixedPlaces, TakeTheMarkGiven) {
  EXPECT_EQ(FormatFixed(-12.5, 1, ','), "-12,5");
  EXPECT_EQ(FormatFixed(12, 0, ','), "12");
}

TEST(FixedPlaces, WriteLargeNumbersOut) {
  EXPECT_EQ(FormatFixed(1e20, 2, '.'), "100000000000000000000.00");
  EXPECT_EQ(FormatFixed(123456789012345678.0, 1, '.'), "123456789012346000.0");
  EXPECT_EQ(FormatFixed(DBL_MAX, 0, '.'), "179769313486232" + std::string(294, '0'));
}

TEST(FixedPlaces, AppendToWhatIsThere) {
  std::string text = "12.5 ";
  AppendFixed(text, 0.125, 2, '.');
  AppendFixed(text, -3, 1, ',');
  EXPECT_EQ(text, "12.5 0.13-3,0");
}

TEST(FixedPlaces, AgreeWithTheSecondRouteOnRandomDoubles) {
  std::mt19937_64 random(3);
  std::uniform_real_distribution<double> exponents(-12, 14);
  std::uniform_real_distribution<double> signs(-1, 1);
  for (int round = 0; round < 200000; ++round) {
    const double value = std::copysign(std::pow(10, exponents(random)), signs(random));
    const int places = round % 5;
    ASSERT_EQ(FormatFixed(value, places, '.'), FixedBySecondRoute(value, places)) << value;
  }
}

TEST(FixedPlaces, AgreeWithTheSecondRouteAroundEveryTie) {
  std::mt19937_64 random(4);
  std::uniform_int_distribution<std::int64_t> halves(-20'000'000'000, 20'000'000'000);
  const double scales[] = {2, 20, 200, 2000, 20000};
  for (int round = 0; round < 40000; ++round) {
    const int places = round % 5;
    const double tie = static_cast<double>(halves(random) | 1) / scales[places];
    double value = tie;
    for (int step = 0; step < 12; ++step) {  // the neighbouring doubles above
      ASSERT_EQ(FormatFixed(value, places, '.'), FixedBySecondRoute(value, places)) << value;
      value = std::nextafter(value, INFINITY);
    }
    for (const double offset : {1e-9, -1e-9, 1e-5, -1e-5, 1e-4, -1e-4, 2e-4, -2e-4})
      ASSERT_EQ(FormatFixed(tie + offset, places, '.'), FixedBySecondRoute(tie + offset, places));
  }
}

TEST(FixedPlaces, AgreeWithTheSecondRouteOverTheWholeRange) {
  std::mt19937_64 random(5);
  for (int round = 0; round < 50000; ++round) {
    const double value = std::bit_cast<double>(random());
    if (!std::isfinite(value)) continue;
    ASSERT_EQ(FormatFixed(value, 3, '.'), FixedBySecondRoute(value, 3));
  }
}

// --- Patterns ----------------------------------------------------------------------------------

TEST(Patterns, HaveTheirBlanks) {
  EXPECT_EQ(FormatPattern(kHundredthsBlank, 1234.567, '.'), "1234.57 ");
  EXPECT_EQ(FormatPattern(kHundredthsBlank, 0, '.'), "0.00 ");
  EXPECT_EQ(FormatPattern(kHundredthsBlank, -3.5, ','), "-3,50 ");
  EXPECT_EQ(FormatPattern(kBlankTenthsBlank, 1234.56, '.'), " 1234.6 ");
  EXPECT_EQ(FormatPattern(kBlankTenthsBlank, -12.5, '.'), " -12.5 ");
  EXPECT_EQ(FormatPattern(kTenthsBlank, 1234.56, ','), "1234,6 ");
  EXPECT_EQ(FormatPattern(kTenths, 3.45, '.'), "3.5");
  EXPECT_EQ(FormatPattern(kWhole, 3.5, '.'), "4");
}

TEST(Patterns, ForceThePlacesBeforeALastZero) {
  EXPECT_EQ(FormatPattern(kThousandthsBlank, 0.5, '.'), "0.500 ");
  EXPECT_EQ(FormatPattern(kThousandthsBlank, -1.23456, ','), "-1,235 ");
  EXPECT_EQ(FormatPattern(kHundredths, 16.4, '.'), "16.40");
  EXPECT_EQ(FormatPattern(kHundredths, 9.99, ','), "9,99");
}

TEST(Patterns, FillWholeNumbersWithZeros) {
  EXPECT_EQ(FormatPattern(kTwoDigits, 1, '.'), "01");
  EXPECT_EQ(FormatPattern(kTwoDigits, 0, '.'), "00");
  EXPECT_EQ(FormatPattern(kTwoDigits, 12, '.'), "12");
  EXPECT_EQ(FormatPattern(kTwoDigits, 123, '.'), "123");
  EXPECT_EQ(FormatPattern(kTwoDigits, -1, '.'), "-01");
  EXPECT_EQ(FormatPattern(kBlankTwoDigitsBlank, 1, '.'), " 01 ");
  EXPECT_EQ(FormatPattern(kBlankWholeBlank, 1, '.'), " 1 ");
  EXPECT_EQ(FormatPattern(kBlankWholeBlank, 12, '.'), " 12 ");
}

TEST(FormatNumber3, LinesTheDigitsUp) {
  EXPECT_EQ(FormatNumber3(1.5), "  1.500 ");
  EXPECT_EQ(FormatNumber3(-1.5), " -1.500 ");
  EXPECT_EQ(FormatNumber3(0), "  0.000 ");
  EXPECT_EQ(FormatNumber3(-0.0), "  0.000 ");
  EXPECT_EQ(FormatNumber3(-0.0001), " -0.000 ");
  EXPECT_EQ(FormatNumber3(0.2), "  0.200 ");
}

TEST(FormatMetres, DividesByAThousand) {
  EXPECT_EQ(FormatMetres(4550), "  4.550 ");
  EXPECT_EQ(FormatMetres(-100), " -0.100 ");
  EXPECT_EQ(FormatMetres(0), "  0.000 ");
  EXPECT_EQ(FormatMetres(0.5), "  0.001 ");
  EXPECT_EQ(FormatMetres(-DBL_TRUE_MIN), " -0.000 ");
  std::string text = "x";
  AppendMetres(text, 1500);
  AppendNumber3(text, -2);
  EXPECT_EQ(text, "x  1.500  -2.000 ");
}

TEST(NumberTexts, NeverShowWhatIsNotFinite) {
  for (const double value :
       {std::numeric_limits<double>::quiet_NaN(), std::numeric_limits<double>::infinity(),
        -std::numeric_limits<double>::infinity()}) {
    EXPECT_THROW(StrNum(value), GeometryFault);
    EXPECT_THROW(PlainNumber(value), GeometryFault);
    EXPECT_THROW(FormatFixed(value, 2, '.'), GeometryFault);
    EXPECT_THROW(FormatNumber3(value), GeometryFault);
    EXPECT_THROW(FormatMetres(value), GeometryFault);
    std::string text = "before";
    EXPECT_THROW(AppendPattern(text, kBlankTenthsBlank, value, '.'), GeometryFault);
    EXPECT_THROW(AppendNumber3(text, value), GeometryFault);
    EXPECT_THROW(AppendFixed(text, value, 1, '.'), GeometryFault);
    EXPECT_EQ(text, "before");
  }
}

}  // namespace
}  // namespace brivane
