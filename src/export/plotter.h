#pragma once

#include <string>

#include "model/sail.h"

namespace brivane {

/// Text of the file for the Tovarek plotter-cutter: for each panel a label record, the guide line
/// to draw (not on the last panel) and the outline to cut, mm with one decimal. The last panel is
/// cut along its edge table, its upper seam being the top of the sail. Throws GeometryFault for a
/// number that is not finite, std::out_of_range for more panels than the tables have.
std::string PlotterText(const Sail& sail, char decimalMark);

}  // namespace brivane
