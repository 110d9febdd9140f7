#pragma once

#include <string>

#include "model/sail.h"

namespace brivane {

/// What is wrong with a record: a value that is not finite, or texts that do not read back to the
/// same text. Empty where nothing is.
std::string FaultOfRecord(const SailDefinition& definition);

/// Lays the sail out, then draws, prints, lists and exports it in every way there is. It may be
/// refused with a message; it may not come to anything that is not finite. What went wrong, empty
/// where nothing did. The sail is renamed.
std::string FaultOfDesign(Sail& sail);

/// Whether a word of the text is one of those that stand for what is no number.
bool HasNonNumber(const std::string& text);

}  // namespace brivane
