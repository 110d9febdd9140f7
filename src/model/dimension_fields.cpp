#include "model/dimension_fields.h"

#include <algorithm>
#include <limits>

#include "model/number_text.h"

namespace brivane {
namespace {

/// Added before the whole part is taken: 40 degrees in radians and back can be 39.99999999999999.
constexpr double kDegreeSlack = 1e-9;

constexpr std::string_view kMillimetre = "mm";
constexpr std::string_view kDegree = "°";
constexpr std::string_view kPercent = "%";

using enum DimensionField;

constexpr std::array<DimensionFieldInfo, 19> kFields = {{
    {Luff,
     "Luff",
     {"Luff length", "Longueur guindant"},
     kMillimetre,
     {"Whole millimetres, at least 200", "Millimètres entiers, au moins 200"}},
    {LuffRake,
     "LuffRake",
     {"Luff rake", "Inclinaison guindant"},
     kDegree,
     {"Degrees, from -89 to 89", "Degrés, de -89 à 89"}},
    {LuffRond,
     "LuffRond",
     {"Luff round", "Rond de guindant"},
     kMillimetre,
     {"Whole millimetres, negative for a hollow: from -5 % to 10 % of the luff",
      "Millimètres entiers, négatifs pour un creux : de -5 % à 10 % du guindant"}},
    {LuffRondPos,
     "LuffRondPos",
     {"Luff round position", "Position du rond de guindant"},
     kPercent,
     {"Percent of the luff from the tack, from 35 to 65",
      "Pour cent du guindant depuis l'amure, de 35 à 65"}},
    {Foot,
     "Foot",
     {"Foot length", "Longueur bordure"},
     kMillimetre,
     {"Whole millimetres, at least 100, from a tenth of the luff to three times the luff",
      "Millimètres entiers, au moins 100, du dixième au triple du guindant"}},
    {FootRond,
     "FootRond",
     {"Foot round", "Rond de bordure"},
     kMillimetre,
     {"Whole millimetres, from 0 to 10 % of the foot",
      "Millimètres entiers, de 0 à 10 % de la bordure"}},
    {Diag,
     "Diag",
     {"Diagonal length", "Longueur diagonale"},
     kMillimetre,
     {"Throat to clew, whole millimetres, at least 100: the triangle with luff and foot must close",
      "Du point de drisse au point d'écoute, millimètres entiers, au moins 100 : le triangle avec "
      "guindant et bordure doit fermer"}},
    {Gaff,
     "Gaff",
     {"Gaff length", "Longueur vergue"},
     kMillimetre,
     {"Whole millimetres; below 6 the sail is triangular. The peak stays forward of 90 % of the LP",
      "Millimètres entiers ; en dessous de 6 la voile est triangulaire. Le pic reste en avant de "
      "90 % du LP"}},
    {GaffRond,
     "GaffRond",
     {"Gaff round", "Rond de vergue"},
     kMillimetre,
     {"Whole millimetres, negative for a hollow: from -5 % to 10 % of the gaff",
      "Millimètres entiers, négatifs pour un creux : de -5 % à 10 % de la vergue"}},
    {GaffA,
     "GaffA",
     {"Gaff angle / luff", "Angle de la vergue / guindant"},
     kDegree,
     {"Degrees, from 1 (along the luff) to 179", "Degrés, de 1 (le long du guindant) à 179"}},
    {LeechRond,
     "LeechRond",
     {"Leech roach", "Rond de chute"},
     kMillimetre,
     {"Whole millimetres, negative for a hollow: from -10 % to 25 % of the leech",
      "Millimètres entiers, négatifs pour un creux : de -10 % à 25 % de la chute"}},
    {LeechRondPos,
     "LeechRondPos",
     {"Leech roach position", "Position du rond de chute"},
     kPercent,
     {"Percent of the leech, from 35 to 65", "Pour cent de la chute, de 35 à 65"}},
    {DimensionField::SailName,
     "SailName",
     {"Sail file name", "Nom fichier voile"},
     "",
     {"Name of the sail, and of its files", "Nom de la voile, et de ses fichiers"}},
    {SDepth0,
     "SDepth0",
     {"Foot depth", "Creux bordure"},
     kPercent,
     {"Percent of the chord, at most 70 % of the max depth",
      "Pour cent de la corde, au plus 70 % du creux max"}},
    {SDepth1,
     "SDepth1",
     {"Max depth", "Creux max"},
     kPercent,
     {"Percent of the chord, at least 5", "Pour cent de la corde, au moins 5"}},
    {SDepth2,
     "SDepth2",
     {"Head depth", "Creux tête"},
     kPercent,
     {"Percent of the chord, from 30 % of the max depth to the max depth",
      "Pour cent de la corde, de 30 % du creux max au creux max"}},
    {Twistxt,
     "Twistxt",
     {"Twist angle head/foot", "Angle vrillage tête/bordure"},
     kDegree,
     {"Degrees, from -89 to 89", "Degrés, de -89 à 89"}},
    {DimensionField::ClothWidth,
     "ClothWidth",
     {"Usefull cloth width", "Largeur utile du tissu"},
     kMillimetre,
     {"Whole millimetres, from 2 % to 30 % of the diagonal",
      "Millimètres entiers, de 2 % à 30 % de la diagonale"}},
    {DimensionField::SeamWidth,
     "SeamWidth",
     {"Seams width", "Largeur des coutures"},
     kMillimetre,
     {"Whole millimetres, from 1 % to 10 % of the cloth width",
      "Millimètres entiers, de 1 % à 10 % de la largeur du tissu"}},
}};

constexpr bool StandsInOrder() {
  for (std::size_t index = 0; index < kFields.size(); ++index)
    if (static_cast<std::size_t>(kFields[index].Field) != index) return false;
  return true;
}
static_assert(StandsInOrder());

std::string AngleText(double radians) { return PlainNumber(WholeDegrees(radians)); }

}  // namespace

const std::array<DimensionFieldInfo, 19>& DimensionFields() { return kFields; }

const DimensionFieldInfo& InfoOf(DimensionField field) {
  return kFields.at(static_cast<std::size_t>(field));
}

double WholeDegrees(double radians) {
  // A file may hold an angle whose degrees no double holds; the field shows it all the same.
  constexpr double kLargest = std::numeric_limits<double>::max();
  return WholePart(std::clamp(radians * kDegreesPerRadian + kDegreeSlack, -kLargest, kLargest));
}

std::string FieldText(const SailDefinition& sail, DimensionField field) {
  switch (field) {
    case Luff:
      return PlainNumber(sail.LuffLength);
    case LuffRake:
      return AngleText(sail.LuffRake);
    case LuffRond:
      return PlainNumber(sail.LuffRound);
    case LuffRondPos:
      return PlainNumber(sail.LuffRoundPos);
    case Foot:
      return PlainNumber(sail.FootLength);
    case FootRond:
      return PlainNumber(sail.FootRound);
    case Diag:
      return PlainNumber(sail.DiagonalLength);
    case Gaff:
      return PlainNumber(sail.GaffLength);
    case GaffRond:
      return PlainNumber(sail.GaffRound);
    case GaffA:
      return AngleText(sail.GaffAngle);
    case LeechRond:
      return PlainNumber(sail.LeechRound);
    case LeechRondPos:
      return PlainNumber(sail.LeechRoundPos);
    case DimensionField::SailName:
      return sail.SailName;
    case SDepth0:
      return PlainNumber(sail.Depth[kFoot]);
    case SDepth1:
      return PlainNumber(sail.Depth[kMiddle]);
    case SDepth2:
      return PlainNumber(sail.Depth[kTop]);
    case Twistxt:
      return AngleText(sail.TwistAngle);
    case DimensionField::ClothWidth:
      return PlainNumber(sail.ClothWidth);
    case DimensionField::SeamWidth:
      return PlainNumber(sail.SeamWidth);
  }
  return {};
}

bool MayBeTyped(DimensionField field, char32_t character) {
  constexpr std::u32string_view kNotInFileNames = U"/\\:*?\"<>|\x7F";
  constexpr std::u32string_view kInNumbers = U"0123456789+-.,; ";
  if (field == DimensionField::SailName)
    return character >= U' ' && kNotInFileNames.find(character) == std::u32string_view::npos;
  return kInNumbers.find(character) != std::u32string_view::npos;
}

std::string LpText(const SailDefinition& sail) { return StrNum(WholePart(sail.ClewPoint.x)); }

std::string LeechLengthText(const SailDefinition& sail) {
  return StrNum(WholePart(sail.LeechLength + 0.5));
}

std::string SailAreaText(const SailDefinition& sail, char decimalMark) {
  return FormatPattern(kHundredths, sail.SailArea, decimalMark);
}

}  // namespace brivane
