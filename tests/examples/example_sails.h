#pragma once

#include <string_view>
#include <vector>

#include "model/sail_definition.h"

namespace brivane {

/// A sail of the folder "examples".
struct ExampleSail {
  std::string_view English;  ///< what it is, in the contact sheet and in the test's messages
  SailDefinition Typed;      ///< as somebody would type it; computed fields are zero
  int FewestPanels;          ///< leech over cloth width, or foot over cloth width, rounded up
  int MostPanels;            ///< some more, for what the depth of the sail takes
};

/// The sails of the folder in the order of the contact sheet. Each is kept as "<SailName>.bv3".
const std::vector<ExampleSail>& ExampleSails();

}  // namespace brivane
