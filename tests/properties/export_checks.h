#pragma once

#include <string>

#include "model/sail.h"

namespace brivane {

/// What is wrong with the sail data file of the record, in words; empty when all is well: the file
/// holds the record's numbers to 15 digits line by line, reads back under the regional mark, and
/// is written again to the same bytes (a comma in a text having become a point, as the reader
/// makes it).
std::string BrokenSailData(const SailDefinition& sail, char mark);

/// The same by way of the disk, in a folder that exists.
std::string BrokenSailDataFile(const SailDefinition& sail, char mark, const std::string& folder);

/// What is wrong with an export of a sail that was laid out and developed: each file is read back
/// and compared with the tables, point by point, to the decimals that it is written to.
std::string BrokenExport(const Sail& sail, char mark);

}  // namespace brivane
