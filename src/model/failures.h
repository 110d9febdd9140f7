#pragma once

#include <cstddef>
#include <exception>
#include <stdexcept>
#include <string>
#include <utility>

#include "model/language.h"

namespace brivane {

/// Why a file could not be read or written. The kinds up to NotARegularFile are the "path or file
/// access" family (error 75), for which every writer shows one fixed text.
enum class FileErrorKind {
  NoSuchFolder,
  IsAFolder,
  ReadOnly,
  NoPermission,
  NotARegularFile,
  Other
};

/// At which step of writing a file the failure came.
enum class FileStep { Opening, Reading, Writing, Closing };

/// A failure that speaks both languages. what() is the English words.
class BilingualError : public std::runtime_error {
 public:
  explicit BilingualError(BilingualText words)
      : std::runtime_error(std::string(words.English)), Words(words) {}

  BilingualText Words;
};

/// A file could not be read or written. The words are those of the system for its error.
class FileError : public BilingualError {
 public:
  FileError(FileErrorKind kind, FileStep step, BilingualText words, std::size_t bytesWritten = 0)
      : BilingualError(words), Kind(kind), Step(step), BytesWritten(bytesWritten) {}

  /// True for the path and file access family (error 75).
  bool IsPathAccess() const { return Kind != FileErrorKind::Other; }

  FileErrorKind Kind;
  FileStep Step;
  std::size_t BytesWritten;  ///< how much of the text had reached the file
};

/// The text that every writer shows for the path and file access family.
inline constexpr std::string_view kPathAccessText =
    "Trying to write over a Read Only File or an invalid Path";

/// A sail data file holds something that no field can take. The words name the line and the field;
/// what() is the English ones.
class ReadError : public std::runtime_error {
 public:
  ReadError(const std::string& english, std::string french)
      : std::runtime_error(english), French(std::move(french)) {}

  std::string French;
};

/// A computation on the sail cannot go on: a floating-point fault or a shape that cannot be laid
/// out. The words tell the user what to change.
class GeometryFault : public BilingualError {
 public:
  using BilingualError::BilingualError;
};

/// What a failure says of itself, in the language where it speaks both.
std::string WordsOf(const std::exception& failure, Language language);

}  // namespace brivane
