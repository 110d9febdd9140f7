#include "model/dimension_fields.h"

#include <gtest/gtest.h>

#include <set>
#include <string>

#include "model/failures.h"
#include "model/number_text.h"

namespace brivane {
namespace {

using enum DimensionField;

TEST(FieldText, ShowsAnglesBeyondAllDegrees) {
  SailDefinition sail;
  sail.LuffRake = 1e308;
  sail.GaffAngle = -1e308;
  EXPECT_EQ(FieldText(sail, DimensionField::LuffRake), "1.79769313486232E+308");
  EXPECT_EQ(FieldText(sail, DimensionField::GaffA), "-1.79769313486232E+308");
}

TEST(DimensionFields, HaveTheirCaptions) {
  const auto captionOf = [](DimensionField field) {
    const BilingualText& caption = InfoOf(field).Caption;
    return std::string(caption.English) + "/" + std::string(caption.French);
  };
  EXPECT_EQ(captionOf(Luff), "Luff length/Longueur guindant");
  EXPECT_EQ(captionOf(LuffRake), "Luff rake/Inclinaison guindant");
  EXPECT_EQ(captionOf(LuffRond), "Luff round/Rond de guindant");
  EXPECT_EQ(captionOf(LuffRondPos), "Luff round position/Position du rond de guindant");
  EXPECT_EQ(captionOf(Foot), "Foot length/Longueur bordure");
  EXPECT_EQ(captionOf(FootRond), "Foot round/Rond de bordure");
  EXPECT_EQ(captionOf(Diag), "Diagonal length/Longueur diagonale");
  EXPECT_EQ(captionOf(Gaff), "Gaff length/Longueur vergue");
  EXPECT_EQ(captionOf(GaffRond), "Gaff round/Rond de vergue");
  EXPECT_EQ(captionOf(GaffA), "Gaff angle / luff/Angle de la vergue / guindant");
  EXPECT_EQ(captionOf(LeechRond), "Leech roach/Rond de chute");
  EXPECT_EQ(captionOf(LeechRondPos), "Leech roach position/Position du rond de chute");
  EXPECT_EQ(captionOf(DimensionField::SailName), "Sail file name/Nom fichier voile");
  EXPECT_EQ(captionOf(SDepth0), "Foot depth/Creux bordure");
  EXPECT_EQ(captionOf(SDepth1), "Max depth/Creux max");
  EXPECT_EQ(captionOf(SDepth2), "Head depth/Creux tête");
  EXPECT_EQ(captionOf(Twistxt), "Twist angle head/foot/Angle vrillage tête/bordure");
  EXPECT_EQ(captionOf(DimensionField::ClothWidth), "Usefull cloth width/Largeur utile du tissu");
  EXPECT_EQ(captionOf(DimensionField::SeamWidth), "Seams width/Largeur des coutures");
  EXPECT_EQ(kLeechLengthCaption.English, "Leech length =");
  EXPECT_EQ(kLeechLengthCaption.French, "Longueur chute =");
  EXPECT_EQ(kLpCaption.English, "LP =");
  EXPECT_EQ(kLpCaption.French, "LP =");
  EXPECT_EQ(kSailAreaCaption.English, "Sail area =");
  EXPECT_EQ(kSailAreaCaption.French, "Surface voile =");
}

TEST(DimensionFields, AreAllTold) {
  std::set<std::string_view> names;
  for (const DimensionFieldInfo& info : DimensionFields()) {
    names.insert(info.ControlName);
    EXPECT_EQ(&InfoOf(info.Field), &info);
    EXPECT_FALSE(info.Tooltip.English.empty()) << info.ControlName;
    EXPECT_FALSE(info.Tooltip.French.empty()) << info.ControlName;
    EXPECT_EQ(info.Unit.empty(), info.Field == DimensionField::SailName) << info.ControlName;
  }
  EXPECT_EQ(names.size(), DimensionFields().size());
  EXPECT_EQ(InfoOf(GaffA).Unit, "°");
  EXPECT_EQ(InfoOf(SDepth1).Unit, "%");
  EXPECT_EQ(InfoOf(Luff).Unit, "mm");
}

TEST(DimensionFields, ShowEveryFieldOfTheDefaultSail) {
  const SailDefinition sail;
  const std::string expected[] = {"4550", "2",  // 0.05 rad = 2.86 degrees
                                  "100",  "50", "3600",    "170", "5750", "2600", "130",
                                  "40",  // 0.7 rad = 40.1 degrees
                                  "-100", "60", "Newsail", "3",   "10",   "5",
                                  "12",  // 0.21 rad = 12.03 degrees
                                  "890",  "20"};
  for (const DimensionFieldInfo& info : DimensionFields())
    EXPECT_EQ(FieldText(sail, info.Field), expected[static_cast<std::size_t>(info.Field)])
        << info.ControlName;
}

TEST(DimensionFields, ShowFractionsAsTheyReadThemBack) {
  SailDefinition sail;
  sail.Depth[kTop] = 0.5;
  sail.LuffLength = 4550.25;
  EXPECT_EQ(FieldText(sail, SDepth2), "0.5");
  EXPECT_EQ(FieldText(sail, Luff), "4550.25");
}

TEST(DimensionFields, RefuseWhatIsNoField) {
  EXPECT_EQ(FieldText({}, static_cast<DimensionField>(19)), "");
  EXPECT_THROW(InfoOf(static_cast<DimensionField>(19)), std::out_of_range);
}

TEST(WholeDegrees, AreTheWholePart) {
  EXPECT_EQ(WholeDegrees(0.7), 40);
  EXPECT_EQ(WholeDegrees(0), 0);
  EXPECT_EQ(WholeDegrees(-0.05), -3);  // -2.86
}

TEST(WholeDegrees, ComeBackAsTheyWereTyped) {
  for (int degrees = -180; degrees <= 180; ++degrees) {
    const double radians = degrees / 57.2957795130823;
    EXPECT_EQ(WholeDegrees(radians), degrees);
    EXPECT_EQ(WholeDegrees(Val(StrNum(radians))), degrees) << "by way of a file";
  }
}

TEST(KeyFilter, LetsNumbersThrough) {
  for (const DimensionFieldInfo& info : DimensionFields()) {
    if (info.Field == DimensionField::SailName) continue;
    for (const char32_t character : std::u32string_view(U"0123456789+-.,; "))
      EXPECT_TRUE(MayBeTyped(info.Field, character)) << info.ControlName;
    for (const char32_t character : std::u32string_view(U"aE%/*()\xE9\u20AC"))
      EXPECT_FALSE(MayBeTyped(info.Field, character)) << info.ControlName;
  }
}

TEST(KeyFilter, LetsFileNamesThrough) {
  for (const char32_t character : std::u32string_view(U"aZ09 _-.,;'éœ帆~()&"))
    EXPECT_TRUE(MayBeTyped(DimensionField::SailName, character));
  for (const char32_t character : std::u32string_view(U"/\\:*?\"<>|\n\t\x7F"))
    EXPECT_FALSE(MayBeTyped(DimensionField::SailName, character));
  EXPECT_FALSE(MayBeTyped(DimensionField::SailName, U'\0'));
}

TEST(ResultDisplays, CutTheLpAndRoundTheLeech) {
  SailDefinition sail;
  sail.ClewPoint.x = 3599.4;
  sail.LeechLength = 6543.5;
  EXPECT_EQ(LpText(sail), " 3599");
  EXPECT_EQ(LeechLengthText(sail), " 6544");
  sail.ClewPoint.x = -0.5;
  sail.LeechLength = 6543.49;
  EXPECT_EQ(LpText(sail), "-1");
  EXPECT_EQ(LeechLengthText(sail), " 6543");
}

TEST(ResultDisplays, ShowTheAreaWithTwoDecimals) {
  SailDefinition sail;
  sail.SailArea = 9.99;
  EXPECT_EQ(SailAreaText(sail, '.'), "9.99");
  EXPECT_EQ(SailAreaText(sail, ','), "9,99");
  sail.SailArea = 16;
  EXPECT_EQ(SailAreaText(sail, '.'), "16.00");
}

TEST(BilingualText, SpeaksBothLanguages) {
  EXPECT_EQ(kSailAreaCaption.In(Language::English), "Sail area =");
  EXPECT_EQ(kSailAreaCaption.In(Language::French), "Surface voile =");
}

}  // namespace
}  // namespace brivane
