#include <gtest/gtest.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cerrno>
#include <cstdio>
#include <filesystem>
#include <optional>

#include "faults/savers.h"
#include "faults/system_calls.h"
#include "support/temporary_folder.h"

// Each system call that a saving makes fails in turn, in every way it can, once and for good, until
// a saving is through untouched.

namespace brivane {
namespace {

namespace fs = std::filesystem;

/// What stood in the folder before the saving.
enum class Before { Nothing, OldFile, OldFileOfAnother, Link };

const std::vector<std::string> kNone;

struct Tally {
  int Points = 0;
  int Struck = 0;
  int Told = 0;  ///< savings that ended in a message
  int Lost = 0;
  int FalseSuccesses = 0;
};

std::size_t OpenFiles() {
  return static_cast<std::size_t>(
      std::distance(fs::directory_iterator("/proc/self/fd"), fs::directory_iterator()));
}

void Prepare(const Saver& saver, const std::string& folder, Before before) {
  if (before == Before::Nothing) return;
  if (before != Before::Link) PutOldFiles(saver, folder);
  for (const std::string& file : saver.Files) {
    const std::string path = folder + '/' + file;
    if (before == Before::Link) {
      fs::create_directories(folder + "/behind");
      PutBytes(folder + "/behind/" + file, std::string(kOldText));
      fs::create_symlink("behind/" + file, path);
      continue;
    }
    if (before != Before::OldFileOfAnother) continue;
    ASSERT_EQ(chmod(path.c_str(), 0640), 0);
    if (geteuid() == 0) {
      ASSERT_EQ(chown(path.c_str(), 1234, 2345), 0);
    }
  }
}

class Attempt {
 public:
  Attempt(const Saver& saver, const Sail& sail, const FolderContents& clean, Before before)
      : saver_(saver), sail_(sail), clean_(clean), before_(before) {}

  /// Saves with a fault and checks what is left. Yields the names of the calls made.
  std::vector<std::string> Run(const CallFault& fault, Tally& tally) {
    const TemporaryFolder folder;
    Prepare(saver_, folder.Path(""), before_);
    const std::size_t openBefore = OpenFiles();
    SaveOutcome outcome;
    std::vector<std::string> calls;
    bool struck = false;
    {
      const WatchedCalls watched(fault);
      outcome = saver_.Save(sail_, folder.Path(""));
      calls = watched.Names();
      struck = watched.Struck();
      mayLeaveTemporary_ = watched.Struck("unlink");
    }
    SCOPED_TRACE(saver_.Name + ", " + fault.Words(calls) + ", " + OutcomeWords(outcome));
    ++tally.Points;
    if (struck) ++tally.Struck;
    EXPECT_EQ(OpenFiles(), openBefore);
    if (!outcome.Saved()) ++tally.Told;
    Check(folder, outcome, tally);
    const bool isInterrupted = fault.Effect == CallEffect::Fail && fault.Error == EINTR;
    if (isInterrupted || fault.Effect == CallEffect::Short) {
      EXPECT_TRUE(outcome.Saved()) << "an interrupted or short call is taken up again";
    }
    return calls;
  }

 private:
  void Check(const TemporaryFolder& folder, const SaveOutcome& outcome, Tally& tally) const {
    const Judgement judgement =
        Judge(saver_, clean_, before_ != Before::Nothing, folder.Path(""), outcome);
    tally.Lost += static_cast<int>(judgement.Lost.size());
    tally.FalseSuccesses += static_cast<int>(judgement.FalseSuccesses.size());
    EXPECT_EQ(judgement.Lost, kNone);
    EXPECT_EQ(judgement.FalseSuccesses, kNone);
    EXPECT_TRUE(judgement.IsTold);
    if (before_ == Before::Link) return CheckLinks(folder);
    if (!mayLeaveTemporary_) {
      EXPECT_EQ(judgement.LeftBehind, kNone);
    }
  }

  /// A link is still a link, and no temporary file stands beside what it leads to.
  void CheckLinks(const TemporaryFolder& folder) const {
    EXPECT_LE(ContentsOf(folder.Path("behind")).size(),
              saver_.Files.size() + (mayLeaveTemporary_ ? 1 : 0));
    // The plotter file of the patches is deleted first, and so is a link of its name.
    if (saver_.Name == "PatchPlotter") return;
    for (const std::string& name : saver_.Files)
      EXPECT_TRUE(fs::is_symlink(folder.Path(name))) << "no longer a link: " << name;
  }

  const Saver& saver_;
  const Sail& sail_;
  const FolderContents& clean_;
  Before before_;
  bool mayLeaveTemporary_ = false;
};

/// The faults that can strike a call of a name.
std::vector<CallFault> FaultsAt(int number, const std::string& name) {
  constexpr int kInterruptions = 20;
  std::vector<CallFault> faults;
  for (const int error : ErrorsOf(name))
    for (const CallReach reach : {CallReach::Once, CallReach::SameCall, CallReach::AllCalls}) {
      if (error == EINTR && reach == CallReach::AllCalls) continue;
      CallFault fault{number, CallEffect::Fail, error, reach};
      if (error == EINTR) fault.Times = kInterruptions;
      faults.push_back(fault);
    }
  if (name == "write")
    for (const CallReach reach : {CallReach::Once, CallReach::SameCall}) {
      faults.push_back({number, CallEffect::Short, 0, reach});
      faults.push_back({number, CallEffect::None, 0, reach});
    }
  return faults;
}

class FailingCalls : public testing::TestWithParam<std::size_t> {
 protected:
  void Exhaust(Before before) {
    const Sail sail = FewPanels();
    const Saver saver = AllSavers(sail).at(GetParam());
    const FolderContents clean = CleanSaving(saver, sail);
    ASSERT_EQ(clean.size(), saver.Files.size());
    Attempt attempt(saver, sail, clean, before);
    Tally none;
    const std::vector<std::string> calls = attempt.Run({-1, CallEffect::Fail, EIO}, none);
    ASSERT_EQ(none.Struck, 0);
    ASSERT_GE(calls.size(), 4U);
    Tally tally;
    for (int number = 0; number < static_cast<int>(calls.size()); ++number)
      for (const CallFault& fault : FaultsAt(number, calls[static_cast<std::size_t>(number)]))
        attempt.Run(fault, tally);
    EXPECT_EQ(tally.Struck, tally.Points);
    Tally& sum = saver.Safe ? sailData_ : exports_;
    sum.Struck += tally.Struck;
    sum.Told += tally.Told;
    sum.Lost += tally.Lost;
    sum.FalseSuccesses += tally.FalseSuccesses;
  }

  static void TearDownTestSuite() {
    PrintTally("sail data file", sailData_);
    PrintTally("exports", exports_);
  }

 private:
  FoldersInMemory inMemory_;

  static void PrintTally(const char* what, const Tally& sum) {
    std::printf("note: %s: %d failing calls, %d told, %d files lost, %d false successes\n", what,
                sum.Struck, sum.Told, sum.Lost, sum.FalseSuccesses);
  }

  static inline Tally sailData_;
  static inline Tally exports_;
};

TEST_P(FailingCalls, ANewFile) { Exhaust(Before::Nothing); }
TEST_P(FailingCalls, AnOldFile) { Exhaust(Before::OldFile); }
TEST_P(FailingCalls, AnOldFileOfAnotherUser) { Exhaust(Before::OldFileOfAnother); }
TEST_P(FailingCalls, ALink) { Exhaust(Before::Link); }

INSTANTIATE_TEST_SUITE_P(Savers, FailingCalls, testing::Range(std::size_t{0}, std::size_t{8}),
                         [](const auto& suite) {
                           return AllSavers(FewPanels())[suite.param].Name;
                         });

// --- Killed at every call ----------------------------------------------------------------------

/// Saves in a child that is killed at one of its calls. Whether it was killed.
bool SaveAndDie(const Saver& saver, const Sail& sail, const std::string& folder,
                const CallFault& fault) {
  const pid_t child = fork();
  if (child == 0) {
    const WatchedCalls watched(fault);
    saver.Save(sail, folder);
    _exit(0);
  }
  int status = 0;
  waitpid(child, &status, 0);
  return WIFSIGNALED(status);
}

TEST(KilledAtEachCall, LeavesTheSailDataFileWhole) {
  const FoldersInMemory inMemory;
  const Sail sail = FewPanels();
  const Saver saver = AllSavers(sail).front();
  const FolderContents clean = CleanSaving(saver, sail);
  int kills = 0;
  for (const CallEffect effect : {CallEffect::Kill, CallEffect::KillThen}) {
    for (int number = 0;; ++number) {
      const TemporaryFolder folder;
      PutOldFiles(saver, folder.Path(""));
      if (!SaveAndDie(saver, sail, folder.Path(""), {number, effect})) break;
      ++kills;
      const std::string left = BytesOf(folder.Path(saver.Files[0]));
      EXPECT_TRUE(left == kOldText || left == clean.at(saver.Files[0])) << "call " << number;
      EXPECT_LE(folder.Entries(), 2U);
    }
  }
  EXPECT_GT(kills, 20);
  std::printf("note: killed at each of %d points of a saving, 0 files torn\n", kills);
}

}  // namespace
}  // namespace brivane
