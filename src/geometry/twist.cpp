#include "geometry/twist.h"

#include <algorithm>
#include <cmath>

namespace brivane {

double TwistOffset(const SailDefinition& sail, double x, double y) {
  if (y <= sail.ClewPoint.y) return 0;
  if (y > sail.PeakPoint.y) return sail.PeakPoint.x * std::sin(sail.TwistAngle);
  const double t = (y - sail.ClewPoint.y) / (sail.PeakPoint.y - sail.ClewPoint.y);
  return x * std::sin(t * sail.TwistAngle);
}

double GaffTwist(const SailDefinition& sail, double x) {
  const double t = sail.PeakPoint.x != 0 ? std::clamp(x / sail.PeakPoint.x, 0.0, 1.0) : 0;
  return sail.GaffLength * std::sin(sail.GaffAngle) * t * std::sin(sail.TwistAngle);
}

}  // namespace brivane
