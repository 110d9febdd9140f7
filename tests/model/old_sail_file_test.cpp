#include <gtest/gtest.h>

#include <string>

#include "model/failures.h"
#include "model/file_lines.h"
#include "model/sail_file.h"
#include "support/sample_sail_files.h"
#include "support/temporary_folder.h"

// The older file generation, ".bv4".

namespace brivane {
namespace {

/// What OldSailLines hold.
SailDefinition OldSail() {
  SailDefinition sail = OddSail();
  sail.SailName = "Old. sail";
  sail.CutType = kCrossCut;
  sail.CutLabel = SailDefinition().CutLabel;  // not stored
  sail.LuffLength = 5000;
  sail.LuffRake = 0;
  sail.DiagonalLength = 6000;
  sail.FootLength = 3000;
  sail.GaffLength = 2000;
  sail.LeechLength = 7000;
  sail.LuffRoundPos = 42;
  sail.FootRoundPos = 44;
  sail.GaffRound = -14;
  sail.Depth = {0, 11.5, 0.9 * 11.5};
  sail.LuffShape = {0, 3.5, 3.5};
  sail.LeechShape = {0, 0.0625, 0.0625};
  return sail;
}

TEST(ReadOldSailData, Takes28LinesFrom1999On) {
  for (const char* year : {"1999", "2000"}) {
    const Lines lines = OldSailLines(year);
    ASSERT_EQ(lines.size(), 28U);
    SailDefinition sail;
    ReadSailDataTextV4(Joined(lines), sail);
    EXPECT_EQ(sail, OldSail()) << year;
  }
}

TEST(ReadOldSailData, Takes26LinesBefore) {
  const Lines lines = OldSailLines("1998");
  ASSERT_EQ(lines.size(), 26U);
  SailDefinition sail;
  sail.FootRoundPos = sail.GaffRoundPos = 7;
  ReadSailDataTextV4(Joined(lines), sail);
  SailDefinition expected = OldSail();
  expected.FootRoundPos = expected.GaffRoundPos = 50;
  EXPECT_EQ(sail, expected);
}

TEST(ReadOldSailData, TakesTheYearFromTheLastFourCharacters) {
  for (const char* header : {"2000", "10/05/1999", "10-05-2000", "May, 2000  "}) {
    Lines lines = OldSailLines("2000");
    lines[0] = header;
    SailDefinition sail;
    ReadSailDataTextV4(Joined(lines), sail);
    EXPECT_EQ(sail, OldSail()) << header;
  }
}

TEST(ReadOldSailData, TakesAHeaderWithoutAYearForAnOldOne) {
  for (const char* header : {"", "   ", "98", "no year"}) {
    Lines lines = OldSailLines("1998");
    lines[0] = header;
    SailDefinition sail;
    ReadSailDataTextV4(Joined(lines), sail);
    EXPECT_EQ(sail.GaffRoundPos, 50) << header;
    EXPECT_EQ(sail.SeamWidth, 15) << header;
  }
}

TEST(ReadOldSailData, RefusesWhatNoFieldCanTake) {
  Lines lines = OldSailLines("1999");
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
  PutBytes(folder.Path("a.bv4"), Joined(OldSailLines("1999")));
  SailDefinition sail;
  ReadSailDataFileV4(folder.Path("a.bv4"), sail);
  EXPECT_EQ(sail, OldSail());
}

}  // namespace
}  // namespace brivane
