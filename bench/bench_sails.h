#pragma once

#include "model/sail.h"

namespace bench {

/// A high-peaked sail of narrow cloth: 70 panels of the twist-foot cut, fitted in the 10th pass.
brivane::SailDefinition SeventyPanels();

/// The same sail designed, checked to have its 70 panels after 10 passes.
brivane::Sail SeventyPanelSail();

}  // namespace bench
