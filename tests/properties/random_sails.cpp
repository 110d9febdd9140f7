#include "properties/random_sails.h"

#include <algorithm>
#include <cmath>
#include <cstdlib>
#include <filesystem>

#include "geometry/outline.h"
#include "model/dimension_rules.h"
#include "model/failures.h"
#include "model/number_text.h"
#include "model/sail_file.h"

namespace brivane {
namespace {

double Uniform(Random& random, double low, double high) {
  return std::uniform_real_distribution<double>(low, high)(random);
}

int Whole(Random& random, int low, int high) {
  return std::uniform_int_distribution<int>(low, high)(random);
}

bool Chance(Random& random, double share) { return Uniform(random, 0, 1) < share; }

std::int16_t Whole16(Random& random, int low, int high) {
  return static_cast<std::int16_t>(Whole(random, low, high));
}

double FromEnvironment(const char* name, double usual) {
  const char* text = std::getenv(name);
  return text != nullptr ? Val(text) : usual;
}

/// A mould around the one that a new sail has.
void DrawUsualMould(Random& random, SailDefinition& sail) {
  const double middle = Uniform(random, 7, 12);
  sail.Depth = {Uniform(random, 0, 4), middle, Uniform(random, 0.4, 0.8) * middle};
  ApplyDepthLimits(sail);
  sail.LuffShape = {Uniform(random, 0, 1), Uniform(random, 2, 4), Uniform(random, 4, 7)};
  sail.LeechShape = {Uniform(random, 0, 0.02), Uniform(random, 0.04, 0.08),
                     Uniform(random, 0.06, 0.1)};
  sail.DepthPosition = Whole(random, 3, 6);
  sail.TwistAngle = Uniform(random, 0.05, 0.3);
}

/// Any mould that the bars of the mould window reach.
void DrawAnyMould(Random& random, SailDefinition& sail) {
  for (std::size_t height = 0; height < 3; ++height) {
    sail.LuffShape[height] = Whole(random, 0, 100) / 10.0;
    sail.LeechShape[height] = Whole(random, 0, 100) / 500.0;
  }
  sail.DepthPosition = Whole(random, 1, 8);
}

void DrawRounds(Random& random, SailDefinition& sail) {
  constexpr double kThird = 1.0 / 3;
  const auto round = [&](double inward, double outward, double length) {
    return std::floor(Uniform(random, -inward * kThird, outward * kThird) * length);
  };
  sail.LuffRound = round(0.05, 0.1, sail.LuffLength);
  sail.LeechRound = round(0.1, 0.25, sail.LuffLength);
  sail.FootRound = round(0, 0.1, sail.FootLength);
  sail.GaffRound = IsTriangular(sail)
                       ? std::int16_t{0}
                       : static_cast<std::int16_t>(round(0.05, 0.1, sail.GaffLength));
  sail.LuffRoundPos = Whole16(random, 35, 65);
  sail.LeechRoundPos = Whole16(random, 35, 65);
}

/// A text somebody might type: mostly a number around the usual one, sometimes nonsense.
std::string TypedText(Random& random, double usual) {
  if (Chance(random, 0.02)) return "abc";
  if (Chance(random, 0.02)) return "";
  if (Chance(random, 0.01)) return "1e9";
  const double factor = std::exp(Uniform(random, -2.5, 2.5));
  const double value = (Chance(random, 0.1) ? -1 : 1) * usual * factor;
  return PlainNumber(std::round(value * 10) / 10);
}

double UsualValue(const SailDefinition& sail, DimensionField field) {
  switch (field) {
    case DimensionField::Luff:
      return 4550;
    case DimensionField::Foot:
      return sail.LuffLength * 0.8;
    case DimensionField::Diag:
      return std::hypot(sail.LuffLength, sail.FootLength);
    case DimensionField::Gaff:
      return sail.FootLength * 0.5;
    case DimensionField::LuffRond:
    case DimensionField::LeechRond:
    case DimensionField::FootRond:
    case DimensionField::GaffRond:
      return sail.LuffLength / 30;
    case DimensionField::LuffRondPos:
    case DimensionField::LeechRondPos:
      return 50;
    case DimensionField::GaffA:
      return 40;
    case DimensionField::LuffRake:
    case DimensionField::Twistxt:
      return 10;
    case DimensionField::ClothWidth:
      return 900;
    case DimensionField::SeamWidth:
      return 20;
    default:
      return 6;
  }
}

}  // namespace

std::uint64_t RunSeed() {
  return static_cast<std::uint64_t>(FromEnvironment("BRIVANE_SEED", 20000625));
}

int SailCount(int usual) { return static_cast<int>(FromEnvironment("BRIVANE_SAILS", usual)); }

int ExportStep(int usual) {
  return std::max(1, static_cast<int>(FromEnvironment("BRIVANE_EXPORT_STEP", usual)));
}

SailDefinition PlausibleSail(Random& random, const std::string& cut) {
  SailDefinition sail;
  sail.CutType = cut;
  sail.LuffLength = Whole(random, 1000, 20000);
  sail.FootLength = std::floor(sail.LuffLength * Uniform(random, 0.25, 1.2));
  const double tackAngle = Uniform(random, 1.22, 1.92);
  sail.DiagonalLength =
      std::floor(std::sqrt(sail.LuffLength * sail.LuffLength + sail.FootLength * sail.FootLength -
                           2 * sail.LuffLength * sail.FootLength * std::cos(tackAngle)));
  sail.GaffAngle = Uniform(random, 0.2, 1.0);
  const double clewX = sail.FootLength * std::sin(tackAngle);
  const double longest = 0.9 * clewX / std::sin(sail.GaffAngle);
  sail.GaffLength =
      Chance(random, 0.5)
          ? 5
          : std::floor(std::min(sail.FootLength * Uniform(random, 0.2, 0.9), longest));
  DrawRounds(random, sail);
  DrawUsualMould(random, sail);
  sail.ClothWidth = Whole16(random, 400, 1500);
  sail.SeamWidth = Whole16(random, 10, 40);
  return sail;
}

SailDefinition TypedSail(Random& random, const std::string& cut) {
  SailDefinition sail;
  sail.CutType = cut;
  if (Chance(random, 0.5)) DrawAnyMould(random, sail);
  ComputeOutline(sail);
  for (const DimensionFieldInfo& info : DimensionFields()) {
    if (info.Field == DimensionField::SailName || Chance(random, 0.2)) continue;
    EnterField(sail, info.Field, TypedText(random, UsualValue(sail, info.Field)));
    if (!LeavingRecomputesOutline(info.Field)) continue;
    try {
      ComputeOutline(sail);
    } catch (const GeometryFault&) {
      // The window tells it and goes on with the next field.
    }
  }
  return sail;
}

std::string DumpSail(const SailDefinition& sail, const std::string& property, int index) {
  const std::filesystem::path file =
      std::filesystem::temp_directory_path() / (property + "_" + std::to_string(index) + ".bv3");
  WriteSailDataFile(file.string(), sail);
  return file.string();
}

}  // namespace brivane
