#include "harness.h"

#include <algorithm>
#include <chrono>
#include <limits>

#include "model/number_text.h"

namespace bench {
namespace {

using Clock = std::chrono::steady_clock;

constexpr double kSlice = 100e3;   ///< ns that a slice lasts at least, where one call is shorter
constexpr double kWhole = 1500e6;  ///< ns for all slices of both sides

double TimeOf(const std::function<void()>& side, int calls) {
  const auto start = Clock::now();
  for (int call = 0; call < calls; ++call) side();
  return std::chrono::duration<double, std::nano>(Clock::now() - start).count();
}

/// Calls that fill a slice, found by doubling; warms the side up as it goes.
int CallsInSlice(const std::function<void()>& side) {
  int calls = 1;
  while (TimeOf(side, calls) < kSlice) calls *= 2;
  return calls;
}

std::string Duration(double nanoseconds) {
  if (nanoseconds < 1e3) return Decimals(nanoseconds, 0) + " ns";
  if (nanoseconds < 1e6) return Decimals(nanoseconds / 1e3, 2) + " µs";
  return Decimals(nanoseconds / 1e6, 2) + " ms";
}

}  // namespace

Minima TimeInTurns(const std::function<void()>& measured, const std::function<void()>& reference,
                   int fewestSlices) {
  const int measuredCalls = CallsInSlice(measured);
  const int referenceCalls = CallsInSlice(reference);
  constexpr double kInfinity = std::numeric_limits<double>::infinity();
  Minima least{kInfinity, kInfinity};
  double spent = 0;
  for (int slice = 0; slice < fewestSlices || spent < kWhole; ++slice) {
    const double mine = TimeOf(measured, measuredCalls);
    const double theirs = TimeOf(reference, referenceCalls);
    spent += mine + theirs;
    least.Measured = std::min(least.Measured, mine / measuredCalls);
    least.Reference = std::min(least.Reference, theirs / referenceCalls);
  }
  return least;
}

std::string Decimals(double value, int places) { return brivane::FormatFixed(value, places, '.'); }

std::string Sides(const Minima& times) {
  return Duration(times.Measured) + " against " + Duration(times.Reference);
}

}  // namespace bench
