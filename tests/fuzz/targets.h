#pragma once

#include <string_view>

namespace brivane {

// What the fuzzer runs, and what replays its findings. Each takes any bytes; a fault is thrown as
// std::logic_error.

/// The bytes as a file of both generations, as a mould, and line by line.
void TryReaders(std::string_view bytes);

/// The bytes as a sail data file, designed and put out in every way. The first byte picks the cut.
void TryDesign(std::string_view bytes);

/// The bytes as the numbers of a record, eight to each, designed and put out in every way.
void TryRecord(std::string_view bytes);

/// The bytes as texts that are typed into fields: a byte for the field, one for the length.
void TryTyping(std::string_view bytes);

/// The bytes as a text that is read as a number, and as a number that is written in every pattern.
void TryNumbers(std::string_view bytes);

struct FuzzTarget {
  std::string_view Name;
  void (*Try)(std::string_view bytes);
};

inline constexpr FuzzTarget kFuzzTargets[] = {{"readers", &TryReaders},
                                              {"design", &TryDesign},
                                              {"record", &TryRecord},
                                              {"typing", &TryTyping},
                                              {"numbers", &TryNumbers}};

}  // namespace brivane
