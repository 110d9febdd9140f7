#pragma once

#include <string>

#include "model/file_lines.h"
#include "model/sail_definition.h"

// Sails as both generations of the sail data file hold them, line by line, worked out by hand.

namespace brivane {

/// The 41 lines of the default sail before it is computed, worked out by hand.
inline Lines DefaultSailLines() {
  return {"Brivane 2000 VERSION_ 25 June 2000 ",
          "Newsail",
          "TWISTFOOTCUT",
          "default_vertical",
          "default_coupe",
          " 0",
          "DIMENSIONS",
          " 4550",
          " .05",
          " 5750",
          " 3600",
          " 2600",
          " .7",
          " 0",
          " 0",
          " 0",
          "EDGES",
          " 100",
          " 50",
          "-100",
          " 60",
          " 170",
          " 50",
          " 130",
          " 50",
          "PROFIL",
          " 3",
          " 10",
          " 5",
          " 0",
          " 3",
          " 6",
          " 0",
          " .06",
          " .08",
          " 4",
          " .21",
          "CLOTH",
          " 890",
          " 20",
          "EOF "};
}

/// A sail of which every stored field differs from the default.
inline SailDefinition OddSail() {
  SailDefinition sail;
  sail.SailName = "Génois d'été";
  sail.CutType = kVerticalCut;
  sail.MouldLabel = "mould";
  sail.CutLabel = "cut";
  sail.PanelCount = 12;
  sail.LuffLength = 5000.5;
  sail.LuffRake = -0.125;
  sail.DiagonalLength = 6000.25;
  sail.FootLength = 3000.75;
  sail.GaffLength = 2000.5;
  sail.GaffAngle = 0.75;
  sail.LeechLength = 7000.125;
  sail.LeechAngle = -0.0625;
  sail.SailArea = 17.25;
  sail.LuffRound = -10.5;
  sail.LuffRoundPos = 41;
  sail.LeechRound = 250.5;
  sail.LeechRoundPos = 42;
  sail.FootRound = 17.5;
  sail.FootRoundPos = 43;
  sail.GaffRound = -13;
  sail.GaffRoundPos = 44;
  sail.Depth = {2.5, 11.5, 6.5};
  sail.LuffShape = {0.5, 3.5, 6.5};
  sail.LeechShape = {0.01, 0.0625, 0.125};
  sail.DepthPosition = 5;
  sail.TwistAngle = 0.3125;
  sail.ClothWidth = 1370;
  sail.SeamWidth = 15;
  return sail;
}

/// The 41 lines of that sail.
inline Lines OddSailLines() {
  return {"Brivane 2000 VERSION_ 25 June 2000 ",
          "Génois d'été",
          "VERTICALCUT",
          "mould",
          "cut",
          " 12",
          "DIMENSIONS",
          " 5000.5",
          "-.125",
          " 6000.25",
          " 3000.75",
          " 2000.5",
          " .75",
          " 7000.125",
          "-.0625",
          " 17.25",
          "EDGES",
          "-10.5",
          " 41",
          " 250.5",
          " 42",
          " 17.5",
          " 43",
          "-13",
          " 44",
          "PROFIL",
          " 2.5",
          " 11.5",
          " 6.5",
          " .5",
          " 3.5",
          " 6.5",
          " .01",
          " .0625",
          " .125",
          " 5",
          " .3125",
          "CLOTH",
          " 1370",
          " 15",
          "EOF "};
}

/// A sail in the older generation: fractions where it keeps whole numbers alone. 28 lines, and 26
/// before 1999.
inline Lines OldSailLines(const std::string& year) {
  Lines lines = {"Brivane VERSION_ 1 May " + year + "  ",
                 "Old, sail",
                 "CROSSCUT",
                 "mould",
                 "5000.9",
                 "6000.9",
                 "3000.9",
                 "2000.9",
                 ".75",
                 "7000.9",
                 "-.0625",
                 "17.25",
                 "-10.5",
                 "41.5",
                 "250.5",
                 "42.5",
                 "17.5",
                 "43.5",
                 "-13.5",
                 "44.5",
                 "11.5",
                 "3.5",
                 ".0625",
                 "5",
                 ".3125",
                 "1370.9",
                 "15.9",
                 "12.9"};
  if (year < "1999") {
    lines.erase(lines.begin() + 19);  // the position of the gaff round
    lines.erase(lines.begin() + 17);  // the position of the foot round
  }
  return lines;
}

}  // namespace brivane
