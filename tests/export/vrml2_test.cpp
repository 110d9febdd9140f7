#include "export/vrml2.h"

#include <gtest/gtest.h>

#include <limits>

#include "model/failures.h"
#include "model/text_file.h"
#include "small_sail.h"

namespace brivane {
namespace {

std::size_t Count(const std::string& text, const std::string& part) {
  std::size_t count = 0;
  for (std::size_t at = text.find(part); at != std::string::npos; at = text.find(part, at + 1))
    ++count;
  return count;
}

TEST(Vrml2, WholeFile) {
  EXPECT_EQ(ToCodePage1252(Vrml2Text(SmallSail())), GoldenBytes("small2.WRL"));
}

TEST(Vrml2, NoPanelHasViewpointsAndNoShape) {
  Sail sail = SmallSail();
  sail.Definition.PanelCount = 0;
  const std::string text = Vrml2Text(sail);
  EXPECT_EQ(Count(text, "    Viewpoint { orientation"), 4u);
  EXPECT_EQ(Count(text, "Shape"), 0u);
  EXPECT_NE(text.find("    children [ # panels \r\n    ] # end children panels \r\n"),
            std::string::npos);
}

TEST(Vrml2, ViewpointsScaleWithTheSail) {
  Sail sail;
  sail.Definition.ClewPoint.x = 3000;
  sail.Definition.PeakPoint.y = 5000;
  const std::string once = Vrml2Text(sail);
  EXPECT_EQ(LineOf(once, 9), "                position   1.500   2.500   7.500 ");
  EXPECT_EQ(LineOf(once, 13), "                position   10.500   2.500   0.000 ");
  EXPECT_EQ(LineOf(once, 17), "                 position   1.500  -6.000   1.000 ");
  EXPECT_EQ(LineOf(once, 21), "                position  -7.500   2.500  -2.000 ");
  sail.Definition.ClewPoint.x = 6000;
  sail.Definition.PeakPoint.y = 10000;
  const std::string twice = Vrml2Text(sail);
  EXPECT_EQ(LineOf(twice, 9), "                position   3.000   5.000   15.000 ");
  EXPECT_EQ(LineOf(twice, 13), "                position   21.000   5.000   0.000 ");
  EXPECT_EQ(LineOf(twice, 17), "                 position   3.000  -12.000   2.000 ");
  EXPECT_EQ(LineOf(twice, 21), "                position  -15.000   5.000  -4.000 ");
}

TEST(Vrml2, RakeIsTurnedBack) {
  Sail sail;
  sail.Definition.LuffRake = 0.05;
  EXPECT_NE(Vrml2Text(sail).find("       rotation 0 0 1  -0.050 \r\n"), std::string::npos);
  sail.Definition.LuffRake = 0;
  EXPECT_NE(Vrml2Text(sail).find("       rotation 0 0 1   0.000 \r\n"), std::string::npos);
  sail.Definition.LuffRake = -0.05;
  EXPECT_NE(Vrml2Text(sail).find("       rotation 0 0 1   0.050 \r\n"), std::string::npos);
}

TEST(Vrml2, SeventyPanels) {
  Sail sail;
  sail.Definition.PanelCount = 70;
  const std::string text = Vrml2Text(sail);
  EXPECT_EQ(Count(text, "      Shape {  \r\n"), 70u);
  EXPECT_EQ(Count(text, "              0.000   0.000   0.000 , \r\n"), 70u * 82u);
  EXPECT_EQ(Count(text, ", -1, \r\n"), 70u * (5 + 64 + 2));
}

TEST(Vrml2, NoNumberThatIsNotFinite) {
  Sail surface = SmallSail();
  surface.Grid.SurfaceX(1, 40) = std::numeric_limits<double>::quiet_NaN();
  EXPECT_THROW(Vrml2Text(surface), GeometryFault);
  Sail rake = SmallSail();
  rake.Definition.LuffRake = std::numeric_limits<double>::infinity();
  EXPECT_THROW(Vrml2Text(rake), GeometryFault);
}

TEST(Vrml2, TooManyPanelsForTheGrid) {
  Sail sail;
  sail.Definition.PanelCount = 91;
  EXPECT_NO_THROW(Vrml2Text(sail));
  sail.Definition.PanelCount = 92;
  EXPECT_THROW(Vrml2Text(sail), std::out_of_range);
}

}  // namespace
}  // namespace brivane
