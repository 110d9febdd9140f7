#include "faults/findings.h"

#include <gtest/gtest.h>
#include <sched.h>
#include <sys/mount.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <cstdio>
#include <exception>
#include <set>
#include <string>
#include <system_error>

namespace brivane {
namespace {

constexpr char kFault = 'F';
constexpr char kSkipped = 'S';
constexpr char kCheck = 'C';

std::string Reason(const char* what) {
  return std::string(what) + ": " + std::generic_category().message(errno);
}

void Send(int descriptor, char kind, const std::string& words) {
  const std::string line = kind + words + '\0';
  std::size_t sent = 0;
  while (sent < line.size()) {
    const ssize_t count = write(descriptor, line.data() + sent, line.size() - sent);
    if (count <= 0) _exit(1);
    sent += static_cast<std::size_t>(count);
  }
}

[[noreturn]] void RunChild(int descriptor, const std::function<void(Findings&)>& work) {
  Findings findings;
  try {
    work(findings);
  } catch (const std::exception& error) {
    findings.Faults.push_back(std::string("an exception: ") + error.what());
  }
  for (const std::string& fault : findings.Faults) Send(descriptor, kFault, fault);
  if (!findings.Skipped.empty()) Send(descriptor, kSkipped, findings.Skipped);
  Send(descriptor, kCheck, std::to_string(findings.Checks));
  _exit(0);
}

std::string ReadAll(int descriptor) {
  std::string all;
  char block[4096];
  ssize_t count = 0;
  while ((count = read(descriptor, block, sizeof block)) > 0)
    all.append(block, static_cast<std::size_t>(count));
  return all;
}

void Take(Findings& findings, const std::string& line) {
  if (line.starts_with(kFault)) findings.Faults.push_back(line.substr(1));
  if (line.starts_with(kSkipped)) findings.Skipped = line.substr(1);
  if (line.starts_with(kCheck)) findings.Checks = std::stoi(line.substr(1));
}

}  // namespace

Findings RunApart(const std::function<void(Findings&)>& work) {
  Findings findings;
  int ends[2];
  if (pipe(ends) != 0) {
    findings.Faults.push_back(Reason("pipe"));
    return findings;
  }
  std::fflush(stdout);
  const pid_t child = fork();
  if (child == 0) {
    close(ends[0]);
    RunChild(ends[1], work);
  }
  close(ends[1]);
  const std::string all = ReadAll(ends[0]);
  close(ends[0]);
  int status = 0;
  waitpid(child, &status, 0);
  for (std::size_t at = 0; at < all.size();) {
    const std::size_t end = all.find('\0', at);
    Take(findings, all.substr(at, end - at));
    at = end + 1;
  }
  if (status != 0)
    findings.Faults.push_back("the process ended with status " + std::to_string(status));
  if (findings.Skipped.empty() && findings.Checks == 0)
    findings.Faults.push_back("nothing was checked");
  return findings;
}

Findings RunWithOwnMounts(const std::function<void(Findings&)>& work) {
  return RunApart([&](Findings& findings) {
    if (geteuid() != 0)
      findings.Skipped = "not the superuser, so no mounts of its own";
    else if (unshare(CLONE_NEWNS) != 0)
      findings.Skipped = Reason("no mount namespace");
    else if (mount("none", "/", "none", MS_REC | MS_PRIVATE, nullptr) != 0)
      findings.Skipped = Reason("the mounts cannot be made private");
    else
      work(findings);
  });
}

bool Report(const Findings& findings) {
  for (const std::string& fault : findings.Faults) ADD_FAILURE() << fault;
  if (findings.Skipped.empty()) return true;
  const testing::TestInfo* info = testing::UnitTest::GetInstance()->current_test_info();
  // One line for all kinds of file that a test is run with.
  std::string test = std::string(info->test_suite_name()) + "." + info->name();
  test.resize(std::min(test.rfind('/'), test.size()));
  static std::set<std::string> told;
  if (told.insert(test + findings.Skipped).second)
    std::printf("note: skipped %s: %s\n", test.c_str(), findings.Skipped.c_str());
  return false;
}

bool MountMemory(Findings& findings, const std::string& folder, const std::string& options) {
  if (mount("brivane", folder.c_str(), "tmpfs", 0, options.c_str()) == 0) return true;
  findings.Skipped = Reason("no file system in memory");
  return false;
}

}  // namespace brivane
