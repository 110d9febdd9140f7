#pragma once

#include <cstdlib>

namespace brivane {

/// How many times longer than in an ordinary build a computation takes here. The sanitizers know;
/// a program run under valgrind cannot tell, and is told by BRIVANE_SLOWNESS.
inline int Slowness() {
  if (const char* told = std::getenv("BRIVANE_SLOWNESS")) return std::atoi(told);
#if defined(__SANITIZE_ADDRESS__)
  return 10;
#else
  return 1;
#endif
}

}  // namespace brivane
