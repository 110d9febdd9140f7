#include "bench_sails.h"

#include <stdexcept>

#include "panels/design_pass.h"

namespace bench {

brivane::SailDefinition SeventyPanels() {
  brivane::SailDefinition sail;
  sail.SailName = "seventy";
  sail.LuffLength = 6032;
  sail.DiagonalLength = 7532;
  sail.FootLength = 4121;
  sail.GaffLength = 5206;
  sail.GaffAngle = 0.16;
  sail.LuffRound = 60;
  sail.LuffRoundPos = 53;
  sail.LeechRound = -52;
  sail.LeechRoundPos = 38;
  sail.FootRound = 50;
  sail.GaffRound = 100;
  sail.Depth = {3, 9.7, 6};
  sail.DepthPosition = 5;
  sail.ClothWidth = 173;
  sail.SeamWidth = 32;
  return sail;
}

brivane::Sail SeventyPanelSail() {
  brivane::Sail sail;
  sail.Definition = SeventyPanels();
  const brivane::DesignResult result = brivane::DesignPass(sail);
  if (sail.Definition.PanelCount != 70 || result.Passes != 10)
    throw std::runtime_error("the sail of 70 panels has not 70 panels after 10 passes any more");
  return sail;
}

}  // namespace bench
