#pragma once

#include <functional>
#include <string>
#include <vector>

namespace brivane {

/// What a piece of work that ran in a process of its own has to tell.
struct Findings {
  std::vector<std::string> Faults;
  std::string Skipped;  ///< why it could not run here; empty where it ran
  int Checks = 0;

  /// Counts a check; where it does not hold, the words are a fault.
  void Expect(bool holds, const std::string& words) {
    ++Checks;
    if (!holds) Faults.push_back(words);
  }
};

/// Runs the work in a child process, whose mounts, user and limits are its own, and brings back
/// what it found. A child that ends by itself or is killed is a fault.
Findings RunApart(const std::function<void(Findings&)>& work);

/// The same in a mount namespace of its own, as the superuser; elsewhere it is skipped.
Findings RunWithOwnMounts(const std::function<void(Findings&)>& work);

/// Reports the findings to the running test: a failure for each fault, a note where it was skipped.
/// Yields whether it ran.
bool Report(const Findings& findings);

/// Mounts a file system in memory with these options. False, with the reason noted, where it
/// cannot be done.
bool MountMemory(Findings& findings, const std::string& folder, const std::string& options);

}  // namespace brivane
