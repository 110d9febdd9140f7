#pragma once

#include <cmath>
#include <cstdint>
#include <random>

#include "geometry/outline.h"
#include "model/sail.h"
#include "view/view_state.h"

namespace brivane::testing {

/// A sail with round corner values: luff 3000, clew (4000, 0), peak (600, 3800), no rake, no
/// rounds, cloth 800.
inline SailDefinition PlainSail() {
  SailDefinition sail;
  sail.LuffLength = 3000;
  sail.LuffRake = 0;
  sail.FootLength = 4000;
  sail.DiagonalLength = 5000;
  sail.GaffLength = 1000;
  sail.ClewPoint = {4000, 0, 0};
  sail.PeakPoint = {600, 3800, 0};
  sail.LuffRound = sail.LeechRound = sail.FootRound = 0;
  sail.GaffRound = 0;
  sail.ClothWidth = 800;
  return sail;
}

/// A sail that somebody might cut, with its outline computed.
inline SailDefinition RandomSail(std::mt19937& random) {
  const auto draw = [&](double low, double high) {
    return std::uniform_real_distribution<double>(low, high)(random);
  };
  const auto whole = [&](int low, int high) {
    return static_cast<std::int16_t>(std::uniform_int_distribution<int>(low, high)(random));
  };
  SailDefinition sail;
  sail.LuffLength = draw(1000, 20000);
  sail.LuffRake = draw(-0.3, 0.6);
  sail.FootLength = sail.LuffLength * draw(0.2, 1.2);
  const double tack = draw(1.1, 1.9);
  sail.DiagonalLength =
      std::sqrt(sail.LuffLength * sail.LuffLength + sail.FootLength * sail.FootLength -
                2 * sail.LuffLength * sail.FootLength * std::cos(tack));
  sail.GaffLength = whole(0, 2) == 0 ? 0 : sail.LuffLength * draw(0.1, 0.7);
  sail.GaffAngle = draw(0.1, 1.2);
  sail.LuffRound = draw(-0.05, 0.1) * sail.LuffLength;
  sail.LeechRound = draw(-0.1, 0.25) * sail.LuffLength;
  sail.FootRound = draw(0, 0.1) * sail.FootLength;
  sail.GaffRound = whole(-50, 300);
  sail.LuffRoundPos = whole(35, 65);
  sail.LeechRoundPos = whole(35, 65);
  ComputeOutline(sail);
  return sail;
}

/// A developed panel that is a rectangle, its lower seam's forward end at (0, 0).
inline void SetRectangle(DevelopedPanels& panels, int panel, double length, double height) {
  for (int k = kForwardCorner; k <= kAftCorner; ++k) {
    const double x = length * (k - kForwardCorner) / (kAftCorner - kForwardCorner);
    panels.PanelLowerX(panel, k) = x;
    panels.PanelUpperX(panel, k) = x;
    panels.PanelUpperY(panel, k) = height;
    panels.PanelEdgeX(panel, k) = x;
    panels.PanelEdgeY(panel, k) = k == kForwardCorner || k == kAftCorner ? height : height - 20;
  }
  for (int k = 0; k <= kForwardCorner; ++k) {
    panels.PanelEdgeX(panel, k) = 0;
    panels.PanelEdgeY(panel, k) = height * k / kForwardCorner;
    panels.PanelEdgeX(panel, kAftCorner + k) = length;
    panels.PanelEdgeY(panel, kAftCorner + k) = height * (kForwardCorner - k) / kForwardCorner;
  }
}

/// PlainSail with three rectangular panels: 3000 × 800, 2000 × 700, 1000 × 500.
inline Sail SailOfRectangles(const char* cut) {
  Sail sail;
  sail.Definition = PlainSail();
  sail.Definition.CutType = cut;
  sail.Definition.PanelCount = 3;
  SetRectangle(sail.Panels, 0, 3000, 800);
  SetRectangle(sail.Panels, 1, 2000, 700);
  SetRectangle(sail.Panels, 2, 1000, 500);
  return sail;
}

}  // namespace brivane::testing
