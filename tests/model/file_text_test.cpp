#include "model/file_text.h"

#include <gtest/gtest.h>

#include <bit>
#include <cfloat>
#include <cmath>
#include <cstdint>
#include <limits>
#include <random>

#include "model/failures.h"

namespace brivane {
namespace {

constexpr NumberPattern kOne = {"", 1, 1, ""};
constexpr NumberPattern kTwo = {"", 1, 2, ""};
constexpr NumberPattern kThree = {"", 1, 3, ""};
constexpr NumberPattern kFramed = {"x ", 1, 2, " ;\r\n"};

template <const NumberPattern& Pattern>
std::string Put(double value, char decimalMark = '.') {
  FileText text;
  AppendPattern<Pattern>(text, value, decimalMark);
  return text.Take();
}

/// The plain route gives the same for 1, 2 and 3 places.
void ExpectPlainText(double value) {
  ASSERT_EQ(Put<kOne>(value), FormatFixed(value, 1, '.')) << value;
  ASSERT_EQ(Put<kTwo>(value), FormatFixed(value, 2, '.')) << value;
  ASSERT_EQ(Put<kThree>(value), FormatFixed(value, 3, '.')) << value;
  FileText metres;
  AppendMetres(metres, value);
  AppendNumber3(metres, value);
  AppendStrNum(metres, value);
  ASSERT_EQ(metres.Take(), FormatMetres(value) + FormatNumber3(value) + StrNum(value)) << value;
}

TEST(FileText, GrowsBeyondWhatWasExpected) {
  FileText text(10);
  std::string expected;
  for (int piece = 0; piece < 5000; ++piece) {
    text += "piece";
    text += '\n';
    expected += "piece\n";
    ASSERT_EQ(text.Size(), expected.size());
  }
  EXPECT_EQ(text.Take(), expected);
}

TEST(FileText, KeepsWhatIsThereWhenALongPieceComes) {
  FileText text;
  text += "before";
  text += std::string(100000, 'x');
  text += "after";
  EXPECT_EQ(text.Take(), "before" + std::string(100000, 'x') + "after");
}

TEST(FileText, IsEmptyAtFirst) { EXPECT_EQ(FileText(1000).Take(), ""); }

TEST(FileTextNumbers, StandInTheirPattern) {
  EXPECT_EQ(Put<kFramed>(1234.567), "x 1234.57 ;\r\n");
  EXPECT_EQ(Put<kFramed>(-0.001, ','), "x -0,00 ;\r\n");
  EXPECT_EQ(Put<kThree>(0.5), "0.500");
}

TEST(FileTextNumbers, HaveThePlainTextWhereTheDigitCountChanges) {
  for (double power = 1e-5; power < 1e18; power *= 10)
    for (const double factor : {0.94, 0.95, 0.99951, 0.9999999, 1.0, 1.04, 1.05, 9.5})
      for (const double sign : {1.0, -1.0}) ExpectPlainText(sign * factor * power);
}

TEST(FileTextNumbers, HaveThePlainTextOnRandomDoubles) {
  std::mt19937_64 random(1);
  std::uniform_real_distribution<double> exponents(-6, 13);
  std::uniform_real_distribution<double> signs(-1, 1);
  for (int round = 0; round < 100000; ++round)
    ExpectPlainText(std::copysign(std::pow(10, exponents(random)), signs(random)));
}

TEST(FileTextNumbers, HaveThePlainTextAroundEveryTie) {
  std::mt19937_64 random(2);
  std::uniform_int_distribution<std::int64_t> halves(-2'000'000'000, 2'000'000'000);
  const double scales[] = {20, 200, 2000};
  for (int round = 0; round < 10000; ++round) {
    const double tie = static_cast<double>(halves(random) | 1) / scales[round % 3];
    ExpectPlainText(tie);
    ExpectPlainText(std::nextafter(tie, INFINITY));
    ExpectPlainText(std::nextafter(tie, -INFINITY));
    for (const double offset : {1e-9, -1e-9, 1e-7, -1e-7, 1e-6, -1e-6, 1e-5, -1e-5})
      ExpectPlainText(tie + offset);
  }
}

TEST(FileTextNumbers, HaveThePlainTextOverTheWholeRange) {
  std::mt19937_64 random(3);
  for (int round = 0; round < 20000; ++round) {
    const double value = std::bit_cast<double>(random());
    if (std::isfinite(value)) ExpectPlainText(value);
  }
  for (const double value : {0.0, -0.0, DBL_MAX, -DBL_MAX, DBL_TRUE_MIN, -DBL_TRUE_MIN})
    ExpectPlainText(value);
}

TEST(FileTextNumbers, WholeOnesHaveThePlainText) {
  for (const int number :
       {0, 1, 9, 10, 99, 100, 999, 1000, 9999, 10000, 10203, 99999, 100000, 1234567890,
        std::numeric_limits<int>::max(), -1, -10000, std::numeric_limits<int>::min()}) {
    FileText text;
    AppendStrNum(text, number);
    EXPECT_EQ(text.Take(), StrNum(number));
  }
}

TEST(FileTextNumbers, NeverShowWhatIsNotFinite) {
  for (const double value :
       {std::numeric_limits<double>::quiet_NaN(), std::numeric_limits<double>::infinity(),
        -std::numeric_limits<double>::infinity()}) {
    FileText text;
    text += "before";
    EXPECT_THROW(AppendPattern<kFramed>(text, value, '.'), GeometryFault);
    EXPECT_THROW(AppendNumber3(text, value), GeometryFault);
    EXPECT_THROW(AppendMetres(text, value), GeometryFault);
    EXPECT_THROW(AppendStrNum(text, value), GeometryFault);
    EXPECT_EQ(text.Take(), "before");
  }
}

}  // namespace
}  // namespace brivane
