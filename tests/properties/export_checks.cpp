#include "properties/export_checks.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <vector>

#include "export/panels_dxf.h"
#include "export/panels_xy.h"
#include "export/patch_files.h"
#include "export/plotter.h"
#include "export/vrml1.h"
#include "export/vrml2.h"
#include "model/code_page.h"
#include "model/failures.h"
#include "model/sail_file.h"
#include "patches/patch_outline.h"
#include "properties/export_readers.h"
#include "support/temporary_folder.h"

namespace brivane {
namespace {

using Points = std::vector<PlanePoint>;

/// Half a unit of the last decimal, and the digits beyond the fifteenth that no file holds.
bool Agrees(double read, double meant, int places) {
  static constexpr std::array<double, 4> kHalfUnits = {0.5, 0.05, 0.005, 0.0005};
  const double half = 1.0000001 * kHalfUnits.at(static_cast<std::size_t>(places));
  return std::abs(read - meant) <= half + 6e-15 * std::abs(meant);
}

bool AgreesTo15Digits(double read, double meant) {
  return std::abs(read - meant) <= 6e-15 * std::abs(meant);
}

void Require(bool holds, std::string_view where, std::string_view words) {
  if (!holds) throw FormatFault(std::string(where) + ": " + std::string(words));
}

void Compare(const Points& read, const Points& meant, int places, const std::string& where) {
  Require(read.size() == meant.size(), where, "another number of points");
  for (std::size_t i = 0; i < read.size(); ++i)
    if (!Agrees(read[i].x, meant[i].x, places) || !Agrees(read[i].y, meant[i].y, places))
      throw FormatFault(where + ": point " + std::to_string(i) + " lies elsewhere");
}

// --- The stretches of a panel ------------------------------------------------------------------

void Append(Points& points, const PanelTable& x, const PanelTable& y, int p, int from, int to) {
  const int step = from <= to ? 1 : -1;
  for (int k = from; k != to + step; k += step) points.push_back({x(p, k), y(p, k)});
}

/// The stretches of one panel's tables, appended in any order.
class Outline {
 public:
  Outline(const DevelopedPanels& panels, int p) : panels_(panels), p_(p) {}

  Outline& Edge(int from, int to) {
    Append(points_, panels_.PanelEdgeX, panels_.PanelEdgeY, p_, from, to);
    return *this;
  }
  Outline& Upper(int from, int to) {
    Append(points_, panels_.PanelUpperX, panels_.PanelUpperY, p_, from, to);
    return *this;
  }
  Outline& Lower(int from, int to) {
    Append(points_, panels_.PanelLowerX, panels_.PanelLowerY, p_, from, to);
    return *this;
  }
  Points Take() { return std::move(points_); }

 private:
  const DevelopedPanels& panels_;
  int p_;
  Points points_;
};

Points WholeOutline(const DevelopedPanels& panels, int p) {
  return Outline(panels, p).Lower(5, 5).Edge(0, 5).Upper(5, 35).Edge(35, 40).Lower(35, 5).Take();
}

std::string NameOf(const std::string& file, int panel) {
  return file + ", panel " + std::to_string(panel + 1);
}

// --- Each kind of file -------------------------------------------------------------------------

Points Flat(const DxfPolyline& polyline, const std::string& where) {
  Points points;
  for (const Corner& corner : polyline.Points) {
    Require(corner.z == 0, where, "a point off the plane");
    points.push_back({corner.x, corner.y});
  }
  return points;
}

void CheckPanelsDxf(const Sail& sail, char mark) {
  const std::vector<ExportFile> files = PanelDxfFiles(sail, "x", mark);
  Require(static_cast<int>(files.size()) == sail.Definition.PanelCount, "DXF", "number of files");
  for (int p = 0; p < sail.Definition.PanelCount; ++p) {
    const std::string where = NameOf("DXF", p);
    const auto polylines = ReadDxf(files[static_cast<std::size_t>(p)].Text, mark);
    Require(polylines.size() == 2 && polylines[0].Colour == 5 && polylines[1].Colour == 7, where,
            "other polylines");
    Compare(Flat(polylines[0], where), Outline(sail.Panels, p).Edge(5, 35).Take(), 2, where);
    Compare(Flat(polylines[1], where), WholeOutline(sail.Panels, p), 2, where);
  }
}

std::string PlaceWords(const SurfaceGrid& grid, int p) {
  const double lower = grid.SurfaceX(p, -1), upper = grid.SurfaceX(p + 1, -1);
  if (upper == 0) return " foot / bordure";
  if (upper == 1 && lower == 0) return " tack / amure";
  if (upper == 1 && lower == 1) return " luff / guindant";
  if (upper == 2 && lower == 1) return " luff head / tete guindant";
  return " gaff / vergue";
}

void CheckXy(const Sail& sail, char mark) {
  const std::vector<XyPanel> panels = ReadXy(PanelsXYText(sail, mark), mark);
  Require(static_cast<int>(panels.size()) == sail.Definition.PanelCount, "XY", "number of panels");
  for (int p = 0; p < sail.Definition.PanelCount; ++p) {
    const std::string where = NameOf("XY", p);
    const XyPanel& panel = panels[static_cast<std::size_t>(p)];
    Require(panel.Number == p + 1, where, "another number");
    Require(panel.Place == PlaceWords(sail.Grid, p), where, "another place");
    const auto from = [&] { return Outline(sail.Panels, p); };
    Compare(panel.LowerEdge, from().Lower(5, 35).Take(), 1, where);
    Compare(panel.UpperEdge,
            from().Lower(5, 5).Edge(0, 5).Upper(5, 35).Edge(35, 40).Lower(35, 35).Take(), 1, where);
    Compare(panel.GuideLine, from().Edge(5, 35).Take(), 1, where);
  }
}

PlanePoint LabelPlace(const Sail& sail, int p) {
  const DevelopedPanels& panels = sail.Panels;
  const std::string place = PlaceWords(sail.Grid, p);
  if (place == " foot / bordure")
    return {panels.PanelLowerX(p, 8) + 10, panels.PanelLowerY(p, 8) + 5};
  const double x = place == " gaff / vergue" ? panels.PanelEdgeX(p, 6) : panels.PanelLowerX(p, 6);
  return {x + 10, panels.PanelLowerY(p, 6) + 5};
}

std::string TwoDigits(int number) { return (number < 10 ? "0" : "") + std::to_string(number); }

void CheckPlotter(const Sail& sail, char mark) {
  const std::vector<PlotterRecord> records = ReadPlotter(PlotterText(sail, mark), mark);
  const int count = sail.Definition.PanelCount;
  Require(static_cast<int>(records.size()) == count, "plotter", "number of panels");
  for (int p = 0; p < count; ++p) {
    const std::string where = NameOf("plotter", p);
    const PlotterRecord& record = records[static_cast<std::size_t>(p)];
    const bool isLast = p == count - 1;
    Require(record.Label == TwoDigits(p + 1), where, "another number");
    const PlanePoint place = LabelPlace(sail, p);
    Require(AgreesTo15Digits(record.LabelPlace.x, place.x) &&
                AgreesTo15Digits(record.LabelPlace.y, place.y),
            where, "the label lies elsewhere");
    const auto from = [&] { return Outline(sail.Panels, p); };
    Compare(record.Draw, isLast ? Points() : from().Edge(35, 5).Take(), 1, where);
    Compare(
        record.Cut,
        isLast ? from().Lower(5, 5).Edge(0, 40).Lower(35, 5).Take() : WholeOutline(sail.Panels, p),
        1, where);
  }
}

void ComparePoint(const Corner& read, const SurfaceGrid& grid, int line, int point,
                  const std::string& where) {
  if (!Agrees(read.x, grid.SurfaceX(line, point) / 1000, 3) ||
      !Agrees(read.y, grid.SurfaceY(line, point) / 1000, 3) ||
      !Agrees(read.z, grid.SurfaceZ(line, point) / 1000, 3))
    throw FormatFault(where + ": point " + std::to_string(point) + " of line " +
                      std::to_string(line) + " lies elsewhere");
}

void CheckIndices(const std::vector<int>& indices, std::size_t count, std::size_t points,
                  const std::string& where) {
  std::size_t ends = 0;
  for (const int index : indices) {
    if (index < 0) ++ends;
    Require(index < static_cast<int>(points), where, "a point that is not there");
  }
  if (!indices.empty() && indices.back() >= 0) ++ends;
  Require(ends == count, where, "another number of faces or lines");
}

void ComparePosition(const std::vector<double>& read, const std::array<double, 3>& metres,
                     int places, const std::string& where) {
  Require(read.size() == 3, where, "a position that has not three coordinates");
  for (std::size_t axis = 0; axis < 3; ++axis)
    Require(Agrees(read[axis], metres[axis], places), where, "another position");
}

void CheckVrml1(const Sail& sail, char mark) {
  const SailDefinition& d = sail.Definition;
  const auto count = static_cast<std::size_t>(d.PanelCount);
  const VrmlWorld world = ReadVrml(Vrml1Text(sail, mark), 1, mark);
  Require(world.Points.size() == 1 && world.Indices.size() == 2 && world.Positions.size() == 1,
          "VRML 1.0", "other parts");
  Require(world.Points[0].size() == (count + 1) * 23, "VRML 1.0", "another number of points");
  for (int line = 0; line <= d.PanelCount; ++line)
    for (int point = 0; point <= 22; ++point)
      ComparePoint(world.Points[0][static_cast<std::size_t>(line * 23 + point)], sail.Grid, line,
                   point, "VRML 1.0");
  CheckIndices(world.Indices[0], count * 42, world.Points[0].size(), "VRML 1.0");
  CheckIndices(world.Indices[1], count + 1, world.Points[0].size(), "VRML 1.0");
  ComparePosition(world.Positions[0],
                  {d.ClewPoint.x / 2000, d.PeakPoint.y / 2000, d.PeakPoint.y / 600}, 1, "VRML 1.0");
}

void CheckVrml2(const Sail& sail) {
  const SailDefinition& d = sail.Definition;
  const auto count = static_cast<std::size_t>(d.PanelCount);
  const VrmlWorld world = ReadVrml(Vrml2Text(sail), 3, '.');
  Require(world.Points.size() == count && world.Indices.size() == count, "VRML 2.0",
          "other shapes");
  for (int p = 0; p < d.PanelCount; ++p) {
    const std::string where = NameOf("VRML 2.0", p);
    const std::vector<Corner>& points = world.Points[static_cast<std::size_t>(p)];
    Require(points.size() == 82, where, "another number of points");
    for (int i = 0; i < 82; ++i)
      ComparePoint(points[static_cast<std::size_t>(i)], sail.Grid, p + i % 2, i / 2, where);
    CheckIndices(world.Indices[static_cast<std::size_t>(p)], 5 + 64 + 3, 82, where);
  }
  const double c = d.ClewPoint.x / 1000, h = d.PeakPoint.y / 1000;
  const std::array<std::array<double, 3>, 4> places = {{{c * 0.5, h / 2, h * 1.5},
                                                        {h * 1.5 + c, h / 2, 0},
                                                        {c * 0.5, c * -2, h * 0.2},
                                                        {h * -1.5, h / 2, h * -0.4}}};
  Require(world.Positions.size() == places.size(), "VRML 2.0", "another number of viewpoints");
  for (std::size_t i = 0; i < places.size(); ++i)
    ComparePosition(world.Positions[i], places[i], 3, "VRML 2.0");
}

void CheckPatches(const Sail& sail, char mark) {
  const std::vector<ExportFile> files = PatchDxfFiles(sail, "", mark);
  const std::vector<PlotterRecord> records = ReadPlotter(PatchPlotterText(sail, mark), mark);
  static constexpr std::array<const char*, 8> kLabels = {"00cl", "01cl", "00tk", "01tk",
                                                         "00hd", "01hd", "00pk", "01pk"};
  const std::size_t count = sail.Definition.GaffLength < 6 ? 6 : 8;
  Require(files.size() == count && records.size() == count, "patches", "another number of them");
  for (std::size_t i = 0; i < count; ++i) {
    const std::string where = std::string("patch ") + kLabels[i];
    const Points meant =
        PatchOutline(sail, static_cast<PatchCorner>(i / 2), static_cast<int>(i % 2));
    const std::vector<DxfPolyline> polylines = ReadDxf(files[i].Text, mark);
    Require(polylines.size() == 1 && polylines[0].Colour == 7, where, "other polylines");
    Compare(Flat(polylines[0], where), meant, 2, where);
    Require(records[i].Label == kLabels[i] && records[i].Draw.empty(), where, "another record");
    Compare(records[i].Cut, meant, 1, where);
  }
}

// --- The sail data file ------------------------------------------------------------------------

/// The numbers of a record in the order of the file's lines, with the lines.
std::vector<std::pair<int, double>> NumberedLines(const SailDefinition& d) {
  const auto of = [](std::int16_t whole) { return static_cast<double>(whole); };
  return {{6, of(d.PanelCount)},     {8, d.LuffLength},           {9, d.LuffRake},
          {10, d.DiagonalLength},    {11, d.FootLength},          {12, d.GaffLength},
          {13, d.GaffAngle},         {14, d.LeechLength},         {15, d.LeechAngle},
          {16, d.SailArea},          {18, d.LuffRound},           {19, of(d.LuffRoundPos)},
          {20, d.LeechRound},        {21, of(d.LeechRoundPos)},   {22, d.FootRound},
          {23, of(d.FootRoundPos)},  {24, of(d.GaffRound)},       {25, of(d.GaffRoundPos)},
          {27, d.Depth[kFoot]},      {28, d.Depth[kMiddle]},      {29, d.Depth[kTop]},
          {30, d.LuffShape[kFoot]},  {31, d.LuffShape[kMiddle]},  {32, d.LuffShape[kTop]},
          {33, d.LeechShape[kFoot]}, {34, d.LeechShape[kMiddle]}, {35, d.LeechShape[kTop]},
          {36, d.DepthPosition},     {37, d.TwistAngle},          {39, of(d.ClothWidth)},
          {40, of(d.SeamWidth)}};
}

void CheckLines(const SailDefinition& sail, std::string_view text) {
  const std::vector<std::string_view> lines = LinesOf(text);
  Require(lines.size() == 41, "sail data", "another number of lines");
  for (const auto& [line, meant] : NumberedLines(sail))
    Require(AgreesTo15Digits(ReadPlain(lines[static_cast<std::size_t>(line - 1)]), meant),
            "sail data", "another number in line " + std::to_string(line));
}

std::string WithPoints(std::string text) {
  std::replace(text.begin(), text.end(), ',', '.');
  return text;
}

/// The words of what went wrong; what is not meant to be thrown is a fault too.
template <typename Work>
std::string WordsOf(Work&& work) {
  try {
    work();
  } catch (const std::exception& error) {
    return error.what();
  }
  return "";
}

}  // namespace

std::string BrokenSailData(const SailDefinition& sail, char mark) {
  return WordsOf([&] {
    const std::string text = SailDataText(sail);
    CheckLines(sail, text);
    const std::string bytes = ToCodePage1252(text);
    SailDefinition again;
    ReadSailDataText(FromCodePage1252(bytes), again, mark);
    Require(ToCodePage1252(SailDataText(again)) == WithPoints(bytes), "sail data",
            "not written to the same bytes again");
  });
}

std::string BrokenSailDataFile(const SailDefinition& sail, char mark, const std::string& folder) {
  return WordsOf([&] {
    const std::string first = folder + "/first.bv3", second = folder + "/second.bv3";
    WriteSailDataFile(first, sail);
    SailDefinition again;
    ReadSailDataFile(first, again, mark);
    WriteSailDataFile(second, again);
    Require(WithPoints(BytesOf(first)) == BytesOf(second), "sail data file",
            "not written to the same bytes again");
    Require(BytesOf(first) == ToCodePage1252(SailDataText(sail)), "sail data file", "other bytes");
  });
}

std::string BrokenExport(const Sail& sail, char mark) {
  return WordsOf([&] {
    CheckPanelsDxf(sail, mark);
    CheckXy(sail, mark);
    CheckPlotter(sail, mark);
    CheckVrml1(sail, mark);
    CheckVrml2(sail);
    CheckPatches(sail, mark);
  });
}

}  // namespace brivane
