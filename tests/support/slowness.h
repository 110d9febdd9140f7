#pragma once

#include <algorithm>
#include <cstdlib>

namespace brivane {

/// What the sanitizers make of every computation.
constexpr int kSanitizedSlowness = 10;

/// How many times longer than in an ordinary build a computation takes here, 1 at least. The
/// sanitizers are known; a run under valgrind, or with counters, is told by BRIVANE_SLOWNESS.
inline int Slowness() {
  if (const char* told = std::getenv("BRIVANE_SLOWNESS")) return std::max(std::atoi(told), 1);
#if defined(__SANITIZE_ADDRESS__)
  return kSanitizedSlowness;
#else
  return 1;
#endif
}

}  // namespace brivane
