// The readers of the exports, on texts written by hand: they must see what is there, and refuse
// what is not of the format.

#include "properties/export_readers.h"

#include <gtest/gtest.h>

namespace brivane {
namespace {

TEST(ExportReaders, ReadNumbersOfFixedPlaces) {
  EXPECT_EQ(ReadFixed("1234.57", 2, '.'), 1234.57);
  EXPECT_EQ(ReadFixed("-0,5", 1, ','), -0.5);
  EXPECT_EQ(ReadFixed("123456789012345678.5", 1, '.'), 123456789012345678.5);
  EXPECT_EQ(ReadFixed("-123456789012345678,5", 1, ','), -123456789012345678.5);
  for (const char* text : {"", "-", "1", "1.2", "1.234", ".25", "+1.25", "1.25 ", " 1.25", "1,25",
                           "1.2e", "--1.25", "1..25", "nan", "inf.00"})
    EXPECT_THROW(ReadFixed(text, 2, '.'), FormatFault) << text;
}

TEST(ExportReaders, ReadPlainNumbers) {
  EXPECT_EQ(ReadPlain(" 4550"), 4550);
  EXPECT_EQ(ReadPlain("-.5"), -0.5);
  EXPECT_EQ(ReadPlain(" 1E-05"), 0.00001);
  for (const char* text : {"", " ", "4550", "--5", " 1,5", " 1.5 ", " nan"})
    EXPECT_THROW(ReadPlain(text), FormatFault) << text;
}

TEST(ExportReaders, ReadAPolyline) {
  const std::string head =
      "999\r\nx\r\n  0\r\nSECTION\r\n  2\r\nENTITIES\r\n  0\r\nPOLYLINE\r\n  8\r\n1\r\n 62\r\n"
      "      7\r\n 66\r\n      1\r\n  6\r\nCONTINUOUS\r\n 70\r\n      8\r\n  0\r\n";
  const std::string vertex =
      "VERTEX\r\n  8\r\n1\r\n 62\r\n      7\r\n  6\r\nCONTINUOUS\r\n 70\r\n     32\r\n"
      " 10\r\n1,50 \r\n 20\r\n-2,25 \r\n 30\r\n0,00 \r\n  0\r\n";
  const std::string end = "SEQEND\r\n  0\r\nENDSEC\r\n  0\r\nEOF\r\n";
  const std::vector<DxfPolyline> read = ReadDxf(head + vertex + vertex + end, ',');
  ASSERT_EQ(read.size(), 1U);
  EXPECT_EQ(read[0].Colour, 7);
  EXPECT_EQ(read[0].Points, (std::vector<Corner>{{1.5, -2.25, 0}, {1.5, -2.25, 0}}));
  EXPECT_THROW(ReadDxf(head + vertex + end, '.'), FormatFault);
  EXPECT_THROW(ReadDxf(head + vertex, ','), FormatFault);
  EXPECT_THROW(ReadDxf(head + vertex + end + "x\r\n", ','), FormatFault);
  EXPECT_THROW(ReadDxf(head + vertex + end + "x", ','), FormatFault);
}

TEST(ExportReaders, ReadAPanelOfPointLines) {
  const std::vector<XyPanel> read = ReadXy(
      "Main; Panels development XY\r\n\r\nPANEL; 12 ; gaff / vergue\r\n CUT ;lower edge\r\n"
      " 1.5 ; -2.5 \r\n\r\n CUT ;upper edge\r\n 3.0 ; 4.0 \r\n 5.0 ; 6.0 \r\n\r\n"
      " DRAW ;upper edge guideline\r\n\r\nEOF \r\n",
      '.');
  ASSERT_EQ(read.size(), 1U);
  EXPECT_EQ(read[0].Number, 12);
  EXPECT_EQ(read[0].Place, " gaff / vergue");
  ASSERT_EQ(read[0].LowerEdge.size(), 1U);
  EXPECT_EQ(read[0].LowerEdge[0].x, 1.5);
  EXPECT_EQ(read[0].LowerEdge[0].y, -2.5);
  EXPECT_EQ(read[0].UpperEdge.size(), 2U);
  EXPECT_TRUE(read[0].GuideLine.empty());
  EXPECT_THROW(ReadXy("Main; Panels development XY\r\n\r\n", '.'), FormatFault);
}

TEST(ExportReaders, ReadARecordOfThePlotter) {
  const std::string head = "x\r\npanel,01, 1, 1234.5678,-.5, 0, 6\r\n";
  const std::string cut = "cut            1\r\n-12345678901,5              2,0 \r\nEOF Main\r\n";
  const std::vector<PlotterRecord> read =
      ReadPlotter(head + "draw           1\r\n1234,6        567,8 \r\n" + cut, ',');
  ASSERT_EQ(read.size(), 1U);
  EXPECT_EQ(read[0].Label, "01");
  EXPECT_EQ(read[0].LabelPlace.x, 1234.5678);
  EXPECT_EQ(read[0].LabelPlace.y, -0.5);
  ASSERT_EQ(read[0].Draw.size(), 1U);
  EXPECT_EQ(read[0].Draw[0].x, 1234.6);
  EXPECT_EQ(read[0].Draw[0].y, 567.8);
  EXPECT_THROW(ReadPlotter(head + "cut            2\r\n1,0           2,0 \r\nEOF Main\r\n", ','),
               FormatFault);
  EXPECT_THROW(ReadPlotter(head + "cut            1\r\n1,0 2,0 \r\nEOF Main\r\n", ','),
               FormatFault);
}

TEST(ExportReaders, ReadAWorld) {
  const VrmlWorld read = ReadVrml(
      "# x\r\n    position 1,5 -2,0 \r\n  point [ # p\r\n    1.000  -2.500 3.125  , \r\n   ] \r\n"
      "  coordIndex [ \r\n   0 , 1 , 2 , -1 , \r\n  2, 1, 3  \r\n  ] # end\r\n",
      1, ',');
  ASSERT_EQ(read.Points.size(), 1U);
  EXPECT_EQ(read.Points[0], (std::vector<Corner>{{1, -2.5, 3.125}}));
  ASSERT_EQ(read.Indices.size(), 1U);
  EXPECT_EQ(read.Indices[0], (std::vector<int>{0, 1, 2, -1, 2, 1, 3}));
  ASSERT_EQ(read.Positions.size(), 1U);
  EXPECT_EQ(read.Positions[0], (std::vector<double>{1.5, -2.0}));
  EXPECT_THROW(ReadVrml("point [\r\n 1.000 2.000 \r\n ]\r\n", 1, '.'), FormatFault);
}

}  // namespace
}  // namespace brivane
