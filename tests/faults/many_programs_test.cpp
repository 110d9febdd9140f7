#include <fcntl.h>
#include <gtest/gtest.h>
#include <signal.h>
#include <sys/mman.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include <atomic>
#include <chrono>
#include <cstdio>
#include <filesystem>
#include <new>
#include <random>
#include <thread>

#include "faults/savers.h"
#include "model/sail_file.h"
#include "model/text_file.h"
#include "support/slowness.h"
#include "support/temporary_folder.h"

// Programs that are killed while they save, and several that save at once.

namespace brivane {
namespace {

namespace fs = std::filesystem;

/// Starts a child that does the work and ends; nothing that it returns matters.
template <typename Work>
pid_t Start(Work work) {
  const pid_t child = fork();
  if (child == 0) {
    work();
    _exit(0);
  }
  return child;
}

int End(pid_t child) {
  int status = 0;
  waitpid(child, &status, 0);
  return status;
}

void Wait(std::chrono::microseconds time) { std::this_thread::sleep_for(time); }

/// Makes a file look as old as this.
void MakeOlder(const std::string& path, int seconds) {
  fs::last_write_time(path, fs::last_write_time(path) - std::chrono::seconds(seconds));
}

/// The number of a process that has ended.
pid_t EndedProcess() {
  const pid_t child = Start([] {});
  End(child);
  return child;
}

// --- Killed ------------------------------------------------------------------------------------

/// The sail that the killed programs save: its text is short or long and never the same twice.
SailDefinition NumberedSail(int number) {
  SailDefinition sail;
  sail.SailName = std::to_string(number);
  sail.MouldLabel = std::string(number % 2 == 0 ? 3000 : 60000, 'm');
  return sail;
}

TEST(KilledPrograms, LeaveTheSailDataFileWhole) {
  // Under valgrind twenty, each of them given fifty times as long: in less it hardly comes to save.
  const int kills = Slowness() > kSanitizedSlowness ? 20 : 1000;
  const int mostMicroseconds = 5'000'000 / kills;
  const FoldersInMemory inMemory;
  const TemporaryFolder folder;
  const std::string path = folder.Path("sail.bv3");
  std::mt19937 random(20001125);
  std::uniform_int_distribution<int> pause(0, mostMicroseconds);
  int torn = 0;
  int saved = 0;
  for (int round = 0; round < kills; ++round) {
    SailDefinition last;
    if (round > 0) ReadSailDataFile(path, last, '.');
    const int next = round == 0 ? 1 : std::stoi(last.SailName) + 1;
    if (round == 0) WriteSailDataFile(path, NumberedSail(next - 1));
    const pid_t child = Start([&] {
      for (int number = next;; ++number) WriteSailDataFile(path, NumberedSail(number));
    });
    Wait(std::chrono::microseconds(pause(random)));
    kill(child, SIGKILL);
    EXPECT_TRUE(WIFSIGNALED(End(child)));
    ReadSailDataFile(path, last, '.');
    const int number = std::stoi(last.SailName);
    if (number < next - 1 || BytesOf(path) != SailDataText(NumberedSail(number))) ++torn;
    if (number >= next) ++saved;
    ASSERT_EQ(torn, 0);
  }
  EXPECT_GT(saved, kills / 10) << "the children hardly came to save";
  const std::size_t leftovers = folder.Entries() - 1;
  for (const fs::directory_entry& entry : fs::directory_iterator(folder.Path("")))
    MakeOlder(entry.path().string(), 3600);
  WriteSailDataFile(path, NumberedSail(0));
  EXPECT_EQ(folder.Entries(), 1U);
  std::printf("note: killed %d times in a save loop: %d files torn, %zu leftovers cleaned up\n",
              kills, torn, leftovers);
}

class Leftovers : public testing::Test {
 protected:
  /// Puts a file of this name, so many seconds old, saves, and tells whether it is still there.
  bool Stays(const std::string& name, int seconds) {
    PutBytes(folder.Path(name), "left over");
    MakeOlder(folder.Path(name), seconds);
    WriteFileSafely(folder.Path("sail.bv3"), "a sail");
    return fs::exists(folder.Path(name));
  }
  TemporaryFolder folder;
  std::string ended = std::to_string(EndedProcess());
};

TEST_F(Leftovers, OfEndedProgramsAreRemoved) {
  EXPECT_FALSE(Stays(".brivane-" + ended + "-0.tmp", 120));
  EXPECT_FALSE(Stays(".brivane-" + ended + "-17.tmp", 90000));
}

TEST_F(Leftovers, OfALivingProgramDoNotDisturbIt) {
  const pid_t child = Start([] {
    for (const int each : {SIGHUP, SIGINT, SIGTERM}) signal(each, SIG_DFL);
    for (;;) pause();
  });
  EXPECT_TRUE(Stays(".brivane-" + std::to_string(child) + "-0.tmp", 5000));
  kill(child, SIGKILL);
  EXPECT_EQ(WTERMSIG(End(child)), SIGKILL);
}

TEST_F(Leftovers, StayWhileTheyMayBeInUse) {
  EXPECT_TRUE(Stays(".brivane-" + ended + "-0.tmp", 5));
  EXPECT_TRUE(Stays(".brivane-" + ended + "-1.tmp", -5000));
  EXPECT_TRUE(Stays(".brivane-" + std::to_string(getppid()) + "-0.tmp", 5000));
}

TEST_F(Leftovers, AreNoFilesOfAnotherName) {
  for (const std::string& name :
       {"brivane-" + ended + "-0.tmp", ".brivane-" + ended + "-0.tmpx",
        ".brivane-" + ended + ".tmp", std::string(".brivane-.tmp"), std::string(".brivane-x-0.tmp"),
        std::string(".brivane-99999999999999999999-0.tmp"), ".brivane--" + ended + "-0.tmp"})
    EXPECT_TRUE(Stays(name, 5000)) << name;
}

TEST_F(Leftovers, AreNoFoldersAndLinks) {
  const std::string name = ".brivane-" + ended + "-0.tmp";
  fs::create_directory(folder.Path(name));
  MakeOlder(folder.Path(name), 5000);
  PutBytes(folder.Path("old"), "kept");
  MakeOlder(folder.Path("old"), 5000);
  fs::create_symlink("old", folder.Path(".brivane-" + ended + "-1.tmp"));
  WriteFileSafely(folder.Path("sail.bv3"), "a sail");
  EXPECT_TRUE(fs::is_directory(folder.Path(name)));
  EXPECT_TRUE(fs::is_symlink(folder.Path(".brivane-" + ended + "-1.tmp")));
  EXPECT_EQ(BytesOf(folder.Path("old")), "kept");
}

// --- Two at once -------------------------------------------------------------------------------

/// The bytes of a file that nobody is writing to meanwhile.
std::string LockedBytesOf(const std::string& path) {
  const int descriptor = open(path.c_str(), O_RDONLY | O_CLOEXEC);
  struct flock whole {};
  whole.l_type = F_RDLCK;
  EXPECT_EQ(fcntl(descriptor, F_SETLKW, &whole), 0);
  std::string bytes(1 << 20, '\0');
  const ssize_t count = read(descriptor, bytes.data(), bytes.size());
  close(descriptor);
  bytes.resize(count < 0 ? 0 : static_cast<std::size_t>(count));
  return bytes;
}

/// A count that the programs of a test share.
class SharedCount {
 public:
  SharedCount()
      : count_(new (mmap(nullptr, sizeof(std::atomic<int>), PROT_READ | PROT_WRITE,
                         MAP_SHARED | MAP_ANONYMOUS, -1, 0)) std::atomic<int>(0)) {}
  ~SharedCount() { munmap(count_, sizeof(std::atomic<int>)); }
  SharedCount(const SharedCount&) = delete;
  SharedCount& operator=(const SharedCount&) = delete;

  std::atomic<int>& operator*() const { return *count_; }

 private:
  std::atomic<int>* count_;
};

/// Two programs write texts of their own to one file, over and over, until a third that looks on
/// has seen enough.
void SaveAtOnce(void (*write)(const std::string&, std::string_view),
                std::string (*read)(const std::string&)) {
  constexpr int kSavings = 300;
  constexpr int kLeastLooks = kSavings / 10;
  const SharedCount looks;
  const FoldersInMemory inMemory;
  const TemporaryFolder folder;
  const std::string path = folder.Path("file");
  const std::string texts[] = {std::string(150000, 'a'), std::string(20000, 'b')};
  write(path, texts[0]);
  pid_t children[2];
  for (std::size_t each = 0; each < 2; ++each)
    children[each] = Start([&] {
      try {
        for (int saving = 0; saving < kSavings || *looks <= kLeastLooks; ++saving) {
          write(path, texts[each]);
          if (saving % 8 == 0) Wait(std::chrono::microseconds(200));
        }
      } catch (...) {
        _exit(1);
      }
    });
  int mixed = 0;
  int status = 0;
  while (waitpid(children[0], &status, WNOHANG) == 0) {
    const std::string bytes = read(path);
    ++*looks;
    if (bytes != texts[0] && bytes != texts[1]) ++mixed;
  }
  EXPECT_EQ(status, 0);
  EXPECT_EQ(End(children[1]), 0);
  EXPECT_EQ(mixed, 0);
  EXPECT_GT(*looks, kLeastLooks);
  const std::string bytes = BytesOf(path);
  EXPECT_TRUE(bytes == texts[0] || bytes == texts[1]) << "a mixture is left";
  EXPECT_EQ(folder.Entries(), 1U);
  std::printf(
      "note: two programs saving one file at least %d times each, looked at %d times: %d "
      "mixtures\n",
      kSavings, (*looks).load(), mixed);
}

TEST(TwoPrograms, NeverMixASailDataFile) { SaveAtOnce(&WriteFileSafely, &BytesOf); }
TEST(TwoPrograms, NeverMixAnExport) { SaveAtOnce(&WritePlainFile, &LockedBytesOf); }

/// A child that holds a lock on the file for a while. Returns when it holds it.
pid_t HoldLock(const std::string& path, std::chrono::milliseconds time) {
  int ends[2];
  EXPECT_EQ(pipe(ends), 0);
  const pid_t child = Start([&] {
    const int descriptor = open(path.c_str(), O_WRONLY);
    struct flock whole {};
    whole.l_type = F_WRLCK;
    const bool isHeld = fcntl(descriptor, F_SETLK, &whole) == 0;
    if (write(ends[1], isHeld ? "y" : "n", 1) == 1) Wait(time);
  });
  char answer = 'n';
  EXPECT_EQ(read(ends[0], &answer, 1), 1);
  EXPECT_EQ(answer, 'y');
  close(ends[0]);
  close(ends[1]);
  return child;
}

TEST(TwoPrograms, WaitForEachOther) {
  const TemporaryFolder folder;
  PutBytes(folder.Path("file"), "the other's");
  const pid_t child = HoldLock(folder.Path("file"), std::chrono::milliseconds(150));
  EXPECT_NO_THROW(WritePlainFile(folder.Path("file"), "mine"));
  EXPECT_EQ(BytesOf(folder.Path("file")), "mine");
  End(child);
}

TEST(TwoPrograms, GiveUpOnOneThatNeverEnds) {
  const TemporaryFolder folder;
  PutBytes(folder.Path("essai.xyz"), "the other's");
  const pid_t child = HoldLock(folder.Path("essai.xyz"), std::chrono::minutes(5));
  const auto start = std::chrono::steady_clock::now();
  const Sail sail = FewPanels();
  const SaveOutcome outcome = AllSavers(sail).at(1).Save(sail, folder.Path(""));
  EXPECT_LT(std::chrono::steady_clock::now() - start, std::chrono::seconds(10));
  kill(child, SIGKILL);
  End(child);
  ASSERT_FALSE(outcome.Saved());
  EXPECT_EQ(outcome.Failure->Text, "Another program is writing to this file");
  EXPECT_EQ(BytesOf(folder.Path("essai.xyz")), "the other's");
}

}  // namespace
}  // namespace brivane
