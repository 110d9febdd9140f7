// Everything of the real source but the lifting of several points together: here each is lifted by
// itself.
#include "geometry/surface.h"

namespace brivane {

void SurfacePointsZ(const SurfaceFrame& frame, std::span<const PlanePoint> points, double* z) {
  for (const PlanePoint& at : points) *z++ = SurfacePointZ(frame, at.x, at.y);
}

}  // namespace brivane

#define SurfacePointsZ SetAside
#include "../../src/geometry/surface.cpp"
