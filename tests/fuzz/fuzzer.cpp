#include <cstddef>
#include <cstdint>

#include "fuzz/targets.h"

// One fuzzer for each target, which is given by its name. Built by scripts/fuzz alone.

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  BRIVANE_FUZZ_TARGET({reinterpret_cast<const char*>(data), size});
  return 0;
}
