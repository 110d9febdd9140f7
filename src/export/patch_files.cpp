#include "export/patch_files.h"

#include "export/dxf_entities.h"
#include "export/failure_report.h"
#include "export/record_text.h"
#include "model/number_text.h"
#include "model/text_file.h"
#include "patches/patch_outline.h"

namespace brivane {
namespace {

constexpr std::int16_t kCutColour = 7;
constexpr std::size_t kPlotterBytes = 14000;  ///< eight outlines of some sixty points, and a little
constexpr BilingualText kPlotterSaved = {
    "Patches saved in file: Patches.BP4",
    "Renforts sauvegardés dans le fichiers: \n    Patches.BP4"};
constexpr BilingualText kDxfSaved = {"\nPatches saved in files: ",
                                     "\nRenforts sauvegardés dans les fichiers: "};

// The second file of the peak's line carries the head's name, on purpose.
constexpr std::array<BilingualText, kPatchCorners> kDxfLines = {{
    {"\n  Patch_clew00.DXF and Patch_clew01.DXF", "\n  Patch_clew00.DXF et Patch_clew01.DXF"},
    {"\n  Patch_tack00.DXF and Patch_tack01.DXF", "\n  Patch_tack00.DXF et Patch_tack01.DXF"},
    {"\n  Patch_head00.DXF and Patch_head01.DXF", "\n  Patch_head00.DXF et Patch_head01.DXF"},
    {"\n  Patch_peak00.DXF and Patch_head01.DXF", "\n  Patch_peak00.DXF et Patch_head01.DXF"},
}};

std::string LayerText(int layer) { return FormatPattern(kTwoDigits, layer, '.'); }

std::string InFolder(std::string_view folder, std::string_view name) {
  std::string path(folder);
  if (!path.empty() && path.back() != '/') path += '/';
  return path += name;
}

template <typename Visit>
void ForEachPatch(const Sail& sail, Visit&& visit) {
  for (const PatchCorner corner : PatchedCorners(sail.Definition))
    for (int layer = 0; layer < kPatchLayers; ++layer) visit(corner, layer);
}

std::string PatchName(PatchCorner corner, int layer) {
  return std::string(PatchWord(corner)) + LayerText(layer);
}

std::string PatchDxfPath(std::string_view folder, PatchCorner corner, int layer) {
  return InFolder(folder, "Patch_" + PatchName(corner, layer) + ".dxf");
}

std::string PatchDxfText(const Sail& sail, PatchCorner corner, int layer, char decimalMark) {
  const std::vector<PlanePoint> outline = PatchOutline(sail, corner, layer);
  FileText text((outline.size() + 2) * kVertexBytes);
  WriteEntitiesHead(text, std::string(ProgramTitle) + " - patch " + PatchName(corner, layer));
  WritePolylineHeader(text, kCutColour);
  const std::string head = VertexHead(kCutColour);
  for (const PlanePoint& point : outline) WriteVertex(text, head, point.x, point.y, 0, decimalMark);
  WritePolylineEnd(text);
  WriteEntitiesEnd(text);
  return text.Take();
}

void AppendPatch(FileText& text, const Sail& sail, PatchCorner corner, int layer,
                 char decimalMark) {
  const std::vector<PlanePoint> outline = PatchOutline(sail, corner, layer);
  const PlanePoint label = PatchLabelPlace(outline);
  AppendPlotterRecord(text, LayerText(layer) + std::string(PatchCode(corner)), label.x, label.y);
  AppendPlotterCommand(text, "cut", static_cast<int>(outline.size()));
  for (const PlanePoint& point : outline) AppendPlotterPoint(text, point.x, point.y, decimalMark);
}

std::string DxfConfirmation(const Sail& sail, Language language) {
  std::string text(kDxfSaved.In(language));
  for (const PatchCorner corner : PatchedCorners(sail.Definition))
    text += kDxfLines.at(static_cast<std::size_t>(corner)).In(language);
  return text;
}

}  // namespace

std::string PatchPlotterPath(std::string_view folder) { return InFolder(folder, "Patches.bp4"); }

std::vector<std::string> PatchDxfPaths(const Sail& sail, std::string_view folder) {
  std::vector<std::string> paths;
  ForEachPatch(sail, [&](PatchCorner corner, int layer) {
    paths.push_back(PatchDxfPath(folder, corner, layer));
  });
  return paths;
}

std::string PatchPlotterText(const Sail& sail, char decimalMark) {
  FileText text(kPlotterBytes);
  text += "PLOT Patch:  -- ";
  text += ProgramTitle;
  text += " -- version:";
  AppendLine(text, kVersionDate);
  ForEachPatch(sail, [&](PatchCorner corner, int layer) {
    AppendPatch(text, sail, corner, layer, decimalMark);
  });
  AppendLine(text, "EOF " + LineName(sail.Definition.SailName));
  return text.Take();
}

std::vector<ExportFile> PatchDxfFiles(const Sail& sail, std::string_view folder, char decimalMark) {
  std::vector<ExportFile> files;
  ForEachPatch(sail, [&](PatchCorner corner, int layer) {
    files.push_back(
        {PatchDxfPath(folder, corner, layer), PatchDxfText(sail, corner, layer, decimalMark)});
  });
  return files;
}

SaveOutcome SavePatchPlotterFile(const Sail& sail, std::string_view folder, Language language,
                                 char decimalMark) {
  SaveOutcome outcome = RunReported("", language, [&] {
    const std::string text = PatchPlotterText(sail, decimalMark);
    const std::string path = PatchPlotterPath(folder);
    RemoveOldFile(path);
    WritePlainFile(path, text);
  });
  if (outcome.Saved())
    outcome.Confirmation = {TitleOf(" patches for Tovarek plotter"),
                            std::string(kPlotterSaved.In(language))};
  return outcome;
}

SaveOutcome SavePatchDxfFiles(const Sail& sail, std::string_view folder, Language language,
                              char decimalMark) {
  SaveOutcome outcome = RunReported("", language, [&] {
    for (const ExportFile& file : PatchDxfFiles(sail, folder, decimalMark))
      WritePlainFile(file.Path, file.Text);
  });
  if (outcome.Saved())
    outcome.Confirmation = {TitleOf(" - patches in DXF"), DxfConfirmation(sail, language)};
  return outcome;
}

}  // namespace brivane
