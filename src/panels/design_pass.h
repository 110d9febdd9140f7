#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "model/sail.h"

namespace brivane {

/// How a design pass ended.
enum class DesignEnd {
  Fitted,        ///< every panel fits the cloth
  NotFitted,     ///< laid out and developed, but a panel is still too wide after the last pass
  TooManyPanels  ///< more than 70 panels; ClothWidth has been raised, nothing is laid out
};

/// What a design pass came to, beside the panels themselves.
struct DesignResult {
  DesignEnd End = DesignEnd::Fitted;
  int Passes = 0;          ///< layout passes that were run
  double WidestPanel = 0;  ///< greatest developed width of the last pass, mm
};

/// The whole way from dimensions to panels: outline, then layout and development of the cut in
/// repeated passes, at most 10, until every panel fits the cloth. Fills the grid, the panels and
/// PanelCount. Throws GeometryFault where the sail cannot be laid out; grid and panels are then
/// erased and PanelCount is 0.
DesignResult DesignPass(Sail& sail);

/// The one message about too many panels, in both languages at once, three lines. It tells at which
/// count the layout was given up.
std::string TooManyPanelsText();

}  // namespace brivane
