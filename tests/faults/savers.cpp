#include "faults/savers.h"

#include <filesystem>

#include "export/patch_files.h"
#include "model/temporary_folder.h"
#include "panels/design_pass.h"

namespace brivane {
namespace {

namespace fs = std::filesystem;

constexpr std::string_view kTitle = "essai";

template <SaveKind Kind>
SaveOutcome SaveAs(const Sail& sail, const std::string& folder) {
  Sail saved = sail;
  return SaveSail(Kind, saved, folder + '/' + std::string(kTitle), Language::English, '.');
}

SaveOutcome SavePatchPlotter(const Sail& sail, const std::string& folder) {
  return SavePatchPlotterFile(sail, folder, Language::English, '.');
}

SaveOutcome SavePatchDxf(const Sail& sail, const std::string& folder) {
  return SavePatchDxfFiles(sail, folder, Language::English, '.');
}

std::vector<std::string> Titles(std::vector<std::string> paths) {
  for (std::string& path : paths) path = FileTitle(path);
  return paths;
}

template <SaveKind Kind>
Saver SaverOf(const std::string& name, const Sail& sail) {
  return {name, Kind == SaveKind::SailData, Titles(FilesToWrite(Kind, sail, kTitle)),
          &SaveAs<Kind>};
}

}  // namespace

Sail FewPanels() {
  Sail sail;
  sail.Definition.LuffLength = 3000;
  sail.Definition.FootLength = 2400;
  sail.Definition.DiagonalLength = 3800;
  sail.Definition.GaffLength = 1500;
  sail.Definition.ClothWidth = 1500;
  DesignPass(sail);
  return sail;
}

std::vector<Saver> AllSavers(const Sail& sail) {
  return {SaverOf<SaveKind::SailData>("SailData", sail),
          SaverOf<SaveKind::PanelsXY>("PanelsXY", sail),
          SaverOf<SaveKind::Plotter>("Plotter", sail),
          SaverOf<SaveKind::Vrml1>("Vrml1", sail),
          SaverOf<SaveKind::PanelsDxf>("PanelsDxf", sail),
          SaverOf<SaveKind::Vrml2>("Vrml2", sail),
          {"PatchPlotter", false, Titles({PatchPlotterPath("")}), &SavePatchPlotter},
          {"PatchDxf", false, Titles(PatchDxfPaths(sail, "")), &SavePatchDxf}};
}

FolderContents ContentsOf(const std::string& folder) {
  FolderContents contents;
  for (const fs::directory_entry& entry : fs::directory_iterator(folder))
    contents[entry.path().filename().string()] =
        entry.is_regular_file() ? BytesOf(entry.path().string()) : std::string();
  return contents;
}

FolderContents CleanSaving(const Saver& saver, const Sail& sail) {
  const TemporaryFolder folder;
  if (!saver.Save(sail, folder.Path("")).Saved()) return {};
  return ContentsOf(folder.Path(""));
}

std::string OutcomeWords(const SaveOutcome& outcome) {
  return outcome.Failure ? outcome.Failure->Title + ": " + outcome.Failure->Text : "saved";
}

bool IsTold(const SaveOutcome& outcome) {
  return outcome.Failure && outcome.Failure->Title.starts_with("Brivane 2000") &&
         !outcome.Failure->Text.empty();
}

}  // namespace brivane
