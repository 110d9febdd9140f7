#pragma once

#include <array>
#include <cstddef>
#include <string>
#include <string_view>

#include "model/file_text.h"
#include "model/sail.h"

namespace brivane {

/// What every line of a file ends with.
inline constexpr std::string_view kLineEnd = "\r\n";

/// Width of a print zone, columns: the second item of a line starts at the next zone.
inline constexpr std::size_t kPrintZone = 14;

/// Appends the line and its end.
void AppendLine(FileText& text, std::string_view line);

/// The sail's name as a line can carry it: without control characters, which a file's name may
/// have and which would break the line.
std::string LineName(std::string_view sailName);

/// Appends first, blanks up to the next print zone, second and the line's end.
void AppendZones(FileText& text, std::string_view first, std::string_view second);

/// Appends a point line of the plotter: both coordinates with one decimal and a blank, in zones.
void AppendPlotterPoint(FileText& text, double x, double y, char decimalMark);

/// Appends a command line of the plotter: the word and the number of points that follow.
void AppendPlotterCommand(FileText& text, std::string_view word, int points);

/// Appends the label record of the plotter, (x, y) in mm being the place of the label.
void AppendPlotterRecord(FileText& text, std::string_view label, double x, double y);

/// Where on the sail a panel lies, told by the edges on which its two seams end.
enum class PanelPlace { Foot, Tack, Luff, Head, Gaff };

/// The place of a panel from the edge codes of its lower and upper seam.
PanelPlace PlaceOfPanel(const SurfaceGrid& grid, int panel);

}  // namespace brivane
