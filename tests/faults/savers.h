#pragma once

#include <map>
#include <string>
#include <string_view>
#include <vector>

#include "export/save_kinds.h"

namespace brivane {

/// A designed sail of a few panels, whose every file is small.
Sail FewPanels();

/// While it lives, temporary folders are made in memory where the system has such a place: there
/// thousands of savings take no time. Elsewhere they stay on the disk.
class FoldersInMemory {
 public:
  FoldersInMemory();
  ~FoldersInMemory();
  FoldersInMemory(const FoldersInMemory&) = delete;
  FoldersInMemory& operator=(const FoldersInMemory&) = delete;

 private:
  std::string usual_;
};

/// One of the commands that write files.
struct Saver {
  std::string Name;
  bool Safe = false;               ///< the sail data file: the old file stays whole
  std::vector<std::string> Files;  ///< names that it writes, in order
  SaveOutcome (*Save)(const Sail& sail, const std::string& folder) = nullptr;
};

/// All of them. The sail decides how many files there are.
std::vector<Saver> AllSavers(const Sail& sail);

/// Contents of a folder's files by name; what is no file has no contents.
using FolderContents = std::map<std::string, std::string>;
FolderContents ContentsOf(const std::string& folder);

/// What a saving that went well leaves in an empty folder.
FolderContents CleanSaving(const Saver& saver, const Sail& sail);

/// The words of a failure, "saved" where there is none.
std::string OutcomeWords(const SaveOutcome& outcome);

/// What the files held before, where there were any.
inline constexpr std::string_view kOldText = "what the user had before\r\n";

/// Puts kOldText into each of the saver's files.
void PutOldFiles(const Saver& saver, const std::string& folder);

/// What a saving made of the files in the folder. A sail data file is lost unless it is the old or
/// the new one; an export may be cut short where that is told.
struct Judgement {
  std::vector<std::string> Lost;
  std::vector<std::string> FalseSuccesses;
  std::vector<std::string> LeftBehind;  ///< files that are none of the saver's
  bool IsTold = true;                   ///< a failure has a title of ours and a text
};
Judgement Judge(const Saver& saver, const FolderContents& clean, bool hadOldFiles,
                const std::string& folder, const SaveOutcome& outcome);

}  // namespace brivane
