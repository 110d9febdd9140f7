#include "export/vrml1.h"

#include <gtest/gtest.h>

#include <limits>
#include <locale>
#include <set>
#include <sstream>

#include "model/failures.h"
#include "model/text_file.h"
#include "small_sail.h"

namespace brivane {
namespace {

// Lines of the text between two lines, both left out.
std::vector<std::string> LinesBetween(const std::string& text, const std::string& from,
                                      const std::string& to) {
  const std::size_t start = text.find(from + "\r\n") + from.size() + 2;
  std::istringstream lines(text.substr(start, text.find(to + "\r\n", start) - start));
  std::vector<std::string> found;
  for (std::string line; std::getline(lines, line);)
    found.push_back(line.substr(0, line.size() - 1));
  return found;
}

TEST(Vrml1, WholeFile) {
  EXPECT_EQ(ToCodePage1252(Vrml1Text(SmallSail(), '.')), GoldenBytes("small.wrl"));
}

TEST(Vrml1, RegionalDecimalMarkInTheCameraOnly) {
  std::string expected = GoldenBytes("small.wrl");
  const std::string camera = "    position 1.9 3.1 10.3 \r\n";
  const std::size_t at = expected.find(camera);
  ASSERT_NE(at, std::string::npos);
  expected.replace(at, camera.size(), "    position 1,9 3,1 10,3 \r\n");
  EXPECT_EQ(Vrml1Text(SmallSail(), ','), expected);
}

TEST(Vrml1, NoPanelHasOneRowAndNoFace) {
  Sail sail;
  const std::string text = Vrml1Text(sail, '.');
  const auto points = LinesBetween(text, "      point [ ", "         ] ");
  ASSERT_EQ(points.size(), 23u);
  for (const std::string& point : points) EXPECT_EQ(point, "          0.000 0.000 0.000  , ");
  EXPECT_NE(text.find("      coordIndex [ \r\n      ] \r\n"), std::string::npos);
  const auto lines =
      LinesBetween(text, "    IndexedLineSet { \r\n      coordIndex [ ", "       ] ");
  ASSERT_EQ(lines.size(), 24u);
  EXPECT_EQ(lines.front(), "           0 , ");
  EXPECT_EQ(lines[22], "           22 , ");
  EXPECT_EQ(lines.back(), "          -1 , ");
}

TEST(Vrml1, EveryIndexNamesAPointAndTheLowerEndsAreInNoFaceOfTheirStrip) {
  Sail sail;
  sail.Definition.PanelCount = 70;
  const std::string text = Vrml1Text(sail, '.');
  EXPECT_EQ(LinesBetween(text, "      point [ ", "         ] ").size(), 71u * 23u);
  const auto faces = LinesBetween(text, "    IndexedFaceSet { \r\n      coordIndex [ ", "      ] ");
  ASSERT_EQ(faces.size(), 70u * 42u);
  for (std::size_t n = 0; n < faces.size(); ++n) {
    const int strip = static_cast<int>(n / 42);
    std::istringstream numbers(Replaced(faces[n], ',', ' '));
    numbers.imbue(std::locale::classic());
    for (int corner = 0; corner < 3; ++corner) {
      int index = -9;
      numbers >> index;
      EXPECT_GT(index, strip * 23) << faces[n];
      EXPECT_NE(index, strip * 23 + 22) << faces[n];
      EXPECT_LE(index, (strip + 1) * 23 + 22) << faces[n];
    }
    int end = 0;
    numbers >> end;
    EXPECT_EQ(end, -1);
  }
}

TEST(Vrml1, AddressIsReservedForExamples) {
  const std::string text = Vrml1Text(Sail{}, '.');
  EXPECT_NE(text.find("WWWAnchor { name \"http://www.example.com/\" map NONE \r\n"),
            std::string::npos);
}

TEST(Vrml1, EndsInALineOfTwoBlanks) {
  const std::string text = Vrml1Text(Sail{}, '.');
  EXPECT_TRUE(text.ends_with("\r\n}  # end WWWanchor\r\n  \r\n"));
}

TEST(Vrml1, NoNumberThatIsNotFinite) {
  Sail surface = SmallSail();
  surface.Grid.SurfaceZ(3, 22) = std::numeric_limits<double>::quiet_NaN();
  EXPECT_THROW(Vrml1Text(surface, '.'), GeometryFault);
  Sail corner = SmallSail();
  corner.Definition.PeakPoint.x = std::numeric_limits<double>::infinity();
  EXPECT_THROW(Vrml1Text(corner, '.'), GeometryFault);
}

}  // namespace
}  // namespace brivane
