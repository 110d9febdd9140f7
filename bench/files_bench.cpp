#include <fcntl.h>
#include <unistd.h>

#include <array>
#include <functional>
#include <stdexcept>
#include <string>
#include <vector>

#include "bench_sails.h"
#include "export/panels_dxf.h"
#include "export/patch_files.h"
#include "export/save_kinds.h"
#include "harness.h"
#include "model/sail_file.h"
#include "model/text_file.h"
#include "scratch_folder.h"

namespace bench {
namespace {

using namespace brivane;

void Check(bool done) {
  if (!done) throw std::runtime_error("a system call failed");
}

int Open(const std::string& path) {
  const int file = open(path.c_str(), O_WRONLY | O_CREAT | O_TRUNC | O_CLOEXEC, 0666);
  Check(file >= 0);
  return file;
}

void Write(int file, const std::string& bytes) {
  Check(write(file, bytes.data(), bytes.size()) == static_cast<ssize_t>(bytes.size()));
}

Row DxfRow(const ScratchFolder& folder) {
  const Sail sail = SeventyPanelSail();
  const std::vector<ExportFile> files = PanelDxfFiles(sail, folder.File("plain.DXF"), '.');
  const std::string ours = folder.File("ours.DXF");
  const Minima times =
      TimeInTurns([&] { Check(ePanelDXF(sail, ours, Language::English, '.').Saved()); },
                  [&] {
                    for (const ExportFile& file : files) {
                      const int descriptor = Open(file.Path);
                      Write(descriptor, file.Text);
                      Check(close(descriptor) == 0);
                    }
                  });
  return {"70 DXF files / open, write, close of their bytes", times.Ratio(), 2, false,
          Sides(times)};
}

/// An export against write(2) of the bytes that it leaves. Both write into emptied files.
Row ExportRow(const std::string& name, const std::function<SaveOutcome()>& save,
              const std::vector<std::string>& paths, const ScratchFolder& folder) {
  Check(save().Saved());
  std::vector<std::string> texts;
  for (const std::string& path : paths) texts.push_back(ReadWholeFile(path));
  const int plain = Open(folder.File("plain"));
  const Minima times = TimeInTurns([&] { Check(save().Saved()); },
                                   [&] {
                                     for (const std::string& text : texts) {
                                       Check(ftruncate(plain, 0) == 0);
                                       Check(lseek(plain, 0, SEEK_SET) == 0);
                                       Write(plain, text);
                                     }
                                   });
  close(plain);
  return {name + " / write of its bytes", times.Ratio(), 3, false, Sides(times)};
}

}  // namespace

Rows ExportRows() {
  const ScratchFolder folder;
  Sail sail = SeventyPanelSail();
  Rows rows = {DxfRow(folder)};
  const std::array<std::pair<std::string, SaveKind>, 4> kinds = {{{"panels XY", SaveKind::PanelsXY},
                                                                  {"plotter", SaveKind::Plotter},
                                                                  {"VRML 1.0", SaveKind::Vrml1},
                                                                  {"VRML 2.0", SaveKind::Vrml2}}};
  for (const auto& [name, kind] : kinds) {
    const std::string path = folder.File("sail" + std::string(DialogTexts(kind).Extension));
    rows.push_back(ExportRow(
        name, [&, k = kind] { return SaveSail(k, sail, path, Language::English, '.'); },
        FilesToWrite(kind, sail, path), folder));
  }
  const std::string here = folder.File("");
  rows.push_back(ExportRow(
      "patches, plotter", [&] { return SavePatchPlotterFile(sail, here, Language::English, '.'); },
      {PatchPlotterPath(here)}, folder));
  rows.push_back(ExportRow(
      "patches, 8 DXF files", [&] { return SavePatchDxfFiles(sail, here, Language::English, '.'); },
      PatchDxfPaths(sail, here), folder));
  return rows;
}

Rows SailFileRows() {
  const ScratchFolder folder;
  const std::string path = folder.File("sail.bv3");
  SailDefinition sail = SeventyPanelSail().Definition;
  WriteSailDataFile(path, sail);
  const int plain = open(path.c_str(), O_RDONLY | O_CLOEXEC);
  Check(plain >= 0);
  std::array<char, 4096> block;
  const Minima times = TimeInTurns([&] { ReadSailDataFile(path, sail, '.'); },
                                   [&] {
                                     Check(pread(plain, block.data(), block.size(), 0) > 0);
                                     DoNotOptimize(block);
                                   });
  close(plain);
  return {{"opening a sail data file / read of its bytes", times.Ratio(), 10, false, Sides(times)}};
}

}  // namespace bench
