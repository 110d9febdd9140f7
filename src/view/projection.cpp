#include "view/projection.h"

#include <cmath>

namespace brivane {

Turn::Turn(double angle) : Sin(std::sin(angle)), Cos(std::cos(angle)) {}

PlanMapping::PlanMapping(double luffRake, const ViewState& view)
    : rake_(-luffRake),
      scale_(view.ViewScale),
      offsetX_(view.ViewOffsetX),
      offsetY_(view.ViewOffsetY) {}

SurfaceMapping::SurfaceMapping(const SailDefinition& sail, const ViewState& view, double azimuth,
                               double elevation)
    : plan_(sail.LuffRake, view),
      azimuth_(azimuth),
      elevation_(elevation),
      centre_{sail.ClewPoint.x / 2, sail.LuffLength / 2} {}

}  // namespace brivane
