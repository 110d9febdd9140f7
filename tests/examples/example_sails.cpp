#include "examples/example_sails.h"

#include <array>

#include "model/degrees.h"

namespace brivane {
namespace {

/// A sail as somebody would type it: mm, whole degrees, percent.
struct TypedSail {
  const char* Name;
  const char* Cut;
  struct {
    double Luff, RakeDegrees, Foot, Diagonal, Gaff, GaffDegrees;
  } Lengths;
  struct {
    double Luff;
    std::int16_t LuffPos;
    double Leech;
    std::int16_t LeechPos;
    double Foot;
    std::int16_t Gaff;
  } Rounds;
  struct {
    std::array<double, 3> Depth, LuffShape, LeechShape;
    double DepthPosition, TwistDegrees;
  } Mould;
  struct {
    std::int16_t Width, Seam;
  } Cloth;
};

SailDefinition Entered(const TypedSail& typed) {
  constexpr auto radians = [](double degrees) { return degrees / kDegreesPerRadian; };
  SailDefinition sail;
  sail.SailName = typed.Name, sail.CutType = typed.Cut;
  const auto& [luff, rake, foot, diagonal, gaff, gaffAngle] = typed.Lengths;
  sail.LuffLength = luff, sail.LuffRake = radians(rake);
  sail.FootLength = foot, sail.DiagonalLength = diagonal;
  sail.GaffLength = gaff, sail.GaffAngle = radians(gaffAngle);
  sail.LuffRound = typed.Rounds.Luff, sail.LuffRoundPos = typed.Rounds.LuffPos;
  sail.LeechRound = typed.Rounds.Leech, sail.LeechRoundPos = typed.Rounds.LeechPos;
  sail.FootRound = typed.Rounds.Foot, sail.GaffRound = typed.Rounds.Gaff;
  const auto& [depth, luffShape, leechShape, position, twist] = typed.Mould;
  sail.Depth = depth, sail.LuffShape = luffShape, sail.LeechShape = leechShape;
  sail.DepthPosition = position, sail.TwistAngle = radians(twist);
  sail.ClothWidth = typed.Cloth.Width, sail.SeamWidth = typed.Cloth.Seam;
  return sail;
}

/// The mainsail of a five-tonne cutter: high peak, leech a little hollow since it has no battens.
const TypedSail kGaffMainsail = {"GaffMainsail",
                                 kCrossCut,
                                 {4800, 2, 4650, 6446, 3300, 35},
                                 {60, 50, -90, 55, 160, 110},
                                 {{4, 11, 6}, {0, 2.5, 4}, {0, 0.04, 0.06}, 4, 14},
                                 {890, 20}};

/// The mainsail of a cruising sloop: a roach of a twentieth of the leech, held out by battens.
const TypedSail kTriangularMainsail = {"TriangularMainsail",
                                       kCrossCut,
                                       {9800, 1, 3700, 10350, 0, 0},
                                       {90, 55, 420, 55, 120, 0},
                                       {{5, 11, 8}, {0, 3, 5}, {0, 0.06, 0.08}, 4, 11},
                                       {1100, 18}};

/// A working jib on a forestay that leans far aft: hollow luff for the stay's sag, hollow leech.
const TypedSail kHollowJib = {"HollowLeechJib",
                              kTwistFootCut,
                              {7600, 22, 3500, 6850, 0, 0},
                              {-45, 50, -140, 50, 180, 0},
                              {{6, 13, 9}, {0, 4, 6}, {0, 0.02, 0.04}, 3, 10},
                              {890, 15}};

/// A ketch's gaff mizzen in cloths that run down the leech, as working sails have long been made.
const TypedSail kVerticalMizzen = {"VerticalMizzen",
                                   kVerticalCut,
                                   {3300, 3, 2900, 4330, 1900, 38},
                                   {40, 50, -70, 50, 110, 60},
                                   {{3, 9, 5}, {0, 2, 3}, {0, 0.04, 0.06}, 4, 12},
                                   {450, 25}};

/// The lugsail of a four-metre dinghy: its yard, longer than the luff, stands steep.
const TypedSail kDinghyLug = {"DinghyLug",
                              kTwistFootCut,
                              {1750, 4, 2500, 3000, 2350, 30},
                              {30, 50, -60, 50, 120, 70},
                              {{4, 10, 6}, {0, 2, 4}, {0, 0.04, 0.06}, 4, 15},
                              {640, 12}};

/// The settee sail of a dhow, 200 m² in the narrow hand-woven cotton it is made of: a short luff,
/// and a yard half as long again as the foot.
const TypedSail kDhowSettee = {"DhowSettee",
                               kCrossCut,
                               {5200, 6, 14500, 15400, 22000, 33},
                               {60, 50, -500, 50, 400, 400},
                               {{5, 11, 6}, {0, 2, 3}, {0, 0.04, 0.06}, 4, 12},
                               {403, 12}};

}  // namespace

const std::vector<ExampleSail>& ExampleSails() {
  static const std::vector<ExampleSail> sails = {
      {"Gaff mainsail, cross cut", Entered(kGaffMainsail), 9, 11},
      {"Triangular mainsail, cross cut", Entered(kTriangularMainsail), 10, 12},
      {"Jib with hollow leech, twist-foot cut", Entered(kHollowJib), 8, 10},
      {"Mizzen, vertical cut", Entered(kVerticalMizzen), 7, 9},
      {"Dinghy lugsail, twist-foot cut", Entered(kDinghyLug), 7, 9},
      {"Settee sail of a dhow, cross cut", Entered(kDhowSettee), 65, 70},
  };
  return sails;
}

}  // namespace brivane
