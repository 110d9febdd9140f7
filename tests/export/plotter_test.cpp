#include "export/plotter.h"

#include <gtest/gtest.h>

#include <limits>
#include <sstream>

#include "export/record_text.h"
#include "model/failures.h"
#include "model/text_file.h"
#include "small_sail.h"

namespace brivane {
namespace {

// The points of the expected file with a comma; its records keep their points.
std::string GoldenWithCommas() {
  std::istringstream lines(GoldenBytes("small.bp4"));
  std::string expected;
  for (std::string line; std::getline(lines, line);)
    expected += (line.starts_with("panel") ? line : Replaced(line, '.', ',')) + '\n';
  return expected;
}

TEST(Plotter, WholeFile) {
  EXPECT_EQ(ToCodePage1252(PlotterText(SmallSail(), '.')), GoldenBytes("small.bp4"));
}

TEST(Plotter, RegionalDecimalMarkInPointsOnly) {
  EXPECT_EQ(ToCodePage1252(PlotterText(SmallSail(), ',')), GoldenWithCommas());
}

TEST(Plotter, NoPanel) {
  Sail sail;
  EXPECT_EQ(PlotterText(sail, '.'),
            "Brivane 2000 Tovarek Plotter Development: Newsail\r\nEOF Newsail\r\n");
}

TEST(Plotter, OnePanelIsTheLastAndHasNoLineToDraw) {
  Sail sail = SmallSail();
  sail.Definition.PanelCount = 1;
  const std::string text = PlotterText(sail, '.');
  EXPECT_EQ(text.find("draw"), std::string::npos);
  EXPECT_EQ(LineOf(text, 2), "panel,01, 1, 310, 5.375, 0, 6");
  EXPECT_EQ(LineOf(text, 3), "cut            73");
  EXPECT_EQ(LineOf(text, 4 + 73), "EOF Essai \u00e9t\u00e9");
}

TEST(Plotter, SeventyPanels) {
  Sail sail;
  sail.Definition.PanelCount = 70;
  const std::string text = PlotterText(sail, ',');
  EXPECT_NE(text.find("\r\npanel,70, 1, 10, 5, 0, 6\r\ncut            73\r\n"), std::string::npos);
  // 69 panels of 1 + 1 + 31 + 1 + 75 lines, one of 1 + 1 + 73.
  EXPECT_EQ(LineOf(text, 1 + 69 * 109 + 75 + 1), "EOF Newsail");
}

TEST(Plotter, RecordAndPointAsTheFormatShowsThem) {
  FileText text;
  AppendPlotterRecord(text, "01", 1234.5678, 567.25);
  AppendPlotterPoint(text, 1234.56, 567.84, '.');
  AppendPlotterCommand(text, "draw", 31);
  EXPECT_EQ(text.Take(),
            "panel,01, 1, 1234.5678, 567.25, 0, 6\r\n"
            "1234.6        567.8 \r\n"
            "draw           31\r\n");
}

TEST(Plotter, ALongFirstItemPushesTheSecondIntoTheNextZone) {
  FileText text;
  AppendPlotterPoint(text, 12345678901.2, 1, '.');  // 14 characters with the blank
  AppendPlotterPoint(text, 1234567890.2, 1, '.');   // 13
  EXPECT_EQ(text.Take(),
            "12345678901.2" + std::string(15, ' ') + "1.0 \r\n" + "1234567890.2  1.0 \r\n");
}

TEST(Plotter, LabelPlaceOfEveryPairOfSeams) {
  struct Case {
    double Lower, Upper;
    const char* Place;
  };
  for (const Case& example : {Case{0, 0, " 18, 85"}, Case{1, 0, " 18, 85"}, Case{0, 1, " 16, 65"},
                              Case{1, 1, " 16, 65"}, Case{1, 2, " 16, 65"}, Case{2, 2, " 116, 65"},
                              Case{0, 2, " 116, 65"}, Case{2, 1, " 116, 65"}}) {
    Sail sail;
    sail.Definition.PanelCount = 1;
    sail.Grid.SurfaceX(0, -1) = example.Lower;
    sail.Grid.SurfaceX(1, -1) = example.Upper;
    for (int k = 5; k <= 35; ++k) {
      sail.Panels.PanelLowerX(0, k) = k;
      sail.Panels.PanelLowerY(0, k) = 10 * k;
      sail.Panels.PanelEdgeX(0, k) = 100 + k;
      sail.Panels.PanelEdgeY(0, k) = 1000 + k;
    }
    EXPECT_EQ(LineOf(PlotterText(sail, '.'), 2),
              std::string("panel,01, 1,") + example.Place + ", 0, 6")
        << example.Lower << example.Upper;
  }
}

TEST(Plotter, NoNumberThatIsNotFinite) {
  Sail sail = SmallSail();
  sail.Panels.PanelLowerX(0, 8) = std::numeric_limits<double>::infinity();
  EXPECT_THROW(PlotterText(sail, '.'), GeometryFault);
}

}  // namespace
}  // namespace brivane
