#pragma once

#include <array>
#include <cstdint>
#include <string>

namespace brivane {

/// A corner of the sail, mm. The tack is the origin, the luff runs up +y, +x points towards the
/// clew, z is out of the sail's plane.
struct Corner {
  double x = 0;
  double y = 0;
  double z = 0;
  bool operator==(const Corner&) const = default;
};

/// Index of the three values that a mould field has, one for each height.
enum MouldHeight : std::size_t { kFoot = 0, kMiddle = 1, kTop = 2 };

/// The cut keywords as they stand in the record and in the files.
inline constexpr const char* kCrossCut = "CROSSCUT";
inline constexpr const char* kTwistFootCut = "TWISTFOOTCUT";
inline constexpr const char* kVerticalCut = "VERTICALCUT";

/// A gaff shorter than this (mm) makes a triangular sail.
inline constexpr double kShortestGaff = 6;

/// One sail: what the user types and what the outline and layout computations store back. Lengths
/// in mm, angles in rad, depths and round positions in %. The initial values are the defaults of
/// a new sail; fields marked computed start at zero.
struct SailDefinition {
  std::string SailName = "Newsail";             ///< also the base of every proposed file name
  std::string CutType = kTwistFootCut;          ///< one of the cut keywords
  std::string MouldLabel = "default_vertical";  ///< carried through the sail data file only
  std::string CutLabel = "default_coupe";       ///< carried through the sail data file only
  double LuffLength = 4550;
  double LuffRake = 0.05;
  double FootLength = 3600;
  double LeechLength = 0;        ///< computed
  double DiagonalLength = 5750;  ///< throat to clew
  Corner ClewPoint;              ///< computed
  Corner PeakPoint;              ///< computed
  double GaffLength = 2600;
  double GaffAngle = 0.7;          ///< from the luff
  double LeechAngle = 0;           ///< computed; from the vertical
  double FootAngle = 0;            ///< computed; from the horizontal
  double SailArea = 0;             ///< computed; m², truncated to hundredths
  double LuffRound = 100;          ///< rounds: mm, positive = outward
  std::int16_t LuffRoundPos = 50;  ///< round positions: % of the edge
  double LeechRound = -100;
  std::int16_t LeechRoundPos = 60;
  double FootRound = 170;
  std::int16_t FootRoundPos = 50;
  std::int16_t GaffRound = 130;  ///< a whole number, unlike the other rounds
  std::int16_t GaffRoundPos = 50;
  std::array<double, 3> Depth = {3, 10, 5};            ///< % of the chord, index MouldHeight
  std::array<double, 3> LuffShape = {0, 3, 6};         ///< exponents, index MouldHeight
  std::array<double, 3> LeechShape = {0, 0.06, 0.08};  ///< coefficients, index MouldHeight
  double DepthPosition = 4;                            ///< tenths of the height, 1 to 8
  double TwistAngle = 0.21;                            ///< foot to head
  std::int16_t ClothWidth = 890;                       ///< usable width, mm
  std::int16_t SeamWidth = 20;                         ///< mm
  std::int16_t PanelCount = 0;                         ///< computed

  bool operator==(const SailDefinition&) const = default;
};

/// True for a sail without a gaff.
inline bool IsTriangular(const SailDefinition& sail) { return sail.GaffLength < kShortestGaff; }

/// Sets every user field to its default and leaves the computed fields as they are.
void ResetSailDefinition(SailDefinition& sail);

/// Brings the three depths within the program's limits, silently: the middle at least 5, the top
/// between 30 % of the middle and the middle, the foot at most 70 % of the middle. The rules are
/// asymmetric on purpose.
void ApplyDepthLimits(SailDefinition& sail);

/// The range of DepthPosition.
inline constexpr double kLowestDepthPosition = 1;
inline constexpr double kHighestDepthPosition = 8;

/// Brings a DepthPosition that is not a whole number from 1 to 8 to the nearest one.
void HoldDepthPosition(SailDefinition& sail);

}  // namespace brivane
