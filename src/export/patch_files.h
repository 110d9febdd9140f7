#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "export/export_file.h"
#include "model/language.h"
#include "model/sail.h"

namespace brivane {

// The files of the corner patches: all under fixed names in the folder that the caller gives (the
// current folder; an empty one is the working directory). A sail without a gaff has no peak patch.

/// Path of the plotter file, and paths of the DXF files in the order of writing: clew, tack, head,
/// peak, two layers each.
std::string PatchPlotterPath(std::string_view folder);
std::vector<std::string> PatchDxfPaths(const Sail& sail, std::string_view folder);

/// Text of the plotter file: for each corner and layer a label record and the outline to cut, mm.
/// Throws GeometryFault for a sail without finite outlines.
std::string PatchPlotterText(const Sail& sail, char decimalMark);

/// The DXF files as texts, one closed polyline each. Throws as PatchPlotterText does.
std::vector<ExportFile> PatchDxfFiles(const Sail& sail, std::string_view folder, char decimalMark);

/// Deletes an earlier plotter file and writes the new one. Confirms in the language; a failure is
/// reported under the program title.
SaveOutcome SavePatchPlotterFile(const Sail& sail, std::string_view folder, Language language,
                                 char decimalMark);

/// Writes the DXF files one after another and ends at the first failure; the files before it stay.
/// Confirms in the language; a failure is reported under the program title.
SaveOutcome SavePatchDxfFiles(const Sail& sail, std::string_view folder, Language language,
                              char decimalMark);

}  // namespace brivane
