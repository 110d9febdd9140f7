#include "model/sail_file.h"

#include <gtest/gtest.h>

#include <array>
#include <limits>
#include <random>
#include <string>

#include "model/failures.h"
#include "model/file_lines.h"
#include "support/sample_sail_files.h"
#include "support/temporary_folder.h"

namespace brivane {
namespace {

/// The default sail's file with one line (counted from 1) replaced.
std::string WithLine(std::size_t number, const std::string& line) {
  Lines lines = DefaultSailLines();
  lines[number - 1] = line;
  return Joined(lines);
}

SailDefinition ReadFrom(const std::string& text, char mark = '.') {
  SailDefinition sail;
  ReadSailDataText(text, sail, mark);
  return sail;
}

std::string RefusalOf(const std::string& text, char mark = '.') {
  try {
    ReadFrom(text, mark);
  } catch (const ReadError& error) {
    return error.what();
  }
  return "";
}

// --- Writing -----------------------------------------------------------------------------------

TEST(SailDataText, ReadsBackTheLargestNumbers) {
  SailDefinition sail;
  sail.LuffLength = std::numeric_limits<double>::max();
  sail.LuffRound = -std::numeric_limits<double>::max();
  SailDefinition read;
  ReadSailDataText(SailDataText(sail), read, '.');
  EXPECT_EQ(read.LuffLength, 1.79769313486231e308);
  EXPECT_EQ(read.LuffRound, -1.79769313486231e308);
}

TEST(SailDataText, OfTheDefaultSailHasTheseLines) {
  EXPECT_EQ(SailDataText(SailDefinition{}), Joined(DefaultSailLines()));
}

TEST(SailDataText, PutsEveryFieldInItsPlace) {
  EXPECT_EQ(SailDataText(OddSail()), Joined(OddSailLines()));
}

TEST(SailDataText, KeepsItsLinesWhateverTheNamesHold) {
  SailDefinition sail;
  sail.SailName = "a\r\nb\tc";
  EXPECT_EQ(SailDataText(sail), WithLine(2, "abc"));
}

TEST(SailDataFile, IsWrittenInCodePage1252) {
  const TemporaryFolder folder;
  WriteSailDataFile(folder.Path("a.bv3"), OddSail());
  const std::string bytes = BytesOf(folder.Path("a.bv3"));
  EXPECT_NE(bytes.find("\r\nG\xE9nois d'\xE9t\xE9\r\n"), std::string::npos);
  EXPECT_EQ(std::count(bytes.begin(), bytes.end(), '\n'), 41);
}

TEST(SailDataFile, ComesBackAsItWas) {
  const TemporaryFolder folder;
  const std::string path = folder.Path("a.bv3");
  for (const SailDefinition& sail : {SailDefinition{}, OddSail()}) {
    WriteSailDataFile(path, sail);
    for (const char mark : {'.', ','}) {
      SailDefinition read;
      ReadSailDataFile(path, read, mark);
      EXPECT_EQ(read, sail);
    }
  }
}

TEST(SailDataFile, ComesBackByteForByte) {
  std::mt19937_64 random(11);
  std::uniform_real_distribution<double> lengths(-9e5, 9e5);
  for (int round = 0; round < 2000; ++round) {
    SailDefinition sail = OddSail();
    for (double* field : {&sail.LuffLength, &sail.LuffRake, &sail.GaffAngle, &sail.SailArea,
                          &sail.LuffShape[1], &sail.LeechShape[2], &sail.TwistAngle})
      *field = lengths(random) / (round % 2 == 0 ? 1 : 1e9);
    const std::string text = SailDataText(sail);
    ASSERT_EQ(SailDataText(ReadFrom(text, ',')), text);
  }
}

TEST(SailDataFile, CannotBeReadWhereThereIsNone) {
  const TemporaryFolder folder;
  SailDefinition sail = OddSail();
  EXPECT_THROW(ReadSailDataFile(folder.Path("none.bv3"), sail, '.'), FileError);
  EXPECT_THROW(ReadSailDataFileV4(folder.Path("none.bv4"), sail), FileError);
  EXPECT_THROW(ReadMouldFromFile(folder.Path("none.bv3"), sail), FileError);
  EXPECT_THROW(WriteSailDataFile(folder.Path("none/a.bv3"), sail), FileError);
  EXPECT_EQ(sail, OddSail());
}

// --- Reading ".bv3" ----------------------------------------------------------------------------

TEST(ReadSailData, LeavesWhatIsNotStored) {
  SailDefinition sail;
  sail.ClewPoint = {1, 2, 3};
  sail.PeakPoint = {4, 5, 6};
  sail.FootAngle = 0.5;
  ReadSailDataText(SailDataText(OddSail()), sail, '.');
  SailDefinition expected = OddSail();
  expected.ClewPoint = {1, 2, 3};
  expected.PeakPoint = {4, 5, 6};
  expected.FootAngle = 0.5;
  EXPECT_EQ(sail, expected);
}

TEST(ReadSailData, TakesACommaForThePoint) {
  EXPECT_EQ(ReadFrom(WithLine(8, "4550,5")).LuffLength, 4550.5);
  EXPECT_EQ(ReadFrom(WithLine(31, " 3,5"), '.').LuffShape[1], 3.5);
  EXPECT_EQ(ReadFrom(WithLine(31, " 3,5"), ',').LuffShape[1], 3.5);
  EXPECT_EQ(ReadFrom(WithLine(2, "Smith, John")).SailName, "Smith. John");
}

TEST(ReadSailData, GoesByPositionAlone) {
  Lines lines = DefaultSailLines();
  for (const std::size_t keyword : {7, 17, 26, 38, 41}) lines[keyword - 1] = "999";
  lines[0] = "anything";
  EXPECT_EQ(ReadFrom(Joined(lines)), SailDefinition{});
}

TEST(ReadSailData, IsShiftedByAMissingLine) {
  Lines lines = DefaultSailLines();
  lines.erase(lines.begin() + 6);  // the keyword DIMENSIONS
  const SailDefinition sail = ReadFrom(Joined(lines));
  EXPECT_EQ(sail.LuffLength, 0.05);  // the line of the luff was thrown away
  EXPECT_EQ(sail.LuffRake, 5750);
  EXPECT_EQ(sail.SailArea, 0);
  EXPECT_EQ(sail.LuffRound, 50);
  EXPECT_EQ(sail.LuffRoundPos, -100);
}

TEST(ReadSailData, TakesZeroForMissingLines) {
  Lines lines = DefaultSailLines();
  lines.resize(8);
  const SailDefinition sail = ReadFrom(Joined(lines));
  EXPECT_EQ(sail.SailName, "Newsail");
  EXPECT_EQ(sail.LuffLength, 4550);
  EXPECT_EQ(sail.LuffRake, 0);
  EXPECT_EQ(sail.GaffRound, 0);
  EXPECT_EQ(sail.LuffShape[1], 0);
  EXPECT_EQ(sail.ClothWidth, 0);
}

TEST(ReadSailData, TakesAnEmptyFile) {
  const SailDefinition sail = ReadFrom("");
  EXPECT_EQ(sail.SailName, "");
  EXPECT_EQ(sail.CutType, "");
  EXPECT_EQ(sail.LuffLength, 0);
}

TEST(ReadSailData, TakesOtherLineEndsAndControlCharacters) {
  EXPECT_EQ(ReadFrom(Joined(DefaultSailLines(), "\n")), SailDefinition{});
  EXPECT_EQ(ReadFrom(Joined(DefaultSailLines(), "\t\v\x1A\r\r\n")), SailDefinition{});
  std::string text = Joined(DefaultSailLines());
  text.resize(text.size() - 2);  // no end behind the last line
  EXPECT_EQ(ReadFrom(text), SailDefinition{});
}

TEST(ReadSailData, RoundsWholeNumbersToTheEvenNeighbour) {
  EXPECT_EQ(ReadFrom(WithLine(19, " 50.5")).LuffRoundPos, 50);
  EXPECT_EQ(ReadFrom(WithLine(21, " 51.5")).LeechRoundPos, 52);
  EXPECT_EQ(ReadFrom(WithLine(23, " 49.6")).FootRoundPos, 50);
  EXPECT_EQ(ReadFrom(WithLine(24, "-12.5")).GaffRound, -12);
  EXPECT_EQ(ReadFrom(WithLine(25, "-12.6")).GaffRoundPos, -13);
  EXPECT_EQ(ReadFrom(WithLine(39, " 889.5")).ClothWidth, 890);
  EXPECT_EQ(ReadFrom(WithLine(40, " 20.5")).SeamWidth, 20);
  EXPECT_EQ(ReadFrom(WithLine(6, " 8.9")).PanelCount, 8);
  EXPECT_EQ(ReadFrom(WithLine(6, "-8.1")).PanelCount, -9);
  EXPECT_EQ(ReadFrom(WithLine(40, " 32767.4")).SeamWidth, 32767);
}

TEST(ReadSailData, RefusesInBothLanguages) {
  try {
    ReadFrom(WithLine(39, " 40000"));
    ADD_FAILURE() << "not refused";
  } catch (const ReadError& error) {
    EXPECT_EQ(error.French, "Dépassement de capacité (ligne 39, ClothWidth)");
  }
}

TEST(ReadSailData, RefusesWhatNoFieldCanTake) {
  EXPECT_EQ(RefusalOf(WithLine(19, " 32768")), "Overflow (line 19, LuffRoundPos)");
  EXPECT_EQ(RefusalOf(WithLine(24, "-32769")), "Overflow (line 24, GaffRound)");
  EXPECT_EQ(RefusalOf(WithLine(6, " 40000")), "Overflow (line 6, PanelCount)");
  EXPECT_EQ(RefusalOf(WithLine(40, " 32767.5")), "Overflow (line 40, SeamWidth)");
  EXPECT_EQ(RefusalOf(WithLine(8, "1E999")), "Overflow (line 8, LuffLength)");
  EXPECT_EQ(RefusalOf(WithLine(16, "-1D400")), "Overflow (line 16, SailArea)");
  EXPECT_EQ(RefusalOf(WithLine(31, "1E999")), "Overflow (line 31, LuffShape)");
  EXPECT_EQ(RefusalOf(WithLine(35, "1E309")), "Overflow (line 35, LeechShape)");
}

TEST(ReadSailData, TakesAnyOtherText) {
  EXPECT_EQ(ReadFrom(WithLine(8, "nan")).LuffLength, 0);
  EXPECT_EQ(ReadFrom(WithLine(8, "inf")).LuffLength, 0);
  EXPECT_EQ(ReadFrom(WithLine(8, "-")).LuffLength, 0);
  EXPECT_EQ(ReadFrom(WithLine(8, "1D5")).LuffLength, 100000);
  EXPECT_EQ(ReadFrom(WithLine(8, " 4 5 5 0 mm")).LuffLength, 4550);
  EXPECT_EQ(ReadFrom(WithLine(8, std::string(40, '1'))).LuffLength,
            1111111111111111111111111111111111111111.0);
}

TEST(ReadSailData, TakesTheMiddleLuffShapeAsAWholeNumberText) {
  EXPECT_EQ(ReadFrom(WithLine(31, "  3.5  ")).LuffShape[1], 3.5);
  EXPECT_EQ(ReadFrom(WithLine(31, "")).LuffShape[1], 0);
  EXPECT_EQ(RefusalOf(WithLine(31, "3x")), "Type mismatch (line 31, LuffShape)");
  EXPECT_EQ(RefusalOf(WithLine(31, "nan"), ','), "Type mismatch (line 31, LuffShape)");
  EXPECT_EQ(ReadFrom(WithLine(30, "3x")).LuffShape[0], 3);
}

TEST(ReadSailData, KeepsWhatWasReadBeforeAnError) {
  SailDefinition sail;
  std::string text = SailDataText(OddSail());
  text.replace(text.find(" 42\r\n"), 3, " 1E9");  // line 21
  EXPECT_THROW(ReadSailDataText(text, sail, '.'), ReadError);
  EXPECT_EQ(sail.LeechRound, 250.5);
  EXPECT_EQ(sail.LeechRoundPos, 60);
  EXPECT_EQ(sail.FootRound, 170);
  EXPECT_EQ(sail.ClothWidth, 890);
}

// --- Reading the mould -------------------------------------------------------------------------

TEST(ReadMould, StartsOneLineEarly) {
  SailDefinition sail = OddSail();
  ReadMouldFromText(Joined(DefaultSailLines()), sail);
  SailDefinition expected = OddSail();
  expected.Depth = {0, 3, 10};
  expected.LuffShape = {5, 0, 3};
  expected.LeechShape = {6, 0, 0.06};
  expected.DepthPosition = 0.08;
  expected.TwistAngle = 4;
  EXPECT_EQ(sail, expected);
  ApplyDepthLimits(sail);
  EXPECT_EQ(sail.Depth, (std::array<double, 3>{0, 5, 5}));
}

TEST(ReadMould, ReadsAFileAndRefusesAnOverflow) {
  const TemporaryFolder folder;
  PutBytes(folder.Path("a.bv3"), WithLine(28, "1E400"));
  SailDefinition sail;
  try {
    ReadMouldFromFile(folder.Path("a.bv3"), sail);
    FAIL() << "nothing was refused";
  } catch (const ReadError& error) {
    EXPECT_STREQ(error.what(), "Overflow (line 28, Depth)");
  }
  EXPECT_EQ(sail.Depth, (std::array<double, 3>{0, 3, 5}));
  EXPECT_EQ(sail.TwistAngle, 0.21);
}

// --- Lines and names ---------------------------------------------------------------------------

TEST(ReadFileLine, DropsControlCharactersAndReplacesCommas) {
  std::string_view rest = "a\tb,c\r\n\nlast";
  FileLine line = ReadFileLine(rest);
  EXPECT_EQ(line.Text, "ab.c");
  EXPECT_FALSE(line.EndOfFile);
  line = ReadFileLine(rest);
  EXPECT_EQ(line.Text, "");
  EXPECT_FALSE(line.EndOfFile);
  line = ReadFileLine(rest);
  EXPECT_EQ(line.Text, "last");
  EXPECT_TRUE(line.EndOfFile);
  for (int each = 0; each < 3; ++each) {
    line = ReadFileLine(rest);
    EXPECT_EQ(line.Text, "");
    EXPECT_TRUE(line.EndOfFile);
  }
}

TEST(ReadFileLine, LooksNoFurtherThanTheTextGiven) {
  const std::string_view longer = "firstly";
  std::string_view rest = longer.substr(0, 5);
  const FileLine line = ReadFileLine(rest);
  EXPECT_EQ(line.Text, "first");
  EXPECT_TRUE(line.EndOfFile);
  EXPECT_EQ(rest, "");
}

TEST(ReadFileLine, CutsALineOffAt4096Characters) {
  std::string text = std::string(5000, 'x') + "\nnext";
  std::string_view rest = text;
  EXPECT_EQ(ReadFileLine(rest).Text, std::string(4096, 'x'));
  EXPECT_EQ(ReadFileLine(rest).Text, "next");
  text = std::string(4095, 'x') + "é€";
  rest = text;
  EXPECT_EQ(ReadFileLine(rest).Text, std::string(4095, 'x') + "é");
  text = std::string(4096, 'x') + "\n";
  rest = text;
  EXPECT_EQ(ReadFileLine(rest).Text.size(), 4096U);
  for (const std::size_t length : {4096U, 4097U}) {
    text = std::string(length, 'x') + "\r\nnext";
    rest = text;
    EXPECT_EQ(ReadFileLine(rest).Text, std::string(4096, 'x'));
    EXPECT_EQ(ReadFileLine(rest).Text, "next");
  }
}

TEST(SailFileKind, GoesByTheLastThreeCharacters) {
  EXPECT_EQ(SailFileKindOf("Main.bv3"), SailFileKind::Sail);
  EXPECT_EQ(SailFileKindOf("Main.BV3"), SailFileKind::Sail);
  EXPECT_EQ(SailFileKindOf("Main.bV4"), SailFileKind::OldSail);
  EXPECT_EQ(SailFileKindOf("Mainbv4"), SailFileKind::OldSail);
  for (const char* name : {"Main.bv5", "Main.bv3 ", "bv", "", "Main", "Main.\xC3\xA9"})
    EXPECT_EQ(SailFileKindOf(name), SailFileKind::Unknown) << name;
}

TEST(SailNameOfFile, DropsFourCharacters) {
  EXPECT_EQ(SailNameOfFile("Main.bv3"), "Main");
  EXPECT_EQ(SailNameOfFile("bv3"), "");
  EXPECT_EQ(SailNameOfFile(""), "");
}

TEST(Titles, AreTheOnesOfTheMessageBoxes) {
  EXPECT_EQ(kWriteSailDataTitle, " : Writing eData2");
  EXPECT_EQ(kReadSailDataV4Title, " : Reading data ");
  EXPECT_EQ(kReadSailDataTitle, " : Reading data file");
  EXPECT_EQ(kReadMouldTitle, " : Reading mould data file");
  EXPECT_EQ(kPathAccessText, "Trying to write over a Read Only File or an invalid Path");
}

}  // namespace
}  // namespace brivane
