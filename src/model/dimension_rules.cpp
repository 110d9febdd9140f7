#include "model/dimension_rules.h"

#include <algorithm>
#include <cmath>
#include <iterator>
#include <limits>
#include <string>

#include "model/number_text.h"

namespace brivane {
namespace {

using enum DimensionField;

constexpr double kLeastLuff = 200;
constexpr double kLeastFoot = 100;
constexpr double kLeastDiagonal = 100;
constexpr double kStubGaff = 5;

constexpr BilingualText kLuffTooShort = {"Luff too short, has been adjusted to minimum",
                                         "Guindant trop court, ajusté au minimum"};
constexpr BilingualText kFootTooShort = {"Foot too short, has been adjusted to minimum",
                                         "Bordure trop courte, ajustée au minimum"};
constexpr BilingualText kDiagonalTooShort = {"Diagonal too short, has been adjusted to minimum",
                                             "Diagonale trop courte, ajustée au minimum"};

using Notices = std::vector<FieldNotice>;

// --- Typed texts -------------------------------------------------------------------------------

double NormalisedVal(std::string_view typed) {
  std::string text(typed);
  return Val(NormaliseDecimalText(text));
}

double TypedLength(std::string_view typed) { return WholePart(std::fabs(NormalisedVal(typed))); }

/// Typed degrees held within two limits, in radians.
double TypedAngle(std::string_view typed, double least, double most) {
  return std::clamp(NormalisedVal(typed), least, most) / kDegreesPerRadian;
}

std::string TypedName(std::string_view typed) {
  std::string name;
  std::copy_if(typed.begin(), typed.end(), std::back_inserter(name),
               [](char c) { return static_cast<unsigned char>(c) >= 32; });
  return name;
}

// --- Lengths: each rule starts the next --------------------------------------------------------

/// A length that came out beyond the range of a double.
double Finite(double length) { return std::min(length, std::numeric_limits<double>::max()); }

void CheckGaff(SailDefinition& sail) {
  sail.GaffLength = std::fabs(sail.GaffLength);
  const double sine = std::sin(sail.GaffAngle);
  const double reach = 0.9 * sail.ClewPoint.x;
  if (reach > 0 && sail.GaffLength * sine > reach) {  // so the sine is positive
    sail.GaffLength = WholePart(reach / sine);
  } else if (sail.GaffLength < kShortestGaff) {
    sail.GaffLength = kStubGaff;
  }
}

void CheckDiagonal(SailDefinition& sail, Notices& notices) {
  sail.DiagonalLength = std::fabs(sail.DiagonalLength);
  const double luff = sail.LuffLength;
  const double foot = sail.FootLength;
  if (sail.DiagonalLength < kLeastDiagonal) {
    sail.DiagonalLength = kLeastDiagonal;
    notices.push_back({Diag, kDiagonalTooShort});
  } else if (1.1 * std::fabs(foot - luff) > sail.DiagonalLength ||
             0.9 * (luff + foot) < sail.DiagonalLength) {
    sail.DiagonalLength = WholePart(Finite(std::sqrt(luff * luff + foot * foot)));
  }
  CheckGaff(sail);
}

void CheckFoot(SailDefinition& sail, Notices& notices) {
  sail.FootLength = std::fabs(sail.FootLength);
  const double luff = sail.LuffLength;
  if (sail.FootLength < kLeastFoot) {
    sail.FootLength = kLeastFoot;
    sail.FootRound = 0;
    notices.push_back({Foot, kFootTooShort});
  } else if (luff * 0.1 > sail.FootLength) {
    sail.FootLength = WholePart(luff * 0.1 + 1);
  } else if (luff * 3 < sail.FootLength) {
    sail.FootLength = WholePart(luff * 3);
  }
  CheckDiagonal(sail, notices);
}

void CheckLuff(SailDefinition& sail, Notices& notices) {
  if (sail.LuffLength < kLeastLuff) {
    sail.LuffLength = kLeastLuff;
    sail.LuffRound = 0;
    notices.push_back({Luff, kLuffTooShort});
  }
  CheckFoot(sail, notices);
}

// --- Other fields ------------------------------------------------------------------------------

FieldColour EnterRoundPosition(std::int16_t& position, std::string_view typed) {
  const double whole = WholePart(std::fabs(Val(typed)));
  const double held = std::clamp(whole, kLeastRoundPos, kMostRoundPos);
  position = static_cast<std::int16_t>(held);
  return held == whole ? FieldColour::Normal : FieldColour::Yellow;
}

void EnterDepth(SailDefinition& sail, MouldHeight height, std::string_view typed) {
  sail.Depth[height] = NormalisedVal(typed);
  ApplyDepthLimits(sail);
}

/// The fields that are stored without a rule of their own.
void EnterPlainField(SailDefinition& sail, DimensionField field, std::string_view typed) {
  switch (field) {
    case LuffRake:
      sail.LuffRake = TypedAngle(typed, -kMostTiltDegrees, kMostTiltDegrees);
      break;
    case Twistxt:
      sail.TwistAngle = TypedAngle(typed, -kMostTiltDegrees, kMostTiltDegrees);
      break;
    case GaffA:
      sail.GaffAngle = TypedAngle(typed, kLeastGaffDegrees, kMostGaffDegrees);
      break;
    case LuffRond:
      sail.LuffRound = WholePart(Val(typed));
      break;
    case FootRond:
      sail.FootRound = WholePart(Val(typed));
      break;
    case LeechRond:
      sail.LeechRound = WholePart(Val(typed));
      break;
    case GaffRond:
      sail.GaffRound = HeldToInt16(WholePart(Val(typed)));
      break;
    case DimensionField::ClothWidth:
      sail.ClothWidth = HeldToInt16(TypedLength(typed));
      break;
    case DimensionField::SeamWidth:
      sail.SeamWidth = HeldToInt16(TypedLength(typed));
      break;
    default:
      sail.SailName = TypedName(typed);
  }
}

}  // namespace

FieldOutcome EnterField(SailDefinition& sail, DimensionField field, std::string_view typed) {
  FieldOutcome outcome;
  switch (field) {
    case Luff:  // not normalised: the fraction is cut off anyway
      sail.LuffLength = WholePart(std::fabs(Val(typed)));
      CheckLuff(sail, outcome.Notices);
      break;
    case Foot:
      sail.FootLength = TypedLength(typed);
      CheckFoot(sail, outcome.Notices);
      break;
    case Diag:
      sail.DiagonalLength = TypedLength(typed);
      CheckDiagonal(sail, outcome.Notices);
      break;
    case Gaff:
      sail.GaffLength = TypedLength(typed);
      CheckGaff(sail);
      break;
    case LuffRondPos:
      outcome.Colour = EnterRoundPosition(sail.LuffRoundPos, typed);
      break;
    case LeechRondPos:
      outcome.Colour = EnterRoundPosition(sail.LeechRoundPos, typed);
      break;
    case SDepth0:
      EnterDepth(sail, kFoot, typed);
      break;
    case SDepth1:
      EnterDepth(sail, kMiddle, typed);
      break;
    case SDepth2:
      EnterDepth(sail, kTop, typed);
      break;
    default:
      EnterPlainField(sail, field, typed);
  }
  return outcome;
}

bool LeavingRecomputesOutline(DimensionField field) {
  switch (field) {
    case Diag:
    case GaffA:
    case LuffRond:
    case LeechRond:
    case FootRond:
    case GaffRond:
      return true;
    default:
      return false;
  }
}

}  // namespace brivane
