#pragma once

#include <cstdint>
#include <random>
#include <string>

#include "model/sail.h"

namespace brivane {

using Random = std::mt19937_64;

/// Seed of the run: BRIVANE_SEED, or the fixed one of every day.
std::uint64_t RunSeed();

/// Sails to try for each property: BRIVANE_SAILS, or the given number.
int SailCount(int usual);

/// The exports of one of so many sails are read back: BRIVANE_EXPORT_STEP, or the given number.
int ExportStep(int usual);

/// A sail as a sailmaker builds it: luff 1 to 20 m, foot 0.25 to 1.2 luffs, a tack angle of 70° to
/// 110°, no gaff or one of 0.2 to 0.9 feet and 11° to 57° from the luff, rounds within a third of
/// their limits, cloth 400 to 1500 mm, a mould around that of a new sail. No outline is computed.
SailDefinition PlausibleSail(Random& random, const std::string& cut);

/// Anything that the windows let through: random texts typed into random fields, often any mould.
/// The outline is computed as the dimensions window does.
SailDefinition TypedSail(Random& random, const std::string& cut);

/// Writes the sail as a data file beside the tests and returns its name, for the failure's report.
std::string DumpSail(const SailDefinition& sail, const std::string& property, int index);

}  // namespace brivane
