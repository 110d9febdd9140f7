#include "model/sail_definition.h"

#include <algorithm>
#include <cmath>

namespace brivane {

void ResetSailDefinition(SailDefinition& sail) {
  SailDefinition fresh;
  fresh.LeechLength = sail.LeechLength;
  fresh.ClewPoint = sail.ClewPoint;
  fresh.PeakPoint = sail.PeakPoint;
  fresh.LeechAngle = sail.LeechAngle;
  fresh.FootAngle = sail.FootAngle;
  fresh.SailArea = sail.SailArea;
  fresh.PanelCount = sail.PanelCount;
  sail = fresh;
}

void ApplyDepthLimits(SailDefinition& sail) {
  double& foot = sail.Depth[kFoot];
  double& middle = sail.Depth[kMiddle];
  double& top = sail.Depth[kTop];
  if (middle < 5) middle = 5;
  if (top > middle) {
    top = std::floor(middle);
  } else if (middle * 0.3 > top) {
    top = std::floor(middle * 0.3) + 1;
  }
  if (middle * 0.7 < foot) foot = std::floor((middle + 0.5) * 0.7);
}

void HoldDepthPosition(SailDefinition& sail) {
  sail.DepthPosition =
      std::clamp(std::round(sail.DepthPosition), kLowestDepthPosition, kHighestDepthPosition);
}

}  // namespace brivane
