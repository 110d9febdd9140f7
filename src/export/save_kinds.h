#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "export/export_file.h"
#include "model/language.h"
#include "model/sail.h"

namespace brivane {

/// The kinds of file that the save command writes. The first five carry the numbers by which the
/// menu asks for them; VRML 2.0 has a dialog of its own and no number.
enum class SaveKind : std::int16_t {
  SailData = 0,
  PanelsXY = 1,
  Plotter = 2,
  Vrml1 = 3,
  PanelsDxf = 4,
  Vrml2 = 5
};

/// The kind that a number from 0 to 4 asks for; no kind for any other number.
std::optional<SaveKind> SaveKindOfNumber(std::int16_t number);

/// What the save dialog of a kind shows.
struct SaveDialogTexts {
  std::string_view Title;        ///< empty: the platform's own title
  std::string_view Filter;       ///< as it is fixed, "description|pattern"
  std::string_view Description;  ///< the part of Filter before the bar
  std::string_view Pattern;      ///< the part of Filter after the bar, "*.bv3"
  std::string_view Extension;    ///< with its dot, ".bv3"
};
SaveDialogTexts DialogTexts(SaveKind kind);

/// Title of the box that shows a failure of the dialog or of the dispatch itself.
std::string SaveCommandTitle();

/// The file name that the dialog proposes: the sail's name and the extension of the kind.
std::string ProposedName(SaveKind kind, std::string_view sailName);

/// The path with the extension of the kind where its last part has none at all; a path with any
/// extension stays as it is. A dot at the start or at the end of the name makes no extension.
/// Asked a second time it changes nothing.
std::string WithExtension(SaveKind kind, std::string_view path);

/// The path without its folders.
std::string_view FileTitle(std::string_view path);

/// The sail's new name, made from the title of the chosen file (the name without folder). Kinds 0
/// to 3 lose their last four characters, whatever they are, when there are that many; panels in
/// DXF are cut before the first "." and then before the first "_Panel"; VRML 2.0 before the
/// first ".".
std::string TrimSailName(SaveKind kind, std::string_view fileTitle);

/// The paths that SaveSail would write, in order, for a path read from the dialog.
std::vector<std::string> FilesToWrite(SaveKind kind, const Sail& sail, std::string_view path);

/// Those of FilesToWrite that exist already and would be replaced.
std::vector<std::string> FilesToReplace(SaveKind kind, const Sail& sail, std::string_view path);

/// Renames the sail after the chosen file and writes it. The path is the dialog's, UTF-8; it gets
/// the extension of the kind where it has none. The sail keeps its new name whether or not the
/// writing succeeds. Throws nothing that has a report: a failure comes back under the title of its
/// writer, anything else under SaveCommandTitle().
SaveOutcome SaveSail(SaveKind kind, Sail& sail, std::string_view path, Language language,
                     char decimalMark);

}  // namespace brivane
