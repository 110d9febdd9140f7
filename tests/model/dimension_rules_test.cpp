#include "model/dimension_rules.h"

#include <gtest/gtest.h>

#include <cmath>
#include <random>
#include <string>
#include <vector>

namespace brivane {
namespace {

using enum DimensionField;

/// The default sail with the clew of its outline.
SailDefinition ComputedSail() {
  SailDefinition sail;
  sail.ClewPoint = {3599.4, 65.93, 0};
  return sail;
}

std::vector<std::string> MessagesOf(const FieldOutcome& outcome) {
  std::vector<std::string> messages;
  for (const FieldNotice& notice : outcome.Notices) messages.emplace_back(notice.Message.English);
  return messages;
}

const std::string kLuffMessage = "Luff too short, has been adjusted to minimum";
const std::string kFootMessage = "Foot too short, has been adjusted to minimum";
const std::string kDiagonalMessage = "Diagonal too short, has been adjusted to minimum";
using Messages = std::vector<std::string>;

// --- Lengths -----------------------------------------------------------------------------------

TEST(LuffRule, RaisesAShortLuffAndChecksTheFootAgainstIt) {
  SailDefinition sail = ComputedSail();
  const FieldOutcome outcome = EnterField(sail, Luff, "150");
  EXPECT_EQ(sail.LuffLength, 200);
  EXPECT_EQ(sail.LuffRound, 0);
  EXPECT_EQ(MessagesOf(outcome), (Messages{kLuffMessage}));
  EXPECT_EQ(outcome.Notices[0].Field, Luff);
  EXPECT_EQ(outcome.Notices[0].Message.French, "Guindant trop court, ajusté au minimum");
  EXPECT_EQ(sail.FootLength, 600);      // three times the luff
  EXPECT_EQ(sail.DiagonalLength, 632);  // Int(sqrt(200 x 200 + 600 x 600)) = Int(632.45)
}

TEST(LuffRule, TakesTheMinimumItself) {
  SailDefinition sail = ComputedSail();
  EXPECT_TRUE(EnterField(sail, Luff, "200").Notices.empty());
  EXPECT_EQ(sail.LuffLength, 200);
  EXPECT_EQ(sail.LuffRound, 100);
}

TEST(LuffRule, IsNotNormalisedAndCutsFractionsAndSigns) {
  SailDefinition sail = ComputedSail();
  EnterField(sail, Luff, "4550,5");
  EXPECT_EQ(sail.LuffLength, 4550);
  EnterField(sail, Luff, "-4600.9");
  EXPECT_EQ(sail.LuffLength, 4600);
}

TEST(LuffRule, AnnouncesEveryMinimumOfTheChainInOrder) {
  SailDefinition sail = ComputedSail();
  sail.FootLength = 50;
  sail.DiagonalLength = 60;
  const FieldOutcome outcome = EnterField(sail, Luff, "nothing");
  EXPECT_EQ(MessagesOf(outcome), (Messages{kLuffMessage, kFootMessage, kDiagonalMessage}));
  EXPECT_EQ(outcome.Notices[1].Message.French, "Bordure trop courte, ajustée au minimum");
  EXPECT_EQ(outcome.Notices[2].Message.French, "Diagonale trop courte, ajustée au minimum");
  EXPECT_EQ(outcome.Notices[1].Field, Foot);
  EXPECT_EQ(outcome.Notices[2].Field, Diag);
  EXPECT_EQ(sail.LuffLength, 200);
  EXPECT_EQ(sail.FootLength, 100);
  EXPECT_EQ(sail.DiagonalLength, 100);
}

TEST(LuffRule, LeavesStoredFractionsOfTheOthers) {
  SailDefinition sail = ComputedSail();
  sail.FootLength = 3600.25;
  sail.DiagonalLength = 5750.75;
  sail.GaffLength = 2600.5;
  EnterField(sail, Luff, "4551");
  EXPECT_EQ(sail.FootLength, 3600.25);
  EXPECT_EQ(sail.DiagonalLength, 5750.75);
  EXPECT_EQ(sail.GaffLength, 2600.5);
}

TEST(FootRule, RaisesAShortFoot) {
  SailDefinition sail = ComputedSail();
  const FieldOutcome outcome = EnterField(sail, Foot, "99,9");
  EXPECT_EQ(sail.FootLength, 100);
  EXPECT_EQ(sail.FootRound, 0);
  EXPECT_EQ(MessagesOf(outcome), (Messages{kFootMessage}));
}

TEST(FootRule, HoldsTheFootBetweenATenthAndThreeTimesTheLuff) {
  SailDefinition sail = ComputedSail();
  EXPECT_TRUE(EnterField(sail, Foot, "300").Notices.empty());
  EXPECT_EQ(sail.FootLength, 456);
  EXPECT_EQ(sail.FootRound, 170);
  EXPECT_TRUE(EnterField(sail, Foot, "20000").Notices.empty());
  EXPECT_EQ(sail.FootLength, 13650);
  EnterField(sail, Foot, "13650");
  EXPECT_EQ(sail.FootLength, 13650);
  EnterField(sail, Foot, "455");
  EXPECT_EQ(sail.FootLength, 455);
}

TEST(FootRule, TakesItsLimitsThemselves) {
  SailDefinition sail = ComputedSail();
  sail.LuffLength = 200;
  EXPECT_TRUE(EnterField(sail, Foot, "100").Notices.empty());
  EXPECT_EQ(sail.FootLength, 100);
  EXPECT_NE(sail.FootRound, 0);
  sail.LuffLength = 1000;
  EnterField(sail, Foot, "3500");
  EXPECT_EQ(sail.FootLength, 3000);
  EnterField(sail, Foot, "3000");
  EXPECT_EQ(sail.FootLength, 3000);
}

TEST(FootRule, NormalisesAndCutsTheText) {
  SailDefinition sail = ComputedSail();
  EnterField(sail, Foot, "-3500,75 mm");
  EXPECT_EQ(sail.FootLength, 3500);
}

TEST(DiagonalRule, MakesARightAngleWhereTheTriangleCannotClose) {
  SailDefinition sail = ComputedSail();
  EXPECT_TRUE(EnterField(sail, Diag, "900").Notices.empty());
  EXPECT_EQ(sail.DiagonalLength, 5801);
  sail.DiagonalLength = 0;
  EnterField(sail, Diag, "7500");
  EXPECT_EQ(sail.DiagonalLength, 5801);
}

TEST(DiagonalRule, TakesWhatLiesBetweenItsLimits) {
  SailDefinition sail = ComputedSail();
  EnterField(sail, Diag, "-6000");
  EXPECT_EQ(sail.DiagonalLength, 6000);
  EnterField(sail, Diag, "1046");  // above 1.1 x 950, which is a hair above 1045 itself
  EXPECT_EQ(sail.DiagonalLength, 1046);
  EnterField(sail, Diag, "7334");
  EXPECT_EQ(sail.DiagonalLength, 7334);
  EnterField(sail, Diag, "7336");
  EXPECT_EQ(sail.DiagonalLength, 5801);
}

TEST(DiagonalRule, TakesItsLimitsThemselves) {
  SailDefinition sail = ComputedSail();
  sail.LuffLength = sail.FootLength = 200;
  EXPECT_TRUE(EnterField(sail, Diag, "100").Notices.empty());
  EXPECT_EQ(sail.DiagonalLength, 100);
  sail.LuffLength = 1000;
  sail.FootLength = 2000;
  EnterField(sail, Diag, "1100");  // 1.1 times the difference
  EXPECT_EQ(sail.DiagonalLength, 1100);
  EnterField(sail, Diag, "2700");  // 0.9 of the sum
  EXPECT_EQ(sail.DiagonalLength, 2700);
}

TEST(DiagonalRule, RaisesAShortDiagonal) {
  SailDefinition sail = ComputedSail();
  const FieldOutcome outcome = EnterField(sail, Diag, "");
  EXPECT_EQ(MessagesOf(outcome), (Messages{kDiagonalMessage}));
  EXPECT_EQ(sail.DiagonalLength, 100);
}

TEST(GaffRule, HoldsThePeakForwardOfTheClew) {
  SailDefinition sail = ComputedSail();
  sail.ClewPoint.x = 1000;
  sail.GaffAngle = std::asin(0.5);
  EnterField(sail, Gaff, "1799");  // 899.5 of 900
  EXPECT_EQ(sail.GaffLength, 1799);
  EnterField(sail, Gaff, "3000");
  EXPECT_NEAR(sail.GaffLength, 1800, 1);  // 900 / 0.5, its whole part
  EXPECT_EQ(sail.GaffLength, std::floor(sail.GaffLength));
}

TEST(GaffRule, MakesAStubOfAShortGaff) {
  SailDefinition sail = ComputedSail();
  EnterField(sail, Gaff, "5,9");
  EXPECT_EQ(sail.GaffLength, 5);
  EnterField(sail, Gaff, "0");
  EXPECT_EQ(sail.GaffLength, 5);
  EnterField(sail, Gaff, "6");
  EXPECT_EQ(sail.GaffLength, 6);
}

TEST(GaffRule, WaitsForAClew) {
  SailDefinition sail;
  EnterField(sail, Luff, "4600");
  EXPECT_EQ(sail.GaffLength, 2600);
}

TEST(GaffRule, DividesByNoVanishingSine) {
  SailDefinition sail = ComputedSail();
  for (const double angle : {0.0, -0.5, 3.14159265358979312, 4.0}) {
    sail.GaffAngle = angle;
    EnterField(sail, Gaff, "900000");
    EXPECT_EQ(sail.GaffLength, 900000) << angle;
  }
}

TEST(GaffRule, IsTheLastOfTheChain) {
  SailDefinition sail = ComputedSail();
  sail.ClewPoint.x = 1000;
  sail.GaffAngle = std::asin(1);
  EnterField(sail, Foot, "3600");
  EXPECT_EQ(sail.GaffLength, 900);
}

TEST(LengthRules, KeepEveryLengthFiniteAndPositive) {
  const std::string texts[] = {"1E999", "-1E999", "1E308", "1E307",
                               "1E200", "1E-300", "nan",   "inf",
                               "-",     "1D5",    "32768", "99999999999999999999"};
  std::mt19937 random(7);
  std::uniform_int_distribution<std::size_t> text(0, std::size(texts) - 1);
  std::uniform_int_distribution<int> field(0, 18);
  std::uniform_real_distribution<double> clew(-1e4, 1e4);
  SailDefinition sail;
  for (int round = 0; round < 20000; ++round) {
    if (round % 50 == 0) sail = SailDefinition{};
    sail.ClewPoint.x = round % 3 == 0 ? 1e308 : clew(random);
    EnterField(sail, static_cast<DimensionField>(field(random)), texts[text(random)]);
    for (const double length :
         {sail.LuffLength, sail.FootLength, sail.DiagonalLength, sail.GaffLength}) {
      ASSERT_TRUE(std::isfinite(length));
      ASSERT_GE(length, 0);
    }
    for (const double value :
         {sail.LuffRake, sail.GaffAngle, sail.TwistAngle, sail.LuffRound, sail.LeechRound,
          sail.FootRound, sail.Depth[0], sail.Depth[1], sail.Depth[2]})
      ASSERT_TRUE(std::isfinite(value));
  }
}

// --- Rounds and their positions ----------------------------------------------------------------

TEST(Rounds, StoreTheWholePartWithItsSign) {
  SailDefinition sail;
  EnterField(sail, LuffRond, "-12.5");
  EnterField(sail, LeechRond, "80.9");
  EnterField(sail, FootRond, "-1");
  EnterField(sail, GaffRond, "-0.5");
  EXPECT_EQ(sail.LuffRound, -13);
  EXPECT_EQ(sail.LeechRound, 80);
  EXPECT_EQ(sail.FootRound, -1);
  EXPECT_EQ(sail.GaffRound, -1);
}

TEST(Rounds, AreNotNormalised) {
  SailDefinition sail;
  EnterField(sail, LuffRond, "-12,5");
  EXPECT_EQ(sail.LuffRound, -12);
}

TEST(Rounds, OfTheGaffAreHeldAtSixteenBits) {
  SailDefinition sail;
  EnterField(sail, GaffRond, "32768");
  EXPECT_EQ(sail.GaffRound, 32767);
  EnterField(sail, GaffRond, "-32769");
  EXPECT_EQ(sail.GaffRound, -32768);
}

TEST(RoundPositions, AreLimitedAndPainted) {
  SailDefinition sail;
  EXPECT_EQ(EnterField(sail, LuffRondPos, "70").Colour, FieldColour::Yellow);
  EXPECT_EQ(sail.LuffRoundPos, 65);
  EXPECT_EQ(EnterField(sail, LuffRondPos, "20").Colour, FieldColour::Yellow);
  EXPECT_EQ(sail.LuffRoundPos, 35);
  EXPECT_EQ(EnterField(sail, LuffRondPos, "50").Colour, FieldColour::Normal);
  EXPECT_EQ(sail.LuffRoundPos, 50);
  EXPECT_EQ(EnterField(sail, LeechRondPos, "65.9").Colour, FieldColour::Normal);
  EXPECT_EQ(sail.LeechRoundPos, 65);
  EXPECT_EQ(EnterField(sail, LeechRondPos, "66").Colour, FieldColour::Yellow);
  EXPECT_EQ(sail.LeechRoundPos, 65);
  EXPECT_EQ(EnterField(sail, LeechRondPos, "-35").Colour, FieldColour::Normal);
  EXPECT_EQ(sail.LeechRoundPos, 35);
  EXPECT_EQ(EnterField(sail, LeechRondPos, "34.9").Colour, FieldColour::Yellow);
  EXPECT_EQ(sail.LeechRoundPos, 35);
  EXPECT_EQ(EnterField(sail, LeechRondPos, "1E999").Colour, FieldColour::Yellow);
  EXPECT_EQ(sail.LeechRoundPos, 65);
}

TEST(RoundPositions, AreTheOnlyFieldsPainted) {
  for (const DimensionFieldInfo& info : DimensionFields()) {
    SailDefinition sail = ComputedSail();
    const FieldColour colour = EnterField(sail, info.Field, "50").Colour;
    const bool isPosition = info.Field == LuffRondPos || info.Field == LeechRondPos;
    EXPECT_EQ(colour, isPosition ? FieldColour::Normal : FieldColour::Unchanged);
  }
}

// --- Angles, depths, cloth, name ---------------------------------------------------------------

TEST(Angles, AreTypedInDegrees) {
  SailDefinition sail;
  EnterField(sail, LuffRake, "2,5");
  EnterField(sail, GaffA, "40");
  EnterField(sail, Twistxt, "-12");
  EXPECT_DOUBLE_EQ(sail.LuffRake, 2.5 / 57.2957795130823);
  EXPECT_DOUBLE_EQ(sail.GaffAngle, 40 / 57.2957795130823);
  EXPECT_DOUBLE_EQ(sail.TwistAngle, -12 / 57.2957795130823);
}

TEST(Angles, ShowAWholeDegreeAsItWasTyped) {
  SailDefinition sail;
  for (int degrees = 1; degrees <= 179; ++degrees) {
    EnterField(sail, GaffA, std::to_string(degrees));
    EXPECT_EQ(FieldText(sail, GaffA), std::to_string(degrees));
  }
}

TEST(Angles, AreHeldWithinTheirLimits) {
  SailDefinition sail;
  const auto shownAfter = [&sail](DimensionField field, const char* typed) {
    EnterField(sail, field, typed);
    return FieldText(sail, field);
  };
  EXPECT_EQ(shownAfter(GaffA, "0"), "1");
  EXPECT_EQ(shownAfter(GaffA, "-30"), "1");
  EXPECT_EQ(shownAfter(GaffA, "180"), "179");
  EXPECT_EQ(shownAfter(LuffRake, "1E999"), "89");
  EXPECT_EQ(shownAfter(LuffRake, "-90"), "-89");
  EXPECT_EQ(shownAfter(Twistxt, "90"), "89");
  EXPECT_EQ(shownAfter(Twistxt, "-400"), "-89");
}

TEST(Depths, AreLimitedAsSoonAsTheyAreTyped) {
  SailDefinition sail;
  EnterField(sail, SDepth1, "4");
  EXPECT_EQ(sail.Depth, (std::array<double, 3>{3, 5, 5}));
  EnterField(sail, SDepth0, "3,6");
  EXPECT_EQ(sail.Depth, (std::array<double, 3>{3, 5, 5}));  // Int(5.5 x 0.7)
  EnterField(sail, SDepth2, "1");
  EXPECT_EQ(sail.Depth, (std::array<double, 3>{3, 5, 2}));  // Int(1.5) + 1
  EnterField(sail, SDepth0, "2;25");
  EXPECT_EQ(sail.Depth[kFoot], 2.25);
}

TEST(Cloth, IsWholeMillimetresOfSixteenBits) {
  SailDefinition sail;
  EnterField(sail, DimensionField::ClothWidth, "-900,7");
  EnterField(sail, DimensionField::SeamWidth, "15.9");
  EXPECT_EQ(sail.ClothWidth, 900);
  EXPECT_EQ(sail.SeamWidth, 15);
  EnterField(sail, DimensionField::ClothWidth, "40000");
  EnterField(sail, DimensionField::SeamWidth, "1E999");
  EXPECT_EQ(sail.ClothWidth, 32767);
  EXPECT_EQ(sail.SeamWidth, 32767);
}

TEST(Name, IsTakenAsTypedWithoutControlCharacters) {
  SailDefinition sail;
  EnterField(sail, DimensionField::SailName, " Grand'voile d'été,\r\n 2 \t");
  EXPECT_EQ(sail.SailName, " Grand'voile d'été, 2 ");
}

TEST(Leaving, RecomputesTheOutlineForSixFields) {
  int count = 0;
  for (const DimensionFieldInfo& info : DimensionFields())
    count += LeavingRecomputesOutline(info.Field) ? 1 : 0;
  EXPECT_EQ(count, 6);
  for (const DimensionField field : {Diag, GaffA, LuffRond, LeechRond, FootRond, GaffRond})
    EXPECT_TRUE(LeavingRecomputesOutline(field));
}

TEST(Entering, ChangesNothingButWhatTheRulesName) {
  SailDefinition sail = ComputedSail();
  EnterField(sail, LuffRond, "90");
  SailDefinition expected = ComputedSail();
  expected.LuffRound = 90;
  EXPECT_EQ(sail, expected);
}

}  // namespace
}  // namespace brivane
