#pragma once

#include <benchmark/benchmark.h>

#include <functional>
#include <optional>
#include <string>
#include <vector>

namespace bench {

using benchmark::ClobberMemory;
using benchmark::DoNotOptimize;

/// Least times of one call of each side, ns.
struct Minima {
  double Measured = 0;
  double Reference = 0;
  double Ratio() const { return Measured / Reference; }
};

/// Times both sides in turns, one short slice of calls after another, and keeps the least time of
/// each: what disturbs the machine disturbs both, and the least slice of either is undisturbed.
/// Google Benchmark runs one side to its end before the other, hence this loop of our own.
Minima TimeInTurns(const std::function<void()>& measured, const std::function<void()>& reference,
                   int fewestSlices = 15);

/// A line of the table.
struct Row {
  std::string Name;
  double Value = 0;      ///< mostly a ratio
  double Goal = 0;       ///< the value's limit, itself allowed
  bool AtLeast = false;  ///< the goal is a least value, else a greatest
  std::string Note;      ///< both sides in words, for whoever reads the table

  bool Met() const { return AtLeast ? Value >= Goal : Value <= Goal; }
};

using Rows = std::vector<Row>;

/// "12.3 µs against 4.5 µs".
std::string Sides(const Minima& times);

/// The text with so many decimals.
std::string Decimals(double value, int places);

// The rows, one function for each topic. A measurement that finds its own inputs wrong (a sail
// that has not the panels it was chosen for, a fast route with another result) throws.
Rows DevelopmentRows();
Rows FlatteningRows();
Rows SurfaceRows();
Rows DesignPassRows();
Rows ExportRows();
Rows SailFileRows();
Rows FrameRows();
Rows StartRows();

}  // namespace bench
