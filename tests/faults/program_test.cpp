#include <gtest/gtest.h>
#include <signal.h>
#include <stdlib.h>
#include <sys/wait.h>
#include <unistd.h>

#include <chrono>
#include <cstdint>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <string>
#include <thread>

// The program as it is built beside the tests.

namespace brivane {
namespace {

namespace fs = std::filesystem;

/// The signals that a process ignores, bit n - 1 for signal n.
std::uint64_t IgnoredSignals(pid_t process) {
  std::ifstream status("/proc/" + std::to_string(process) + "/status");
  for (std::string line; std::getline(status, line);)
    if (line.starts_with("SigIgn:")) return std::stoull(line.substr(7), nullptr, 16);
  return 0;
}

bool Ignores(pid_t process, int number) {
  return (IgnoredSignals(process) >> (number - 1) & 1) != 0;
}

// Where the size of files is limited, writing beyond it ends a program that does not ask to be
// told.
TEST(Program, LivesOnWhenAFileMayNotGrow) {
  const fs::path program = fs::read_symlink("/proc/self/exe").parent_path() / "brivane";
  if (!fs::exists(program)) {
    std::printf("note: skipped, the program is not built here\n");
    return;
  }
  const pid_t child = fork();
  if (child == 0) {
    signal(SIGXFSZ, SIG_DFL);
    setenv("QT_QPA_PLATFORM", "offscreen", 1);
    execl(program.c_str(), program.c_str(), nullptr);
    _exit(127);
  }
  const auto end = std::chrono::steady_clock::now() + std::chrono::seconds(30);
  while (!Ignores(child, SIGXFSZ) && std::chrono::steady_clock::now() < end &&
         waitpid(child, nullptr, WNOHANG) == 0)
    std::this_thread::sleep_for(std::chrono::milliseconds(20));
  EXPECT_TRUE(Ignores(child, SIGXFSZ));
  kill(child, SIGKILL);
  waitpid(child, nullptr, 0);
}

}  // namespace
}  // namespace brivane
