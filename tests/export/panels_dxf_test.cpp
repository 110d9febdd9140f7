#include "export/panels_dxf.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <limits>

#include "export/dxf_entities.h"
#include "model/failures.h"
#include "small_sail.h"
#include "support/file_size_limit.h"
#include "support/temporary_folder.h"

namespace brivane {
namespace {

constexpr const char* kFailureTitle = "Brivane 2000 : SUB ePanelDXF";
constexpr const char* kPathAccess = "Trying to write over a Read Only File or an invalid Path";

std::string PanelText(const Sail& sail, int panel, char mark = '.') {
  std::vector<DxfStage> stages;
  return PanelDxfText(sail, panel, mark, stages);
}

std::string PolylineHeader(std::int16_t colour) {
  FileText text;
  WritePolylineHeader(text, colour);
  return text.Take();
}

std::string Vertex(double x, double y, double z, char mark = '.') {
  FileText text;
  WriteVertex(text, VertexHead(7), x, y, z, mark);
  return text.Take();
}

TEST(DxfEntities, PolylineHeaderOfAColour) {
  EXPECT_EQ(PolylineHeader(5),
            "  0\r\nPOLYLINE\r\n  8\r\n1\r\n 62\r\n      5\r\n 66\r\n      1\r\n"
            "  6\r\nCONTINUOUS\r\n 70\r\n      8\r\n");
}

TEST(DxfEntities, ColoursHaveFiveBlanksBeforeTheNumbersOwn) {
  EXPECT_EQ(LineOf(PolylineHeader(7), 6), "      7");
  EXPECT_EQ(LineOf(PolylineHeader(256), 6), "      256");
  EXPECT_EQ(LineOf(PolylineHeader(-1), 6), "     -1");
}

TEST(DxfEntities, VertexWithBothMarks) {
  const std::string head =
      "  0\r\nVERTEX\r\n  8\r\n1\r\n 62\r\n      7\r\n  6\r\nCONTINUOUS\r\n 70\r\n     32\r\n";
  EXPECT_EQ(Vertex(1234.567, -0.5, 0),
            head + " 10\r\n1234.57 \r\n 20\r\n-0.50 \r\n 30\r\n0.00 \r\n");
  EXPECT_EQ(Vertex(1234.567, -0.5, 0, ','),
            head + " 10\r\n1234,57 \r\n 20\r\n-0,50 \r\n 30\r\n0,00 \r\n");
}

TEST(DxfEntities, CoordinatesRoundHalvesAwayFromZero) {
  const std::string text = Vertex(0.125, -0.125, 2.675);
  EXPECT_EQ(LineOf(text, 12), "0.13 ");
  EXPECT_EQ(LineOf(text, 14), "-0.13 ");
  EXPECT_EQ(LineOf(text, 16), "2.68 ");
}

TEST(DxfEntities, NoCoordinateThatIsNotFinite) {
  for (const double bad :
       {std::numeric_limits<double>::quiet_NaN(), std::numeric_limits<double>::infinity()}) {
    EXPECT_THROW(Vertex(bad, 0, 0), GeometryFault);
    EXPECT_THROW(Vertex(0, bad, 0), GeometryFault);
    EXPECT_THROW(Vertex(0, 0, -bad), GeometryFault);
  }
}

TEST(PanelsDxf, WholeFiles) {
  const Sail sail = SmallSail();
  EXPECT_EQ(PanelText(sail, 0), GoldenBytes("small_Panel01.DXF"));
  EXPECT_EQ(PanelText(sail, 1), GoldenBytes("small_Panel02.DXF"));
  EXPECT_EQ(PanelText(sail, 2), GoldenBytes("small_Panel03.DXF"));
}

TEST(PanelsDxf, RegionalDecimalMarkInEveryCoordinate) {
  // No other text of the file has a point in it.
  EXPECT_EQ(PanelText(SmallSail(), 1, ','), Replaced(GoldenBytes("small_Panel02.DXF"), '.', ','));
}

TEST(PanelsDxf, HeadNamesThePanelFromOne) {
  const Sail sail = SmallSail();
  EXPECT_EQ(LineOf(PanelText(sail, 0), 1), "999");
  EXPECT_EQ(LineOf(PanelText(sail, 0), 2), "Brivane 2000 - panel 01 ");
  EXPECT_EQ(LineOf(PanelText(sail, 2), 2), "Brivane 2000 - panel 03 ");
}

TEST(PanelsDxf, BaseOfAPath) {
  EXPECT_EQ(PanelDxfBase("/sails/Main.dxf"), "/sails/Main");
  EXPECT_EQ(PanelDxfBase("/sails/Main"), "/sails/Main");
  EXPECT_EQ(PanelDxfBase("/sails/Main.old.dxf"), "/sails/Main");
  EXPECT_EQ(PanelDxfBase("/sails/Main_Panel03.DXF"), "/sails/Main");
  EXPECT_EQ(PanelDxfBase("/sails/a.b_Panel03.DXF"), "/sails/a.b");
  EXPECT_EQ(PanelDxfBase("/sails/Main_Panel_Panel"), "/sails/Main");
  EXPECT_EQ(PanelDxfBase("/sails/Main_panel03.DXF"), "/sails/Main_panel03");
}

TEST(PanelsDxf, BaseIsCutAtAPointInAFolder) {
  EXPECT_EQ(PanelDxfBase("/home/j.doe/Main"), "/home/j");
  EXPECT_EQ(PanelDxfBase("/home/j.doe/Main.dxf"), "/home/j");
}

TEST(PanelsDxf, FamilyMarkAtTheVeryStartIsNone) {
  EXPECT_EQ(PanelDxfBase("_Panel03.DXF"), "_Panel03");
  EXPECT_EQ(PanelDxfBase("_Panel03"), "_Panel03");
  EXPECT_EQ(PanelDxfBase("_Panel_Panel03.DXF"), "_Panel_Panel03");
  EXPECT_EQ(PanelDxfBase("a_Panel03.DXF"), "a");
  EXPECT_EQ(PanelDxfBase(""), "");
}

TEST(PanelsDxf, NamesCountFromOneWithTwoDigits) {
  EXPECT_EQ(PanelDxfPath("/sails/Main", 0), "/sails/Main_Panel01.DXF");
  EXPECT_EQ(PanelDxfPath("/sails/Main", 9), "/sails/Main_Panel10.DXF");
  EXPECT_EQ(PanelDxfPath("/sails/Main", 69), "/sails/Main_Panel70.DXF");
  const std::vector<std::string> expected = {"/s/M_Panel01.DXF", "/s/M_Panel02.DXF",
                                             "/s/M_Panel03.DXF"};
  EXPECT_EQ(PanelDxfPaths(SmallSail(), "/s/M_Panel77.DXF"), expected);
}

TEST(PanelsDxf, WritesTheFilesItNames) {
  const TemporaryFolder folder;
  const Sail sail = SmallSail();
  const SaveOutcome outcome = ePanelDXF(sail, folder / "M.dxf", Language::English, '.');
  ASSERT_TRUE(outcome.Saved());
  EXPECT_EQ(folder.Entries(), 3u);
  const std::vector<ExportFile> files = PanelDxfFiles(sail, folder / "M.dxf", '.');
  ASSERT_EQ(files.size(), 3u);
  for (int p = 0; p < kSmallPanels; ++p) {
    const ExportFile& file = files[static_cast<std::size_t>(p)];
    EXPECT_EQ(file.Path, PanelDxfPaths(sail, folder / "M.dxf")[static_cast<std::size_t>(p)]);
    EXPECT_EQ(BytesOf(file.Path), GoldenBytes("small_Panel0" + std::to_string(p + 1) + ".DXF"));
  }
}

TEST(PanelsDxf, ConfirmationNamesTheSailInBothLanguages) {
  const TemporaryFolder folder;
  Sail sail = SmallSail();
  sail.Definition.SailName = "Main";
  const SaveOutcome english = ePanelDXF(sail, folder / "other.dxf", Language::English, '.');
  ASSERT_TRUE(english.Confirmation);
  EXPECT_EQ(english.Confirmation->Title, "Brivane 2000 : panels DXF");
  EXPECT_EQ(english.Confirmation->Text,
            "Developped panels saved \nfrom : Main_Panel01.DXF \n   to : Main_Panel03.DXF");
  const SaveOutcome french = ePanelDXF(sail, folder / "other.dxf", Language::French, '.');
  ASSERT_TRUE(french.Confirmation);
  EXPECT_EQ(french.Confirmation->Title, "Brivane 2000 : panels DXF");
  EXPECT_EQ(french.Confirmation->Text,
            "Panneaux développés sauvegardés \nde : Main_Panel01.DXF \n  à : Main_Panel03.DXF");
}

TEST(PanelsDxf, NoPanelWritesNothingAndConfirms) {
  const TemporaryFolder folder;
  Sail sail = SmallSail();
  sail.Definition.PanelCount = 0;
  const SaveOutcome outcome = ePanelDXF(sail, folder / "M.dxf", Language::English, '.');
  EXPECT_TRUE(outcome.Saved());
  EXPECT_EQ(folder.Entries(), 0u);
  ASSERT_TRUE(outcome.Confirmation);
  EXPECT_NE(outcome.Confirmation->Text.find("_Panel00.DXF"), std::string::npos);
  EXPECT_TRUE(PanelDxfPaths(sail, folder / "M.dxf").empty());
}

TEST(PanelsDxf, OnePanelAndSeventy) {
  const TemporaryFolder folder;
  Sail sail;
  sail.Definition.PanelCount = 1;
  EXPECT_TRUE(ePanelDXF(sail, folder / "one.dxf", Language::English, '.').Saved());
  EXPECT_EQ(folder.Entries(), 1u);
  sail.Definition.PanelCount = 70;
  EXPECT_TRUE(ePanelDXF(sail, folder / "many.dxf", Language::English, '.').Saved());
  EXPECT_EQ(folder.Entries(), 71u);
  EXPECT_EQ(LineOf(BytesOf(folder / "many_Panel70.DXF"), 2), "Brivane 2000 - panel 70 ");
}

TEST(PanelsDxf, ReplacesAnOlderFileWhole) {
  const TemporaryFolder folder;
  std::ofstream(folder / "M_Panel01.DXF") << std::string(40000, 'x');
  EXPECT_TRUE(ePanelDXF(SmallSail(), folder / "M.dxf", Language::English, '.').Saved());
  EXPECT_EQ(BytesOf(folder / "M_Panel01.DXF"), GoldenBytes("small_Panel01.DXF"));
}

TEST(PanelsDxf, MissingFolder) {
  const TemporaryFolder folder;
  const SaveOutcome outcome =
      ePanelDXF(SmallSail(), folder / "missing/M.dxf", Language::English, '.');
  ASSERT_TRUE(outcome.Failure);
  EXPECT_EQ(outcome.Failure->Title, kFailureTitle);
  EXPECT_EQ(outcome.Failure->Text, kPathAccess);
  EXPECT_FALSE(outcome.Confirmation);
}

TEST(PanelsDxf, AFolderInTheWayStopsAndKeepsTheFilesBeforeIt) {
  const TemporaryFolder folder;
  std::filesystem::create_directory(folder / "M_Panel02.DXF");
  const SaveOutcome outcome = ePanelDXF(SmallSail(), folder / "M.dxf", Language::French, '.');
  ASSERT_TRUE(outcome.Failure);
  EXPECT_EQ(outcome.Failure->Text, kPathAccess);
  EXPECT_EQ(BytesOf(folder / "M_Panel01.DXF"), GoldenBytes("small_Panel01.DXF"));
  EXPECT_EQ(folder.Entries(), 2u);
}

TEST(PanelsDxf, ReadOnlyFile) {
  const TemporaryFolder folder;
  std::ofstream(folder / "M_Panel01.DXF") << "old";
  std::filesystem::permissions(folder / "M_Panel01.DXF", std::filesystem::perms::owner_read);
  const SaveOutcome outcome = ePanelDXF(SmallSail(), folder / "M.dxf", Language::English, '.');
  ASSERT_TRUE(outcome.Failure);
  EXPECT_EQ(outcome.Failure->Text, kPathAccess);
  EXPECT_EQ(BytesOf(folder / "M_Panel01.DXF"), "old");
}

TEST(PanelsDxf, FullDiskNamesPanelFromZeroAndStage) {
  const TemporaryFolder folder;
  std::filesystem::create_symlink("/dev/full", folder / "M_Panel02.DXF");
  const SaveOutcome outcome = ePanelDXF(SmallSail(), folder / "M.dxf", Language::English, '.');
  ASSERT_TRUE(outcome.Failure);
  EXPECT_EQ(outcome.Failure->Title, kFailureTitle);
  EXPECT_EQ(outcome.Failure->Text, "Panel 01 Header\nNo space left on device");
  EXPECT_EQ(BytesOf(folder / "M_Panel01.DXF"), GoldenBytes("small_Panel01.DXF"));
}

// The words of the stage that holds a text's byte, found in the expected file itself.
struct StageCase {
  const char* Stage;
  std::size_t Offset;
};

std::size_t NthVertex(const std::string& text, int number) {
  std::size_t at = 0;
  for (int n = 0; n < number; ++n) at = text.find("  0\r\nVERTEX", at + 1);
  return at;
}

TEST(PanelsDxf, DiskFullAtEveryStage) {
  const std::string text = GoldenBytes("small_Panel01.DXF");
  const std::size_t guide = text.find("  0\r\nPOLYLINE");
  // 31 vertices of the guide line, 1 + 6 + 31 + 6 + 31 of the outline.
  const std::size_t luff = NthVertex(text, 31 + 1 + 1);
  const std::size_t upper = NthVertex(text, 31 + 1 + 6 + 1);
  const std::size_t leech = NthVertex(text, 31 + 1 + 6 + 31 + 1);
  const std::size_t lower = NthVertex(text, 31 + 1 + 6 + 31 + 6 + 1);
  const std::size_t closing = text.find("  0\r\nENDSEC");
  const std::vector<StageCase> cases = {{"Header", 0},         {"Header", guide - 1},
                                        {"Guide line", guide}, {"Guide line", luff - 1},
                                        {"Luff", luff},        {"Luff", upper - 1},
                                        {"Upper line", upper}, {"Upper line", leech - 1},
                                        {"Leech", leech},      {"Leech", lower - 1},
                                        {"Lower line", lower}, {"Lower line", closing - 1},
                                        {"Closing", closing},  {"Closing", text.size() - 1}};
  for (const StageCase& example : cases) {
    const TemporaryFolder folder;
    SaveOutcome outcome;
    {
      const FileSizeLimit limit(example.Offset);
      outcome = ePanelDXF(SmallSail(), folder / "M.dxf", Language::English, '.');
    }
    ASSERT_TRUE(outcome.Failure) << example.Offset;
    EXPECT_EQ(outcome.Failure->Text,
              std::string("Panel 00 ") + example.Stage + "\n" + "File too large")
        << example.Offset;
    EXPECT_EQ(BytesOf(folder / "M_Panel01.DXF"), text.substr(0, example.Offset));
  }
}

TEST(PanelsDxf, APointThatIsNotFiniteIsNeverWritten) {
  const TemporaryFolder folder;
  Sail sail = SmallSail();
  sail.Panels.PanelUpperY(2, 20) = std::numeric_limits<double>::infinity();
  const SaveOutcome outcome = ePanelDXF(sail, folder / "M.dxf", Language::English, '.');
  ASSERT_TRUE(outcome.Failure);
  EXPECT_EQ(outcome.Failure->Title, kFailureTitle);
  EXPECT_EQ(outcome.Failure->Text.substr(0, 20), "Panel 02 Upper line\n");
  EXPECT_EQ(folder.Entries(), 2u);
}

TEST(PanelsDxf, APanelBeyondTheTablesIsOutOfRange) {
  Sail sail;
  EXPECT_NO_THROW(PanelText(sail, 90));
  EXPECT_THROW(PanelText(sail, 91), std::out_of_range);
}

}  // namespace
}  // namespace brivane
