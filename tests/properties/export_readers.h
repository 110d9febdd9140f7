#pragma once

#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

#include "geometry/plane.h"
#include "model/sail_definition.h"

namespace brivane {

// Readers of the files that the exports make: they share nothing with the writers and hold every
// line to its format, so that they can tell what a cutter would be told.

/// A file that is not what its format asks for; the words say where.
struct FormatFault : std::runtime_error {
  using std::runtime_error::runtime_error;
};

/// A number of exactly so many decimals: sign, digits, mark, decimals. Throws FormatFault for
/// anything else.
double ReadFixed(std::string_view text, int places, char mark);

/// A number as it stands in a sail data file and in a record of the plotter: a blank or a minus
/// sign, digits, a point, an exponent. Throws FormatFault for anything else.
double ReadPlain(std::string_view text);

/// The lines of a text, each ended by CR LF, without their ends.
std::vector<std::string_view> LinesOf(std::string_view text);

/// One polyline of a DXF file, mm.
struct DxfPolyline {
  int Colour = 0;
  std::vector<Corner> Points;
};

/// The polylines of a DXF file that holds nothing but entities.
std::vector<DxfPolyline> ReadDxf(std::string_view text, char mark);

/// One panel of the file of x;y lines, mm.
struct XyPanel {
  int Number = 0;
  std::string Place;  ///< " foot / bordure" and the like
  std::vector<PlanePoint> LowerEdge, UpperEdge, GuideLine;
};
std::vector<XyPanel> ReadXy(std::string_view text, char mark);

/// One record of the plotter file, mm.
struct PlotterRecord {
  std::string Label;
  PlanePoint LabelPlace;
  std::vector<PlanePoint> Draw, Cut;  ///< empty where there is no such command
};
std::vector<PlotterRecord> ReadPlotter(std::string_view text, char mark);

/// What a world of either generation holds, in the order of the file, m.
struct VrmlWorld {
  std::vector<std::vector<Corner>> Points;     ///< of each "point ["
  std::vector<std::vector<int>> Indices;       ///< of each "coordIndex [", -1 between faces
  std::vector<std::vector<double>> Positions;  ///< what follows each "position"
};

/// Positions have so many decimals and carry the mark, points have three and a point.
VrmlWorld ReadVrml(std::string_view text, int positionPlaces, char mark);

}  // namespace brivane
