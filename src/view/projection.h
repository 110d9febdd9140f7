#pragma once

#include <cmath>
#include <limits>

#include "geometry/plane.h"
#include "model/sail_definition.h"
#include "view/view_state.h"

namespace brivane {

/// The value in single precision, as every drawing call takes it. Beyond the range of single
/// precision the result is infinite, and the stroke that holds it is not drawn.
inline double RoundToSingle(double value) {
  constexpr double kGreatest = std::numeric_limits<float>::max();
  if (std::abs(value) > kGreatest)
    return std::copysign(std::numeric_limits<double>::infinity(), value);
  return static_cast<double>(static_cast<float>(value));
}

/// Sine and cosine of an angle, taken once for a whole frame.
struct Turn {
  explicit Turn(double angle);
  double Sin;
  double Cos;
};

/// Maps points of the sail's plane, mm, to the surface. The view's scale and offsets serve the
/// screen and the paper alike.
class PlanMapping {
 public:
  PlanMapping(double luffRake, const ViewState& view);

  /// The point turned by −LuffRake about the tack, mm.
  PlanePoint Unrake(PlanePoint point) const {
    return {point.x * rake_.Cos - point.y * rake_.Sin, point.x * rake_.Sin + point.y * rake_.Cos};
  }

  /// The point scaled and moved to the surface, without turning it; single precision.
  PlanePoint Map(PlanePoint point) const {
    return {RoundToSingle(point.x * scale_ + offsetX_), RoundToSingle(point.y * scale_ + offsetY_)};
  }

  /// The point of the sail turned and then mapped.
  PlanePoint MapSail(PlanePoint point) const { return Map(Unrake(point)); }

 private:
  Turn rake_;
  double scale_;
  double offsetX_;
  double offsetY_;
};

/// Maps points of the sail in space, mm, to the surface, seen at two angles. The depth enters both
/// directions by a shear of its own, so that turning one way does not disturb the other; this is
/// no rotation matrix. With both angles 0 it is the plan mapping.
class SurfaceMapping {
 public:
  SurfaceMapping(const SailDefinition& sail, const ViewState& view, double azimuth,
                 double elevation);

  PlanePoint Map(double x, double y, double z) const {
    const PlanePoint upright = plan_.Unrake({x, y});
    const double u = (upright.x - centre_.x) * azimuth_.Cos + z * azimuth_.Sin;
    const double w = (upright.y - centre_.y) * elevation_.Cos + z * elevation_.Sin;
    return plan_.Map({u + centre_.x, w + centre_.y});
  }

 private:
  PlanMapping plan_;
  Turn azimuth_;
  Turn elevation_;
  PlanePoint centre_;
};

}  // namespace brivane
