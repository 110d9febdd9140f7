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

/// Depth of the section with the luff exponent A and the leech coefficient B at the chord fraction
/// X from the luff, scaled by S. 0 outside 0 < X < 1. Its curvature is −S((1 − X)^A + B·X).
double SectionProfile(double A, double B, double S, double X);

/// 1 / the greatest sample of SectionProfile(A, B, 1, X) between 0.21 and 0.59, found by walking
/// from 0.21 in steps of 0.01 until a sample falls; 10000 where the first sample is below 0.0001.
double ProfileNormaliser(double A, double B);

/// ProfileNormaliser for one section after another of the same sail: starts its walk where the
/// section before had its maximum. The profile is concave for A, B ≥ 0, so that the first falling
/// sample is the same, bit for bit.
class NormaliserWalk {
 public:
  double operator()(double A, double B);

 private:
  int fall_ = 1;  ///< first falling sample of the section before
};

}  // namespace brivane
