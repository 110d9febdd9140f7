#include "export/vrml2.h"

#include <algorithm>

#include "export/record_text.h"
#include "model/language.h"
#include "model/number_text.h"

namespace brivane {
namespace {

constexpr std::string_view kIndent = "            ";
constexpr double kSheetTurn = 0.2;  // rad
constexpr std::size_t kShapeBytes = 82 * 44 + 72 * 32 + 700;

struct Viewpoint {
  std::string_view Orientation;
  std::string_view Position;
  std::string_view Description;
};

constexpr std::string_view kPosition = "                position ";
constexpr Viewpoint kSide = {"    Viewpoint { orientation 0 0 1 0 ", kPosition,
                             "                description \"Side\" "};
constexpr Viewpoint kAft = {"    Viewpoint { orientation 0 1 0 1.5708 ", kPosition,
                            "                description \"Aft\" "};
// One blank more before its position than the others, on purpose.
constexpr Viewpoint kBelow = {"    Viewpoint { orientation  1 0 0 1.4 ",
                              "                 position ",
                              "                description \"Below\" "};
constexpr Viewpoint kWindward = {"    Viewpoint { orientation 0 1 0 -1.9 ", kPosition,
                                 "                description \"Windward\" "};

void AppendViewpoint(FileText& text, const Viewpoint& view, double x, double y, double z) {
  AppendLine(text, view.Orientation);
  text += view.Position;
  for (const double value : {x, y, z}) AppendMetres(text, value);
  text += kLineEnd;
  AppendLine(text, view.Description);
  AppendLine(text, "    } ");
}

void AppendHead(FileText& text, const SailDefinition& sail) {
  text += "#VRML V2.0 utf8 \r\n# ";
  text += ProgramTitle;
  text +=
      "\r\n"
      "Transform { # sail \r\n"
      "  children [ # sail \r\n"
      "    NavigationInfo { headlight FALSE } \r\n"
      "    DirectionalLight { direction  .5 -.5 -1  intensity .6 } \r\n"
      "    DirectionalLight { direction  -.5 -.5  1   intensity .6 } \r\n";
  const double H = sail.PeakPoint.y;
  const double C = sail.ClewPoint.x;
  AppendViewpoint(text, kSide, C * 0.5, H / 2, H * 1.5);
  AppendViewpoint(text, kAft, H * 1.5 + C, H / 2, 0);
  AppendViewpoint(text, kBelow, C * 0.5, C * -2, H * 0.2);
  AppendViewpoint(text, kWindward, H * -1.5, H / 2, H * -0.4);
  text +=
      "\r\n"
      "    Transform { # rake \r\n"
      "       rotation 0 0 1 ";
  AppendNumber3(text, -sail.LuffRake);
  text +=
      "\r\n"
      "    children [ # rake \r\n"
      "    Transform {  # panels sheet\r\n"
      "       rotation 0 1 0 ";
  AppendNumber3(text, kSheetTurn);
  text +=
      "\r\n"
      "    children [ # panels \r\n";
}

void AppendTriangle(FileText& text, int a, int b, int c) {
  text += kIndent;
  AppendStrNum(text, a);
  text += ',';
  AppendStrNum(text, b);
  text += ',';
  AppendStrNum(text, c);
  AppendLine(text, ", -1, ");
}

// Local point 2j is point j of the lower line, 2j + 1 point j of the upper one. The fans at both
// ends are fixed texts; the aft one overlaps the run before it, on purpose.
std::string FacesText() {
  FileText text;
  for (const std::string_view fan : {" 10,  3, 12, -1, ", "  3,  5, 12, -1, ", "  5,  7, 12, -1, ",
                                     "  7, 11, 12, -1, ", " 11, 13, 12, -1, "}) {
    text += kIndent;
    AppendLine(text, fan);
  }
  for (int m = 12; m <= 74; m += 2) {
    AppendTriangle(text, m, m + 1, m + 2);
    AppendTriangle(text, m + 1, m + 3, m + 2);
  }
  for (const std::string_view fan :
       {" 68 , 69 , 77 , -1, ", " 69 , 71 , 77 , -1, ", " 70 , 68 , 77  "}) {
    text += kIndent;
    AppendLine(text, fan);
  }
  return text.Take();
}

void AppendPoint(FileText& text, const SurfaceGrid& grid, int line, int point) {
  text += kIndent;
  AppendMetres(text, grid.SurfaceX(line, point));
  AppendMetres(text, grid.SurfaceY(line, point));
  AppendMetres(text, grid.SurfaceZ(line, point));
  AppendLine(text, ", ");
}

void AppendShape(FileText& text, std::string_view faces, const SurfaceGrid& grid, int strip) {
  text +=
      "      Shape {  \r\n"
      "        geometry IndexedFaceSet { \r\n"
      "          coordIndex [ \r\n";
  text += faces;
  text +=
      "                  ] # end point \r\n"
      "\r\n"
      "          coord Coordinate { \r\n"
      "            point [ \r\n";
  for (int j = 0; j <= kLastPoint; ++j) {
    AppendPoint(text, grid, strip, j);
    AppendPoint(text, grid, strip + 1, j);
  }
  text +=
      "            ] # end point \r\n"
      "          } # end coordinate \r\n"
      "          solid  FALSE \r\n"
      "          creaseAngle .5 \r\n"
      "        } # end geometry \r\n"
      "        appearance Appearance { \r\n"
      "          material Material { diffuseColor  1 1 .9 } \r\n"
      "        } # end appearance \r\n"
      "      } # end shape \r\n";
}

}  // namespace

std::string Vrml2Text(const Sail& sail) {
  const int strips = sail.Definition.PanelCount;
  FileText text(2048 + static_cast<std::size_t>(std::max(strips, 0)) * kShapeBytes);
  AppendHead(text, sail.Definition);
  const std::string faces = FacesText();
  for (int strip = 0; strip < strips; ++strip) AppendShape(text, faces, sail.Grid, strip);
  text +=
      "    ] # end children panels \r\n"
      "    } # end transform panels sheet \r\n"
      "    ] # end children rake \r\n"
      "    } # end transform rake \r\n"
      "  ] # end children sail \r\n"
      "} # end transform sail \r\n"
      " \r\n";
  return text.Take();
}

}  // namespace brivane
