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
#include "model/temporary_folder.h"

// Each system call that a saving makes fails in turn, in every way it can, once and for good, until
// a saving is through untouched.

namespace brivane {
namespace {

namespace fs = std::filesystem;

/// What stood in the folder before the saving.
enum class Before { Nothing, OldFile, OldFileOfAnother, Link };

const std::string kOldText = "what the user had before\r\n";

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
  for (const std::string& file : saver.Files) {
    const std::string path = folder + '/' + file;
    if (before == Before::Link) {
      fs::create_directories(folder + "/behind");
      PutBytes(folder + "/behind/" + file, kOldText);
      fs::create_symlink("behind/" + file, path);
      continue;
    }
    PutBytes(path, kOldText);
    if (before != Before::OldFileOfAnother) continue;
    ASSERT_EQ(chmod(path.c_str(), 0640), 0);
    if (geteuid() == 0) {
      ASSERT_EQ(chown(path.c_str(), 1234, 2345), 0);
    }
  }
}

/// The contents that a name leads to; nothing where there is no file.
std::optional<std::string> TextAt(const std::string& path) {
  if (!fs::exists(path)) return std::nullopt;
  return BytesOf(path);
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
    if (outcome.Saved())
      CheckSaved(folder, tally);
    else
      CheckFailed(folder, outcome, tally);
    CheckLeftOver(folder);
    const bool isInterrupted = fault.Effect == CallEffect::Fail && fault.Error == EINTR;
    if (isInterrupted || fault.Effect == CallEffect::Short) {
      EXPECT_TRUE(outcome.Saved()) << "an interrupted or short call is taken up again";
    }
    return calls;
  }

 private:
  void CheckSaved(const TemporaryFolder& folder, Tally& tally) const {
    for (const auto& [name, text] : clean_) {
      if (TextAt(folder.Path(name)) == text) continue;
      ++tally.FalseSuccesses;
      ADD_FAILURE() << "a false success: " << name;
    }
  }

  void CheckFailed(const TemporaryFolder& folder, const SaveOutcome& outcome, Tally& tally) const {
    ++tally.Told;
    EXPECT_TRUE(IsTold(outcome));
    for (const std::string& name : saver_.Files) {
      const std::optional<std::string> left = TextAt(folder.Path(name));
      const bool isOld = before_ == Before::Nothing ? !left : left == kOldText;
      const bool isNew = left == clean_.at(name);
      if (isOld || isNew) continue;
      // An export leaves what had been written, or nothing where the old one had been removed.
      const bool isBegun = !left || clean_.at(name).starts_with(*left);
      if (!saver_.Safe && isBegun) continue;
      ++tally.Lost;
      ADD_FAILURE() << "lost: " << name << " holds " << left.value_or("(no file)").substr(0, 80);
    }
  }

  /// No temporary file, and a link is still a link.
  void CheckLeftOver(const TemporaryFolder& folder) const {
    const std::string place = folder.Path(before_ == Before::Link ? "behind" : "");
    if (!mayLeaveTemporary_) {
      for (const auto& [name, text] : ContentsOf(place))
        EXPECT_TRUE(clean_.contains(name) || name == "behind") << "left behind: " << name;
    }
    // The plotter file of the patches is deleted first, and so is a link of its name.
    if (before_ == Before::Link && saver_.Name != "PatchPlotter") {
      for (const std::string& name : saver_.Files)
        EXPECT_TRUE(fs::is_symlink(folder.Path(name))) << "no longer a link: " << name;
    }
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
  const Sail sail = FewPanels();
  const Saver saver = AllSavers(sail).front();
  const FolderContents clean = CleanSaving(saver, sail);
  int kills = 0;
  for (const CallEffect effect : {CallEffect::Kill, CallEffect::KillThen}) {
    for (int number = 0;; ++number) {
      const TemporaryFolder folder;
      PutBytes(folder.Path(saver.Files[0]), kOldText);
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
