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

GaffSines::GaffSines(const SailDefinition& sail)
    : Reach(sail.GaffLength * std::sin(sail.GaffAngle)), SinTwist(std::sin(sail.TwistAngle)) {}

double GaffTwist(const SailDefinition& sail, double x) {
  return GaffTwist(sail, GaffSines(sail), x);
}

double GaffTwist(const SailDefinition& sail, const GaffSines& sines, double x) {
  const double t = sail.PeakPoint.x != 0 ? std::clamp(x / sail.PeakPoint.x, 0.0, 1.0) : 0;
  return sines.Reach * t * sines.SinTwist;
}

}  // namespace brivane
