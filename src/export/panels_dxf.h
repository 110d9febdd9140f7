#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "export/export_file.h"
#include "model/language.h"
#include "model/sail.h"

namespace brivane {

/// The part of the chosen path that the names of all panel files begin with: everything before
/// "_Panel" where that stands after the first character, else everything before the first ".", be
/// it in a folder's name, else the whole path.
std::string PanelDxfBase(std::string_view path);

/// The file of panel 0 .. PanelCount - 1, numbered from 1: base, "_Panel", two digits, ".DXF".
std::string PanelDxfPath(std::string_view base, int panel);

/// Where a part of a panel's file begins, named as a failure names it.
struct DxfStage {
  std::string_view Label;
  std::size_t Offset = 0;  ///< bytes into the text
};

/// Text of one panel's file: the guide line (colour 5) and the cutting outline (colour 7, 75
/// points, ends where it begins). Fills stages as it goes, so that after an exception the last one
/// is where it stopped. Throws GeometryFault for a number that is not finite, std::out_of_range
/// for a panel that the tables do not have.
std::string PanelDxfText(const Sail& sail, int panel, char decimalMark,
                         std::vector<DxfStage>& stages);

/// The paths of all files that ePanelDXF writes, in order.
std::vector<std::string> PanelDxfPaths(const Sail& sail, std::string_view path);

/// All files as texts, in order. Throws as PanelDxfText does.
std::vector<ExportFile> PanelDxfFiles(const Sail& sail, std::string_view path, char decimalMark);

/// Writes one file per panel, one after another, and ends at the first failure; the files before
/// it stay. The report names the panel (from 0) and the stage. On success there is a confirmation
/// in the language.
SaveOutcome ePanelDXF(const Sail& sail, std::string_view path, Language language, char decimalMark);

}  // namespace brivane
