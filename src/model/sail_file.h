#pragma once

#include <cstddef>
#include <string>
#include <string_view>

#include "model/sail_definition.h"

namespace brivane {

// The sail data file: one value to a line, by position. Titles are what a message box shows behind
// ProgramTitle when the routine fails.

// --- Writing -----------------------------------------------------------------------------------

/// Title of the writer.
inline constexpr std::string_view kWriteSailDataTitle = " : Writing eData2";

/// The 41 lines of a ".bv3" file, UTF-8, each ended by CR LF. Control characters in the four texts
/// are left out, as they would shift the lines behind them.
std::string SailDataText(const SailDefinition& sail);

/// Writes SailDataText safely: after a failure the old file is whole. Throws FileError.
void WriteSailDataFile(const std::string& path, const SailDefinition& sail);

// --- Reading -----------------------------------------------------------------------------------

/// What to do with a file, by the last three characters of its name in any case.
enum class SailFileKind { Sail, OldSail, Unknown };  ///< ".bv3", ".bv4", anything else

/// The kind of a file by its name.
SailFileKind SailFileKindOf(std::string_view fileName);

/// A file's name (without folder) less its last four characters, the dot and the extension.
std::string SailNameOfFile(std::string_view fileName);

/// Titles of the readers.
inline constexpr std::string_view kReadSailDataTitle = " : Reading data file";
inline constexpr std::string_view kReadSailDataV4Title = " : Reading data ";
inline constexpr std::string_view kReadMouldTitle = " : Reading mould data file";

// All readers go by the line's number alone and look at no keyword. Lines that a short file lacks
// read as empty: 0 or "". A number beyond the range of its field throws ReadError ("Overflow"),
// with the line and the field; fields read before keep their new values, the others their old
// ones. Nothing that is not finite enters the record. No value is limited here. The forms with a
// path throw FileError, before anything has changed, where the file cannot be read.

/// Reads a ".bv3" file into the record. decimalMark is the regional one: line 31, the middle luff
/// shape, must be a number from end to end and may carry it; else ReadError ("Type mismatch").
void ReadSailDataText(std::string_view text, SailDefinition& sail, char decimalMark);
void ReadSailDataFile(const std::string& path, SailDefinition& sail, char decimalMark);

/// Reads a ".bv4" file, the older generation, into the record: lengths cut to whole millimetres,
/// no rake, one middle value for each profile array. Files before 1999 lack two lines.
void ReadSailDataTextV4(std::string_view text, SailDefinition& sail);
void ReadSailDataFileV4(const std::string& path, SailDefinition& sail);

/// Reads the eleven mould fields of a ".bv3" file. The reading starts one line before the profile
/// values, as sails have always been imported: each field takes the line before its own, the foot
/// depth that of the keyword (0).
void ReadMouldFromText(std::string_view text, SailDefinition& sail);
void ReadMouldFromFile(const std::string& path, SailDefinition& sail);

/// One line of a file.
struct FileLine {
  std::string Text;        ///< without control characters, every "," replaced by "."
  bool EndOfFile = false;  ///< the text ended within or before this line
};

/// A line is cut off at this many characters.
inline constexpr std::size_t kLongestLine = 4096;

/// Takes the next line off the front of the rest. A line feed ends it; other control characters
/// are dropped. At the end it yields empty lines for ever.
FileLine ReadFileLine(std::string_view& rest);

}  // namespace brivane
