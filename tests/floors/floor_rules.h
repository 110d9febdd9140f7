#pragma once

#include <filesystem>
#include <string>
#include <vector>

namespace brivane {

/// Something in the tree that breaks the house's one rule. Text reads "file:line: what is wrong".
struct FloorFault {
  std::string File;  ///< relative to the source folder
  int Line = 0;
  std::string Text;
};

/// Reads every header and source below the source folder (the one that holds model, geometry and so
/// on) and tells which of their includes break the rule: includes point down only, a folder never
/// includes its neighbour on the same floor, floors 1 to 4 include the C++ standard library alone,
/// and of POSIX only where the disk and the region are read. A folder that stands on no floor is a
/// fault too. Throws std::filesystem::filesystem_error where the folder cannot be read.
std::vector<FloorFault> FindFloorFaults(const std::filesystem::path& sourceFolder);

}  // namespace brivane
