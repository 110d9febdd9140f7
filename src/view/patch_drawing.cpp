#include "view/patch_drawing.h"

#include <utility>
#include <vector>

#include "patches/patch_outline.h"
#include "view/outline_curve.h"
#include "view/projection.h"

namespace brivane {

namespace {

template <typename Points>
Stroke SailStroke(const Points& points, const PlanMapping& plan, Colour ink) {
  Stroke stroke;
  stroke.Ink = ink;
  stroke.Points.reserve(points.size());
  for (const PlanePoint& point : points) stroke.Points.push_back(plan.MapSail(point));
  return stroke;
}

}  // namespace

ViewState PatchView(const SailDefinition& sail, const PictureSize& picture) {
  ViewState view;
  if (!HasOutline(sail) || !(picture.Width > 0 && picture.Height > 0)) return view;
  const Extent outline = UprightExtent(sail);
  view.ViewScale = FittingScale(picture.Width, picture.Height, outline.Width(), outline.Height());
  view.ViewOffsetX = (picture.Width - (outline.Left + outline.Right) * view.ViewScale) / 2;
  view.ViewOffsetY = (picture.Height - (outline.Bottom + outline.Top) * view.ViewScale) / 2;
  return view;
}

Drawing PatchDrawing(const Sail& sail, const PictureSize& picture) {
  Drawing drawing;
  const ViewState view = PatchView(sail.Definition, picture);
  if (!(view.ViewScale > 0)) return drawing;
  const PlanMapping plan(sail.Definition.LuffRake, view);
  const OutlineCurve outline = RoundedOutline(sail.Definition);
  for (int edge = 0; edge < 4; ++edge) AddStroke(drawing, SailStroke(outline[edge], plan, kBlack));
  for (const PatchCorner corner : PatchedCorners(sail.Definition))
    for (int layer = 0; layer < kPatchLayers; ++layer)
      AddStroke(drawing,
                SailStroke(PatchOutline(sail, corner, layer), plan, layer == 0 ? kBlue : kRed));
  return drawing;
}

}  // namespace brivane
