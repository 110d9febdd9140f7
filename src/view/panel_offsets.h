#pragma once

#include <string>
#include <vector>

#include "geometry/plane.h"
#include "model/sail.h"
#include "view/drawing.h"
#include "view/paper.h"

namespace brivane {

/// A point of a developed panel that a sailmaker measures from.
struct PanelOffset {
  PlanePoint Point;  ///< in the panel's own frame, mm
  std::string Text;  ///< "X=1234; Y=56", whole mm
};

/// The offsets of one panel, each list in the order of its x: along the lower side the ends of the
/// lower seam and every fifth of its points, along the upper side the same of the upper seam; the
/// ends of both edges, and a corner of the sail within an edge, belong to the side where they lie.
/// Points that coincide are listed once, with the lower side. The texts of the upper side start
/// with a blank.
struct PanelOffsets {
  std::vector<PanelOffset> Lower;
  std::vector<PanelOffset> Upper;
};
PanelOffsets OffsetsOf(const DevelopedPanels& panels, int panel);

/// Width that a row of offset texts takes side by side, in units of the font's size.
double RowWidth(const std::vector<PanelOffset>& row, const TextMeasure& measure);

/// Adds a row of offset texts, none on top of another, within 0 and the width, each tied to its
/// point by a thin leader.
struct OffsetRow {
  double Top = 0;      ///< of the texts, surface units
  double Size = 0;     ///< of the font
  double Knee = 0;     ///< height down (or up) to which the leaders run straight
  bool Above = false;  ///< the row stands above its points
};
void AddOffsetRow(Drawing& page, const std::vector<PanelOffset>& row,
                  const std::vector<PlanePoint>& places, const OffsetRow& at, double width,
                  const TextMeasure& measure);

}  // namespace brivane
