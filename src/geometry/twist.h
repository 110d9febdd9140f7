#pragma once

#include "model/sail_definition.h"

namespace brivane {

/// Twist displacement (z, mm) of a point on the leech: each section turns about the luff by an
/// angle that grows from 0 at the clew's height to TwistAngle at the peak's. Held at both ends.
/// The peak must lie above the clew.
double TwistOffset(const SailDefinition& sail, double x, double y);

/// The sines that all points on the gaff of a sail share.
struct GaffSines {
  explicit GaffSines(const SailDefinition& sail);

  double Reach;     ///< GaffLength · sin(GaffAngle), mm
  double SinTwist;  ///< of TwistAngle
};

/// Twist displacement (z, mm) of a point on the gaff at x, linear from the luff to the peak.
double GaffTwist(const SailDefinition& sail, double x);
double GaffTwist(const SailDefinition& sail, const GaffSines& sines, double x);

}  // namespace brivane
