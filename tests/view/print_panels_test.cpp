#include "view/print_panels.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <string>

#include "view/paper_checks.h"
#include "view/view_sails.h"

namespace brivane {
namespace {

using testing::ExpectOnPaper;
using testing::ExpectTextsApart;
using testing::PlainSail;
using testing::SetRectangle;

Sail SailOfPanels(int count, double length, double height) {
  Sail sail;
  sail.Definition = PlainSail();
  sail.Definition.SailName = "Misaine";
  sail.Definition.PanelCount = static_cast<std::int16_t>(count);
  for (int panel = 0; panel < count; ++panel)
    SetRectangle(sail.Panels, panel, length * (1 - 0.9 * panel / std::max(count, 1)), height);
  return sail;
}

bool Carries(const Drawing& page, const std::string& words) {
  return std::any_of(page.Texts.begin(), page.Texts.end(),
                     [&](const DrawnText& text) { return text.Text == words; });
}

/// The outlines of the page's panels: the closed strokes of 75 points.
std::vector<Stroke> OutlinesOf(const Drawing& page) {
  std::vector<Stroke> outlines;
  for (const Stroke& stroke : page.Strokes)
    if (stroke.Points.size() == 75) outlines.push_back(stroke);
  return outlines;
}

TEST(PrintedPanels, EveryPageCarriesTheHeading) {
  const Sail sail = SailOfPanels(20, 4000, 800);
  const auto english = PrintedPanels(sail, testing::kA4, Language::English, EstimatedTextWidth);
  ASSERT_GT(english.size(), 1u);
  for (std::size_t i = 0; i < english.size(); ++i) {
    EXPECT_TRUE(Carries(english[i], "Brivane 2000 - Misaine"));
    EXPECT_TRUE(Carries(english[i], "For offset details, see file Misaine.XYZ "));
    EXPECT_TRUE(Carries(english[i], "page " + std::to_string(i + 1)));
    EXPECT_TRUE(Carries(english[i], " 1000 mm"));
  }
  const auto french = PrintedPanels(sail, testing::kA4, Language::French, EstimatedTextWidth);
  EXPECT_TRUE(Carries(french[0], "Pour cotes détaillées, voir fichier Misaine.XYZ "));
  EXPECT_TRUE(Carries(french[0], "page 1"));
}

TEST(PrintedPanels, EveryPanelIsPrintedOnceInOrder) {
  const auto pages = PrintedPanels(SailOfPanels(20, 4000, 800), testing::kA4, Language::English,
                                   EstimatedTextWidth);
  std::vector<std::string> names;
  std::size_t outlines = 0;
  for (const Drawing& page : pages) {
    outlines += OutlinesOf(page).size();
    for (const DrawnText& text : page.Texts)
      if (text.Text.starts_with("Panel ")) names.push_back(text.Text);
  }
  EXPECT_EQ(outlines, 20u);
  ASSERT_EQ(names.size(), 20u);
  EXPECT_EQ(names.front(), "Panel 01");
  EXPECT_EQ(names.back(), "Panel 20");
  EXPECT_TRUE(std::is_sorted(names.begin(), names.end()));
}

TEST(PrintedPanels, TheLongestPanelTakesNineTenthsOfThePage) {
  const Paper paper{10000, 15000};
  const auto pages =
      PrintedPanels(SailOfPanels(3, 4000, 800), paper, Language::English, EstimatedTextWidth);
  const Stroke outline = OutlinesOf(pages[0])[0];
  EXPECT_NEAR(outline.Points.front().x, 200, 0.01);
  EXPECT_NEAR(outline.Points[37].x, 9200, 0.01);
  EXPECT_NEAR(outline.Points[37].y - outline.Points[43].y, 800 * 9000.0 / 4000, 0.01);
}

TEST(PrintedPanels, OffsetsOfAPanel) {
  const auto pages = PrintedPanels(SailOfPanels(1, 3000, 800), testing::kA4, Language::English,
                                   EstimatedTextWidth);
  ASSERT_EQ(pages.size(), 1u);
  for (const char* text :
       {"X=0; Y=0", "X=500; Y=0", "X=3000; Y=0", " X=0; Y=800", " X=1500; Y=800", " X=3000; Y=800"})
    EXPECT_TRUE(Carries(pages[0], text)) << text;
}

TEST(PrintedPanels, WithoutPanelsThereIsOnePageWithTheHeadingAlone) {
  for (const int count : {0, 5}) {
    Sail sail = SailOfPanels(0, 0, 0);
    sail.Definition.PanelCount = static_cast<std::int16_t>(count);  // counted, but erased
    const auto pages = PrintedPanels(sail, testing::kA4, Language::English, EstimatedTextWidth);
    ASSERT_EQ(pages.size(), 1u);
    EXPECT_TRUE(pages[0].Strokes.empty());
    EXPECT_EQ(pages[0].Texts.size(), 3u);
    EXPECT_TRUE(Carries(pages[0], "page 1"));
  }
  EXPECT_TRUE(PrintedPanels(SailOfPanels(2, 900, 90), {0, 0}, Language::English, EstimatedTextWidth)
                  .empty());
}

TEST(PrintedPanels, APanelThatIsNotFiniteIsLeftOut) {
  Sail sail = SailOfPanels(3, 3000, 800);
  sail.Panels.PanelUpperY(1, 9) = std::nan("");
  const auto pages = PrintedPanels(sail, testing::kA4, Language::English, EstimatedTextWidth);
  EXPECT_TRUE(Carries(pages[0], "Panel 01"));
  EXPECT_FALSE(Carries(pages[0], "Panel 02"));
  EXPECT_TRUE(Carries(pages[0], "Panel 03"));
}

struct PanelsCase {
  int Count;
  double Length, Height;
};

class PanelsOnPaper : public ::testing::TestWithParam<PanelsCase> {};

TEST_P(PanelsOnPaper, NothingLeavesThePageAndNoTextsOverprint) {
  const PanelsCase& param = GetParam();
  for (const std::size_t nameLength : {std::size_t{7}, std::size_t{200}}) {
    Sail sail = SailOfPanels(param.Count, param.Length, param.Height);
    sail.Definition.SailName = std::string(nameLength, 'W');
    for (const Paper& paper : testing::kPapers) {
      const auto pages = PrintedPanels(sail, paper, Language::French, EstimatedTextWidth);
      std::size_t outlines = 0;
      for (const Drawing& page : pages) {
        ExpectOnPaper(page, paper, EstimatedTextWidth);
        ExpectTextsApart(page, EstimatedTextWidth);
        outlines += OutlinesOf(page).size();
        for (const DrawnText& text : page.Texts) EXPECT_GE(text.Size, 80) << text.Text;
      }
      EXPECT_EQ(outlines, static_cast<std::size_t>(param.Count));
    }
  }
}

INSTANTIATE_TEST_SUITE_P(Sizes, PanelsOnPaper,
                         ::testing::Values(PanelsCase{1, 3000, 800}, PanelsCase{7, 4000, 890},
                                           PanelsCase{70, 2500, 60}, PanelsCase{70, 19000, 250},
                                           PanelsCase{5, 300, 1500}, PanelsCase{2, 150, 40}));

}  // namespace
}  // namespace brivane
