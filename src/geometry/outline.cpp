#include "geometry/outline.h"

#include <cmath>

#include "geometry/faults.h"
#include "geometry/plane.h"
#include "geometry/twist.h"

namespace brivane {
namespace {

constexpr double kStubLength = 5;          ///< gaff of a triangular sail, mm
constexpr double kStubRise = 9;            ///< its rise, mm: deliberately not its length
constexpr double kStubAngleOffset = 0.03;  ///< rad
constexpr double kShortestRoundGaff = 50;  ///< mm; a shorter gaff carries no round

/// Area under an edge round per mm² of edge × round: deliberately not the 2/3 of a parabola.
constexpr double RoundAreaFactor = 0.7;

std::int16_t ToNearestWhole(double value) {
  const double whole = std::nearbyint(value);  // halves to the even neighbour
  if (!(std::abs(whole) <= 32767)) throw GeometryFault(kOverflowWords);
  return static_cast<std::int16_t>(whole);
}

double Quotient(double numerator, double denominator) {
  if (denominator == 0) throw GeometryFault(kOverflowWords);
  return numerator / denominator;
}

void PlaceClew(SailDefinition& sail, double tackAngle) {
  sail.ClewPoint = {sail.FootLength * std::sin(tackAngle), sail.FootLength * std::cos(tackAngle),
                    0};
  sail.FootAngle = std::atan(Quotient(sail.ClewPoint.y, sail.ClewPoint.x));
}

void PlacePeak(SailDefinition& sail, double throatAngle) {
  if (!IsTriangular(sail)) {
    sail.PeakPoint = {sail.GaffLength * std::sin(sail.GaffAngle),
                      sail.LuffLength + sail.GaffLength * std::cos(sail.GaffAngle), 0};
    return;
  }
  sail.GaffLength = kStubLength;
  sail.GaffRound = 0;
  sail.PeakPoint = {kStubLength * std::cos(throatAngle),
                    sail.LuffLength + kStubRise * std::sin(throatAngle), 0};
  sail.GaffAngle = kPi / 2 - throatAngle - kStubAngleOffset;
}

void PlaceLeech(SailDefinition& sail) {
  const double across = sail.ClewPoint.x - sail.PeakPoint.x;
  const double up = sail.PeakPoint.y - sail.ClewPoint.y;
  // The hundred-thousandth of a millimetre keeps a peak level with the clew from dividing by zero.
  sail.LeechAngle = std::atan(Quotient(across, up + 0.00001));
  sail.LeechLength = std::sqrt(up * up + across * across);
}

void ComputeArea(SailDefinition& sail) {
  const double clewAngle = SolveTriangle(sail.GaffLength, sail.DiagonalLength, sail.LeechLength).A;
  double area = sail.DiagonalLength * sail.LeechLength * std::sin(clewAngle) / 2 +
                sail.LuffLength * sail.ClewPoint.x / 2;
  area += RoundAreaFactor * (sail.LuffLength * sail.LuffRound + sail.LeechLength * sail.LeechRound +
                             sail.FootLength * sail.FootRound + sail.GaffLength * sail.GaffRound);
  sail.SailArea = std::floor(area / 10000) / 100;
}

/// The round held between −Int(lower·L) and Int(upper·L).
double HeldRound(double round, double edgeLength, double upper, double lower) {
  if (round > upper * edgeLength) return std::floor(upper * edgeLength);
  if (round < -lower * edgeLength) return 0 - std::floor(lower * edgeLength);
  return round;
}

void RequireFiniteOutline(const SailDefinition& sail) {
  for (const double value :
       {sail.ClewPoint.x, sail.ClewPoint.y, sail.PeakPoint.x, sail.PeakPoint.y, sail.PeakPoint.z,
        sail.LeechAngle, sail.FootAngle, sail.LeechLength, sail.SailArea, sail.GaffAngle,
        sail.LuffRound, sail.LeechRound, sail.FootRound})
    RequireFinite(value);
}

}  // namespace

void ClampRounds(SailDefinition& sail) {
  if (sail.GaffLength >= kShortestRoundGaff)
    sail.GaffRound = ToNearestWhole(HeldRound(sail.GaffRound, sail.GaffLength, 0.1, 0.05));
  else
    sail.GaffRound = 0;
  sail.LuffRound = HeldRound(sail.LuffRound, sail.LuffLength, 0.1, 0.05);
  sail.LeechRound = HeldRound(sail.LeechRound, sail.LeechLength, 0.25, 0.1);
  sail.FootRound = HeldRound(sail.FootRound, sail.FootLength, 0.1, 0);
}

void ClampCloth(SailDefinition& sail) {
  const double diagonal = sail.DiagonalLength;
  if (sail.ClothWidth > 0.3 * diagonal)
    sail.ClothWidth = ToNearestWhole(0.3 * diagonal);
  else if (sail.ClothWidth < diagonal / 50)
    sail.ClothWidth = ToNearestWhole(diagonal / 50 + 1);
  const double cloth = sail.ClothWidth;
  if (sail.SeamWidth > 0.1 * cloth)
    sail.SeamWidth = ToNearestWhole(0.1 * cloth);
  else if (sail.SeamWidth < cloth / 100)
    sail.SeamWidth = ToNearestWhole(cloth / 100 + 1);
}

void ComputeOutline(SailDefinition& sail) {
  SailDefinition next = sail;
  const TriangleAngles lower = SolveTriangle(next.LuffLength, next.DiagonalLength, next.FootLength);
  PlaceClew(next, lower.B);
  PlacePeak(next, lower.C);
  PlaceLeech(next);
  next.PeakPoint.z = TwistOffset(next, next.PeakPoint.x, next.PeakPoint.y);
  ClampRounds(next);
  ClampCloth(next);
  ComputeArea(next);
  RequireFiniteOutline(next);
  sail = std::move(next);
}

void RecomputeOutline(Sail& sail) {
  sail.Grid.Erase();
  sail.Panels.Erase();
  sail.Definition.PanelCount = 0;
  ComputeOutline(sail.Definition);
}

}  // namespace brivane
