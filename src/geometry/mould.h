#pragma once

#include "model/sail_definition.h"

namespace brivane {

/// True where the height of maximum depth lies between foot and head, and so divides the height in
/// two: what the functions of a height below need.
bool DividesHeight(const SailDefinition& sail);

/// Depth of the sail at the height fraction h (0 foot, 1 head), as a fraction of the chord.
double DepthAt(const SailDefinition& sail, double h);

/// Luff-side exponent of the section at the height fraction h, which is clamped to 0..1 in place.
double LuffShapeAt(const SailDefinition& sail, double& h);

/// Leech-side coefficient of the section at the height fraction h, which is clamped to 0..1 in
/// place.
double LeechShapeAt(const SailDefinition& sail, double& h);

/// A horizontal section of the mould: its luff exponent A and leech coefficient B, with what every
/// point of it takes from them.
struct Section {
  Section(double A, double B);

  /// Depth at the chord fraction X from the luff, not scaled. 0 outside 0 < X < 1. Its curvature is
  /// −((1 − X)^A + B·X).
  double At(double X) const;

  double A, B;
  double Divisor;  ///< (A + 1)(A + 2)
  double K1, K2;   ///< of the straight part K1 + K2·X, which makes both ends 0
};

/// Depth of the section with the luff exponent A and the leech coefficient B at the chord fraction
/// X from the luff, scaled by S. 0 outside 0 < X < 1.
double SectionProfile(double A, double B, double S, double X);

/// 1 / the greatest sample of SectionProfile(A, B, 1, X) between 0.21 and 0.59, found by walking
/// from 0.21 in steps of 0.01 until a sample falls; 10000 where the first sample is below 0.0001.
double ProfileNormaliser(double A, double B);

/// ProfileNormaliser for one section after another of the same sail: looks first at the sample that
/// was the greatest of the section before. The profile is concave for A, B ≥ 0, so that a sample
/// which the profile's slope shows to be above both its neighbours is the one where the walk ends;
/// where that leaves a doubt, the walk itself is made. The same bits come out.
class NormaliserWalk {
 public:
  double operator()(const Section& section);

 private:
  int greatest_ = 1;  ///< greatest sample of the section before
};

}  // namespace brivane
