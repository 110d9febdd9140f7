#pragma once

#include <map>
#include <string>
#include <vector>

#include "export/save_kinds.h"

namespace brivane {

/// A designed sail of a few panels, whose every file is small.
Sail FewPanels();

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

/// Whether the failure has a title of ours and a text.
bool IsTold(const SaveOutcome& outcome);

}  // namespace brivane
