#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <filesystem>
#include <string>

#include "examples/example_sails.h"
#include "export/patch_files.h"
#include "export/save_kinds.h"
#include "geometry/outline.h"
#include "model/dimension_rules.h"
#include "model/sail_file.h"
#include "model/text_file.h"
#include "panels/design_pass.h"
#include "patches/patch_outline.h"
#include "support/source_folder.h"
#include "support/temporary_folder.h"

// Every sail of the folder "examples" opens, lays out and exports.

namespace brivane {
namespace {

namespace fs = std::filesystem;

constexpr SaveKind kAllKinds[] = {SaveKind::SailData, SaveKind::PanelsXY,  SaveKind::Plotter,
                                  SaveKind::Vrml1,    SaveKind::PanelsDxf, SaveKind::Vrml2};

std::string Folder() { return SourceFolder() + "/examples/"; }

/// Every sail file of the folder, of both generations.
std::vector<std::string> SailFiles() {
  std::vector<std::string> paths;
  for (const auto& entry : fs::directory_iterator(Folder()))
    if (SailFileKindOf(entry.path().string()) != SailFileKind::Unknown)
      paths.push_back(entry.path().string());
  std::sort(paths.begin(), paths.end());
  return paths;
}

Sail Opened(const std::string& path) {
  Sail sail;
  if (SailFileKindOf(path) == SailFileKind::OldSail)
    ReadSailDataFileV4(path, sail.Definition);
  else
    ReadSailDataFile(path, sail.Definition, '.');
  return sail;
}

TEST(Examples, EverySailOfTheTableStandsInTheFolder) {
  ASSERT_GE(ExampleSails().size(), 6u);
  ASSERT_GE(SailFiles().size(), ExampleSails().size());
  for (const ExampleSail& example : ExampleSails()) {
    SCOPED_TRACE(example.English);
    const SailDefinition read = Opened(Folder() + example.Typed.SailName + ".bv3").Definition;
    Sail designed;
    designed.Definition = example.Typed;
    DesignPass(designed);
    SailDefinition expected = designed.Definition;
    // The file holds 15 digits, and no corners; the last digits of a sine are the machine's own.
    for (const auto& [computed, stored] : {std::pair{&expected.LeechLength, read.LeechLength},
                                           {&expected.LeechAngle, read.LeechAngle},
                                           {&expected.GaffAngle, read.GaffAngle},
                                           {&expected.LuffRake, read.LuffRake},
                                           {&expected.TwistAngle, read.TwistAngle}}) {
      EXPECT_NEAR(stored, *computed, 1e-13 * std::fabs(*computed));
      *computed = stored;
    }
    expected.ClewPoint = read.ClewPoint, expected.PeakPoint = read.PeakPoint;
    expected.FootAngle = read.FootAngle;
    EXPECT_EQ(read, expected);
  }
}

TEST(Examples, NoRuleWouldChangeThem) {
  for (const std::string& path : SailFiles()) {
    SCOPED_TRACE(path);
    SailDefinition sail = Opened(path).Definition;
    const double cloth = sail.ClothWidth, leechRound = sail.LeechRound;
    ComputeOutline(sail);
    EXPECT_EQ(sail.ClothWidth, cloth);
    EXPECT_EQ(sail.LeechRound, leechRound);
    for (const DimensionFieldInfo& info : DimensionFields()) {
      // Angles are shown in whole degrees, so only these are typed back.
      if (info.Unit == "°") continue;
      SailDefinition typed = sail;
      const FieldOutcome outcome = EnterField(typed, info.Field, FieldText(sail, info.Field));
      EXPECT_TRUE(outcome.Notices.empty()) << info.ControlName;
      EXPECT_EQ(typed, sail) << info.ControlName;
    }
  }
}

TEST(Examples, EverySailFitsItsCloth) {
  for (const std::string& path : SailFiles()) {
    SCOPED_TRACE(path);
    Sail sail = Opened(path);
    const DesignResult result = DesignPass(sail);
    EXPECT_EQ(result.End, DesignEnd::Fitted);
    EXPECT_GT(sail.Definition.PanelCount, 1);
    EXPECT_LE(result.WidestPanel, sail.Definition.ClothWidth);
    EXPECT_GT(result.WidestPanel, 0.9 * sail.Definition.ClothWidth);
  }
}

TEST(Examples, PanelCountsAreWhatTheClothAsksFor) {
  for (const ExampleSail& example : ExampleSails()) {
    SCOPED_TRACE(example.English);
    Sail sail = Opened(Folder() + example.Typed.SailName + ".bv3");
    const int stored = sail.Definition.PanelCount;
    DesignPass(sail);
    EXPECT_EQ(sail.Definition.PanelCount, stored);
    EXPECT_GE(stored, example.FewestPanels);
    EXPECT_LE(stored, example.MostPanels);
  }
}

double Length(const PanelTable& x, const PanelTable& y, int panel) {
  double length = 0;
  for (int k = kForwardCorner; k < kAftCorner; ++k)
    length += std::hypot(x(panel, k + 1) - x(panel, k), y(panel, k + 1) - y(panel, k));
  return length;
}

/// What is sewn together is equally long: 30 edges, each kept to 2e-3 mm on either side.
TEST(Examples, SeamsThatAreJoinedAreEquallyLong) {
  for (const std::string& path : SailFiles()) {
    SCOPED_TRACE(path);
    Sail sail = Opened(path);
    DesignPass(sail);
    const DevelopedPanels& panels = sail.Panels;
    for (int p = 0; p + 1 < sail.Definition.PanelCount; ++p)
      EXPECT_NEAR(Length(panels.PanelUpperX, panels.PanelUpperY, p),
                  Length(panels.PanelLowerX, panels.PanelLowerY, p + 1), 2 * 30 * 2e-3)
          << p;
  }
}

/// Every file of the folder holds a text of some length, with no number that is none.
void ExpectSoundFiles(const TemporaryFolder& folder) {
  for (const auto& entry : fs::directory_iterator(folder.Path())) {
    const std::string text = ReadWholeFile(entry.path().string());
    EXPECT_GT(text.size(), 100u) << entry.path();
    for (const char* word : {"nan", "inf", "NAN", "INF"})
      EXPECT_EQ(text.find(word), std::string::npos) << word << " in " << entry.path();
  }
}

TEST(Examples, EverySailExportsInEveryKind) {
  for (const std::string& path : SailFiles()) {
    SCOPED_TRACE(path);
    Sail sail = Opened(path);
    ASSERT_EQ(DesignPass(sail).End, DesignEnd::Fitted);
    const auto panels = static_cast<std::size_t>(sail.Definition.PanelCount);
    const TemporaryFolder folder;
    for (const SaveKind kind : kAllKinds) {
      const std::string name = ProposedName(kind, sail.Definition.SailName);
      const SaveOutcome outcome = SaveSail(kind, sail, folder / name, Language::English, ',');
      EXPECT_TRUE(outcome.Saved()) << name;
    }
    EXPECT_EQ(folder.Entries(), 5 + panels);
    ExpectSoundFiles(folder);
    EXPECT_EQ(Opened(folder / (sail.Definition.SailName + ".bv3")).Definition.PanelCount,
              sail.Definition.PanelCount);
  }
}

TEST(Examples, EverySailHasItsPatches) {
  for (const std::string& path : SailFiles()) {
    SCOPED_TRACE(path);
    Sail sail = Opened(path);
    ASSERT_EQ(DesignPass(sail).End, DesignEnd::Fitted);
    const TemporaryFolder folder;
    EXPECT_TRUE(SavePatchPlotterFile(sail, folder.Path(), Language::French, ',').Saved());
    EXPECT_TRUE(SavePatchDxfFiles(sail, folder.Path(), Language::French, ',').Saved());
    EXPECT_EQ(folder.Entries(), IsTriangular(sail.Definition) ? 1u + 6u : 1u + 8u);
    ExpectSoundFiles(folder);
  }
}

}  // namespace
}  // namespace brivane
