#include "view/projection.h"

#include <cmath>
#include <limits>

namespace brivane {

double RoundToSingle(double value) {
  constexpr double kGreatest = std::numeric_limits<float>::max();
  if (std::abs(value) > kGreatest)
    return std::copysign(std::numeric_limits<double>::infinity(), value);
  return static_cast<double>(static_cast<float>(value));
}

Turn::Turn(double angle) : Sin(std::sin(angle)), Cos(std::cos(angle)) {}

PlanMapping::PlanMapping(double luffRake, const ViewState& view)
    : rake_(-luffRake),
      scale_(view.ViewScale),
      offsetX_(view.ViewOffsetX),
      offsetY_(view.ViewOffsetY) {}

PlanePoint PlanMapping::Unrake(PlanePoint point) const {
  return {point.x * rake_.Cos - point.y * rake_.Sin, point.x * rake_.Sin + point.y * rake_.Cos};
}

PlanePoint PlanMapping::Map(PlanePoint point) const {
  return {RoundToSingle(point.x * scale_ + offsetX_), RoundToSingle(point.y * scale_ + offsetY_)};
}

SurfaceMapping::SurfaceMapping(const SailDefinition& sail, const ViewState& view, double azimuth,
                               double elevation)
    : plan_(sail.LuffRake, view),
      azimuth_(azimuth),
      elevation_(elevation),
      centre_{sail.ClewPoint.x / 2, sail.LuffLength / 2} {}

PlanePoint SurfaceMapping::Map(double x, double y, double z) const {
  const PlanePoint upright = plan_.Unrake({x, y});
  const double u = (upright.x - centre_.x) * azimuth_.Cos + z * azimuth_.Sin;
  const double w = (upright.y - centre_.y) * elevation_.Cos + z * elevation_.Sin;
  return plan_.Map({u + centre_.x, w + centre_.y});
}

}  // namespace brivane
