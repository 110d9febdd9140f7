#pragma once

#include <cstddef>
#include <string>
#include <string_view>

#include "model/code_page.h"  // the code page that the files hold

namespace brivane {

// The only disk access of the core. Inside the program text is UTF-8; a file holds one byte to a
// character, in code page 1252. Paths are UTF-8. Every failure is a FileError that tells its cause
// and the step; an interrupted call is taken up again.

/// No file larger than this (bytes) is read.
inline constexpr std::size_t kLargestFile = std::size_t{1} << 20;

/// Text of a file as UTF-8. Refuses what is not a regular file, without waiting for a pipe's other
/// end, and what is larger than kLargestFile. A file that begins with the UTF-8 byte order mark
/// and is sound UTF-8 is taken as such, without the mark.
std::string ReadWholeFile(const std::string& path);

/// Creates or truncates the file and writes the text. After a failure the file holds what had been
/// written, and the error tells how many bytes that is. Two programs that write to the same file do
/// it one after the other; one that waits for more than a second gives up. Refuses folders, pipes,
/// sockets, disks and files without any write permission; a device that takes characters is written
/// to.
void WritePlainFile(const std::string& path, std::string_view text);

/// Removes the file where there is one; a link is removed, not what it leads to. Refuses what is
/// not a regular file and files without any write permission.
void RemoveOldFile(const std::string& path);

/// Writes the text to a temporary file in the same folder, flushes it to the disk and puts it in
/// the place of the old file. After a failure the old file is whole and the temporary gone (where
/// only flushing the folder fails, the new file is in place). Links are followed, the mode and,
/// where the system allows it, the owner of the old file are kept. Refuses what is not a regular
/// file and files without any write permission. Other hard links keep the old text. What a program
/// that was killed while it saved left in the folder is removed by a later saving.
void WriteFileSafely(const std::string& path, std::string_view text);

/// The same for a file that is no text: the bytes as they are.
void WriteBytesSafely(const std::string& path, std::string_view bytes);

}  // namespace brivane
