#include "export/vrml1.h"

#include <algorithm>

#include "export/record_text.h"
#include "model/language.h"
#include "model/number_text.h"

namespace brivane {
namespace {

constexpr int kLastGridPoint = 22;
constexpr int kRow = kLastGridPoint + 1;
constexpr std::string_view kIndent = "          ";
constexpr std::string_view kSeparator = " , ";
// The first and the last coordinate of a point line.
constexpr NumberPattern kFirstMetre = {kIndent, 1, 3, " "};
constexpr NumberPattern kLastMetre = {"", 1, 3, "  , \r\n"};
constexpr std::size_t kRowBytes = 23 * 40 + 42 * 48 + 26 * 20;

void AppendMetre(FileText& text, double metres) {
  AppendPattern<kThousandthsBlank>(text, metres, '.');
}

void AppendHead(FileText& text, const SailDefinition& sail, char decimalMark) {
  text +=
      "#VRML V1.0 ascii \r\n"
      "  DirectionalLight { direction .1 -.2 1 intensity .6 }\r\n"
      "  DirectionalLight { direction -.2 .2  -1 intensity .4 }\r\n"
      "  PerspectiveCamera { \r\n"
      "    position ";
  for (const double value :
       {sail.ClewPoint.x / 2000, sail.PeakPoint.y / 2000, sail.PeakPoint.y / 600})
    AppendPattern<kTenthsBlank>(text, value, decimalMark);
  text +=
      "\r\n"
      "    orientation 0 0 1 0 \r\n"
      "  } \r\n"
      "  ShapeHints { \r\n"
      "    shapeType      UNKNOWN_SHAPE_TYPE\r\n"
      "  }\r\n"
      "Separator {   # world\r\n"
      "  Separator {  #  XYZ\r\n"
      "    Material { diffuseColor 1 1 .5 } \r\n";
}

void AppendPoints(FileText& text, const SurfaceGrid& grid, int lines) {
  text +=
      "    Coordinate3 { \r\n"
      "      point [ \r\n";
  for (int i = 0; i <= lines; ++i)
    for (int j = 0; j <= kLastGridPoint; ++j) {
      AppendPattern<kFirstMetre>(text, grid.SurfaceX(i, j) / 1000, '.');
      AppendMetre(text, grid.SurfaceY(i, j) / 1000);
      AppendPattern<kLastMetre>(text, grid.SurfaceZ(i, j) / 1000, '.');
    }
  text +=
      "         ] \r\n"
      "    }  # coord\r\n";
}

void AppendTriangle(FileText& text, int a, int b, int c) {
  text += kIndent;
  for (const int index : {a, b, c}) {
    AppendStrNum(text, index);
    text += kSeparator;
  }
  AppendLine(text, "-1 , ");
}

// The lower line's two end points stay out of the faces, on purpose.
void AppendStripFaces(FileText& text, int strip) {
  const int L = strip * kRow;
  const int U = L + kRow;
  AppendTriangle(text, U, L + 1, L + 2);
  AppendTriangle(text, U, U + 2, U + 1);
  AppendTriangle(text, U, L + 2, U + 2);
  for (int j = 2; j <= 19; ++j) {
    AppendTriangle(text, L + j, L + j + 1, U + j);
    AppendTriangle(text, L + j + 1, U + j + 1, U + j);
  }
  AppendTriangle(text, L + 20, L + 21, U + 20);
  AppendTriangle(text, L + 21, U + 22, U + 20);
  AppendTriangle(text, U + 20, U + 22, U + 21);
}

void AppendFaces(FileText& text, int strips) {
  text +=
      "    IndexedFaceSet { \r\n"
      "      coordIndex [ \r\n";
  for (int strip = 0; strip < strips; ++strip) AppendStripFaces(text, strip);
  text +=
      "      ] \r\n"
      "    }  # FaceSet\r\n";
}

void AppendLineIndex(FileText& text, int index) {
  text += kIndent;
  AppendStrNum(text, index);
  AppendLine(text, kSeparator);
}

// Each seam above the first has short legs down to the line below.
void AppendLines(FileText& text, int lines) {
  text +=
      "    IndexedLineSet { \r\n"
      "      coordIndex [ \r\n";
  for (int i = 0; i <= lines; ++i) {
    if (i > 0) AppendLineIndex(text, (i - 1) * kRow + 1);
    for (int j = 0; j <= kLastGridPoint; ++j) AppendLineIndex(text, i * kRow + j);
    if (i > 0) AppendLineIndex(text, (i - 1) * kRow + kLastGridPoint - 1);
    text += kIndent;
    AppendLine(text, "-1 , ");
  }
  text +=
      "       ] \r\n"
      "    }  # LineSet\r\n";
}

void AppendTitle(FileText& text, const SailDefinition& sail) {
  text += "WWWAnchor { name \"";
  text += kAnchorAddress;
  text += "\" map NONE \r\n  FontStyle { size ";
  AppendMetre(text, sail.PeakPoint.y / 8000);
  text +=
      " } \r\n"
      "  Material { \r\n"
      "     diffuseColor    .2 .5 .5 \r\n"
      "     emissiveColor   .2 .5 .5 \r\n"
      "  } \r\n"
      "  Separator { \r\n"
      "     Transform { \r\n"
      "        translation ";
  for (const double value : {sail.PeakPoint.x / 2000, sail.PeakPoint.y * 1.05 / 1000, -0.1})
    AppendMetre(text, value);
  text +=
      "\r\n"
      "        rotation 1 0 0  -.5 \r\n"
      "     } \r\n"
      "     AsciiText { \r\n"
      "        string    \"";
  text += ProgramTitle;
  text +=
      "\"\r\n"
      "        justification  CENTER \r\n"
      "     } \r\n"
      "  } \r\n"
      "}  # end WWWanchor\r\n"
      "  \r\n";
}

}  // namespace

std::string Vrml1Text(const Sail& sail, char decimalMark) {
  const int strips = sail.Definition.PanelCount;
  FileText text(2048 + static_cast<std::size_t>(std::max(strips + 1, 0)) * kRowBytes);
  AppendHead(text, sail.Definition, decimalMark);
  AppendPoints(text, sail.Grid, strips);
  AppendFaces(text, strips);
  AppendLines(text, strips);
  text +=
      "  }  #  end XYZ\r\n"
      "} # end world\r\n";
  AppendTitle(text, sail.Definition);
  return text.Take();
}

}  // namespace brivane
