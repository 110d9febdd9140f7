#include <gtest/gtest.h>

#include <clocale>
#include <cstdio>
#include <locale>
#include <stdexcept>

/// Runs the tests under the locale of the environment, for the C library and for C++ streams. A
/// locale that is not there is a failure, never a silent run under "C".
int main(int argc, char** argv) {
  testing::InitGoogleTest(&argc, argv);
  if (!std::setlocale(LC_ALL, "")) {
    std::fputs("The locale of the environment is not installed.\n", stderr);
    return 2;
  }
  try {
    std::locale::global(std::locale(""));
  } catch (const std::runtime_error& error) {
    std::fprintf(stderr, "The locale of the environment cannot be used: %s\n", error.what());
    return 2;
  }
  return RUN_ALL_TESTS();
}
