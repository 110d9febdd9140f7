#pragma once

#include <QString>
#include <QWidget>
#include <functional>
#include <optional>
#include <string>
#include <vector>

namespace brivane {

/// Those of the files that exist.
std::vector<std::string> ExistingFiles(const std::vector<std::string>& files);

/// Asks whether the files, which exist, may be replaced. True without asking when there are none.
bool ConfirmReplacing(QWidget* parent, const std::vector<std::string>& files);

/// The folder of the last file dialog: at first the user's documents folder, or the working
/// directory where there is none.
QString CurrentFolder();
/// Makes the folder of a file the current one, as a dialog that chose the file does.
void KeepFolderOf(const std::string& path);

/// A kind of file in a dialog.
struct FileFilter {
  QString Description;
  QString Pattern;  ///< "*.bv3"
};

/// What an open dialog shows.
struct OpenQuestion {
  std::vector<FileFilter> Filters;
  QString ProposedName;
  QString DefaultExtension;  ///< without its dot; for a typed name that has none
};

/// The path that the user chose; nothing after a cancel.
std::optional<std::string> AskOpenPath(QWidget* parent, const OpenQuestion& question);

/// What a save dialog shows.
struct SaveQuestion {
  QString Title;  ///< empty: the dialog's own
  FileFilter Filter;
  QString ProposedName;
  /// The path as it will be used for a typed one, its missing extension added.
  std::function<std::string(const std::string&)> Complete;
  /// Files that writing to a completed path would replace.
  std::function<std::vector<std::string>(const std::string&)> Replaced;
};

/// The completed path that the user chose and, where files would be replaced, confirmed; nothing
/// after a cancel.
std::optional<std::string> AskSavePath(QWidget* parent, const SaveQuestion& question);

}  // namespace brivane
