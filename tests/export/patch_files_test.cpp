#include "export/patch_files.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <limits>
#include <sstream>

#include "model/text_file.h"
#include "small_sail.h"
#include "support/file_size_limit.h"
#include "support/temporary_folder.h"

namespace brivane {
namespace {

constexpr const char* kPathAccess = "Trying to write over a Read Only File or an invalid Path";

Sail SailWithoutGaff() {
  Sail sail = StraightSail();
  sail.Definition.GaffLength = 5;
  sail.Definition.PeakPoint = {4, 4005, 0};
  return sail;
}

TEST(PatchPlotter, WholeFile) {
  EXPECT_EQ(ToCodePage1252(PatchPlotterText(StraightSail(), '.')), GoldenBytes("Patches.bp4"));
}

TEST(PatchPlotter, RegionalDecimalMarkInPointsOnly) {
  std::istringstream lines(GoldenBytes("Patches.bp4"));
  std::string expected;
  for (std::string line; std::getline(lines, line);)
    expected += (line.starts_with("panel") ? line : Replaced(line, '.', ',')) + '\n';
  EXPECT_EQ(ToCodePage1252(PatchPlotterText(StraightSail(), ',')), expected);
}

TEST(PatchPlotter, HeaderAndRecords) {
  const std::string text = PatchPlotterText(StraightSail(), '.');
  EXPECT_EQ(LineOf(text, 1), "PLOT Patch:  -- Brivane 2000 -- version: 25 June 2000 ");
  EXPECT_EQ(LineOf(text, 2).substr(0, 13), "panel,00cl, 1");
  EXPECT_EQ(LineOf(text, 3), "cut            61");
  EXPECT_EQ(LineOf(text, 4), "3000.0        200.0 ");
  const char* labels[] = {"00cl", "01cl", "00tk", "01tk", "00hd", "01hd", "00pk", "01pk"};
  for (int n = 0; n < 8; ++n)
    EXPECT_EQ(LineOf(text, 2 + 63 * n).substr(0, 11), std::string("panel,") + labels[n] + ",");
  EXPECT_EQ(LineOf(text, 2 + 63 * 8), "EOF Essai \u00e9t\u00e9");
}

TEST(PatchPlotter, NoPeakWithoutAGaff) {
  const std::string text = PatchPlotterText(SailWithoutGaff(), '.');
  EXPECT_EQ(text.find("pk"), std::string::npos);
  EXPECT_NE(text.find("panel,01hd,"), std::string::npos);
}

TEST(PatchPlotter, WritingTwiceLeavesOneNewFile) {
  const TemporaryFolder folder;
  std::ofstream(folder / "Patches.bp4") << std::string(50000, 'x');
  std::filesystem::create_hard_link(folder / "Patches.bp4", folder / "kept");
  for (int time = 0; time < 2; ++time) {
    EXPECT_TRUE(
        SavePatchPlotterFile(StraightSail(), folder.Path(), Language::English, '.').Saved());
    EXPECT_EQ(BytesOf(folder / "Patches.bp4"), GoldenBytes("Patches.bp4"));
    EXPECT_EQ(folder.Entries(), 2u);
  }
  // The earlier file was deleted, not written over.
  EXPECT_EQ(BytesOf(folder / "kept").size(), 50000u);
}

TEST(PatchPlotter, ConfirmationInBothLanguages) {
  const TemporaryFolder folder;
  const auto confirm = [&](Language language) {
    return SavePatchPlotterFile(StraightSail(), folder.Path(), language, '.').Confirmation.value();
  };
  EXPECT_EQ(confirm(Language::English).Title, "Brivane 2000 patches for Tovarek plotter");
  EXPECT_EQ(confirm(Language::English).Text, "Patches saved in file: Patches.BP4");
  EXPECT_EQ(confirm(Language::French).Title, "Brivane 2000 patches for Tovarek plotter");
  EXPECT_EQ(confirm(Language::French).Text,
            "Renforts sauvegardés dans le fichiers: \n    Patches.BP4");
}

TEST(PatchPlotter, Failures) {
  const TemporaryFolder folder;
  const auto failure = [&](const std::string& where) {
    const SaveOutcome outcome = SavePatchPlotterFile(StraightSail(), where, Language::English, '.');
    EXPECT_FALSE(outcome.Confirmation);
    return outcome.Failure.value_or(FailureReport{});
  };
  EXPECT_EQ(failure(folder / "missing").Title, "Brivane 2000");
  EXPECT_EQ(failure(folder / "missing").Text, kPathAccess);

  std::ofstream(folder / "Patches.bp4") << "old";
  std::filesystem::permissions(folder / "Patches.bp4", std::filesystem::perms::owner_read);
  EXPECT_EQ(failure(folder.Path()).Text, kPathAccess);
  EXPECT_EQ(BytesOf(folder / "Patches.bp4"), "old");

  std::filesystem::remove(folder / "Patches.bp4");
  std::filesystem::create_directory(folder / "Patches.bp4");
  EXPECT_EQ(failure(folder.Path()).Text, kPathAccess);
  std::filesystem::remove(folder / "Patches.bp4");
  {
    const FileSizeLimit limit(500);
    EXPECT_EQ(failure(folder.Path()).Text, "File too large");
  }
  EXPECT_EQ(BytesOf(folder / "Patches.bp4"), GoldenBytes("Patches.bp4").substr(0, 500));
}

TEST(PatchDxf, WholeFiles) {
  const std::vector<ExportFile> files = PatchDxfFiles(StraightSail(), "", '.');
  ASSERT_EQ(files.size(), 8u);
  EXPECT_EQ(files[1].Path, "Patch_clew01.dxf");
  EXPECT_EQ(files[1].Text, GoldenBytes("Patch_clew01.dxf"));
  EXPECT_EQ(files[4].Path, "Patch_head00.dxf");
  EXPECT_EQ(files[4].Text, GoldenBytes("Patch_head00.dxf"));
  EXPECT_EQ(PatchDxfFiles(StraightSail(), "", ',')[4].Text,
            Replaced(GoldenBytes("Patch_head00.dxf"), '.', ','));
}

TEST(PatchDxf, EightNamesOrSix) {
  const std::vector<std::string> eight = {
      "/f/Patch_clew00.dxf", "/f/Patch_clew01.dxf", "/f/Patch_tack00.dxf", "/f/Patch_tack01.dxf",
      "/f/Patch_head00.dxf", "/f/Patch_head01.dxf", "/f/Patch_peak00.dxf", "/f/Patch_peak01.dxf"};
  EXPECT_EQ(PatchDxfPaths(StraightSail(), "/f"), eight);
  EXPECT_EQ(PatchDxfPaths(StraightSail(), "/f/"), eight);
  EXPECT_EQ(PatchDxfPaths(SailWithoutGaff(), "/f"),
            std::vector<std::string>(eight.begin(), eight.begin() + 6));
}

TEST(PatchDxf, WritesTheFilesItNames) {
  const TemporaryFolder folder;
  EXPECT_TRUE(SavePatchDxfFiles(StraightSail(), folder.Path(), Language::English, '.').Saved());
  EXPECT_EQ(folder.Entries(), 8u);
  for (const ExportFile& file : PatchDxfFiles(StraightSail(), folder.Path(), '.'))
    EXPECT_EQ(BytesOf(file.Path), file.Text);
  const TemporaryFolder other;
  EXPECT_TRUE(SavePatchDxfFiles(SailWithoutGaff(), other.Path(), Language::English, '.').Saved());
  EXPECT_EQ(other.Entries(), 6u);
}

TEST(PatchDxf, ConfirmationInBothLanguages) {
  const TemporaryFolder folder;
  const auto confirm = [&](const Sail& sail, Language language) {
    return SavePatchDxfFiles(sail, folder.Path(), language, '.').Confirmation.value();
  };
  const std::string english =
      "\nPatches saved in files: "
      "\n  Patch_clew00.DXF and Patch_clew01.DXF"
      "\n  Patch_tack00.DXF and Patch_tack01.DXF"
      "\n  Patch_head00.DXF and Patch_head01.DXF";
  const std::string french =
      "\nRenforts sauvegardés dans les fichiers: "
      "\n  Patch_clew00.DXF et Patch_clew01.DXF"
      "\n  Patch_tack00.DXF et Patch_tack01.DXF"
      "\n  Patch_head00.DXF et Patch_head01.DXF";
  EXPECT_EQ(confirm(StraightSail(), Language::English).Title, "Brivane 2000 - patches in DXF");
  EXPECT_EQ(confirm(StraightSail(), Language::English).Text,
            english + "\n  Patch_peak00.DXF and Patch_head01.DXF");
  EXPECT_EQ(confirm(StraightSail(), Language::French).Title, "Brivane 2000 - patches in DXF");
  EXPECT_EQ(confirm(StraightSail(), Language::French).Text,
            french + "\n  Patch_peak00.DXF et Patch_head01.DXF");
  EXPECT_EQ(confirm(SailWithoutGaff(), Language::English).Text, english);
  EXPECT_EQ(confirm(SailWithoutGaff(), Language::French).Text, french);
}

TEST(PatchDxf, AFailureKeepsTheFilesBeforeIt) {
  const TemporaryFolder folder;
  std::filesystem::create_directory(folder / "Patch_tack01.dxf");
  const SaveOutcome outcome =
      SavePatchDxfFiles(StraightSail(), folder.Path(), Language::French, '.');
  ASSERT_TRUE(outcome.Failure);
  EXPECT_EQ(outcome.Failure->Title, "Brivane 2000");
  EXPECT_EQ(outcome.Failure->Text, kPathAccess);
  EXPECT_FALSE(outcome.Confirmation);
  EXPECT_EQ(BytesOf(folder / "Patch_clew01.dxf"), GoldenBytes("Patch_clew01.dxf"));
  EXPECT_EQ(folder.Entries(), 4u);
}

TEST(PatchDxf, FullDisk) {
  const TemporaryFolder folder;
  std::filesystem::create_symlink("/dev/full", folder / "Patch_clew00.dxf");
  const SaveOutcome outcome =
      SavePatchDxfFiles(StraightSail(), folder.Path(), Language::English, '.');
  ASSERT_TRUE(outcome.Failure);
  EXPECT_EQ(outcome.Failure->Text, "No space left on device");
}

TEST(PatchDxf, NothingIsWrittenOfASailThatIsNotFinite) {
  const TemporaryFolder folder;
  Sail sail = StraightSail();
  sail.Definition.LeechRound = std::numeric_limits<double>::quiet_NaN();
  EXPECT_TRUE(SavePatchDxfFiles(sail, folder.Path(), Language::English, '.').Failure);
  EXPECT_TRUE(SavePatchPlotterFile(sail, folder.Path(), Language::English, '.').Failure);
  EXPECT_EQ(folder.Entries(), 0u);
}

}  // namespace
}  // namespace brivane
