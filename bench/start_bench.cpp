#include <fcntl.h>
#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <limits>
#include <stdexcept>
#include <string>
#include <vector>

#include "harness.h"
#include "start/report.h"

namespace bench {
namespace {

/// A program beside this one, started on the offscreen platform.
struct Program {
  std::string Path;
  bool Watched = false;  ///< ended by the preloaded watch for the first window
};

std::string FolderOfBench() {
  std::string path(4096, '\0');
  const ssize_t length = readlink("/proc/self/exe", path.data(), path.size());
  if (length <= 0) throw std::runtime_error("/proc is needed");
  path.resize(static_cast<std::size_t>(length));
  return path.substr(0, path.rfind('/') + 1);
}

/// Starts the program, waits for its report and its end. Returns its peak of memory, kB.
long Run(const Program& program) {
  int ends[2];
  if (pipe(ends) != 0) throw std::runtime_error("no pipe can be made");
  fcntl(ends[0], F_SETFD, FD_CLOEXEC);
  std::vector<std::string> variables = {"QT_QPA_PLATFORM=offscreen",
                                        "LC_ALL=C.UTF-8",
                                        "HOME=/nonexistent",
                                        "XDG_RUNTIME_DIR=/tmp",
                                        "QT_LOGGING_RULES=*.warning=false",
                                        kReportVariable + ("=" + std::to_string(ends[1]))};
  if (program.Watched) variables.push_back("LD_PRELOAD=" + FolderOfBench() + "libfirst_window.so");
  std::vector<char*> environment;
  for (std::string& variable : variables) environment.push_back(variable.data());
  environment.push_back(nullptr);
  std::string path = program.Path;
  char* arguments[] = {path.data(), nullptr};
  pid_t child = 0;
  const int failure =
      posix_spawn(&child, path.c_str(), nullptr, nullptr, arguments, environment.data());
  close(ends[1]);
  long peak = 0;
  const bool reported =
      failure == 0 && read(ends[0], &peak, sizeof peak) == static_cast<ssize_t>(sizeof peak);
  close(ends[0]);
  int status = 0;
  if (failure == 0) waitpid(child, &status, 0);
  if (!reported || status != 0) throw std::runtime_error(path + " did not report");
  return peak;
}

/// Least of a few runs' peaks, kB.
long LeastPeak(const Program& program) {
  long least = std::numeric_limits<long>::max();
  for (int run = 0; run < 5; ++run) least = std::min(least, Run(program));
  return least;
}

Row MemoryRow(const std::string& name, long measured, long reference) {
  return {name + " / empty window", static_cast<double>(measured) / static_cast<double>(reference),
          1.2, false,
          std::to_string(measured) + " kB against " + std::to_string(reference) + " kB"};
}

}  // namespace

Rows StartRows() {
  const std::string folder = FolderOfBench();
  const Program ours{folder + "../brivane", true};
  const Program empty{folder + "empty_window", true};
  const Program designed{folder + "designed_sail"};
  const Minima times = TimeInTurns([&] { Run(ours); }, [&] { Run(empty); }, 60);
  const long emptyPeak = LeastPeak(empty);
  return {{"start to the first window / empty window", times.Ratio(), 1.15, false, Sides(times)},
          MemoryRow("peak memory at start", LeastPeak(ours), emptyPeak),
          MemoryRow("peak memory after 70 panels", LeastPeak(designed), emptyPeak)};
}

}  // namespace bench
