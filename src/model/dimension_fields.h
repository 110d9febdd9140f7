#pragma once

#include <array>
#include <string>
#include <string_view>

#include "model/degrees.h"
#include "model/language.h"
#include "model/sail_definition.h"

namespace brivane {

// What the dimensions window shows: its fields and its result displays.

/// The typed fields, named after their controls, in the order of the window's table.
enum class DimensionField {
  Luff,
  LuffRake,
  LuffRond,
  LuffRondPos,
  Foot,
  FootRond,
  Diag,
  Gaff,
  GaffRond,
  GaffA,
  LeechRond,
  LeechRondPos,
  SailName,
  SDepth0,
  SDepth1,
  SDepth2,
  Twistxt,
  ClothWidth,
  SeamWidth
};

/// What stands around a field.
struct DimensionFieldInfo {
  DimensionField Field;
  std::string_view ControlName;  ///< object name of the control
  BilingualText Caption;         ///< of its label
  std::string_view Unit;         ///< shown beside the field, UTF-8; empty for the name
  BilingualText Tooltip;         ///< tells the range
};

/// All fields in the order of DimensionField.
const std::array<DimensionFieldInfo, 19>& DimensionFields();

/// The row of one field.
const DimensionFieldInfo& InfoOf(DimensionField field);

/// The whole part of an angle in degrees. A whole degree that was stored in radians comes back
/// whole: the part is taken a billionth of a degree above the product.
double WholeDegrees(double radians);

/// The text of the field as the window shows it: angles in whole degrees, numbers without leading
/// blank, "." as the decimal mark (it is what every field reads back).
std::string FieldText(const SailDefinition& sail, DimensionField field);

/// Whether a key's character (a Unicode code point) may be typed into the field. Numbers take
/// digits, signs, blanks and the marks ".", "," and ";"; the name takes what a file name can hold.
bool MayBeTyped(DimensionField field, char32_t character);

// --- Result displays ---------------------------------------------------------------------------

/// Captions of the displays.
inline constexpr BilingualText kLeechLengthCaption = {"Leech length =", "Longueur chute ="};
inline constexpr BilingualText kLpCaption = {"LP =", "LP ="};
inline constexpr BilingualText kSailAreaCaption = {"Sail area =", "Surface voile ="};

/// Whole part of the luff perpendicular, mm, with a leading blank: " 3599".
std::string LpText(const SailDefinition& sail);

/// Leech length rounded to the nearest mm, with a leading blank.
std::string LeechLengthText(const SailDefinition& sail);

/// Sail area in m² with two decimals and the regional mark: "16.43".
std::string SailAreaText(const SailDefinition& sail, char decimalMark);

}  // namespace brivane
