#include "examples/example_sails.h"

#include "model/degrees.h"

namespace brivane {
namespace {

constexpr double Degrees(double whole) { return whole / kDegreesPerRadian; }

/// The mainsail of a five-tonne cutter: high peak, leech a little hollow since it has no battens.
SailDefinition GaffMainsail() {
  SailDefinition sail;
  sail.SailName = "GaffMainsail";
  sail.CutType = kCrossCut;
  sail.LuffLength = 4800, sail.LuffRake = Degrees(2);
  sail.FootLength = 4650, sail.DiagonalLength = 6446;
  sail.GaffLength = 3300, sail.GaffAngle = Degrees(35);
  sail.LuffRound = 60, sail.LuffRoundPos = 50;
  sail.LeechRound = -90, sail.LeechRoundPos = 55;
  sail.FootRound = 160, sail.GaffRound = 110;
  sail.Depth = {4, 11, 6};
  sail.LuffShape = {0, 2.5, 4}, sail.LeechShape = {0, 0.04, 0.06};
  sail.DepthPosition = 4, sail.TwistAngle = Degrees(14);
  sail.ClothWidth = 890, sail.SeamWidth = 20;
  return sail;
}

/// The mainsail of a cruising sloop: a roach of a twentieth of the leech, held out by battens.
SailDefinition TriangularMainsail() {
  SailDefinition sail;
  sail.SailName = "TriangularMainsail";
  sail.CutType = kCrossCut;
  sail.LuffLength = 9800, sail.LuffRake = Degrees(1);
  sail.FootLength = 3700, sail.DiagonalLength = 10350;
  sail.GaffLength = 0, sail.GaffAngle = 0;
  sail.LuffRound = 90, sail.LuffRoundPos = 55;
  sail.LeechRound = 420, sail.LeechRoundPos = 55;
  sail.FootRound = 120, sail.GaffRound = 0;
  sail.Depth = {5, 11, 8};
  sail.LuffShape = {0, 3, 5}, sail.LeechShape = {0, 0.06, 0.08};
  sail.DepthPosition = 4, sail.TwistAngle = Degrees(11);
  sail.ClothWidth = 1100, sail.SeamWidth = 18;
  return sail;
}

/// A working jib on a forestay that leans far aft: hollow luff for the stay's sag, hollow leech.
SailDefinition HollowJib() {
  SailDefinition sail;
  sail.SailName = "HollowLeechJib";
  sail.CutType = kTwistFootCut;
  sail.LuffLength = 7600, sail.LuffRake = Degrees(22);
  sail.FootLength = 3500, sail.DiagonalLength = 6850;
  sail.GaffLength = 0, sail.GaffAngle = 0;
  sail.LuffRound = -45, sail.LuffRoundPos = 50;
  sail.LeechRound = -140, sail.LeechRoundPos = 50;
  sail.FootRound = 180, sail.GaffRound = 0;
  sail.Depth = {6, 13, 9};
  sail.LuffShape = {0, 4, 6}, sail.LeechShape = {0, 0.02, 0.04};
  sail.DepthPosition = 3, sail.TwistAngle = Degrees(10);
  sail.ClothWidth = 890, sail.SeamWidth = 15;
  return sail;
}

/// A ketch's gaff mizzen in cloths that run down the leech, as working sails have long been made.
SailDefinition VerticalMizzen() {
  SailDefinition sail;
  sail.SailName = "VerticalMizzen";
  sail.CutType = kVerticalCut;
  sail.LuffLength = 3300, sail.LuffRake = Degrees(3);
  sail.FootLength = 2900, sail.DiagonalLength = 4330;
  sail.GaffLength = 1900, sail.GaffAngle = Degrees(38);
  sail.LuffRound = 40, sail.LuffRoundPos = 50;
  sail.LeechRound = -70, sail.LeechRoundPos = 50;
  sail.FootRound = 110, sail.GaffRound = 60;
  sail.Depth = {3, 9, 5};
  sail.LuffShape = {0, 2, 3}, sail.LeechShape = {0, 0.04, 0.06};
  sail.DepthPosition = 4, sail.TwistAngle = Degrees(12);
  sail.ClothWidth = 450, sail.SeamWidth = 25;
  return sail;
}

/// The lugsail of a four-metre dinghy: its yard, longer than the luff, stands steep.
SailDefinition DinghyLug() {
  SailDefinition sail;
  sail.SailName = "DinghyLug";
  sail.CutType = kTwistFootCut;
  sail.LuffLength = 1750, sail.LuffRake = Degrees(4);
  sail.FootLength = 2500, sail.DiagonalLength = 3000;
  sail.GaffLength = 2350, sail.GaffAngle = Degrees(30);
  sail.LuffRound = 30, sail.LuffRoundPos = 50;
  sail.LeechRound = -60, sail.LeechRoundPos = 50;
  sail.FootRound = 120, sail.GaffRound = 70;
  sail.Depth = {4, 10, 6};
  sail.LuffShape = {0, 2, 4}, sail.LeechShape = {0, 0.04, 0.06};
  sail.DepthPosition = 4, sail.TwistAngle = Degrees(15);
  sail.ClothWidth = 640, sail.SeamWidth = 12;
  return sail;
}

/// The settee sail of a dhow, 200 m² in the narrow hand-woven cotton it is made of: a short luff,
/// and a yard half as long again as the foot.
SailDefinition DhowSettee() {
  SailDefinition sail;
  sail.SailName = "DhowSettee";
  sail.CutType = kCrossCut;
  sail.LuffLength = 5200, sail.LuffRake = Degrees(6);
  sail.FootLength = 14500, sail.DiagonalLength = 15400;
  sail.GaffLength = 22000, sail.GaffAngle = Degrees(33);
  sail.LuffRound = 60, sail.LuffRoundPos = 50;
  sail.LeechRound = -500, sail.LeechRoundPos = 50;
  sail.FootRound = 600, sail.GaffRound = 400;
  sail.Depth = {5, 11, 6};
  sail.LuffShape = {0, 2, 3}, sail.LeechShape = {0, 0.04, 0.06};
  sail.DepthPosition = 4, sail.TwistAngle = Degrees(12);
  sail.ClothWidth = 405, sail.SeamWidth = 12;
  return sail;
}

}  // namespace

const std::vector<ExampleSail>& ExampleSails() {
  static const std::vector<ExampleSail> sails = {
      {"Gaff mainsail, cross cut", GaffMainsail(), 9, 11},
      {"Triangular mainsail, cross cut", TriangularMainsail(), 10, 12},
      {"Jib with hollow leech, twist-foot cut", HollowJib(), 8, 10},
      {"Mizzen, vertical cut", VerticalMizzen(), 7, 9},
      {"Dinghy lugsail, twist-foot cut", DinghyLug(), 7, 9},
      {"Settee sail of a dhow, cross cut", DhowSettee(), 65, 70},
  };
  return sails;
}

}  // namespace brivane
