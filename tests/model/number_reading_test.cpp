#include "model/number_reading.h"

#include <gtest/gtest.h>

#include <cfloat>
#include <charconv>
#include <clocale>
#include <cmath>
#include <random>
#include <string>

namespace brivane {
namespace {

double ValOfTyped(std::string text) { return Val(NormaliseDecimalText(text)); }

TEST(Val, RoundsAsTheLibraryDoesWhereverThePointStands) {
  std::mt19937 random(7);
  for (int digits = 1; digits <= 20; ++digits)
    for (int round = 0; round < 200; ++round) {
      std::string text;
      for (int each = 0; each < digits; ++each) text += static_cast<char>('0' + random() % 10);
      text.insert(random() % (text.size() + 1), 1, '.');
      double expected = 0;
      std::from_chars(text.data(), text.data() + text.size(), expected);
      EXPECT_EQ(Val(text), expected) << text;
      EXPECT_EQ(Val(" -" + text + " mm"), -expected) << text;
    }
}

TEST(NormaliseDecimalText, ReplacesMarksInPlaceAndAddsABlank) {
  std::string text = "1,2;3.4 x,";
  EXPECT_EQ(NormaliseDecimalText(text), "1.2.3.4 x. ");
  EXPECT_EQ(text, "1.2.3.4 x.");
  std::string empty;
  EXPECT_EQ(NormaliseDecimalText(empty), " ");
}

TEST(Val, ReadsNormalisedText) {
  EXPECT_EQ(ValOfTyped("4550"), 4550);
  EXPECT_EQ(ValOfTyped("0,05"), 0.05);
  EXPECT_EQ(ValOfTyped("0;05"), 0.05);
  EXPECT_EQ(ValOfTyped("0.05"), 0.05);
  EXPECT_EQ(ValOfTyped("-2,5"), -2.5);
  EXPECT_EQ(ValOfTyped("1,234.5"), 1.234);
  EXPECT_EQ(ValOfTyped(""), 0);
}

TEST(Val, StopsAtWhatDoesNotFit) {
  EXPECT_EQ(Val("abc"), 0);
  EXPECT_EQ(Val("12abc"), 12);
  EXPECT_EQ(Val("4550,5"), 4550);
  EXPECT_EQ(Val("1.2.3"), 1.2);
  EXPECT_EQ(Val("5-3"), 5);
  EXPECT_EQ(Val("7/2"), 7);
  EXPECT_EQ(Val("3:5"), 3);
  EXPECT_EQ(Val("--5"), 0);
  EXPECT_EQ(Val("+-5"), 0);
}

TEST(Val, LooksNoFurtherThanTheTextGiven) {
  const std::string_view longer = "12.34e-56";
  EXPECT_EQ(Val(longer.substr(0, 1)), 1);
  EXPECT_EQ(Val(longer.substr(0, 2)), 12);
  EXPECT_EQ(Val(longer.substr(0, 3)), 12);
  EXPECT_EQ(Val(longer.substr(0, 4)), 12.3);
  EXPECT_EQ(Val(longer.substr(0, 5)), 12.34);
  EXPECT_EQ(Val(longer.substr(0, 6)), 12.34);
  EXPECT_EQ(Val(longer.substr(0, 7)), 12.34);
  EXPECT_EQ(Val(longer.substr(0, 8)), 12.34e-5);
}

TEST(Val, TakesASignAPointAndAnExponent) {
  EXPECT_EQ(Val("+7"), 7);
  EXPECT_EQ(Val("-7"), -7);
  EXPECT_EQ(Val(".5"), 0.5);
  EXPECT_EQ(Val("-.5"), -0.5);
  EXPECT_EQ(Val("5."), 5);
  EXPECT_EQ(Val("1E3"), 1000);
  EXPECT_EQ(Val("1D5"), 100000);
  EXPECT_EQ(Val("1e+2"), 100);
  EXPECT_EQ(Val("25d-1"), 2.5);
  EXPECT_EQ(Val("5.E1"), 50);
  EXPECT_EQ(Val(".5E1"), 5);
  EXPECT_EQ(Val("1E2E3"), 100);
  EXPECT_EQ(Val("1E2.5"), 100);
}

TEST(Val, TakesNoExponentWithoutDigits) {
  EXPECT_EQ(Val("2E"), 2);
  EXPECT_EQ(Val("2E+"), 2);
  EXPECT_EQ(Val("2D-x"), 2);
  EXPECT_EQ(Val("2Ex"), 2);
}

TEST(Val, GivesZeroWhereNoNumberStarts) {
  for (const char* text :
       {"", " ", "-", "+", ".", "-.", "E5", ".E5", "nan", "inf", "-inf", "INF", "NaN(1)", "x1", "e",
        "\xE2\x88\x92"
        "5"})
    EXPECT_EQ(Val(text), 0) << text;
}

TEST(Val, ReadsNoOtherBase) {
  EXPECT_EQ(Val("0x10"), 0);
  EXPECT_EQ(Val("&H10"), 0);
  EXPECT_EQ(Val("1p3"), 1);
}

TEST(Val, IgnoresBlanksWhereverTheyStand) {
  EXPECT_EQ(Val("  4 550 . 2 5 E 1 "), 45502.5);
  EXPECT_EQ(Val(" - 3"), -3);
  EXPECT_EQ(Val("\t12"), 12);
  EXPECT_EQ(Val("4\xC2\xA0"
                "550"),
            4550);
  EXPECT_EQ(Val("4\xE2\x80\xAF"
                "550"),
            4550);
  EXPECT_EQ(Val("4\xC3\xA9"
                "550"),
            4);
}

TEST(Val, NeverGivesMinusZero) {
  for (const char* text : {"-0", "-.0", "-0E5", "-1E-999", "-"})
    EXPECT_FALSE(std::signbit(Val(text))) << text;
}

TEST(Val, HoldsHugeNumbersAtTheLargestDouble) {
  EXPECT_EQ(Val("1E999"), DBL_MAX);
  EXPECT_EQ(Val("-1E999"), -DBL_MAX);
  EXPECT_EQ(Val("1E99999999999999999999999"), DBL_MAX);
  EXPECT_EQ(Val(std::string(400, '9')), DBL_MAX);
  EXPECT_EQ(Val("1.7976931348623157E308"), DBL_MAX);
  EXPECT_EQ(Val("0.0001E400"), DBL_MAX);
}

TEST(Val, TakesTinyNumbersForZero) {
  EXPECT_EQ(Val("1E-999"), 0);
  EXPECT_EQ(Val("1E-99999999999999999999999"), 0);
  EXPECT_EQ(Val("0." + std::string(400, '0') + "1"), 0);
  EXPECT_EQ(Val("12345E-400"), 0);
  EXPECT_EQ(Val("5E-324"), DBL_TRUE_MIN);
}

TEST(Val, WeighsZerosAgainstTheExponent) {
  EXPECT_EQ(Val("0E999"), 0);
  EXPECT_EQ(Val("0." + std::string(400, '0') + "1E401"), 1);
  EXPECT_EQ(Val("1" + std::string(400, '0') + "E-400"), 1);
}

TEST(Val, WeighsAnExponentWithSeveralDigits) {
  const std::string tiny = "0." + std::string(700, '0');
  EXPECT_EQ(Val(tiny + "1E+300"), 0);         // 1e-401
  EXPECT_EQ(Val(tiny + "1E+300.9"), 0);       // what follows the exponent is no part of it
  EXPECT_EQ(Val(tiny + "1E+1100"), DBL_MAX);  // 1e399
}

TEST(Val, ReadsFortyDigitsToTheNearestDouble) {
  EXPECT_EQ(Val("1234567890123456789012345678901234567890"),
            1234567890123456789012345678901234567890.0);
  EXPECT_EQ(Val("0.1000000000000000055511151231257827021181583404541015625"), 0.1);
}

TEST(LeadingNumber, TellsAnOverflow) {
  EXPECT_TRUE(ReadLeadingNumber("1E309").Overflow);
  EXPECT_TRUE(ReadLeadingNumber("-2E308").Overflow);
  EXPECT_TRUE(ReadLeadingNumber("00020E308").Overflow);
  EXPECT_TRUE(ReadLeadingNumber("0.002E312").Overflow);
  EXPECT_FALSE(ReadLeadingNumber("1E308").Overflow);
  EXPECT_FALSE(ReadLeadingNumber("1E-999").Overflow);
  EXPECT_FALSE(ReadLeadingNumber("0E999").Overflow);
  EXPECT_FALSE(ReadLeadingNumber("inf").Overflow);
}

TEST(WholeNumberText, TakesBothMarksAndBlanksAround) {
  EXPECT_EQ(ReadWholeNumberText(" 3.5 ", '.')->Value, 3.5);
  EXPECT_EQ(ReadWholeNumberText(" 3.5", ',')->Value, 3.5);
  EXPECT_EQ(ReadWholeNumberText("3,5", ',')->Value, 3.5);
  EXPECT_EQ(ReadWholeNumberText("-.5E1", '.')->Value, -5);
  EXPECT_EQ(ReadWholeNumberText("7.", '.')->Value, 7);
  EXPECT_EQ(ReadWholeNumberText("", '.')->Value, 0);
  EXPECT_EQ(ReadWholeNumberText("   ", ',')->Value, 0);
}

TEST(WholeNumberText, RefusesWhatIsNoNumberFromEndToEnd) {
  for (const char* text : {"x", "3x", "3 4", "-", ".", "1E", "1E+", "1.2.3", "3,5", "nan", "0x1"})
    EXPECT_FALSE(ReadWholeNumberText(text, '.').has_value()) << text;
  EXPECT_FALSE(ReadWholeNumberText("1,234.5", ',').has_value());
}

TEST(WholeNumberText, TellsAnOverflow) {
  EXPECT_TRUE(ReadWholeNumberText("1E999", '.')->Overflow);
  EXPECT_FALSE(ReadWholeNumberText("1E9", '.')->Overflow);
}

TEST(WholePart, GoesTowardsMinusInfinity) {
  EXPECT_EQ(WholePart(2.9), 2);
  EXPECT_EQ(WholePart(-2.1), -3);
  EXPECT_EQ(WholePart(-3), -3);
}

TEST(RoundHalfEven, TakesHalvesToTheEvenNeighbour) {
  EXPECT_EQ(RoundHalfEven(0.5), 0);
  EXPECT_EQ(RoundHalfEven(1.5), 2);
  EXPECT_EQ(RoundHalfEven(2.5), 2);
  EXPECT_EQ(RoundHalfEven(-0.5), 0);
  EXPECT_EQ(RoundHalfEven(-1.5), -2);
  EXPECT_EQ(RoundHalfEven(-2.5), -2);
  EXPECT_EQ(RoundHalfEven(2.49), 2);
  EXPECT_EQ(RoundHalfEven(2.51), 3);
  EXPECT_EQ(RoundHalfEven(-2.51), -3);
  EXPECT_EQ(RoundHalfEven(0.49999999999999994), 0);
  EXPECT_EQ(RoundHalfEven(4503599627370497.0), 4503599627370497.0);
}

TEST(Int16, TakesItsRangeOnly) {
  EXPECT_EQ(ToInt16(32767), std::int16_t{32767});
  EXPECT_EQ(ToInt16(-32768), std::int16_t{-32768});
  EXPECT_FALSE(ToInt16(32768).has_value());
  EXPECT_FALSE(ToInt16(-32769).has_value());
  EXPECT_FALSE(ToInt16(std::nan("")).has_value());
}

TEST(Int16, IsHeldAtItsLimits) {
  EXPECT_EQ(HeldToInt16(40000), 32767);
  EXPECT_EQ(HeldToInt16(-40000), -32768);
  EXPECT_EQ(HeldToInt16(DBL_MAX), 32767);
  EXPECT_EQ(HeldToInt16(-7), -7);
}

}  // namespace
}  // namespace brivane
