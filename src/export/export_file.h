#pragma once

#include <optional>
#include <string>

namespace brivane {

/// One file that an export writes: its full path and its whole text, UTF-8 with CR LF line ends.
struct ExportFile {
  std::string Path;
  std::string Text;
};

/// A message box as it is shown: title (with the program title in it) and text, UTF-8.
struct Message {
  std::string Title;
  std::string Text;
};

/// The message box that tells a failure.
using FailureReport = Message;

/// How a save command ended. What had been written before a failure stays on the disk.
struct SaveOutcome {
  std::optional<FailureReport> Failure;  ///< empty: everything was written
  std::optional<Message> Confirmation;   ///< to be shown after a success, where the kind has one

  bool Saved() const { return !Failure; }
};

}  // namespace brivane
