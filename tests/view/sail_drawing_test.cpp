#include "view/sail_drawing.h"

#include <gtest/gtest.h>

#include <cmath>
#include <stdexcept>
#include <string>
#include <vector>

#include "view/outline_curve.h"
#include "view/view_sails.h"

namespace brivane {
namespace {

using testing::PlainSail;

constexpr PictureSize kPicture{12000, 9000};

ViewState View() {
  ViewState view;
  view.ViewScale = 1;
  view.ViewOffsetX = 1000;
  view.ViewOffsetY = 500;
  return view;
}

Drawing LabelsOf(const SailDefinition& sail, Language language) {
  Drawing drawing;
  AppendLabels(sail, View(), language, drawing);
  return drawing;
}

std::vector<std::string> TextsOf(const Drawing& drawing) {
  std::vector<std::string> texts;
  for (const DrawnText& text : drawing.Texts) texts.push_back(text.Text);
  return texts;
}

/// A grid whose lines are level, line i at y = 500·i, from x = 100 to x = 2100, depth 50.
Sail SailWithLines(int panels) {
  Sail sail;
  sail.Definition = PlainSail();
  sail.Definition.PanelCount = static_cast<std::int16_t>(panels);
  for (int i = 0; i <= panels; ++i) {
    for (int j = 0; j <= kLastPoint; ++j) {
      sail.Grid.SurfaceX(i, j) = 100 + 50.0 * j;
      sail.Grid.SurfaceY(i, j) = 500.0 * i;
      sail.Grid.SurfaceZ(i, j) = 50;
    }
  }
  return sail;
}

TEST(SailDrawing, OutlineOfFourEdgesAndTheDashedRedDiagonal) {
  Drawing drawing;
  AppendOutline(PlainSail(), View(), drawing);
  ASSERT_EQ(drawing.Strokes.size(), 5u);
  for (int edge = 0; edge < 4; ++edge) {
    const Stroke& stroke = drawing.Strokes[static_cast<std::size_t>(edge)];
    EXPECT_EQ(stroke.Points.size(), 21u);
    EXPECT_EQ(stroke.Ink, (Colour{0, 0, 0}));
    EXPECT_EQ(stroke.Pen, PenStyle::Solid);
  }
  EXPECT_EQ(drawing.Strokes[0].Points.front(), (PlanePoint{1000, 500}));   // tack
  EXPECT_EQ(drawing.Strokes[1].Points.front(), (PlanePoint{1000, 3500}));  // throat
  EXPECT_EQ(drawing.Strokes[2].Points.front(), (PlanePoint{1600, 4300}));  // peak
  EXPECT_EQ(drawing.Strokes[3].Points.front(), (PlanePoint{5000, 500}));   // clew
  EXPECT_EQ(drawing.Strokes[3].Points.back(), (PlanePoint{1000, 500}));
  const Stroke& diagonal = drawing.Strokes[4];
  EXPECT_EQ(diagonal.Ink, (Colour{255, 0, 0}));
  EXPECT_EQ(diagonal.Pen, PenStyle::Dashed);
  EXPECT_EQ(diagonal.Points, (std::vector<PlanePoint>{{1000, 3500}, {5000, 500}}));
}

TEST(SailDrawing, TheOutlineIsStoodUpright) {
  SailDefinition sail = PlainSail();
  sail.LuffRake = std::asin(0.6);
  Drawing drawing;
  AppendOutline(sail, View(), drawing);
  // The throat (0, 3000) turns to (1800, 2400), the clew (4000, 0) to (3200, −2400).
  EXPECT_NEAR(drawing.Strokes[0].Points.back().x, 2800, 1e-3);
  EXPECT_NEAR(drawing.Strokes[0].Points.back().y, 2900, 1e-3);
  EXPECT_NEAR(drawing.Strokes[4].Points.back().x, 4200, 1e-3);
  EXPECT_NEAR(drawing.Strokes[4].Points.back().y, -1900, 1e-3);
}

TEST(SailDrawing, GaffAndFootRoundsUseTheirStoredPositions) {
  SailDefinition sail = PlainSail();
  sail.FootRound = 200;
  sail.FootRoundPos = 40;
  Drawing drawing;
  AppendOutline(sail, View(), drawing);
  // The foot runs from the clew: 8 / 20 of 4000 is x = 2400.
  EXPECT_NEAR(drawing.Strokes[3].Points[8].x, 3400, 1e-3);
  EXPECT_NEAR(drawing.Strokes[3].Points[8].y, 300, 1e-3);
}

TEST(SailDrawing, LabelsOfAGaffSail) {
  const Drawing english = LabelsOf(PlainSail(), Language::English);
  EXPECT_EQ(TextsOf(english), (std::vector<std::string>{"Luff", "Head", "Foot", "clew", " Diagonal",
                                                        "Leech", " Gaff"}));
  const std::vector<PlanePoint> places = {{1050, 1500}, {1700, 4150}, {3000, 600}, {5050, 500},
                                          {3000, 1750}, {3400, 2400}, {1300, 3900}};
  for (std::size_t i = 0; i < places.size(); ++i) {
    EXPECT_NEAR(english.Texts[i].At.x, places[i].x, 1e-3) << i;
    EXPECT_NEAR(english.Texts[i].At.y, places[i].y, 1e-3) << i;
    EXPECT_EQ(english.Texts[i].Ink, i == 4 ? (Colour{255, 0, 0}) : (Colour{0, 0, 0})) << i;
  }
  const Drawing french = LabelsOf(PlainSail(), Language::French);
  EXPECT_EQ(TextsOf(french), (std::vector<std::string>{"Guindant", "Tête", "Bordure", "écoute",
                                                       " Diagonale", "Chute", " Vergue"}));
  for (std::size_t i = 0; i < places.size(); ++i)
    EXPECT_EQ(french.Texts[i].At, english.Texts[i].At);
}

TEST(SailDrawing, LabelsOfATriangularSail) {
  SailDefinition sail = PlainSail();
  sail.GaffLength = 5;
  const Drawing english = LabelsOf(sail, Language::English);
  EXPECT_EQ(TextsOf(english),
            (std::vector<std::string>{"Luff", "Head", "Foot", "clew", " Diagonal = Leech"}));
  EXPECT_EQ(english.Texts[4].At, (PlanePoint{3100, 2000}));
  EXPECT_EQ(english.Texts[4].Ink, (Colour{0, 0, 0}));
  EXPECT_EQ(TextsOf(LabelsOf(sail, Language::French)).back(), " Diagonale = Chute");
  sail.GaffLength = 6;
  EXPECT_EQ(TextsOf(LabelsOf(sail, Language::English)).back(), " Gaff");
}

TEST(SailDrawing, SurfaceLinesFromTheFirstBoundaryToTheLast) {
  ViewState view = View();
  view.Mode = RedrawMode::Surface;
  const Drawing drawing = SailDrawing(SailWithLines(3), view, kPicture, 0, 0, Language::English);
  ASSERT_EQ(drawing.Strokes.size(), 4u);
  for (std::size_t i = 0; i < 4; ++i) {
    const Stroke& line = drawing.Strokes[i];
    EXPECT_EQ(line.Ink, (Colour{0, 0, 255}));
    EXPECT_EQ(line.Pen, PenStyle::Solid);
    ASSERT_EQ(line.Points.size(), 41u);
    EXPECT_EQ(line.Points.front(), (PlanePoint{1100, 500 + 500.0 * static_cast<double>(i)}));
    EXPECT_EQ(line.Points.back(), (PlanePoint{3100, 500 + 500.0 * static_cast<double>(i)}));
  }
}

TEST(SailDrawing, SurfaceLinesTurnWithTheAzimuth) {
  ViewState view = View();
  view.Mode = RedrawMode::Surface;
  const double azimuth = std::asin(0.6);
  const Drawing drawing =
      SailDrawing(SailWithLines(1), view, kPicture, azimuth, 0, Language::English);
  // x = 100: (100 − 2000) · 0.8 + 50 · 0.6 + 2000 = 510, and 1000 of offset.
  EXPECT_NEAR(drawing.Strokes[0].Points.front().x, 1510, 1e-3);
  EXPECT_EQ(drawing.Strokes[0].Points.front().y, 500);
}

TEST(SailDrawing, LinesOutsideTheGridAreAnError) {
  const Sail sail = SailWithLines(1);
  const SurfaceMapping mapping(sail.Definition, View(), 0, 0);
  Drawing drawing;
  EXPECT_NO_THROW(AppendSeamLine(sail.Grid, mapping, 91, drawing));
  EXPECT_THROW(AppendSeamLine(sail.Grid, mapping, 92, drawing), std::out_of_range);
  EXPECT_THROW(AppendSeamLine(sail.Grid, mapping, -1, drawing), std::out_of_range);
}

TEST(SailDrawing, ReadoutsOfTheStraightOnView) {
  Drawing drawing;
  AppendAngleReadouts(kPicture, 0, 0, drawing);
  ASSERT_EQ(drawing.Texts.size(), 2u);
  EXPECT_EQ(drawing.Texts[0].Text, "azimuth= 90");
  EXPECT_EQ(drawing.Texts[0].At, (PlanePoint{6000, 9100}));
  EXPECT_EQ(drawing.Texts[0].Ink, (Colour{0, 0, 0}));
  EXPECT_FALSE(drawing.Texts[0].Follows);
  EXPECT_EQ(drawing.Texts[1].Text, "   elevation= 0");
  EXPECT_EQ(drawing.Texts[1].Ink, (Colour{0, 0, 0}));
  EXPECT_TRUE(drawing.Texts[1].Follows);
}

TEST(SailDrawing, ReadoutsOfTurnedViews) {
  Drawing drawing;
  AppendAngleReadouts(kPicture, 1.57, -0.5, drawing);
  EXPECT_EQ(drawing.Texts[0].Text, "azimuth= 180");  // 89.95 + 90.5
  EXPECT_EQ(drawing.Texts[0].Ink, (Colour{255, 50, 0}));
  EXPECT_EQ(drawing.Texts[1].Text, "   elevation=-29");  // Int(−28.65 + 0.5)
  EXPECT_EQ(drawing.Texts[1].Ink, (Colour{255, 50, 0}));
  Drawing other;
  AppendAngleReadouts(kPicture, -1.57, 0, other);
  EXPECT_EQ(other.Texts[0].Text, "azimuth= 0");
  EXPECT_EQ(other.Texts[1].Ink, (Colour{0, 0, 0}));
}

TEST(SailDrawing, TheModeChoosesTheContent) {
  ViewState view = View();
  EXPECT_EQ(ContentOf(view), (PictureContent{true, true, false, false}));
  view.Mode = RedrawMode::Surface;
  view.DevelopShown = true;
  EXPECT_EQ(ContentOf(view), (PictureContent{false, false, true, true}));

  const Drawing outline = SailDrawing(SailWithLines(2), View(), kPicture, 0, 0, Language::English);
  EXPECT_EQ(outline.Strokes.size(), 5u);
  EXPECT_EQ(outline.Texts.size(), 7u);
  const Drawing both = SailDrawing(SailWithLines(2), View(), kPicture, {true, true, true, false}, 0,
                                   0, Language::English);
  EXPECT_EQ(both.Strokes.size(), 8u);
  EXPECT_EQ(both.Texts.size(), 9u);
}

TEST(SailDrawing, WithoutALayoutThereAreNoLinesAndNoPanels) {
  Sail sail;
  sail.Definition = PlainSail();
  const PictureContent everything{true, true, true, true};
  const Drawing drawing =
      SailDrawing(sail, View(), kPicture, everything, 0.3, 0, Language::English);
  EXPECT_EQ(drawing.Strokes.size(), 5u);

  sail.Definition.PanelCount = 32767;  // a count out of a file, nothing laid out
  EXPECT_EQ(
      SailDrawing(sail, View(), kPicture, everything, 0.3, 0, Language::English).Strokes.size(),
      5u);
}

TEST(SailDrawing, WithoutAnOutlineOrAFitNothingIsDrawn) {
  const PictureContent everything{true, true, true, true};
  const Drawing unfitted =
      SailDrawing(SailWithLines(2), ViewState{}, kPicture, everything, 0, 0, Language::English);
  EXPECT_TRUE(unfitted.Strokes.empty());
  EXPECT_TRUE(unfitted.Texts.empty());
  const Drawing empty = SailDrawing(Sail{}, View(), kPicture, everything, 0, 0, Language::English);
  EXPECT_TRUE(empty.Strokes.empty());
  EXPECT_TRUE(empty.Texts.empty());
}

TEST(SailDrawing, AnOverflowingViewDrawsNothingThatIsNotFinite) {
  Sail sail = SailWithLines(2);
  ViewState view = View();
  view.ViewScale = 1e300;
  const Drawing drawing =
      SailDrawing(sail, view, kPicture, {true, true, true, true}, 1, 1, Language::English);
  for (const Stroke& stroke : drawing.Strokes)
    for (const PlanePoint& point : stroke.Points)
      EXPECT_TRUE(std::isfinite(point.x) && std::isfinite(point.y));
  for (const DrawnText& text : drawing.Texts)
    EXPECT_TRUE(std::isfinite(text.At.x) && std::isfinite(text.At.y));
}

}  // namespace
}  // namespace brivane
