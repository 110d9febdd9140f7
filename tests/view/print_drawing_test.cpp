#include "view/print_drawing.h"

#include <gtest/gtest.h>

#include <cmath>
#include <random>
#include <string>

#include "view/outline_curve.h"
#include "view/page_parts.h"
#include "view/paper_checks.h"
#include "view/view_sails.h"

namespace brivane {
namespace {

using testing::ExpectOnPaper;
using testing::PlainSail;

/// The text of the page that says the length of the scale bar.
std::string BarText(const Drawing& page) {
  for (const DrawnText& text : page.Texts)
    if (text.Text.ends_with("00 mm")) return text.Text;
  return "";
}

TEST(PageParts, TheBarIsLongWhereItLeavesRoom) {
  const Paper paper{10000, 15000};
  EXPECT_EQ(ScaleBarLength(paper, 200, 2), 1000);     // 2200 < 8000
  EXPECT_EQ(ScaleBarLength(paper, 200, 7.79), 1000);  // 7990
  EXPECT_EQ(ScaleBarLength(paper, 200, 7.8), 200);    // reaches 8000
  EXPECT_EQ(ScaleBarLength(paper, 6000, 2), 200);     // the offset counts
}

TEST(PageParts, TheBarEndsAtNineTenthsOfThePage) {
  const Paper paper{10000, 15000};
  Drawing page;
  const double end = AddScaleBar(page, paper, 200, 2, 14000, 160);
  ASSERT_EQ(page.Strokes.size(), 3u);
  EXPECT_EQ(page.Strokes[0].Points, (std::vector<PlanePoint>{{7000, 14000}, {9000, 14000}}));
  ASSERT_EQ(page.Texts.size(), 1u);
  EXPECT_EQ(page.Texts[0].Text, " 1000 mm");
  EXPECT_EQ(page.Texts[0].At, (PlanePoint{7050, 13850}));
  EXPECT_EQ(end, 13850 - 200);
  Drawing small;
  AddScaleBar(small, paper, 200, 20, 14000, 160);
  EXPECT_EQ(small.Strokes[0].Points, (std::vector<PlanePoint>{{5000, 14000}, {9000, 14000}}));
  EXPECT_EQ(small.Texts[0].Text, " 200 mm");
}

TEST(PageParts, NothingIsPrintedLargerThanLife) {
  EXPECT_NEAR(HeldPrintScale(100, {1e6, 1e6}), 1440 / 25.4, 1e-9);
  EXPECT_NEAR(HeldPrintScale(30, {4000, 4000}), 17, 1e-9);  // 200 mm in 0.85 of the page
  EXPECT_EQ(HeldPrintScale(2, {4000, 4000}), 2);
}

TEST(PrintedDrawing, TheSailTakesNineTenthsAndStartsAtTheMargin) {
  const Paper paper{10000, 15000};
  SailDefinition sail = PlainSail();  // 4000 wide, 3800 high
  sail.LuffRound = 100;
  sail.FootRound = 200;  // 4100 wide, 4000 high
  const ViewState view = PrintView(sail, paper);
  EXPECT_NEAR(view.ViewScale, 9000.0 / 4100, 1e-9);
  EXPECT_NEAR(view.ViewOffsetX, 200 + 100 * 9000.0 / 4100, 1e-9);
  EXPECT_NEAR(view.ViewOffsetY, 300 + 200 * 9000.0 / 4100, 1e-9);
  const ViewState wide = PrintView(sail, {20000, 10000});
  EXPECT_NEAR(wide.ViewScale, 9000.0 / 4000, 1e-9);
}

TEST(PrintedDrawing, ASailWithoutWidthIsFittedByItsHeight) {
  SailDefinition sail = PlainSail();
  sail.ClewPoint = {0, -600, 0};
  sail.PeakPoint = {0, 3400, 0};
  EXPECT_NEAR(PrintView(sail, {10000, 20000}).ViewScale, 0.9 * 20000 / 4000, 1e-9);
}

TEST(PrintedDrawing, LuffAndBarAgreeOnThePage) {
  for (const Paper& paper : testing::kPapers) {
    const SailDefinition sail = PlainSail();
    const Drawing page = PrintedDrawing(sail, paper, Language::English, EstimatedTextWidth);
    const Stroke& bar = page.Strokes[0];
    const Stroke& luff = page.Strokes[3];
    ASSERT_EQ(luff.Points.size(), 21u);
    const double unitsOfBar = bar.Points[1].x - bar.Points[0].x;
    const double barMm = BarText(page) == " 1000 mm" ? 1000 : 200;
    const double luffUnits = luff.Points.back().y - luff.Points.front().y;
    EXPECT_NEAR(luffUnits / unitsOfBar * barMm, sail.LuffLength, 0.01);
  }
}

TEST(PrintedDrawing, TheBarChangesWhereAThousandReachEightTenths) {
  // The sail fills 0.9 of the width: 4000 mm take 0.9, 1000 mm 0.225 and 0.02 of margin.
  EXPECT_EQ(
      BarText(PrintedDrawing(PlainSail(), {10000, 15000}, Language::English, EstimatedTextWidth)),
      " 1000 mm");
  SailDefinition small = PlainSail();
  small.LuffLength = 750;
  small.ClewPoint = {1000, 0, 0};
  small.PeakPoint = {150, 950, 0};
  EXPECT_EQ(BarText(PrintedDrawing(small, {10000, 15000}, Language::English, EstimatedTextWidth)),
            " 200 mm");
}

TEST(PrintedDrawing, ThePageCarriesProgramAndSail) {
  SailDefinition sail = PlainSail();
  sail.SailName = "Misaine";
  const Drawing page = PrintedDrawing(sail, testing::kA4, Language::French, EstimatedTextWidth);
  EXPECT_EQ(page.Texts[0].Text, "Brivane 2000 - Misaine");
  EXPECT_EQ(page.Texts[2].Text, "Guindant");
}

TEST(PrintedDrawing, WithoutAnOutlineThereIsTheTitleAlone) {
  const Drawing page =
      PrintedDrawing(SailDefinition{}, testing::kA4, Language::English, EstimatedTextWidth);
  EXPECT_TRUE(page.Strokes.empty());
  ASSERT_EQ(page.Texts.size(), 1u);
  EXPECT_EQ(page.Texts[0].Text, "Brivane 2000 - Newsail");
  EXPECT_TRUE(
      PrintedDrawing(PlainSail(), {0, 0}, Language::English, EstimatedTextWidth).Texts.empty());
}

TEST(PrintedDrawing, EverySailAndNameStaysOnEveryPaper) {
  std::mt19937 random(640);
  for (int i = 0; i < 200; ++i) {
    SailDefinition sail = testing::RandomSail(random);
    if (i % 2 == 0) sail.SailName = std::string(200, 'm');
    for (const Paper& paper : testing::kPapers) {
      const Drawing page = PrintedDrawing(sail, paper, Language::French, EstimatedTextWidth);
      ExpectOnPaper(page, paper, EstimatedTextWidth);
      // Title and scale bar stay above the sail.
      const double sailTop = page.Strokes[3].Points.back().y;
      for (const DrawnText& text : page.Texts) {
        if (text.Text.ends_with("00 mm")) {
          EXPECT_GE(testing::BoxOf(text, EstimatedTextWidth).Bottom, sailTop);
        }
      }
    }
  }
}

}  // namespace
}  // namespace brivane
