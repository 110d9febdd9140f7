#include <gtest/gtest.h>

#include <algorithm>
#include <cstdlib>
#include <fstream>

#include "switches.h"

namespace brivane::mutation {

int active = -1;
unsigned char reached[BRIVANE_CHANGES + 1];

namespace {

/// Before the sources' own constants are computed: those that a change touches are computed anew.
[[gnu::constructor(101)]] void TakeFromTheEnvironment() {
  if (const char* number = std::getenv("MUTATION")) active = std::atoi(number);
}

/// Tells which changes each test runs through: one line for each test, "-" for what is reached
/// before the first.
class ReachWriter : public testing::EmptyTestEventListener {
 public:
  explicit ReachWriter(const char* path) : file_(path) {}

 private:
  void OnTestProgramStart(const testing::UnitTest&) override { Write("-", 0); }

  void OnTestEnd(const testing::TestInfo& test) override {
    Write(std::string(test.test_suite_name()) + "." + test.name(), test.result()->elapsed_time());
  }

  void Write(const std::string& name, testing::TimeInMillis milliseconds) {
    file_ << name << ' ' << milliseconds;
    for (int id = 0; id < BRIVANE_CHANGES; ++id)
      if (reached[id]) file_ << ' ' << id << (reached[id] & 2 ? "!" : "");
    file_ << '\n';
    std::fill(std::begin(reached), std::end(reached), static_cast<unsigned char>(0));
  }

  std::ofstream file_;
};

[[gnu::constructor]] void Listen() {
  if (const char* path = std::getenv("MUTATION_REACH"))
    testing::UnitTest::GetInstance()->listeners().Append(new ReachWriter(path));
}

}  // namespace
}  // namespace brivane::mutation
