#include "view/sail_drawing.h"

#include <algorithm>
#include <cmath>
#include <string>
#include <utility>
#include <vector>

#include "geometry/plane.h"
#include "geometry/sail_edges.h"
#include "model/number_text.h"
#include "view/outline_curve.h"
#include "view/panel_arrangement.h"

namespace brivane {

namespace {

/// The readouts stand this far above the picture's nominal height, surface units.
constexpr double kReadoutRise = 100;

template <typename Points>
Stroke MappedStroke(const Points& points, const PlanMapping& plan, bool unrake) {
  Stroke stroke;
  stroke.Points.reserve(points.size());
  for (const PlanePoint& point : points)
    stroke.Points.push_back(unrake ? plan.MapSail(point) : plan.Map(point));
  return stroke;
}

class LabelWriter {
 public:
  LabelWriter(const SailDefinition& sail, const ViewState& view, Language language,
              Drawing& drawing)
      : plan_(sail.LuffRake, view), language_(language), drawing_(drawing) {}

  /// The text at a point of the sail, moved right and up by surface units.
  void Write(BilingualText text, PlanePoint at, double right, double up, Colour ink = kBlack) {
    const PlanePoint place = plan_.MapSail(at);
    AddText(drawing_, {{RoundToSingle(place.x + right), RoundToSingle(place.y + up)},
                       std::string(text.In(language_)),
                       ink});
  }

 private:
  PlanMapping plan_;
  Language language_;
  Drawing& drawing_;
};

/// "azimuth= 90": the angle in whole degrees after its name.
std::string Readout(const char* name, double angle, double zero) {
  return name + StrNum(WholePart(angle * kDegreesPerRadian + zero + 0.5));
}

}  // namespace

void AppendOutline(const SailDefinition& sail, const ViewState& view, Drawing& drawing) {
  const OutlineCurve outline = RoundedOutline(sail);
  const PlanMapping plan(sail.LuffRake, view);
  for (int edge = 0; edge < 4; ++edge) AddStroke(drawing, MappedStroke(outline[edge], plan, true));
  AddStroke(drawing, {{plan.MapSail({0, sail.LuffLength}), plan.MapSail(InPlane(sail.ClewPoint))},
                      kRed,
                      PenStyle::Dashed});
}

void AppendLabels(const SailDefinition& sail, const ViewState& view, Language language,
                  Drawing& drawing) {
  const PlanePoint peak = InPlane(sail.PeakPoint);
  const PlanePoint clew = InPlane(sail.ClewPoint);
  LabelWriter labels(sail, view, language, drawing);
  labels.Write({"Luff", "Guindant"}, {0, sail.LuffLength / 3}, 50, 0);
  labels.Write({"Head", "Tête"}, peak, 100, -150);
  labels.Write({"Foot", "Bordure"}, {clew.x / 2, clew.y / 2}, 0, 100);
  labels.Write({"clew", "écoute"}, clew, 50, 0);
  if (IsTriangular(sail)) {
    labels.Write({" Diagonal = Leech", " Diagonale = Chute"}, {clew.x / 2, sail.LuffLength / 2},
                 100, 0);
    return;
  }
  labels.Write({" Diagonal", " Diagonale"}, {clew.x / 2, sail.LuffLength / 2.4}, 0, 0, kRed);
  labels.Write({"Leech", "Chute"}, {(peak.x + clew.x) / 2, (peak.y + clew.y) / 2}, 100, 0);
  labels.Write({" Gaff", " Vergue"}, {peak.x / 2, (peak.y + sail.LuffLength) / 2}, 0, 0);
}

void AppendSeamLine(const SurfaceGrid& grid, const SurfaceMapping& mapping, int i,
                    Drawing& drawing) {
  Stroke stroke;
  stroke.Ink = kBlue;
  stroke.Points.resize(kLastPoint + 1);
  const double* const x = grid.SurfaceX.Points(i);
  const double* const y = grid.SurfaceY.Points(i);
  const double* const z = grid.SurfaceZ.Points(i);
  bool computed = false;
  for (std::size_t j = 0; j <= kLastPoint; ++j) {
    computed = computed || x[j] != 0 || y[j] != 0 || z[j] != 0;
    stroke.Points[j] = mapping.Map(x[j], y[j], z[j]);
  }
  if (computed) AddStroke(drawing, std::move(stroke));
}

void AppendAngleReadouts(const PictureSize& picture, double azimuth, double elevation,
                         Drawing& drawing) {
  if (!std::isfinite(azimuth) || !std::isfinite(elevation)) return;
  const PlanePoint at{picture.Width / 2, picture.Height + kReadoutRise};
  const auto ink = [](double angle) { return angle != 0 ? kRedOrange : kBlack; };
  AddText(drawing, {at, Readout("azimuth=", azimuth, 90), ink(azimuth)});
  AddText(drawing, {at, Readout("   elevation=", elevation, 0), ink(elevation), 0, true});
}

void AppendDevelopedPanels(const Sail& sail, const ViewState& view, Drawing& drawing) {
  const PlanMapping plan(sail.Definition.LuffRake, view);
  for (const PlacedPanel& panel : ArrangePanels(sail, view)) {
    AddStroke(drawing, MappedStroke(panel.Outline, plan, false));
    Stroke guide = MappedStroke(panel.Guide, plan, false);
    guide.Pen = PenStyle::Dashed;
    AddStroke(drawing, std::move(guide));
  }
}

Drawing SailDrawing(const Sail& sail, const ViewState& view, const PictureSize& picture,
                    const PictureContent& content, double azimuth, double elevation,
                    Language language) {
  Drawing drawing;
  if (!HasOutline(sail.Definition) || !(view.ViewScale > 0)) return drawing;
  if (content.Outline) AppendOutline(sail.Definition, view, drawing);
  if (content.Labels) AppendLabels(sail.Definition, view, language, drawing);
  if (content.SeamLines) {
    const SurfaceMapping mapping(sail.Definition, view, azimuth, elevation);
    const int last = std::clamp<int>(sail.Definition.PanelCount, 0, kMostPanels);
    for (int i = 0; i <= last; ++i) AppendSeamLine(sail.Grid, mapping, i, drawing);
    AppendAngleReadouts(picture, azimuth, elevation, drawing);
  }
  if (content.Panels) AppendDevelopedPanels(sail, view, drawing);
  return drawing;
}

Drawing SailDrawing(const Sail& sail, const ViewState& view, const PictureSize& picture,
                    double azimuth, double elevation, Language language) {
  return SailDrawing(sail, view, picture, ContentOf(view), azimuth, elevation, language);
}

}  // namespace brivane
