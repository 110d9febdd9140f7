#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/stat.h>

#include <cerrno>
#include <filesystem>
#include <string>

#include "model/failures.h"
#include "model/file_checks.h"
#include "model/file_faults.h"
#include "model/text_file.h"
#include "support/temporary_folder.h"

namespace brivane {
namespace {

namespace fs = std::filesystem;
using enum FileErrorKind;

// --- Removing ----------------------------------------------------------------------------------

TEST(RemoveOldFile, RemovesAFileAndIsContentWithoutOne) {
  const TemporaryFolder folder;
  PutBytes(folder.Path("a.txt"), "old");
  RemoveOldFile(folder.Path("a.txt"));
  EXPECT_EQ(folder.Entries(), 0U);
  EXPECT_NO_THROW(RemoveOldFile(folder.Path("a.txt")));
}

TEST(RemoveOldFile, RemovesALinkAndNotItsTarget) {
  const TemporaryFolder folder;
  PutBytes(folder.Path("a.txt"), "old");
  fs::create_symlink("a.txt", folder.Path("link"));
  RemoveOldFile(folder.Path("link"));
  EXPECT_EQ(folder.Entries(), 1U);
  EXPECT_EQ(BytesOf(folder.Path("a.txt")), "old");
}

TEST(RemoveOldFile, RefusesWhatIsNotOurs) {
  const TemporaryFolder folder;
  ExpectFault([&] { RemoveOldFile(folder.Path("")); }, IsAFolder, FileStep::Opening);
  ExpectFault([] { RemoveOldFile("/dev/null"); }, NotARegularFile, FileStep::Opening);
  ExpectFault([] { RemoveOldFile(""); }, NoSuchFolder, FileStep::Opening);
  PutBytes(folder.Path("a.txt"), "old");
  ASSERT_EQ(chmod(folder.Path("a.txt").c_str(), 0444), 0);
  ExpectFault([&] { RemoveOldFile(folder.Path("a.txt")); }, ReadOnly, FileStep::Opening);
  EXPECT_EQ(BytesOf(folder.Path("a.txt")), "old");
}

TEST(RemoveOldFile, TellsWhyAFileStays) {
  const TemporaryFolder folder;
  PutBytes(folder.Path("a.txt"), "old");
  {
    const SystemFault gone(SystemCall::Unlink, ENOENT);  // somebody else was faster
    EXPECT_NO_THROW(RemoveOldFile(folder.Path("a.txt")));
  }
  const SystemFault fault(SystemCall::Unlink, EACCES);
  ExpectFault([&] { RemoveOldFile(folder.Path("a.txt")); }, NoPermission, FileStep::Opening);
}

// --- Reading -----------------------------------------------------------------------------------

class Reading : public testing::Test {
 protected:
  std::string ReadBytes(const std::string& bytes) {
    PutBytes(folder.Path("a.txt"), bytes);
    return ReadWholeFile(folder.Path("a.txt"));
  }
  TemporaryFolder folder;
};

TEST_F(Reading, TakesCodePage1252) {
  EXPECT_EQ(ReadBytes("\xE9t\xE9\r\n"), "été\r\n");
  EXPECT_EQ(ReadBytes(""), "");
  EXPECT_EQ(ReadBytes(std::string("a\0b", 3)), std::string("a\0b", 3));
}

TEST_F(Reading, TakesUtf8BehindAByteOrderMark) {
  EXPECT_EQ(ReadBytes("\xEF\xBB\xBF"
                      "été"),
            "été");
  EXPECT_EQ(ReadBytes("\xEF\xBB\xBF\xE9t\xE9"), "été");
  EXPECT_EQ(ReadBytes("\xEF\xBB\xBF"), "");
}

TEST_F(Reading, TakesAFileOfOneMebibyteAndNoMore) {
  EXPECT_EQ(ReadBytes(std::string(kLargestFile, 'x')).size(), kLargestFile);
  ExpectFault([&] { ReadBytes(std::string(kLargestFile + 1, 'x')); }, Other, FileStep::Reading);
}

// The system tells a size of 0 for files of its own, however much they hold.
TEST_F(Reading, GoesByWhatComesRatherThanByTheSizeTold) {
  EXPECT_FALSE(ReadWholeFile("/proc/self/maps").empty());
  const std::string large = "/proc/kallsyms";
  if (BytesOf(large).size() <= kLargestFile) GTEST_SKIP() << "no large file of the system's here";
  ExpectFault([&] { ReadWholeFile(large); }, Other, FileStep::Reading);
}

TEST_F(Reading, RefusesWhatIsNoRegularFile) {
  ExpectFault([&] { ReadWholeFile(folder.Path("")); }, IsAFolder, FileStep::Opening);
  ExpectFault([] { ReadWholeFile("/dev/zero"); }, NotARegularFile, FileStep::Opening);
  ASSERT_EQ(mkfifo(folder.Path("pipe").c_str(), 0666), 0);
  ExpectFault([&] { ReadWholeFile(folder.Path("pipe")); }, NotARegularFile, FileStep::Opening);
  const SocketFile socket(folder.Path("socket"));
  ExpectFault([&] { ReadWholeFile(folder.Path("socket")); }, NotARegularFile, FileStep::Opening);
}

TEST_F(Reading, TellsWhyAFileCannotBeOpened) {
  ExpectFault([&] { ReadWholeFile(folder.Path("none")); }, NoSuchFolder, FileStep::Opening);
  ExpectFault([] { ReadWholeFile(""); }, NoSuchFolder, FileStep::Opening);
  PutBytes(folder.Path("a.txt"), "x");
  const SystemFault fault(SystemCall::Open, EACCES);
  ExpectFault([&] { ReadWholeFile(folder.Path("a.txt")); }, NoPermission, FileStep::Opening);
}

TEST_F(Reading, TellsAFailingReadAndStatus) {
  PutBytes(folder.Path("a.txt"), "x");
  {
    const SystemFault fault(SystemCall::Read, EIO);
    ExpectFault([&] { ReadWholeFile(folder.Path("a.txt")); }, Other, FileStep::Reading);
  }
  const SystemFault fault(SystemCall::Status, EIO);
  ExpectFault([&] { ReadWholeFile(folder.Path("a.txt")); }, Other, FileStep::Opening);
}

TEST_F(Reading, GoesOnAfterAnInterruptedRead) {
  PutBytes(folder.Path("a.txt"), "whole");
  const SystemFault fault(SystemCall::Read, EINTR, 0, 2);
  EXPECT_EQ(ReadWholeFile(folder.Path("a.txt")), "whole");
  EXPECT_EQ(fault.Struck(), 2);
}

TEST_F(Reading, FollowsALink) {
  PutBytes(folder.Path("a.txt"), "whole");
  fs::create_symlink("a.txt", folder.Path("link"));
  EXPECT_EQ(ReadWholeFile(folder.Path("link")), "whole");
}

TEST_F(Reading, ReturnsWhatWasWritten) {
  const std::string text = "Génois €\r\n\r\n 1\r\n";
  WriteFileSafely(folder.Path("a.txt"), text);
  EXPECT_EQ(ReadWholeFile(folder.Path("a.txt")), text);
}

}  // namespace
}  // namespace brivane
