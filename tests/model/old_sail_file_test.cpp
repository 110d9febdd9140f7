#include <gtest/gtest.h>

#include <string>

#include "model/failures.h"
#include "model/file_lines.h"
#include "model/sail_file.h"
#include "support/temporary_folder.h"

// The older file generation, ".bv4".

namespace brivane {
namespace {

Lines OldLines(const std::string& year) {
  Lines lines = {"Brivane VERSION_ 1 May " + year + "  ",
                 "Old, sail",
                 "CROSSCUT",
                 "mould",
                 "5000.9",
                 "6000.9",
                 "3000.9",
                 "2000.9",
                 ".75",
                 "7000.9",
                 "-.0625",
                 "17.25",
                 "-10.5",
                 "41.5",
                 "250.5",
                 "42.5",
                 "17.5",
                 "43.5",
                 "-13.5",
                 "44.5",
                 "11.5",
                 "3.5",
                 ".0625",
                 "5",
                 ".3125",
                 "1370.9",
                 "15.9",
                 "12.9"};
  if (year < "1999") {
    lines.erase(lines.begin() + 19);  // the position of the gaff round
    lines.erase(lines.begin() + 17);  // the position of the foot round
  }
  return lines;
}

SailDefinition OldSail() {
  SailDefinition sail;
  sail.SailName = "Old. sail";
  sail.CutType = kCrossCut;
  sail.MouldLabel = "mould";
  sail.LuffLength = 5000;
  sail.LuffRake = 0;
  sail.DiagonalLength = 6000;
  sail.FootLength = 3000;
  sail.GaffLength = 2000;
  sail.GaffAngle = 0.75;
  sail.LeechLength = 7000;
  sail.LeechAngle = -0.0625;
  sail.SailArea = 17.25;
  sail.LuffRound = -10.5;
  sail.LuffRoundPos = 42;
  sail.LeechRound = 250.5;
  sail.LeechRoundPos = 42;
  sail.FootRound = 17.5;
  sail.FootRoundPos = 44;
  sail.GaffRound = -14;
  sail.GaffRoundPos = 44;
  sail.Depth = {0, 11.5, 0.9 * 11.5};
  sail.LuffShape = {0, 3.5, 3.5};
  sail.LeechShape = {0, 0.0625, 0.0625};
  sail.DepthPosition = 5;
  sail.TwistAngle = 0.3125;
  sail.ClothWidth = 1370;
  sail.SeamWidth = 15;
  sail.PanelCount = 12;
  return sail;
}

TEST(ReadOldSailData, Takes28LinesFrom1999On) {
  for (const char* year : {"1999", "2000"}) {
    const Lines lines = OldLines(year);
    ASSERT_EQ(lines.size(), 28U);
    SailDefinition sail;
    ReadSailDataTextV4(Joined(lines), sail);
    EXPECT_EQ(sail, OldSail()) << year;
  }
}

TEST(ReadOldSailData, Takes26LinesBefore) {
  const Lines lines = OldLines("1998");
  ASSERT_EQ(lines.size(), 26U);
  SailDefinition sail;
  sail.FootRoundPos = sail.GaffRoundPos = 7;
  ReadSailDataTextV4(Joined(lines), sail);
  SailDefinition expected = OldSail();
  expected.FootRoundPos = expected.GaffRoundPos = 50;
  EXPECT_EQ(sail, expected);
}

TEST(ReadOldSailData, TakesAHeaderWithoutAYearForAnOldOne) {
  for (const char* header : {"", "   ", "98", "no year"}) {
    Lines lines = OldLines("1998");
    lines[0] = header;
    SailDefinition sail;
    ReadSailDataTextV4(Joined(lines), sail);
    EXPECT_EQ(sail.GaffRoundPos, 50) << header;
    EXPECT_EQ(sail.SeamWidth, 15) << header;
  }
}

TEST(ReadOldSailData, RefusesWhatNoFieldCanTake) {
  Lines lines = OldLines("1999");
  lines[25] = "32768";
  SailDefinition sail;
  try {
    ReadSailDataTextV4(Joined(lines), sail);
    FAIL() << "nothing was refused";
  } catch (const ReadError& error) {
    EXPECT_STREQ(error.what(), "Overflow (line 26, ClothWidth)");
  }
  EXPECT_EQ(sail.TwistAngle, 0.3125);
  EXPECT_EQ(sail.LuffRake, 0.05);  // the record is completed at the end alone
  EXPECT_EQ(sail.SeamWidth, 20);
}

TEST(ReadOldSailData, ReadsAFile) {
  const TemporaryFolder folder;
  PutBytes(folder.Path("a.bv4"), Joined(OldLines("1999")));
  SailDefinition sail;
  ReadSailDataFileV4(folder.Path("a.bv4"), sail);
  EXPECT_EQ(sail, OldSail());
}

}  // namespace
}  // namespace brivane
