#include <fcntl.h>
#include <gtest/gtest.h>
#include <linux/fs.h>
#include <sys/ioctl.h>
#include <sys/mount.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <sys/statvfs.h>
#include <unistd.h>

#include <cerrno>
#include <csignal>
#include <filesystem>

#include "faults/findings.h"
#include "faults/savers.h"
#include "model/failures.h"
#include "model/system_words.h"
#include "support/temporary_folder.h"

// Saving to disks and under names that do not take a file, each in a process of its own.

namespace brivane {
namespace {

namespace fs = std::filesystem;

constexpr unsigned kHang = 20;  ///< seconds after which a saving counts as hung
constexpr uid_t kNobody = 65534;

std::string SystemWords(int error) { return std::string(SystemErrorWords(error).English); }

/// A sail whose data file takes two pages of a disk.
Sail LongSail() {
  Sail sail = FewPanels();
  sail.Definition.MouldLabel = std::string(6000, 'm');
  return sail;
}

/// How a saving is to end: saved, a message with these words, or either.
struct Expected {
  enum class End { Saved, Failed, Either } Ends;
  std::string Words;
};
const Expected kSaved = {Expected::End::Saved, ""};
const Expected kEither = {Expected::End::Either, ""};
const Expected kRefused = {Expected::End::Failed, std::string(kPathAccessText)};
const Expected kDiskFull = {Expected::End::Failed, SystemWords(ENOSPC)};

/// Saves into the folder and checks the outcome and what is left.
void SaveAndCheck(Findings& findings, const Saver& saver, const Sail& sail,
                  const FolderContents& clean, bool hadOldFiles, const std::string& folder,
                  const Expected& expected) {
  alarm(kHang);
  const SaveOutcome outcome = saver.Save(sail, folder);
  alarm(0);
  const std::string words = saver.Name + ": " + OutcomeWords(outcome);
  const Judgement judgement = Judge(saver, clean, hadOldFiles, folder, outcome);
  findings.Expect(judgement.Lost.empty(), words + ": a file is lost");
  findings.Expect(judgement.FalseSuccesses.empty(), words + ": a false success");
  findings.Expect(judgement.IsTold, words + ": a failure that is not told");
  if (saver.Safe) findings.Expect(judgement.LeftBehind.empty(), words + ": a temporary is left");
  if (expected.Ends == Expected::End::Saved) findings.Expect(outcome.Saved(), words);
  if (expected.Ends != Expected::End::Failed) return;
  findings.Expect(!outcome.Saved(), words + ": should have failed");
  findings.Expect(words.find(expected.Words) != std::string::npos, words + ": the wrong words");
}

/// Everything that a saving left stands as it stood before.
void ExpectUntouched(Findings& findings, const std::string& folder, const FolderContents& before) {
  findings.Expect(ContentsOf(folder) == before, folder + " has changed");
}

class DiskFaults : public testing::TestWithParam<std::size_t> {
 protected:
  Sail sail = LongSail();
  Saver saver = AllSavers(sail).at(GetParam());
  FolderContents clean = CleanSaving(saver, sail);
  TemporaryFolder folder;
  std::string place = folder.Path("");
};

// --- Disks -------------------------------------------------------------------------------------

std::size_t FreeBytes(const std::string& folder) {
  struct statvfs status {};
  if (statvfs(folder.c_str(), &status) != 0) return 0;
  return static_cast<std::size_t>(status.f_bavail) * status.f_bsize;
}

/// Fills the disk until only so many bytes are free.
bool LeaveFree(const std::string& folder, std::size_t bytes) {
  const std::size_t isFree = FreeBytes(folder);
  if (isFree < bytes) return false;
  PutBytes(folder + "/filler", std::string(isFree - bytes, 'f'));
  return FreeBytes(folder) == bytes;
}

class FullDisks : public DiskFaults {
 protected:
  void Fill(std::size_t bytesFree, bool hasOldFiles, const Expected& sailData) {
    Report(RunWithOwnMounts([&](Findings& findings) {
      if (!MountMemory(findings, place, "size=256k")) return;
      if (hasOldFiles) PutOldFiles(saver, place);
      findings.Expect(LeaveFree(place, bytesFree), "the disk cannot be filled as it should");
      clean["filler"];
      SaveAndCheck(findings, saver, sail, clean, hasOldFiles, place,
                   saver.Safe ? sailData : kEither);
    }));
  }
};

TEST_P(FullDisks, NothingFreeAndAnOldFile) { Fill(0, true, kDiskFull); }
TEST_P(FullDisks, NothingFreeAndANewFile) { Fill(0, false, kDiskFull); }
TEST_P(FullDisks, FourKibibytesAndAnOldFile) { Fill(4096, true, kDiskFull); }
TEST_P(FullDisks, FourKibibytesAndANewFile) { Fill(4096, false, kDiskFull); }
TEST_P(FullDisks, TwelveKibibytesAndAnOldFile) { Fill(12288, true, kSaved); }
TEST_P(FullDisks, TwelveKibibytesAndANewFile) { Fill(12288, false, kSaved); }

TEST_P(DiskFaults, NoInodesForANewFile) {
  Report(RunWithOwnMounts([&](Findings& findings) {
    if (!MountMemory(findings, place, "size=1m,nr_inodes=4")) return;
    for (const char* name : {"one", "two", "three", "four"}) {
      PutBytes(place + name, "");
      clean[name];
    }
    SaveAndCheck(findings, saver, sail, clean, false, place, kDiskFull);
  }));
}

TEST_P(DiskFaults, NoInodesBesideAnOldFile) {
  Report(RunWithOwnMounts([&](Findings& findings) {
    const std::string options = "size=4m,nr_inodes=" + std::to_string(saver.Files.size() + 1);
    if (!MountMemory(findings, place, options)) return;
    PutOldFiles(saver, place);
    SaveAndCheck(findings, saver, sail, clean, true, place, saver.Safe ? kDiskFull : kSaved);
  }));
}

TEST_P(DiskFaults, ReadOnlyDisk) {
  Report(RunWithOwnMounts([&](Findings& findings) {
    if (!MountMemory(findings, place, "size=1m")) return;
    PutOldFiles(saver, place);
    const FolderContents before = ContentsOf(place);
    if (mount("brivane", place.c_str(), "tmpfs", MS_REMOUNT | MS_RDONLY, nullptr) != 0) {
      findings.Skipped = "the disk cannot be made read-only";
      return;
    }
    SaveAndCheck(findings, saver, sail, clean, true, place, kRefused);
    ExpectUntouched(findings, place, before);
  }));
}

TEST_P(DiskFaults, ReadOnlyDiskWithoutAnOldFile) {
  Report(RunWithOwnMounts([&](Findings& findings) {
    if (!MountMemory(findings, place, "size=1m,ro")) return;
    SaveAndCheck(findings, saver, sail, clean, false, place, kRefused);
  }));
}

// --- Files that may not be changed -------------------------------------------------------------

/// Sets or clears an attribute of each file. Whether the file system has it.
bool ChangeAttribute(const Saver& saver, const std::string& folder, int attribute, bool isSet) {
  for (const std::string& file : saver.Files) {
    const int descriptor = open((folder + '/' + file).c_str(), O_RDONLY | O_CLOEXEC);
    int flags = 0;
    bool isDone = ioctl(descriptor, FS_IOC_GETFLAGS, &flags) == 0;
    flags = isSet ? flags | attribute : flags & ~attribute;
    isDone = isDone && ioctl(descriptor, FS_IOC_SETFLAGS, &flags) == 0;
    close(descriptor);
    if (!isDone) return false;
  }
  return true;
}

class Attributes : public DiskFaults {
 protected:
  void SaveWithAttribute(int attribute) {
    Report(RunApart([&](Findings& findings) {
      PutOldFiles(saver, place);
      if (ChangeAttribute(saver, place, attribute, true)) {
        SaveAndCheck(findings, saver, sail, clean, true, place, kRefused);
      } else {
        findings.Skipped = "no such attribute here: " + SystemWords(errno);
      }
      ChangeAttribute(saver, place, attribute, false);
    }));
  }
};

TEST_P(Attributes, ImmutableFile) { SaveWithAttribute(FS_IMMUTABLE_FL); }
TEST_P(Attributes, FileThatOnlyGrows) { SaveWithAttribute(FS_APPEND_FL); }

TEST_P(DiskFaults, ReadOnlyFile) {
  Report(RunApart([&](Findings& findings) {
    PutOldFiles(saver, place);
    for (const std::string& file : saver.Files) chmod((place + file).c_str(), 0444);
    const FolderContents before = ContentsOf(place);
    SaveAndCheck(findings, saver, sail, clean, true, place, kRefused);
    ExpectUntouched(findings, place, before);
  }));
}

TEST_P(DiskFaults, NoPermission) {
  const bool isRoot = geteuid() == 0;
  for (const bool hasOldFiles : {false, true})
    Report(RunApart([&](Findings& findings) {
      if (!isRoot && hasOldFiles) {
        findings.Skipped = "not the superuser, so every old file is the user's own";
        return;
      }
      if (hasOldFiles) PutOldFiles(saver, place);
      chmod(place.c_str(), isRoot ? 0755 : 0555);
      const FolderContents before = ContentsOf(place);
      if (isRoot && (setegid(kNobody) != 0 || seteuid(kNobody) != 0)) {
        findings.Skipped = "cannot become another user";
        return;
      }
      SaveAndCheck(findings, saver, sail, clean, hasOldFiles, place, kRefused);
      ExpectUntouched(findings, place, before);
      if (!isRoot) chmod(place.c_str(), 0755);
    }));
}

// --- What is no file ---------------------------------------------------------------------------

TEST_P(DiskFaults, FolderInThePlace) {
  Report(RunApart([&](Findings& findings) {
    fs::create_directory(place + saver.Files[0]);
    alarm(kHang);
    const SaveOutcome outcome = saver.Save(sail, place);
    findings.Expect(!outcome.Saved(), "saved in the place of a folder");
    findings.Expect(OutcomeWords(outcome).find(kPathAccessText) != std::string::npos,
                    OutcomeWords(outcome));
    findings.Expect(fs::is_directory(place + saver.Files[0]), "the folder is gone");
    findings.Expect(folder.Entries() == 1, "something was left behind");
  }));
}

TEST_P(DiskFaults, MissingFolder) {
  Report(RunApart([&](Findings& findings) {
    const SaveOutcome outcome = saver.Save(sail, place + "none");
    findings.Expect(!outcome.Saved(), "saved into a missing folder");
    findings.Expect(OutcomeWords(outcome).find(kPathAccessText) != std::string::npos,
                    OutcomeWords(outcome));
    findings.Expect(folder.Entries() == 0, "something was left behind");
  }));
}

TEST_P(DiskFaults, PipeInThePlace) {
  Report(RunApart([&](Findings& findings) {
    for (const std::string& file : saver.Files) mkfifo((place + file).c_str(), 0666);
    alarm(kHang);
    const SaveOutcome outcome = saver.Save(sail, place);
    findings.Expect(!outcome.Saved(), "saved to a pipe");
    findings.Expect(OutcomeWords(outcome).find(kPathAccessText) != std::string::npos,
                    OutcomeWords(outcome));
    findings.Expect(fs::is_fifo(place + saver.Files[0]), "the pipe is gone");
    findings.Expect(folder.Entries() == saver.Files.size(), "something was left behind");
  }));
}

TEST_P(DiskFaults, DeviceInThePlace) {
  Report(RunApart([&](Findings& findings) {
    for (const std::string& file : saver.Files) fs::create_symlink("/dev/full", place + file);
    alarm(kHang);
    const SaveOutcome outcome = saver.Save(sail, place);
    // An export is written to a device, which is full; the others refuse it.
    const bool isWritten = !saver.Safe && saver.Name != "PatchPlotter";
    const std::string words = isWritten ? SystemWords(ENOSPC) : std::string(kPathAccessText);
    findings.Expect(!outcome.Saved(), "saved to a full device");
    findings.Expect(OutcomeWords(outcome).find(words) != std::string::npos, OutcomeWords(outcome));
    findings.Expect(fs::is_character_file("/dev/full"), "the device is gone");
    findings.Expect(folder.Entries() == saver.Files.size(), "something was left behind");
  }));
}

TEST_P(DiskFaults, LinksInACircle) {
  Report(RunApart([&](Findings& findings) {
    for (const std::string& file : saver.Files) fs::create_symlink(file, place + file);
    const SaveOutcome outcome = saver.Save(sail, place);
    findings.Expect(!outcome.Saved(), "saved to a link to itself");
    findings.Expect(OutcomeWords(outcome).find(kPathAccessText) != std::string::npos,
                    OutcomeWords(outcome));
    findings.Expect(folder.Entries() == saver.Files.size(), "something was left behind");
  }));
}

// --- Limits of the system ----------------------------------------------------------------------

TEST_P(DiskFaults, FileSizeLimit) {
  for (const rlim_t limit : {rlim_t{0}, rlim_t{1}, rlim_t{100}, rlim_t{1000}})
    Report(RunApart([&](Findings& findings) {
      PutOldFiles(saver, place);
      std::signal(SIGXFSZ, SIG_IGN);
      const rlimit limits = {limit, RLIM_INFINITY};
      findings.Expect(setrlimit(RLIMIT_FSIZE, &limits) == 0, "no limit can be set");
      SaveAndCheck(findings, saver, sail, clean, true, place,
                   {Expected::End::Failed, SystemWords(EFBIG)});
    }));
}

TEST_P(DiskFaults, NoMoreFilesMayBeOpen) {
  Report(RunApart([&](Findings& findings) {
    PutOldFiles(saver, place);
    const FolderContents before = ContentsOf(place);
    const int lowestFree = dup(0);
    close(lowestFree);
    rlimit old{};
    getrlimit(RLIMIT_NOFILE, &old);
    const rlimit lower = {static_cast<rlim_t>(lowestFree), old.rlim_max};
    // Failures to warm up on: what the sanitizers check for the first time takes a pipe of theirs.
    saver.Save(sail, place + "/missing");
    const FileError other(FileErrorKind::Other, FileStep::Opening, BilingualText{});
    const std::exception& checked = other;
    findings.Expect(checked.what() != nullptr, "no words");
    findings.Expect(setrlimit(RLIMIT_NOFILE, &lower) == 0, "no limit can be set");
    const SaveOutcome outcome = saver.Save(sail, place);
    setrlimit(RLIMIT_NOFILE, &old);
    const bool isTold = OutcomeWords(outcome).find(SystemWords(EMFILE)) != std::string::npos;
    findings.Expect(!outcome.Saved() && isTold, OutcomeWords(outcome));
    // The plotter file of the patches is deleted first.
    if (saver.Name != "PatchPlotter") ExpectUntouched(findings, place, before);
  }));
}

std::string SaverName(const testing::TestParamInfo<std::size_t>& suite) {
  return AllSavers(FewPanels())[suite.param].Name;
}
const auto kEverySaver = testing::Range(std::size_t{0}, std::size_t{8});
INSTANTIATE_TEST_SUITE_P(Savers, DiskFaults, kEverySaver, SaverName);
INSTANTIATE_TEST_SUITE_P(Savers, FullDisks, kEverySaver, SaverName);
INSTANTIATE_TEST_SUITE_P(Savers, Attributes, kEverySaver, SaverName);

// --- Long names --------------------------------------------------------------------------------

TEST(LongNames, Of255BytesAreSavedAndOf256Refused) {
  const Sail sail = FewPanels();
  for (const SaveKind kind : {SaveKind::SailData, SaveKind::PanelsXY, SaveKind::Plotter,
                              SaveKind::Vrml1, SaveKind::PanelsDxf, SaveKind::Vrml2}) {
    const TemporaryFolder folder;
    const std::string shortest = FilesToWrite(kind, sail, "n").front();
    for (const std::size_t length : {std::size_t{255}, std::size_t{256}}) {
      Sail saved = sail;
      const std::string path = folder.Path(std::string(length - shortest.size() + 1, 'n'));
      const std::vector<std::string> files = FilesToWrite(kind, sail, path);
      ASSERT_EQ(FileTitle(files.front()).size(), length);
      const SaveOutcome outcome = SaveSail(kind, saved, path, Language::English, '.');
      EXPECT_EQ(outcome.Saved(), length == 255) << OutcomeWords(outcome);
      EXPECT_EQ(folder.Entries(), files.size());
      if (!outcome.Saved()) {
        EXPECT_EQ(outcome.Failure->Text, kPathAccessText);
      }
    }
  }
}

}  // namespace
}  // namespace brivane
