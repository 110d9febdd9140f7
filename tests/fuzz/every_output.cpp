#include "fuzz/every_output.h"

#include <algorithm>
#include <cctype>
#include <cmath>
#include <exception>
#include <functional>
#include <stdexcept>
#include <vector>

#include "export/panels_dxf.h"
#include "export/panels_xy.h"
#include "export/patch_files.h"
#include "export/plotter.h"
#include "export/vrml1.h"
#include "export/vrml2.h"
#include "geometry/outline.h"
#include "model/dimension_fields.h"
#include "model/failures.h"
#include "model/sail_file.h"
#include "panels/design_pass.h"
#include "view/data_listing.h"
#include "view/mould_drawing.h"
#include "view/navigation.h"
#include "view/patch_drawing.h"
#include "view/print_drawing.h"
#include "view/print_panels.h"
#include "view/sail_drawing.h"

namespace brivane {
namespace {

constexpr PictureSize kPicture{14000, 9000};
constexpr Paper kPaper{11906, 16838};

/// Something that must not be; its words say what.
struct Fault : std::logic_error {
  using std::logic_error::logic_error;
};

void Require(bool holds, const std::string& words) {
  if (!holds) throw Fault(words);
}

std::vector<double> NumbersOf(const SailDefinition& sail) {
  return {sail.LuffLength,     sail.LuffRake,      sail.FootLength,    sail.LeechLength,
          sail.DiagonalLength, sail.ClewPoint.x,   sail.ClewPoint.y,   sail.ClewPoint.z,
          sail.PeakPoint.x,    sail.PeakPoint.y,   sail.PeakPoint.z,   sail.GaffLength,
          sail.GaffAngle,      sail.LeechAngle,    sail.FootAngle,     sail.SailArea,
          sail.LuffRound,      sail.LeechRound,    sail.FootRound,     sail.Depth[0],
          sail.Depth[1],       sail.Depth[2],      sail.LuffShape[0],  sail.LuffShape[1],
          sail.LuffShape[2],   sail.LeechShape[0], sail.LeechShape[1], sail.LeechShape[2],
          sail.DepthPosition,  sail.TwistAngle};
}

void RequireFiniteRecord(const SailDefinition& sail) {
  for (const double value : NumbersOf(sail))
    Require(std::isfinite(value), "a value of the record is not finite");
}

/// Does what may be refused with a message. Whether it was not.
bool Goes(const std::function<void()>& work) {
  try {
    work();
  } catch (const GeometryFault&) {
    return false;
  }
  return true;
}

void RequireNumbers(const std::string& text, const std::string& what) {
  Require(!HasNonNumber(text), what + " holds what is no number");
}

template <typename Table>
void RequireFiniteTable(const Table& table, int lastRow, int lastColumn) {
  for (int row = 0; row <= lastRow; ++row)
    for (int column = 0; column <= lastColumn; ++column)
      Require(std::isfinite(table(row, column)), "a table holds what is not finite");
}

void CheckTables(const Sail& sail) {
  for (const auto* table : {&sail.Grid.SurfaceX, &sail.Grid.SurfaceY, &sail.Grid.SurfaceZ})
    RequireFiniteTable(*table, 91, 43);
  const DevelopedPanels& panels = sail.Panels;
  for (const auto* table : {&panels.PanelLowerX, &panels.PanelLowerY, &panels.PanelUpperX,
                            &panels.PanelUpperY, &panels.PanelEdgeX, &panels.PanelEdgeY})
    RequireFiniteTable(*table, 90, 42);
  Require(sail.Definition.PanelCount >= 0 && sail.Definition.PanelCount <= kMostPanels,
          "an impossible number of panels");
}

void CheckExports(const Sail& sail) {
  RequireNumbers(PanelsXYText(sail, '.'), "XY");
  RequireNumbers(PlotterText(sail, '.'), "plotter");
  RequireNumbers(Vrml1Text(sail, '.'), "VRML 1.0");
  RequireNumbers(Vrml2Text(sail), "VRML 2.0");
  for (const ExportFile& file : PanelDxfFiles(sail, "x", '.')) RequireNumbers(file.Text, "DXF");
}

void CheckPatches(const Sail& sail) {
  Goes([&] { RequireNumbers(PatchPlotterText(sail, '.'), "patch plotter"); });
  Goes([&] {
    for (const ExportFile& file : PatchDxfFiles(sail, "", '.'))
      RequireNumbers(file.Text, "patch DXF");
  });
}

void CheckDrawing(const Drawing& drawing, const std::string& what) {
  for (const Stroke& stroke : drawing.Strokes)
    for (const PlanePoint& point : stroke.Points)
      Require(std::isfinite(point.x) && std::isfinite(point.y), what + ": a stroke to nowhere");
  for (const DrawnText& text : drawing.Texts) {
    Require(std::isfinite(text.At.x) && std::isfinite(text.At.y), what + ": a text nowhere");
    RequireNumbers(text.Text, what);
  }
}

void CheckPictures(const Sail& sail) {
  for (const RedrawMode mode : {RedrawMode::FitOutline, RedrawMode::Surface})
    Goes([&] {
      ViewState view;
      FitView(sail.Definition, kPicture, view);
      view.Mode = mode;
      view.DevelopShown = true;
      constexpr PictureContent kAll = {true, true, true, true};
      const auto draw = [&](double azimuth, double elevation) {
        CheckDrawing(SailDrawing(sail, view, kPicture, azimuth, elevation, Language::French),
                     "picture");
        CheckDrawing(SailDrawing(sail, view, kPicture, kAll, azimuth, elevation, Language::English),
                     "whole picture");
      };
      draw(0, 0);
      draw(0.7, -0.3);
      ZoomAbout(view, sail.Definition.DiagonalLength, {3000, 2000}, 5);
      draw(0, 0);
    });
  Goes([&] { CheckDrawing(PatchDrawing(sail, kPicture), "patches"); });
  for (const auto section : {&DeepestSection, &TopSection})
    Goes([&] { CheckDrawing(ProfileDrawing(section(sail.Definition), kPicture), "profile"); });
}

void CheckPaper(const Sail& sail) {
  Goes([&] {
    CheckDrawing(PrintedDrawing(sail.Definition, kPaper, Language::English, EstimatedTextWidth),
                 "printed drawing");
  });
  Goes([&] {
    for (const Drawing& page : PrintedPanels(sail, kPaper, Language::English, EstimatedTextWidth))
      CheckDrawing(page, "printed panels");
  });
  Goes([&] {
    const std::vector<ListingLine> listing = DataListing(sail.Definition, Language::French);
    for (const std::string& line : ListingText(listing)) RequireNumbers(line, "listing");
    CheckDrawing(ListingPage(listing, kPaper, EstimatedTextWidth), "listing page");
  });
}

void CheckFields(const SailDefinition& sail) {
  for (const DimensionFieldInfo& field : DimensionFields())
    RequireNumbers(FieldText(sail, field.Field), "field");
  RequireNumbers(LpText(sail) + LeechLengthText(sail) + SailAreaText(sail, '.'), "result");
}

void Design(Sail& sail) {
  SailDefinition& definition = sail.Definition;
  definition.SailName = definition.MouldLabel = definition.CutLabel = "x";
  const std::string& cut = definition.CutType;
  if (cut != kCrossCut && cut != kTwistFootCut && cut != kVerticalCut) definition.CutType = "?";
  if (!Goes([&] { ComputeOutline(definition); })) CheckPictures(sail);
  RequireFiniteRecord(definition);
  CheckFields(definition);
  const bool isLaidOut = Goes([&] { DesignPass(sail); });
  RequireFiniteRecord(definition);
  CheckTables(sail);
  Require(isLaidOut || definition.PanelCount == 0, "refused, but there are panels");
  CheckFields(definition);
  if (isLaidOut)
    CheckExports(sail);
  else
    Goes([&] { CheckExports(sail); });
  CheckPatches(sail);
  CheckPictures(sail);
  CheckPaper(sail);
}

std::string WordsOfFault(const std::function<void()>& work) {
  try {
    work();
  } catch (const std::exception& error) {
    return error.what();
  }
  return "";
}

}  // namespace

bool HasNonNumber(const std::string& text) {
  const auto isLetter = [&](std::size_t at) {
    return at < text.size() && std::isalpha(static_cast<unsigned char>(text[at])) != 0;
  };
  for (const std::string_view word : {"nan", "inf", "ind", "NAN", "INF", "IND", "NaN", "Inf"})
    for (std::size_t at = text.find(word); at != std::string::npos; at = text.find(word, at + 1))
      if (!isLetter(at - 1) && !isLetter(at + word.size())) return true;
  return false;
}

std::string FaultOfRecord(const SailDefinition& definition) {
  return WordsOfFault([&] {
    RequireFiniteRecord(definition);
    SailDefinition again;
    ReadSailDataText(SailDataText(definition), again, '.');
    // The reader takes a comma for a decimal mark, in a name too.
    SailDefinition named = definition;
    named.SailName = again.SailName, named.CutType = again.CutType;
    named.MouldLabel = again.MouldLabel, named.CutLabel = again.CutLabel;
    Require(SailDataText(again) == SailDataText(named), "the sail data file does not read back");
  });
}

std::string FaultOfDesign(Sail& sail) {
  return WordsOfFault([&] { Design(sail); });
}

}  // namespace brivane
