#include "model/text_file.h"

#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <filesystem>
#include <functional>
#include <optional>
#include <string>

#include "model/failures.h"
#include "model/file_checks.h"
#include "model/file_faults.h"
#include "support/file_size_limit.h"
#include "support/temporary_folder.h"

namespace brivane {
namespace {

namespace fs = std::filesystem;
using enum FileErrorKind;

mode_t ModeOf(const std::string& path) {
  struct stat status {};
  EXPECT_EQ(stat(path.c_str(), &status), 0);
  return status.st_mode & 07777;
}

/// Gives up the superuser's rights, where the tests run with them.
class OrdinaryUser {
 public:
  OrdinaryUser() {
    if (wasSuperuser_ && seteuid(kNobody) != 0) ADD_FAILURE() << "still the superuser";
  }
  ~OrdinaryUser() {
    if (wasSuperuser_ && seteuid(0) != 0) ADD_FAILURE() << "no longer the superuser";
  }
  OrdinaryUser(const OrdinaryUser&) = delete;
  OrdinaryUser& operator=(const OrdinaryUser&) = delete;

 private:
  static constexpr uid_t kNobody = 65534;
  bool wasSuperuser_ = geteuid() == 0;
};

using Writer = void (*)(const std::string&, std::string_view);

// --- Both ways of writing ----------------------------------------------------------------------

class BothWriters : public testing::TestWithParam<Writer> {
 protected:
  void Write(const std::string& path, std::string_view text) { GetParam()(path, text); }
  TemporaryFolder folder;
};

TEST_P(BothWriters, WriteCodePage1252) {
  Write(folder.Path("a.txt"), "été €\r\n帆\r\n");
  EXPECT_EQ(BytesOf(folder.Path("a.txt")), "\xE9t\xE9 \x80\r\n?\r\n");
  EXPECT_EQ(folder.Entries(), 1U);
}

TEST_P(BothWriters, ReplaceALongerFile) {
  PutBytes(folder.Path("a.txt"), std::string(5000, 'x'));
  Write(folder.Path("a.txt"), "new");
  EXPECT_EQ(BytesOf(folder.Path("a.txt")), "new");
}

TEST_P(BothWriters, WriteAnEmptyText) {
  Write(folder.Path("a.txt"), "");
  EXPECT_TRUE(fs::exists(folder.Path("a.txt")));
  EXPECT_EQ(BytesOf(folder.Path("a.txt")), "");
}

TEST_P(BothWriters, GoOnAfterInterruptedAndShortWrites) {
  const ShortWrites shortly(7);
  const SystemFault interrupted(SystemCall::Write, EINTR, 2, 3);
  const std::string text(1000, 'y');
  Write(folder.Path("a.txt"), text);
  EXPECT_EQ(BytesOf(folder.Path("a.txt")), text);
  EXPECT_EQ(interrupted.Struck(), 3);
}

TEST_P(BothWriters, GoOnAfterAnInterruptedOpenAndClose) {
  {
    const SystemFault interrupted(SystemCall::Open, EINTR, 0, 2);
    Write(folder.Path("a.txt"), "one");
    EXPECT_EQ(interrupted.Struck(), 2);
  }
  const SystemFault interrupted(SystemCall::Close, EINTR);
  Write(folder.Path("a.txt"), "two");
  EXPECT_EQ(interrupted.Struck(), 1);
  EXPECT_EQ(BytesOf(folder.Path("a.txt")), "two");
}

TEST_P(BothWriters, TakeNamesOf255Bytes) {
  const std::string path = folder.Path(std::string(251, 'n') + ".bv3");
  Write(path, "text");
  EXPECT_EQ(BytesOf(path), "text");
  ExpectFault([&] { Write(folder.Path(std::string(256, 'n')), "text"); }, NoSuchFolder,
              FileStep::Opening);
}

TEST_P(BothWriters, TakeNamesInUtf8AndWithoutFolder) {
  Write(folder.Path("Génois été 帆.bv3"), "text");
  EXPECT_EQ(BytesOf(folder.Path("Génois été 帆.bv3")), "text");
  const fs::path before = fs::current_path();
  fs::current_path(folder.Path(""));
  Write("plain.txt", "here");
  fs::current_path(before);
  EXPECT_EQ(BytesOf(folder.Path("plain.txt")), "here");
}

TEST_P(BothWriters, RefuseAFolder) {
  fs::create_directory(folder.Path("sub"));
  ExpectFault([&] { Write(folder.Path("sub"), "x"); }, IsAFolder, FileStep::Opening);
  ExpectFault([&] { Write(folder.Path(""), "x"); }, IsAFolder, FileStep::Opening);
  EXPECT_EQ(folder.Entries(), 1U);
}

TEST_P(BothWriters, RefusePathsThatLeadNowhere) {
  ExpectFault([&] { Write(folder.Path("none/a.txt"), "x"); }, NoSuchFolder, FileStep::Opening);
  ExpectFault([&] { Write("", "x"); }, NoSuchFolder, FileStep::Opening);
  ExpectFault([&] { Write(folder.Path(std::string("a\0b", 3)), "x"); }, NoSuchFolder,
              FileStep::Opening);
  PutBytes(folder.Path("file"), "old");
  ExpectFault([&] { Write(folder.Path("file/a.txt"), "x"); }, NoSuchFolder, FileStep::Opening);
  EXPECT_EQ(BytesOf(folder.Path("file")), "old");
  EXPECT_EQ(folder.Entries(), 1U);
}

TEST_P(BothWriters, RefuseAPipeWithoutWaitingAndASocket) {
  ASSERT_EQ(mkfifo(folder.Path("pipe").c_str(), 0666), 0);
  ExpectFault([&] { Write(folder.Path("pipe"), "x"); }, NotARegularFile, FileStep::Opening);
  const SocketFile socket(folder.Path("socket"));
  ExpectFault([&] { Write(folder.Path("socket"), "x"); }, NotARegularFile, FileStep::Opening);
}

TEST_P(BothWriters, RefuseAFileWithoutWritePermissionEvenForTheSuperuser) {
  const std::string path = folder.Path("a.txt");
  PutBytes(path, "old");
  ASSERT_EQ(chmod(path.c_str(), 0444), 0);
  ExpectFault([&] { Write(path, "x"); }, ReadOnly, FileStep::Opening);
  EXPECT_EQ(BytesOf(path), "old");
  EXPECT_EQ(folder.Entries(), 1U);
}

TEST_P(BothWriters, RefuseAReadOnlyFolder) {
  fs::create_directory(folder.Path("sub"));
  ASSERT_EQ(chmod(folder.Path("").c_str(), 0755), 0);
  ASSERT_EQ(chmod(folder.Path("sub").c_str(), 0555), 0);
  {
    const OrdinaryUser user;
    ExpectFault([&] { Write(folder.Path("sub/a.txt"), "x"); }, NoPermission, FileStep::Opening);
  }
  EXPECT_TRUE(fs::is_empty(folder.Path("sub")));
  ASSERT_EQ(chmod(folder.Path("sub").c_str(), 0755), 0);
}

TEST_P(BothWriters, RefuseAFileThatOnlyOthersMayWrite) {
  const std::string path = folder.Path("a.txt");
  PutBytes(path, "old");
  ASSERT_EQ(chmod(folder.Path("").c_str(), 0777), 0);
  ASSERT_EQ(chmod(path.c_str(), geteuid() == 0 ? 0644 : 0422), 0);
  {
    const OrdinaryUser user;  // may replace the file in this folder, but not write to it
    ExpectFault([&] { Write(path, "x"); }, NoPermission, FileStep::Opening);
  }
  ASSERT_EQ(chmod(path.c_str(), 0644), 0);
  EXPECT_EQ(BytesOf(path), "old");
  EXPECT_EQ(folder.Entries(), 1U);
}

TEST_P(BothWriters, TellTheCauseOfARefusedOpening) {
  const std::pair<int, FileErrorKind> causes[] = {{EACCES, NoPermission},
                                                  {EPERM, NoPermission},
                                                  {EROFS, ReadOnly},
                                                  {ENXIO, NotARegularFile},
                                                  {ENODEV, NotARegularFile},
                                                  {EISDIR, IsAFolder},
                                                  {ENAMETOOLONG, NoSuchFolder},
                                                  {ELOOP, NoSuchFolder},
                                                  {ENOSPC, Other},
                                                  {EMFILE, Other},
                                                  {EDQUOT, Other}};
  for (const auto& [code, kind] : causes) {
    const SystemFault fault(SystemCall::Open, code);
    ExpectFault([&] { Write(folder.Path("a.txt"), "x"); }, kind, FileStep::Opening);
  }
  EXPECT_EQ(folder.Entries(), 0U);
}

TEST_P(BothWriters, FollowALink) {
  fs::create_directory(folder.Path("sub"));
  PutBytes(folder.Path("sub/real.txt"), "old");
  fs::create_symlink("sub/real.txt", folder.Path("relative"));
  fs::create_symlink(folder.Path("relative"), folder.Path("absolute"));
  Write(folder.Path("absolute"), "new");
  EXPECT_TRUE(fs::is_symlink(folder.Path("absolute")));
  EXPECT_TRUE(fs::is_symlink(folder.Path("relative")));
  EXPECT_EQ(BytesOf(folder.Path("sub/real.txt")), "new");
  fs::create_symlink("fresh.txt", folder.Path("dangling"));
  Write(folder.Path("dangling"), "made");
  EXPECT_TRUE(fs::is_symlink(folder.Path("dangling")));
  EXPECT_EQ(BytesOf(folder.Path("fresh.txt")), "made");
}

TEST_P(BothWriters, RefuseLinksInACircle) {
  fs::create_symlink("b", folder.Path("a"));
  fs::create_symlink("a", folder.Path("b"));
  ExpectFault([&] { Write(folder.Path("a"), "x"); }, NoSuchFolder, FileStep::Opening);
  EXPECT_EQ(folder.Entries(), 2U);
}

TEST_P(BothWriters, MakeNewFilesWithTheModeOfTheProcess) {
  const mode_t before = umask(027);
  Write(folder.Path("a.txt"), "x");
  umask(before);
  EXPECT_EQ(ModeOf(folder.Path("a.txt")), 0640U);
}

TEST_P(BothWriters, KeepTheModeOfAnOldFile) {
  PutBytes(folder.Path("a.txt"), "old");
  for (const mode_t mode : {0600U, 0664U, 0777U}) {
    ASSERT_EQ(chmod(folder.Path("a.txt").c_str(), mode), 0);
    Write(folder.Path("a.txt"), "new");
    EXPECT_EQ(ModeOf(folder.Path("a.txt")), mode);
  }
}

TEST_P(BothWriters, KeepTheOwnerOfAnOldFile) {
  if (geteuid() != 0) GTEST_SKIP() << "only the superuser can give a file away";
  const std::string path = folder.Path("a.txt");
  PutBytes(path, "old");
  for (const auto& [owner, group] :
       {std::pair(1234U, 2345U), std::pair(0U, 2345U), std::pair(1234U, 0U)}) {
    ASSERT_EQ(chown(path.c_str(), owner, group), 0);
    Write(path, "new");
    struct stat status {};
    ASSERT_EQ(stat(path.c_str(), &status), 0);
    EXPECT_EQ(status.st_uid, owner);
    EXPECT_EQ(status.st_gid, group);
  }
}

INSTANTIATE_TEST_SUITE_P(TextFile, BothWriters, testing::Values(&WritePlainFile, &WriteFileSafely),
                         [](const auto& suite) { return suite.index == 0 ? "Plain" : "Safe"; });

// --- Plain writing -----------------------------------------------------------------------------

TEST(WritePlainFile, LeavesAndTellsWhatHadBeenWritten) {
  const TemporaryFolder folder;
  const ShortWrites shortly(4);
  const SystemFault fault(SystemCall::Write, ENOSPC, 2);
  ExpectFault([&] { WritePlainFile(folder.Path("a.txt"), "éé34567890"); }, Other, FileStep::Writing,
              8);
  EXPECT_EQ(BytesOf(folder.Path("a.txt")),
            "\xE9\xE9"
            "345678");
}

TEST(WritePlainFile, TellsAWriteThatGoesNowhere) {
  const TemporaryFolder folder;
  const ShortWrites never(0);
  ExpectFault([&] { WritePlainFile(folder.Path("a.txt"), "x"); }, Other, FileStep::Writing);
}

TEST(WritePlainFile, TellsAFailingClose) {
  const TemporaryFolder folder;
  const SystemFault fault(SystemCall::Close, EIO);
  ExpectFault([&] { WritePlainFile(folder.Path("a.txt"), "12345"); }, Other, FileStep::Closing, 5);
}

TEST(WritePlainFile, TellsADeviceThatCannotBeSetUp) {
  for (const int skipped : {0, 1}) {
    const SystemFault fault(SystemCall::Control, EBADF, skipped);
    ExpectFault([] { WritePlainFile("/dev/null", "x"); }, Other, FileStep::Opening);
  }
}

TEST(WritePlainFile, TellsAFullDisk) {
  ExpectFault([] { WritePlainFile("/dev/full", "x"); }, Other, FileStep::Writing);
  const TemporaryFolder folder;
  std::optional<FileSizeLimit> limit(std::in_place, 100);
  const auto fault = FaultOf([&] { WritePlainFile(folder.Path("a"), std::string(300, 'x')); });
  limit.reset();
  ASSERT_TRUE(fault.has_value());
  EXPECT_EQ(fault->BytesWritten, 100U);
  EXPECT_EQ(BytesOf(folder.Path("a")), std::string(100, 'x'));
}

TEST(WritePlainFile, AsksAgainForALockThatAnotherProgramHolds) {
  const TemporaryFolder folder;
  for (const int error : {EACCES, EAGAIN, EINTR}) {
    const SystemFault fault(SystemCall::Control, error, 0, 2);
    WritePlainFile(folder.Path("a.txt"), "x");
    EXPECT_EQ(fault.Struck(), 2) << error;
  }
}

TEST(WritePlainFile, GivesUpOnALockThatIsNeverFree) {
  const TemporaryFolder folder;
  const SystemFault fault(SystemCall::Control, EAGAIN, 0, 1000);
  ExpectFault([&] { WritePlainFile(folder.Path("a.txt"), "x"); }, Other, FileStep::Opening);
}

TEST(WritePlainFile, WritesAtOnceWhereTheFileSystemHasNoLocks) {
  const TemporaryFolder folder;
  for (const int error : {ENOLCK, EINVAL, EOPNOTSUPP}) {
    const SystemFault fault(SystemCall::Control, error, 0, 1000);
    WritePlainFile(folder.Path("a.txt"), "x");
    EXPECT_EQ(fault.Struck(), 1) << error;
  }
  EXPECT_EQ(BytesOf(folder.Path("a.txt")), "x");
}

TEST(WritePlainFile, WritesToADevice) { EXPECT_NO_THROW(WritePlainFile("/dev/null", "x")); }

// --- Safe writing ------------------------------------------------------------------------------

class SafeWriting : public testing::Test {
 protected:
  SafeWriting() { PutBytes(path, "the old sail"); }

  /// The fault must leave the old file as it was and nothing else.
  void ExpectOldFileWhole(FileErrorKind kind, FileStep step, std::size_t bytes = 0) {
    ExpectFault([&] { WriteFileSafely(path, "a new sail"); }, kind, step, bytes);
    EXPECT_EQ(BytesOf(path), "the old sail");
    EXPECT_EQ(folder.Entries(), 1U);
  }

  TemporaryFolder folder;
  std::string path = folder.Path("sail.bv3");
};

TEST_F(SafeWriting, SurvivesAFailingWrite) {
  const ShortWrites shortly(4);
  const SystemFault fault(SystemCall::Write, ENOSPC, 1);
  ExpectOldFileWhole(Other, FileStep::Writing, 4);
}

TEST_F(SafeWriting, SurvivesAFullDisk) {
  const FileSizeLimit limit(3);
  ExpectOldFileWhole(Other, FileStep::Writing, 3);
}

TEST_F(SafeWriting, SurvivesAFailingFlush) {
  const SystemFault fault(SystemCall::Flush, EIO);
  ExpectOldFileWhole(Other, FileStep::Closing, 10);
}

TEST_F(SafeWriting, SurvivesAFailingClose) {
  const SystemFault fault(SystemCall::Close, EDQUOT);
  ExpectOldFileWhole(Other, FileStep::Closing, 10);
}

TEST_F(SafeWriting, SurvivesAFailingRename) {
  const SystemFault fault(SystemCall::Rename, EROFS);
  ExpectOldFileWhole(ReadOnly, FileStep::Closing);
}

TEST_F(SafeWriting, SurvivesAModeThatCannotBeKept) {
  ASSERT_EQ(chmod(path.c_str(), 0600), 0);
  const SystemFault fault(SystemCall::ChangeMode, EPERM);
  ExpectOldFileWhole(NoPermission, FileStep::Opening);
}

TEST_F(SafeWriting, SurvivesAStatusThatCannotBeRead) {
  for (const int skipped : {0, 1}) {
    const SystemFault fault(SystemCall::Status, EIO, skipped);
    ExpectOldFileWhole(Other, FileStep::Opening);
  }
}

TEST_F(SafeWriting, RefusesAFileThatTheUserMayNotWrite) {
  const SystemFault fault(SystemCall::Access, EACCES);
  ExpectOldFileWhole(NoPermission, FileStep::Opening);
}

TEST_F(SafeWriting, GoesOnAfterAnInterruptedFlush) {
  const SystemFault fault(SystemCall::Flush, EINTR, 0, 3);
  WriteFileSafely(path, "a new sail");
  EXPECT_EQ(fault.Struck(), 3);
  EXPECT_EQ(BytesOf(path), "a new sail");
}

TEST_F(SafeWriting, TellsAFolderThatCannotBeFlushed) {
  const SystemFault fault(SystemCall::Flush, EIO, 1);
  ExpectFault([&] { WriteFileSafely(path, "a new sail"); }, Other, FileStep::Closing);
  EXPECT_EQ(BytesOf(path), "a new sail");
  EXPECT_EQ(folder.Entries(), 1U);
}

TEST_F(SafeWriting, IsContentWhereAFolderCanNotBeFlushedAtAll) {
  {
    const SystemFault fault(SystemCall::Flush, EINVAL, 1);
    WriteFileSafely(path, "a new sail");
    EXPECT_EQ(fault.Struck(), 1);
  }
  const SystemFault fault(SystemCall::Open, EACCES, 1);
  WriteFileSafely(path, "another");
  EXPECT_EQ(fault.Struck(), 1);
  EXPECT_EQ(BytesOf(path), "another");
}

TEST_F(SafeWriting, IsContentWhereTheOwnerCannotBeKept) {
  if (geteuid() != 0) GTEST_SKIP() << "only the superuser can give a file away";
  ASSERT_EQ(chown(path.c_str(), 1234, 2345), 0);
  const SystemFault fault(SystemCall::ChangeOwner, EPERM);
  WriteFileSafely(path, "a new sail");
  EXPECT_EQ(fault.Struck(), 1);
  EXPECT_EQ(BytesOf(path), "a new sail");
}

TEST_F(SafeWriting, PassesLeftoversOfItsOwnName) {
  const std::string stem = folder.Path(".brivane-" + std::to_string(getpid()) + "-");
  PutBytes(stem + "0.tmp", "left over");
  PutBytes(stem + "1.tmp", "left over");
  WriteFileSafely(path, "a new sail");
  EXPECT_EQ(BytesOf(path), "a new sail");
  EXPECT_EQ(BytesOf(stem + "0.tmp"), "left over");
  EXPECT_EQ(folder.Entries(), 3U);
}

TEST_F(SafeWriting, GivesUpWhereEveryNameIsTaken) {
  const SystemFault fault(SystemCall::Open, EEXIST, 0, 1000);
  ExpectOldFileWhole(Other, FileStep::Opening);
}

TEST_F(SafeWriting, RefusesADevice) {
  ExpectFault([] { WriteFileSafely("/dev/full", "x"); }, NotARegularFile, FileStep::Opening);
  ExpectFault([] { WriteFileSafely("/dev/null", "x"); }, NotARegularFile, FileStep::Opening);
}

TEST_F(SafeWriting, LeavesOtherHardLinksAlone) {
  fs::create_hard_link(path, folder.Path("copy.bv3"));
  WriteFileSafely(path, "a new sail");
  EXPECT_EQ(BytesOf(path), "a new sail");
  EXPECT_EQ(BytesOf(folder.Path("copy.bv3")), "the old sail");
}

}  // namespace
}  // namespace brivane
