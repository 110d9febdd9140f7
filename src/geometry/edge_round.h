#pragma once

namespace brivane {

/// The one shape of every edge round: the cubic 1 + b(t − p)² + c(t − p)³ which is 0 at both ends
/// of the edge and 1 at its greatest round.
struct EdgeRoundCurve {
  double p = 0.5;  ///< fraction of the edge where the round is greatest, within [0.3, 0.7]
  double b = 0;
  double c = 0;

  /// Offset at the fraction t of the edge, as a fraction of the round.
  double At(double t) const {
    const double u = t - p;
    return 1 + (b + c * u) * u * u;
  }
};

/// The curve whose greatest round lies at the fraction position, held within [0.3, 0.7].
EdgeRoundCurve MakeEdgeRoundCurve(double position);

}  // namespace brivane
