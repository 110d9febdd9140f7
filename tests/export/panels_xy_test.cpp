#include "export/panels_xy.h"

#include <gtest/gtest.h>

#include <limits>

#include "model/failures.h"
#include "model/text_file.h"
#include "small_sail.h"

namespace brivane {
namespace {

TEST(PanelsXY, WholeFile) {
  EXPECT_EQ(ToCodePage1252(PanelsXYText(SmallSail(), '.')), GoldenBytes("small.xyz"));
}

TEST(PanelsXY, RegionalDecimalMarkInEveryCoordinate) {
  EXPECT_EQ(ToCodePage1252(PanelsXYText(SmallSail(), ',')),
            Replaced(GoldenBytes("small.xyz"), '.', ','));
}

TEST(PanelsXY, NoPanel) {
  Sail sail;
  EXPECT_EQ(PanelsXYText(sail, '.'), "Newsail; Panels development XY\r\n\r\nEOF \r\n");
}

TEST(PanelsXY, LinesOfOneBlock) {
  const std::string text = PanelsXYText(SmallSail(), '.');
  EXPECT_EQ(LineOf(text, 2), "");
  EXPECT_EQ(LineOf(text, 3), "PANEL; 1 ; foot / bordure");
  EXPECT_EQ(LineOf(text, 4), " CUT ;lower edge");
  EXPECT_EQ(LineOf(text, 5), " 0.0 ; 0.0 ");
  EXPECT_EQ(LineOf(text, 36), "");
  EXPECT_EQ(LineOf(text, 37), " CUT ;upper edge");
  EXPECT_EQ(LineOf(text, 38 + 45), "");
  EXPECT_EQ(LineOf(text, 39 + 45), " DRAW ;upper edge guideline");
  EXPECT_EQ(LineOf(text, 40 + 45 + 31), "");
  EXPECT_EQ(LineOf(text, 41 + 45 + 31), "PANEL; 2 ; tack / amure");
}

TEST(PanelsXY, NegativeCoordinatesKeepTheBlank) {
  Sail sail = SmallSail();
  sail.Panels.PanelLowerX(0, 5) = 1234.56;
  sail.Panels.PanelLowerY(0, 5) = -12.5;
  EXPECT_EQ(LineOf(PanelsXYText(sail, '.'), 5), " 1234.6 ; -12.5 ");
}

TEST(PanelsXY, PanelNumbersHaveNoLeadingZero) {
  Sail sail;
  sail.Definition.PanelCount = 70;
  const std::string text = PanelsXYText(sail, '.');
  EXPECT_NE(text.find("\r\nPANEL; 9 ; foot / bordure\r\n"), std::string::npos);
  EXPECT_NE(text.find("\r\nPANEL; 12 ; foot / bordure\r\n"), std::string::npos);
  EXPECT_NE(text.find("\r\nPANEL; 70 ; foot / bordure\r\n"), std::string::npos);
}

TEST(PanelsXY, EdgeLabelOfEveryPairOfSeams) {
  struct Case {
    double Lower, Upper;
    const char* Label;
  };
  for (const Case& example :
       {Case{0, 0, " foot / bordure"}, Case{1, 0, " foot / bordure"}, Case{2, 0, " foot / bordure"},
        Case{0, 1, " tack / amure"}, Case{1, 1, " luff / guindant"}, Case{2, 1, " gaff / vergue"},
        Case{0, 2, " gaff / vergue"}, Case{1, 2, " luff head / tete guindant"},
        Case{2, 2, " gaff / vergue"}}) {
    Sail sail;
    sail.Definition.PanelCount = 1;
    sail.Grid.SurfaceX(0, -1) = example.Lower;
    sail.Grid.SurfaceX(1, -1) = example.Upper;
    EXPECT_EQ(LineOf(PanelsXYText(sail, '.'), 3), std::string("PANEL; 1 ;") + example.Label)
        << example.Lower << example.Upper;
  }
}

TEST(PanelsXY, ALineBreakInTheNameBreaksNoLine) {
  Sail sail;
  sail.Definition.SailName = "Two\nlines\t";
  EXPECT_EQ(LineOf(PanelsXYText(sail, '.'), 1), "Twolines; Panels development XY");
}

TEST(PanelsXY, NoNumberThatIsNotFinite) {
  Sail sail = SmallSail();
  sail.Panels.PanelEdgeY(1, 40) = std::numeric_limits<double>::quiet_NaN();
  EXPECT_THROW(PanelsXYText(sail, '.'), GeometryFault);
}

TEST(PanelsXY, TooManyPanelsForTheTables) {
  Sail sail;
  sail.Definition.PanelCount = 92;
  EXPECT_THROW(PanelsXYText(sail, '.'), std::out_of_range);
}

}  // namespace
}  // namespace brivane
