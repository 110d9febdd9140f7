#include "faults/savers.h"

#include <stdlib.h>
#include <unistd.h>

#include <filesystem>
#include <optional>

#include "export/patch_files.h"
#include "panels/design_pass.h"
#include "support/temporary_folder.h"

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

/// The contents that a name leads to; nothing where there is no file.
std::optional<std::string> TextAt(const std::string& path) {
  if (!fs::exists(path)) return std::nullopt;
  return BytesOf(path);
}

}  // namespace

FoldersInMemory::FoldersInMemory() : usual_(fs::temp_directory_path().string()) {
  constexpr const char* kMemory = "/dev/shm";
  if (access(kMemory, W_OK | X_OK) == 0) setenv("TMPDIR", kMemory, 1);
}
FoldersInMemory::~FoldersInMemory() { setenv("TMPDIR", usual_.c_str(), 1); }

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

void PutOldFiles(const Saver& saver, const std::string& folder) {
  for (const std::string& file : saver.Files) PutBytes(folder + '/' + file, std::string(kOldText));
}

Judgement Judge(const Saver& saver, const FolderContents& clean, bool hadOldFiles,
                const std::string& folder, const SaveOutcome& outcome) {
  Judgement judgement;
  judgement.IsTold = outcome.Saved() || (outcome.Failure->Title.starts_with("Brivane 2000") &&
                                         !outcome.Failure->Text.empty());
  for (const std::string& name : saver.Files) {
    const std::optional<std::string> left = TextAt(folder + '/' + name);
    const bool isOld = hadOldFiles ? left == kOldText : !left;
    const bool isNew = left == clean.at(name);
    const bool isBegun = !left || clean.at(name).starts_with(*left);
    if (outcome.Saved() && !isNew) judgement.FalseSuccesses.push_back(name);
    if (!isOld && !isNew && (saver.Safe || !isBegun)) judgement.Lost.push_back(name);
  }
  for (const auto& [name, text] : ContentsOf(folder))
    if (!clean.contains(name)) judgement.LeftBehind.push_back(name);
  return judgement;
}

}  // namespace brivane
