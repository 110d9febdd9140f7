#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <functional>
#include <regex>

#include "documents/document_texts.h"
#include "geometry/outline.h"
#include "model/dimension_rules.h"
#include "model/number_reading.h"
#include "model/sail_file.h"
#include "patches/patch_outline.h"
#include "ui/texts.h"

// The manuals: their tables hold the limits that the program has, and every command has its words.

namespace brivane {
namespace {

std::string Manual(Language language) {
  return TextOf(Root() / "docs" / "manual" / (language == Language::English ? "en" : "fr") /
                "README.md");
}

std::string_view In(Language language, const BilingualText& text) {
  return language == Language::English ? text.English : text.French;
}

std::string Replaced(std::string text, std::string_view what, std::string_view by) {
  for (std::size_t at; (at = text.find(what)) != std::string::npos;)
    text.replace(at, what.size(), by);
  return text;
}

/// The numbers of a text of either language, in order of size: "−5 %" is -0.05, "1/50" is 0.02.
/// What stands in brackets behind a link is none.
std::vector<double> NumbersIn(std::string text) {
  text = std::regex_replace(text, std::regex("\\[[^\\]]*\\]\\([^)]*\\)"), "");
  text = Replaced(Replaced(text, "−", "-"), "\u00a0", " ");
  const std::regex number("(-?\\d+(?:[.,]\\d+)?)(?:/(\\d+))?( ?%)?");
  std::vector<double> numbers;
  for (std::sregex_iterator match(text.begin(), text.end(), number), end; match != end; ++match) {
    double value = Val(Replaced((*match)[1], ",", "."));
    if ((*match)[2].matched) value /= Val((*match)[2].str());
    if ((*match)[3].matched) value /= 100;
    numbers.push_back(value);
  }
  std::sort(numbers.begin(), numbers.end());
  return numbers;
}

/// The numbers of the last cell of the table's row that begins with the caption.
std::vector<double> NumbersOfRow(Language language, std::string_view caption) {
  for (const std::string& line : LinesOf(Manual(language)))
    if (line.starts_with("| " + std::string(caption) + " "))
      return NumbersIn(line.substr(line.rfind('|', line.size() - 2) + 1));
  ADD_FAILURE() << "no row of " << caption;
  return {};
}

// --- What the program does with what is typed ----------------------------------------------------

/// A sail so large that the whole millimetres of its limits are the fractions that they stand for.
SailDefinition LargeSail() {
  SailDefinition sail;
  sail.LuffLength = 80000, sail.FootLength = 60000, sail.DiagonalLength = 100000;
  sail.GaffLength = 20000;
  sail.LuffRound = sail.LeechRound = sail.FootRound = 0, sail.GaffRound = 0;
  sail.ClothWidth = 30000, sail.SeamWidth = 900;
  ComputeOutline(sail);
  return sail;
}

/// The sail after a field has been left, with the limits of the outline.
SailDefinition Typed(SailDefinition sail, DimensionField field, const std::string& text) {
  EnterField(sail, field, text);
  ClampRounds(sail);
  ClampCloth(sail);
  return sail;
}

template <class Member>
double Kept(DimensionField field, const std::string& text, Member SailDefinition::*member) {
  return static_cast<double>(Typed(LargeSail(), field, text).*member);
}

double DegreesKept(DimensionField field, const std::string& text, double SailDefinition::*member) {
  return std::round(Kept(field, text, member) * kDegreesPerRadian);
}

/// The least (downwards) or the greatest whole number that the field keeps as it is.
template <class Member>
double Limit(DimensionField field, double inside, double outside, Member SailDefinition::*member) {
  while (std::fabs(inside - outside) > 1) {
    const double middle = std::round((inside + outside) / 2);
    const std::string text = std::to_string(static_cast<long>(middle));
    (Kept(field, text, member) == middle ? inside : outside) = middle;
  }
  return inside;
}

using enum DimensionField;
using Sail = SailDefinition;
using Numbers = std::vector<double>;

Numbers LuffLimits() {
  Sail sail = LargeSail();
  sail.LuffRound = 30;
  sail = Typed(sail, Luff, "0");
  return {sail.LuffLength, sail.LuffRound};
}

Numbers FootLimits() {
  Sail sail = LargeSail();
  sail.FootRound = 30;
  sail = Typed(sail, Foot, "0");
  return {sail.FootLength, sail.FootRound, Limit(Foot, 60000, 101, &Sail::FootLength) / 80000,
          Limit(Foot, 60000, 500000, &Sail::FootLength) / 80000};
}

Numbers DiagonalLimits() {
  return {Kept(Diag, "0", &Sail::DiagonalLength),
          Limit(Diag, 100000, 101, &Sail::DiagonalLength) / 20000,
          Limit(Diag, 100000, 500000, &Sail::DiagonalLength) / 140000};
}

Numbers GaffLimits() {
  const Sail large = LargeSail();
  double shortest = 100;
  while (!IsTriangular(Typed(large, Gaff, std::to_string(shortest - 1)))) --shortest;
  return {shortest, Kept(Gaff, "1", &Sail::GaffLength),
          Limit(Gaff, 20000, 900000, &Sail::GaffLength) * std::sin(large.GaffAngle) /
              large.ClewPoint.x};
}

Numbers GaffRoundLimits() {
  Numbers limits = {Limit(GaffRond, 0, -20000, &Sail::GaffRound) / 20000,
                    Limit(GaffRond, 0, 20000, &Sail::GaffRound) / 20000};
  // The shortest gaff that keeps a round.
  Sail sail = LargeSail();
  sail.GaffRound = 1;
  double shortest = 200;
  for (Sail kept = sail; shortest > 6; --shortest) {
    kept.GaffLength = shortest - 1;
    ClampRounds(kept);
    if (kept.GaffRound == 0) break;
  }
  limits.push_back(shortest);
  limits.push_back(0);
  return limits;
}

Numbers DepthLimits(DimensionField field) {
  Sail sail = LargeSail();
  EnterField(sail, SDepth1, "100000");
  if (field == SDepth0) return {Typed(sail, field, "900000").Depth[kFoot] / 100000};
  return {Typed(sail, field, "0").Depth[kTop] / 100000};
}

template <class Member>
Numbers RoundLimits(DimensionField field, Member SailDefinition::*member, double edge) {
  return {Limit(field, 0, -90000, member) / edge, Limit(field, 0, 90000, member) / edge};
}

Numbers DegreeLimits(DimensionField field, double SailDefinition::*member) {
  return {DegreesKept(field, "-999", member), DegreesKept(field, "999", member)};
}

template <class Member>
Numbers PositionLimits(DimensionField field, Member SailDefinition::*member) {
  return {Kept(field, "0", member), Kept(field, "100", member)};
}

template <class Member>
Numbers WidthLimits(DimensionField field, Member SailDefinition::*member, double whole) {
  return {Kept(field, "0", member) / whole, Kept(field, "32000", member) / whole};
}

/// The limits of a field, measured by typing.
Numbers MeasuredLimits(DimensionField field) {
  const Sail large = LargeSail();
  switch (field) {
    case Luff:
      return LuffLimits();
    case Foot:
      return FootLimits();
    case Diag:
      return DiagonalLimits();
    case Gaff:
      return GaffLimits();
    case GaffRond:
      return GaffRoundLimits();
    case LuffRake:
      return DegreeLimits(field, &Sail::LuffRake);
    case GaffA:
      return DegreeLimits(field, &Sail::GaffAngle);
    case Twistxt:
      return DegreeLimits(field, &Sail::TwistAngle);
    case LuffRond:
      return RoundLimits(field, &Sail::LuffRound, large.LuffLength);
    case LeechRond:
      return RoundLimits(field, &Sail::LeechRound, large.LeechLength);
    case FootRond:
      return RoundLimits(field, &Sail::FootRound, large.FootLength);
    case LuffRondPos:
      return PositionLimits(field, &Sail::LuffRoundPos);
    case LeechRondPos:
      return PositionLimits(field, &Sail::LeechRoundPos);
    case SDepth0:
    case SDepth2:
      return DepthLimits(field);
    case SDepth1:
      return {Typed(large, field, "0").Depth[kMiddle]};
    case ClothWidth:
      return WidthLimits(field, &Sail::ClothWidth, large.DiagonalLength);
    case SeamWidth:
      return WidthLimits(field, &Sail::SeamWidth, large.ClothWidth);
    default:
      return {};
  }
}

TEST(Manual, LimitsOfEveryFieldAreThoseOfTheProgram) {
  for (const Language language : {Language::English, Language::French}) {
    for (const DimensionFieldInfo& info : DimensionFields()) {
      SCOPED_TRACE(In(language, info.Caption));
      Numbers measured = MeasuredLimits(info.Field);
      std::sort(measured.begin(), measured.end());
      const Numbers written = NumbersOfRow(language, In(language, info.Caption));
      ASSERT_EQ(written.size(), measured.size());
      // Whole millimetres stand for a fraction of the edge within one millimetre.
      for (std::size_t k = 0; k < written.size(); ++k)
        EXPECT_NEAR(written[k], measured[k], 4e-3 * std::fabs(written[k]));
    }
  }
}

TEST(Manual, UnitsOfEveryFieldAreThoseOfTheProgram) {
  for (const Language language : {Language::English, Language::French})
    for (const DimensionFieldInfo& info : DimensionFields()) {
      const std::string row =
          "\n\\| " + std::string(In(language, info.Caption)) + " +\\| (\\S*) *\\|";
      EXPECT_EQ(Matches(Manual(language), row), std::vector{std::string(info.Unit)})
          << In(language, info.Caption);
    }
}

TEST(Manual, LimitOfThePatchesIsThatOfTheProgram) {
  for (const Language language : {Language::English, Language::French}) {
    EXPECT_EQ(NumbersIn(std::string(In(language, texts::kPatchHint))),
              (Numbers{1, double{kLargestPatch}}));
    const std::string range = (language == Language::English ? "1 to " : "1 à ") +
                              std::to_string(kLargestPatch) +
                              (language == Language::English ? ", of" : ", des");
    EXPECT_NE(Manual(language).find(range), std::string::npos) << range;
  }
}

/// The lines of a sail that are the same in every file, and how many there are.
TEST(Formats, FixedLinesOfASailAreThoseOfTheProgram) {
  std::vector<std::string> lines = LinesOf(SailDataText(SailDefinition{}));
  for (std::string& line : lines) line.pop_back();  // the carriage return
  const std::string text = TextOf(Root() / "docs" / "formats.md");
  std::size_t fixed = 0, last = 0;
  const std::regex row("\n\\| (\\d+) +\\| `([^`]+)`");
  const std::size_t from = text.find("name=\"bv3\"");
  const std::string table = text.substr(from, text.find("name=\"bv4\"") - from);
  for (std::sregex_iterator match(table.begin(), table.end(), row), end; match != end; ++match) {
    last = std::stoul((*match)[1]);
    ASSERT_LE(last, lines.size());
    EXPECT_EQ(lines[last - 1], (*match)[2]);
    ++fixed;
  }
  EXPECT_EQ(fixed, 6u);
  EXPECT_EQ(last, lines.size());
}

TEST(Manual, EveryCommandHasItsWords) {
  const BilingualText commands[] = {texts::kCreate,
                                    texts::kQuit,
                                    texts::kValidate,
                                    texts::kFileMenu,
                                    texts::kNew,
                                    texts::kOpen,
                                    texts::kPrintMenu,
                                    texts::kData,
                                    texts::kDrawing,
                                    texts::kPanels,
                                    texts::kPrinterSetup,
                                    texts::kSaveMenu,
                                    texts::kPanelsDxf,
                                    texts::kPanelsXY,
                                    texts::kPlotter,
                                    texts::kVrml,
                                    texts::kQuit,
                                    texts::kMouldCommand,
                                    texts::kDimensionsCommand,
                                    texts::kPatchesCommand,
                                    texts::kDevelop,
                                    texts::kRedraw,
                                    texts::kLabels,
                                    texts::kLoadMould,
                                    texts::kDone,
                                    texts::kDepthPosition,
                                    texts::kPatchPlotter,
                                    texts::kPatchDxf,
                                    texts::kLuffSide,
                                    texts::kLeechSide,
                                    texts::kCuts[0],
                                    texts::kCuts[1],
                                    texts::kCuts[2],
                                    texts::kPdfFile,
                                    texts::kFirstProfile,
                                    texts::kSecondProfile};
  for (const Language language : {Language::English, Language::French})
    for (const BilingualText& command : commands) {
      const std::string caption = Replaced(std::string(In(language, command)), "&", "");
      EXPECT_NE(Manual(language).find("**" + caption), std::string::npos) << caption;
    }
}

}  // namespace
}  // namespace brivane
