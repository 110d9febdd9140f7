#include "view/data_listing.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <limits>

#include "model/failures.h"
#include "view/paper_checks.h"

namespace brivane {
namespace {

using testing::ExpectOnPaper;

/// The default sail with computed fields that are easy to follow.
SailDefinition ListedSail() {
  SailDefinition sail;
  sail.LeechLength = 6749.999;
  sail.SailArea = 18.5;
  sail.PanelCount = 8;
  return sail;
}

ListingLine Item(const char* label, const char* value) { return {{18, label}, {32, value}}; }

const ListingLine kBlankLine;

TEST(DataListing, EnglishLineByLine) {
  const std::vector<ListingLine> expected = {
      kBlankLine,
      {{14, "Brivane 2000 -  File of sail: Newsail"}},
      kBlankLine,
      Item("Luff length ", "= 4550 mm"),
      Item("Luff rake ", "= 3 deg"),  // 2.86 + 0.5
      kBlankLine,
      Item("Foot length ", "= 3600 mm"),
      kBlankLine,
      Item("Diagonal length ", "= 5750 mm"),
      Item("Leech length ", "= 6749 mm"),
      kBlankLine,
      Item("Gaff length ", "= 2600 mm"),
      Item("Angle gaff/luff ", "= 40 deg"),
      kBlankLine,
      Item("Surface ", "= 18.5 m2"),
      kBlankLine,
      {{18, "TWISTFOOTCUT"}},
      kBlankLine,
      Item("Round luff ", "= 100 mm"),
      Item("    position ", "= 50 %"),
      kBlankLine,
      Item("Round leech ", "=-100 mm"),
      Item("    position ", "= 60 %"),
      kBlankLine,
      Item("Round foot ", "= 170 mm"),
      kBlankLine,
      Item("Round gaff ", "= 130 mm"),
      kBlankLine,
      Item("Twist angle ", "= 12 deg"),
      kBlankLine,
      {{18, "Depth of sail profile"}},
      Item("    Foot ", "= 3 %"),
      Item("    Middle ", "= 10 %"),
      Item("    Top ", "= 5 %"),
      kBlankLine,
      {{18, "Vertical position of max depth = 4 "}},
      kBlankLine,
      {{18, "Profile shape factor : middle of sail"}},
      Item("    Luff side ", "= 3 "),
      Item("    Leech side ", "= 30 "),
      kBlankLine,
      {{18, "Profile shape factor : top of sail"}},
      Item("    Luff side ", "= 6 "),
      Item("    Leech side ", "= 40 "),
      kBlankLine,
      Item("Cloth width ", "= 890 mm"),
      Item("Seams width ", "= 20 mm"),
      kBlankLine,
      Item("Number of panels ", "= 8 "),
      kBlankLine,
      {{14, "-------------------------------------------------"}},
  };
  const std::vector<ListingLine> listing = DataListing(ListedSail(), Language::English);
  ASSERT_EQ(listing.size(), expected.size());
  for (std::size_t i = 0; i < expected.size(); ++i) EXPECT_EQ(listing[i], expected[i]) << i + 1;
  EXPECT_EQ(listing.back()[0].Text.size(), 49u);
}

TEST(DataListing, FrenchLineByLine) {
  const std::vector<ListingLine> expected = {
      kBlankLine,
      {{14, "Brivane 2000 -  Fichier de la voile: Newsail"}},
      kBlankLine,
      Item("Longueur guindant ", "= 4550 mm"),
      Item("Inclinaison guindant", "= 3 deg"),
      kBlankLine,
      Item("Longueur bordure ", "= 3600 mm"),
      kBlankLine,
      Item("Longueur diagonale ", "= 5750 mm"),
      Item("Longueur chute ", "= 6749 mm"),
      kBlankLine,
      Item("Longueur vergue ", "= 2600 mm"),
      Item("Angle vergue/guindant ", "= 40 deg"),
      kBlankLine,
      Item("Surface ", "= 18.5 m2"),
      kBlankLine,
      {{18, "TWISTFOOTCUT"}},
      kBlankLine,
      Item("Rond guindant ", "= 100 mm"),
      Item("     position ", "= 50 %"),
      kBlankLine,
      Item("Rond chute ", "=-100 mm"),
      Item("     position ", "= 60 %"),
      kBlankLine,
      Item("Rond bordure ", "= 170 mm"),
      kBlankLine,
      Item("Rond Vergue ", "= 130 mm"),
      kBlankLine,
      Item("Angle de vrillage ", "= 12 deg"),
      kBlankLine,
      {{18, "Creux de la voile"}},
      Item("    bordure ", "= 3 %"),
      Item("    milieu ", "= 10 %"),
      Item("    haut ", "= 5 %"),
      kBlankLine,
      {{18, "Position verticale du creux maximum = 4 "}},
      kBlankLine,
      {{18, "Facteur de forme du profile milieu"}},
      Item("    coté guindant ", "= 3 "),
      Item("    coté chute ", "= 30 "),
      kBlankLine,
      {{18, "Facteur de forme du profile haut"}},
      Item("    coté guindant ", "= 6 "),
      Item("    coté chute ", "= 40 "),
      kBlankLine,
      Item("Largueur du tissu ", "= 890 mm"),
      Item("Largeur des coutures ", "= 20 mm"),
      kBlankLine,
      Item("Nombre de panneaux ", "= 8 "),
      kBlankLine,
      {{14, "--------------------------------------------------"}},
  };
  const std::vector<ListingLine> listing = DataListing(ListedSail(), Language::French);
  ASSERT_EQ(listing.size(), expected.size());
  for (std::size_t i = 0; i < expected.size(); ++i) EXPECT_EQ(listing[i], expected[i]) << i + 1;
  EXPECT_EQ(listing.back()[0].Text.size(), 50u);
}

TEST(DataListing, OnePanelOrNoneIsNotCounted) {
  SailDefinition sail = ListedSail();
  for (const int panels : {0, 1}) {
    sail.PanelCount = static_cast<std::int16_t>(panels);
    const auto listing = DataListing(sail, Language::English);
    ASSERT_EQ(listing.size(), 49u);
    EXPECT_EQ(listing[46], Item("Seams width ", "= 20 mm"));
    EXPECT_TRUE(listing[47].empty());
    EXPECT_EQ(listing[48][0].Column, 14);
  }
  sail.PanelCount = 2;
  EXPECT_EQ(DataListing(sail, Language::English)[48], Item("Number of panels ", "= 2 "));
}

TEST(DataListing, LengthsAndAnglesInTheirOwnForms) {
  SailDefinition sail = ListedSail();
  sail.LuffLength = 4550.5;
  sail.LeechLength = 5000;
  sail.LuffRake = -0.05;     // −2.86 + 0.5, towards minus infinity
  sail.TwistAngle = 0.0087;  // 0.498°
  sail.DepthPosition = 2.5;
  sail.Depth[kFoot] = 0.25;
  sail.LeechShape[kMiddle] = 0.001;
  const auto listing = DataListing(sail, Language::English);
  EXPECT_EQ(listing[3][1].Text, "= 4550.5 mm");
  EXPECT_EQ(listing[4][1].Text, "=-3 deg");
  EXPECT_EQ(listing[9][1].Text, "= 5000 mm");
  EXPECT_EQ(listing[28][1].Text, "= 0 deg");
  EXPECT_EQ(listing[31][1].Text, "= .25 %");
  EXPECT_EQ(listing[35][0].Text, "Vertical position of max depth = 2.5 ");
  EXPECT_EQ(listing[39][1].Text, "= .5 ");
}

TEST(DataListing, AValueThatIsNotFiniteIsAFault) {
  SailDefinition sail = ListedSail();
  sail.SailArea = std::numeric_limits<double>::infinity();
  EXPECT_THROW(DataListing(sail, Language::English), GeometryFault);
}

TEST(DataListing, TextWithItsColumns) {
  const auto text = ListingText(DataListing(ListedSail(), Language::English));
  EXPECT_EQ(text[0], "");
  EXPECT_EQ(text[1], "             Brivane 2000 -  File of sail: Newsail");
  EXPECT_EQ(text[3], "                 Luff length   = 4550 mm");
  EXPECT_EQ(text[3].find('='), 31u);
  // Sixteen characters from column 18 reach beyond column 32.
  EXPECT_EQ(text[8], "                 Diagonal length = 5750 mm");
  const auto french = ListingText(DataListing(ListedSail(), Language::French));
  EXPECT_EQ(french[38], "                     coté guindant = 3 ");
}

double NarrowText(std::string_view text, double size) {
  return 0.45 * size * static_cast<double>(CharacterCount(text));
}

TEST(ListingPage, EveryPaperHoldsTheWholeListing) {
  for (const Language language : {Language::English, Language::French}) {
    for (const std::size_t nameLength : {std::size_t{7}, std::size_t{200}}) {
      SailDefinition sail = ListedSail();
      sail.SailName = std::string(nameLength, 'n');
      const auto listing = DataListing(sail, language);
      for (const TextMeasure& measure :
           {TextMeasure(EstimatedTextWidth), TextMeasure(NarrowText)}) {
        for (const Paper& paper : testing::kPapers) {
          const Drawing page = ListingPage(listing, paper, measure);
          ExpectOnPaper(page, paper, measure);
          testing::ExpectTextsApart(page, measure);
          std::string all;
          for (const DrawnText& text : page.Texts) {
            all += text.Text;
            EXPECT_GE(text.Size, 80);
          }
          EXPECT_NE(all.find("= 4550 mm"), std::string::npos);
          EXPECT_GT(std::count(all.begin(), all.end(), 'n'), static_cast<long>(nameLength));
        }
      }
    }
  }
}

TEST(ListingPage, ValuesStandInOneColumnRightOfEveryLabel) {
  const auto listing = DataListing(ListedSail(), Language::French);
  const Drawing page = ListingPage(listing, testing::kA4, EstimatedTextWidth);
  double valueLeft = -1;
  for (const DrawnText& text : page.Texts) {
    if (text.Text.front() != '=') continue;
    if (valueLeft < 0) valueLeft = text.At.x;
    EXPECT_EQ(text.At.x, valueLeft);
  }
  for (const DrawnText& text : page.Texts) {
    if (text.Text == "Angle vergue/guindant ") {
      EXPECT_NEAR(text.At.x + EstimatedTextWidth(text.Text, text.Size), valueLeft, 1e-6);
      EXPECT_NEAR(text.At.x / valueLeft, 17.0 / 31, 1e-9);
    }
  }
}

}  // namespace
}  // namespace brivane
