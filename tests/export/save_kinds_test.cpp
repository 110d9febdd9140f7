#include "export/save_kinds.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <limits>

#include "small_sail.h"
#include "support/file_size_limit.h"
#include "support/temporary_folder.h"

namespace brivane {
namespace {

constexpr const char* kPathAccess = "Trying to write over a Read Only File or an invalid Path";

constexpr SaveKind kAllKinds[] = {SaveKind::SailData, SaveKind::PanelsXY,  SaveKind::Plotter,
                                  SaveKind::Vrml1,    SaveKind::PanelsDxf, SaveKind::Vrml2};

struct KindCase {
  SaveKind Kind;
  const char* Filter;
  const char* Proposed;
  const char* FailureTitle;
};

constexpr KindCase kKindCases[] = {
    {SaveKind::SailData, "Brivane files (.bv3)|*.bv3", "Main.bv3", "Brivane 2000 : Writing eData2"},
    {SaveKind::PanelsXY, "Developped files (.xyz)|*.xyz", "Main.xyz",
     "Brivane 2000 : SUB ePanelXY"},
    {SaveKind::Plotter, "Tovarek plotter files (.bp4)|*.bp4", "Main.bp4",
     "Brivane 2000 : SUB eTovarek"},
    {SaveKind::Vrml1, "VRML1.0 files (.wrl)|*.wrl", "Main.wrl", "Brivane 2000 : SUB eVRML1"},
    {SaveKind::PanelsDxf, "Developped files (.dxf)|*.dxf", "Main.dxf",
     "Brivane 2000 : SUB ePanelDXF"},
    {SaveKind::Vrml2, "VRML (*.WRL)|*.WRL", "Main.WRL", "Brivane 2000 : SUB eVRML2"}};

TEST(SaveKinds, NumbersOfTheMenu) {
  EXPECT_EQ(SaveKindOfNumber(0), SaveKind::SailData);
  EXPECT_EQ(SaveKindOfNumber(1), SaveKind::PanelsXY);
  EXPECT_EQ(SaveKindOfNumber(2), SaveKind::Plotter);
  EXPECT_EQ(SaveKindOfNumber(3), SaveKind::Vrml1);
  EXPECT_EQ(SaveKindOfNumber(4), SaveKind::PanelsDxf);
  for (const std::int16_t other : std::initializer_list<std::int16_t>{-32768, -1, 5, 6, 32767})
    EXPECT_FALSE(SaveKindOfNumber(other)) << other;
}

TEST(SaveKinds, DialogTextsAndProposedNames) {
  for (const KindCase& example : kKindCases) {
    const SaveDialogTexts texts = DialogTexts(example.Kind);
    EXPECT_EQ(texts.Filter, example.Filter);
    EXPECT_EQ(std::string(texts.Description) + '|' + std::string(texts.Pattern), example.Filter);
    EXPECT_EQ("Main" + std::string(texts.Extension), example.Proposed);
    EXPECT_EQ("*" + std::string(texts.Extension), texts.Pattern);
    EXPECT_EQ(ProposedName(example.Kind, "Main"), example.Proposed);
    EXPECT_EQ(texts.Title, example.Kind == SaveKind::Vrml2 ? "Brivane2000" : "");
  }
}

TEST(SaveKinds, FourCharactersAreTrimmedWhateverTheyAre) {
  for (const SaveKind kind :
       {SaveKind::SailData, SaveKind::PanelsXY, SaveKind::Plotter, SaveKind::Vrml1}) {
    EXPECT_EQ(TrimSailName(kind, "Main.bv3"), "Main");
    EXPECT_EQ(TrimSailName(kind, "Main.old.bv3"), "Main.old");
    EXPECT_EQ(TrimSailName(kind, "Main_Panel02.xyz"), "Main_Panel02");
    EXPECT_EQ(TrimSailName(kind, "Main.sail"), "Main.");
    EXPECT_EQ(TrimSailName(kind, "Main.b"), "Ma");
    EXPECT_EQ(TrimSailName(kind, "Main"), "");
    EXPECT_EQ(TrimSailName(kind, "bv3"), "bv3");
    EXPECT_EQ(TrimSailName(kind, ""), "");
  }
}

TEST(SaveKinds, TrimmingCountsCharactersNotBytes) {
  EXPECT_EQ(TrimSailName(SaveKind::SailData, "\u00e9t\u00e9.bv3"), "\u00e9t\u00e9");
  EXPECT_EQ(TrimSailName(SaveKind::SailData, "ab\u00e9\u00e8\u00ea\u00eb"), "ab");
  EXPECT_EQ(TrimSailName(SaveKind::SailData, "\u00e9\u00e8\u00ea\u00eb"), "");
  EXPECT_EQ(TrimSailName(SaveKind::SailData, "\u00e9\u00e8\u00ea"), "\u00e9\u00e8\u00ea");
}

TEST(SaveKinds, PanelsAreCutAtThePointThenAtTheFamilyMark) {
  const auto trim = [](const char* title) { return TrimSailName(SaveKind::PanelsDxf, title); };
  EXPECT_EQ(trim("Newsail.dxf"), "Newsail");
  EXPECT_EQ(trim("Newsail_Panel02.DXF"), "Newsail");
  EXPECT_EQ(trim("Main.old.dxf"), "Main");
  EXPECT_EQ(trim("Main.old_Panel01.DXF"), "Main");
  EXPECT_EQ(trim("Main_Panel_Panel02.DXF"), "Main");
  EXPECT_EQ(trim("_Panel02.DXF"), "");
  EXPECT_EQ(trim("Main_panel02"), "Main_panel02");
  EXPECT_EQ(trim(".dxf"), "");
}

TEST(SaveKinds, Vrml2IsCutAtTheFirstPoint) {
  const auto trim = [](const char* title) { return TrimSailName(SaveKind::Vrml2, title); };
  EXPECT_EQ(trim("Newsail.WRL"), "Newsail");
  EXPECT_EQ(trim("Main.old.WRL"), "Main");
  EXPECT_EQ(trim("Main_Panel02.WRL"), "Main_Panel02");
  EXPECT_EQ(trim("Main"), "Main");
}

TEST(SaveKinds, AMissingExtensionIsAdded) {
  for (const KindCase& example : kKindCases)
    EXPECT_EQ(WithExtension(example.Kind, "Main"), example.Proposed);
  EXPECT_EQ(WithExtension(SaveKind::SailData, "/a.b/Main"), "/a.b/Main.bv3");
  EXPECT_EQ(WithExtension(SaveKind::SailData, "/a/Main.bv3"), "/a/Main.bv3");
  EXPECT_EQ(WithExtension(SaveKind::SailData, "/a/Main.sail"), "/a/Main.sail");
  EXPECT_EQ(WithExtension(SaveKind::SailData, "/a/Main."), "/a/Main.bv3");
  EXPECT_EQ(WithExtension(SaveKind::SailData, "/a/.Main"), "/a/.Main.bv3");
  EXPECT_EQ(WithExtension(SaveKind::SailData, "/a/"), "/a/");
  EXPECT_EQ(WithExtension(SaveKind::SailData, ""), "");
  for (const SaveKind kind : kAllKinds)
    for (const char* path : {"Main", "Main.", ".Main", "/a.b/Main", "/a/Main.old", "/", ""}) {
      const std::string once = WithExtension(kind, path);
      EXPECT_EQ(WithExtension(kind, once), once);
    }
}

TEST(SaveKinds, TitleOfAPath) {
  EXPECT_EQ(FileTitle("/a/b.c/Main.bv3"), "Main.bv3");
  EXPECT_EQ(FileTitle("Main"), "Main");
  EXPECT_EQ(FileTitle("/a/"), "");
}

TEST(SaveKinds, FilesToWriteAndToReplace) {
  const TemporaryFolder folder;
  Sail sail = SmallSail();
  for (const KindCase& example : kKindCases) {
    if (example.Kind == SaveKind::PanelsDxf) continue;
    EXPECT_EQ(FilesToWrite(example.Kind, sail, folder / "Main"),
              std::vector<std::string>{folder / example.Proposed});
    EXPECT_TRUE(FilesToReplace(example.Kind, sail, folder / "Main").empty());
  }
  const std::vector<std::string> panels = {folder / "Main_Panel01.DXF", folder / "Main_Panel02.DXF",
                                           folder / "Main_Panel03.DXF"};
  EXPECT_EQ(FilesToWrite(SaveKind::PanelsDxf, sail, folder / "Main_Panel02.DXF"), panels);
  std::ofstream(panels[1]) << "old";
  EXPECT_EQ(FilesToReplace(SaveKind::PanelsDxf, sail, folder / "Main.dxf"),
            std::vector<std::string>{panels[1]});
}

TEST(SaveKinds, EveryKindWritesTheFilesItNamedAndRenamesTheSail) {
  for (const SaveKind kind : kAllKinds) {
    const TemporaryFolder folder;
    Sail sail = SmallSail();
    const std::vector<std::string> named = FilesToWrite(kind, sail, folder / "Main");
    const SaveOutcome outcome = SaveSail(kind, sail, folder / "Main", Language::English, '.');
    EXPECT_TRUE(outcome.Saved());
    EXPECT_EQ(sail.Definition.SailName, "Main");
    EXPECT_EQ(folder.Entries(), named.size());
    for (const std::string& file : named) EXPECT_FALSE(BytesOf(file).empty()) << file;
    EXPECT_EQ(outcome.Confirmation.has_value(), kind == SaveKind::PanelsDxf);
  }
}

TEST(SaveKinds, ContentsUnderTheChosenName) {
  const TemporaryFolder folder;
  Sail sail = SmallSail();
  const auto save = [&](SaveKind kind, const std::string& name) {
    EXPECT_TRUE(SaveSail(kind, sail, folder / name, Language::English, '.').Saved());
    return BytesOf(folder / name);
  };
  const std::string name = "Essai \u00e9t\u00e9";
  EXPECT_EQ(save(SaveKind::PanelsXY, name + ".xyz"), GoldenBytes("small.xyz"));
  EXPECT_EQ(save(SaveKind::Plotter, name + ".bp4"), GoldenBytes("small.bp4"));
  EXPECT_EQ(save(SaveKind::Vrml1, name + ".wrl"), GoldenBytes("small.wrl"));
  EXPECT_EQ(save(SaveKind::Vrml2, name + ".WRL"), GoldenBytes("small2.WRL"));
  save(SaveKind::PanelsDxf, name + ".dxf");
  EXPECT_EQ(BytesOf(folder / (name + "_Panel03.DXF")), GoldenBytes("small_Panel03.DXF"));
  const std::string data = save(SaveKind::SailData, "Main.bv3");
  EXPECT_EQ(LineOf(data, 1), "Brivane 2000 VERSION_ 25 June 2000 ");
  EXPECT_EQ(LineOf(data, 2), "Main");
  EXPECT_EQ(LineOf(data, 41), "EOF ");
}

TEST(SaveKinds, TheNextSaveOffersTheNewName) {
  const TemporaryFolder folder;
  Sail sail;
  EXPECT_TRUE(
      SaveSail(SaveKind::SailData, sail, folder / "Main.bv3", Language::French, ',').Saved());
  EXPECT_EQ(ProposedName(SaveKind::PanelsXY, sail.Definition.SailName), "Main.xyz");
  EXPECT_EQ(ProposedName(SaveKind::Plotter, sail.Definition.SailName), "Main.bp4");
}

TEST(SaveKinds, PanelsUnderANameWithTwoPoints) {
  const TemporaryFolder folder;
  Sail sail = SmallSail();
  const SaveOutcome outcome =
      SaveSail(SaveKind::PanelsDxf, sail, folder / "Main.old.dxf", Language::English, '.');
  EXPECT_TRUE(outcome.Saved());
  EXPECT_EQ(sail.Definition.SailName, "Main");
  EXPECT_FALSE(BytesOf(folder / "Main_Panel01.DXF").empty());
  EXPECT_EQ(outcome.Confirmation->Text,
            "Developped panels saved \nfrom : Main_Panel01.DXF \n   to : Main_Panel03.DXF");
}

TEST(SaveKinds, RegionalMarkReachesTheWriter) {
  const TemporaryFolder folder;
  Sail sail = SmallSail();
  EXPECT_TRUE(
      SaveSail(SaveKind::PanelsXY, sail, folder / "Essai \u00e9t\u00e9.xyz", Language::French, ',')
          .Saved());
  EXPECT_EQ(BytesOf(folder / "Essai \u00e9t\u00e9.xyz"),
            Replaced(GoldenBytes("small.xyz"), '.', ','));
}

TEST(SaveKinds, MissingFolderUnderTheTitleOfItsWriter) {
  const TemporaryFolder folder;
  for (const KindCase& example : kKindCases) {
    Sail sail = SmallSail();
    const SaveOutcome outcome =
        SaveSail(example.Kind, sail, folder / "missing/Main", Language::French, '.');
    ASSERT_TRUE(outcome.Failure);
    EXPECT_EQ(outcome.Failure->Title, example.FailureTitle);
    EXPECT_EQ(outcome.Failure->Text, kPathAccess);
    EXPECT_FALSE(outcome.Confirmation);
    EXPECT_EQ(sail.Definition.SailName, "Main");
  }
  EXPECT_EQ(folder.Entries(), 0u);
}

TEST(SaveKinds, AFolderAndAReadOnlyFileAreInvalidPaths) {
  for (const KindCase& example : kKindCases) {
    const TemporaryFolder folder;
    Sail sail = SmallSail();
    const std::string target = FilesToWrite(example.Kind, sail, folder / "Main").front();
    std::filesystem::create_directory(target);
    EXPECT_EQ(SaveSail(example.Kind, sail, folder / "Main", Language::English, '.').Failure->Text,
              kPathAccess);
    std::filesystem::remove(target);
    std::ofstream(target) << "old";
    std::filesystem::permissions(target, std::filesystem::perms::owner_read);
    EXPECT_EQ(SaveSail(example.Kind, sail, folder / "Main", Language::English, '.').Failure->Text,
              kPathAccess);
    EXPECT_EQ(BytesOf(target), "old");
  }
}

TEST(SaveKinds, AFullDiskShowsTheSystemsWordsAndLeavesWhatWasWritten) {
  for (const KindCase& example : kKindCases) {
    if (example.Kind == SaveKind::PanelsDxf) continue;
    const TemporaryFolder folder;
    Sail sail = SmallSail();
    SaveOutcome outcome;
    {
      const FileSizeLimit limit(100);
      outcome = SaveSail(example.Kind, sail, folder / "Main", Language::English, '.');
    }
    ASSERT_TRUE(outcome.Failure);
    EXPECT_EQ(outcome.Failure->Title, example.FailureTitle);
    EXPECT_EQ(outcome.Failure->Text, "File too large");
    // The sail data file is the user's work: whole or not there at all.
    EXPECT_EQ(BytesOf(folder / example.Proposed).size(),
              example.Kind == SaveKind::SailData ? 0u : 100u);
    EXPECT_TRUE(SaveSail(example.Kind, sail, folder / "Main", Language::English, '.').Saved());
  }
}

TEST(SaveKinds, AFullDevice) {
  const TemporaryFolder folder;
  Sail sail = SmallSail();
  std::filesystem::create_symlink("/dev/full", folder / "Main.xyz");
  const SaveOutcome outcome =
      SaveSail(SaveKind::PanelsXY, sail, folder / "Main.xyz", Language::English, '.');
  ASSERT_TRUE(outcome.Failure);
  EXPECT_EQ(outcome.Failure->Text, "No space left on device");
}

TEST(SaveKinds, ASailThatIsNotFiniteIsRefusedInTheLanguageAndTouchesNoFile) {
  for (const SaveKind kind :
       {SaveKind::PanelsXY, SaveKind::Plotter, SaveKind::Vrml1, SaveKind::Vrml2}) {
    const TemporaryFolder folder;
    Sail sail = SmallSail();
    const std::string target = FilesToWrite(kind, sail, folder / "Main").front();
    std::ofstream(target) << "old";
    sail.Panels.PanelLowerX(1, 10) = sail.Grid.SurfaceX(1, 10) =
        std::numeric_limits<double>::quiet_NaN();
    const SaveOutcome english = SaveSail(kind, sail, folder / "Main", Language::English, '.');
    const SaveOutcome french = SaveSail(kind, sail, folder / "Main", Language::French, '.');
    ASSERT_TRUE(english.Failure && french.Failure);
    EXPECT_NE(english.Failure->Text, french.Failure->Text);
    EXPECT_EQ(BytesOf(target), "old");
  }
}

TEST(SaveKinds, TitleOfTheCommandItself) {
  EXPECT_EQ(SaveCommandTitle(), "Brivane 2000 : Dessin1 SaveData procedure");
}

}  // namespace
}  // namespace brivane
