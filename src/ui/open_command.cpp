#include "ui/open_command.h"

#include <stdexcept>

#include "export/save_kinds.h"
#include "geometry/outline.h"
#include "model/sail_file.h"
#include "ui/create1.h"
#include "ui/current_sail.h"
#include "ui/design_command.h"
#include "ui/dessin1.h"
#include "ui/file_dialogs.h"
#include "ui/messages.h"
#include "ui/qt_text.h"
#include "ui/texts.h"
#include "ui/windows.h"

namespace brivane {

namespace {

OpenQuestion Question() {
  const std::string& name = Current().TheSail.Definition.SailName;
  return {
      {{"Brivane2000(.bv3)", "*.bv3"}, {"Brivane4(.bv4)", "*.bv4"}}, ToQt(name + ".bv3"), "bv3"};
}

std::string_view ReaderTitle(SailFileKind kind) {
  return kind == SailFileKind::OldSail ? kReadSailDataV4Title : kReadSailDataTitle;
}

void Read(SailFileKind kind, const std::string& path) {
  const WaitCursor wait;
  SailDefinition& sail = Current().TheSail.Definition;
  if (kind == SailFileKind::OldSail) return ReadSailDataFileV4(path, sail);
  ReadSailDataFile(path, sail, Current().DecimalMark);
}

/// Whether a reader that failed has changed more than the name.
bool IsHalfRead(const SailDefinition& before) {
  SailDefinition named = before;
  named.SailName = Current().TheSail.Definition.SailName;
  return Current().TheSail.Definition != named;
}

/// What a reader that failed halfway has changed is shown as it is, without panels.
void ShowHalfRead(Windows& windows, QWidget* parent) {
  RunGuarded(parent, TitleWith(texts::kOpenTitle), [] { RecomputeOutline(Current().TheSail); });
  windows.Dimensions().Begin();
  windows.Picture().FitAndShow();
}

void OpenFile(Windows& windows, QWidget* parent, const std::string& path) {
  SailDefinition& sail = Current().TheSail.Definition;
  const std::string_view title = FileTitle(path);
  sail.SailName = SailNameOfFile(title);
  const SailFileKind kind = SailFileKindOf(title);
  if (kind == SailFileKind::Unknown) throw std::runtime_error(std::string(texts::kInvalidFileType));
  const SailDefinition before = sail;
  if (const std::optional<QString> failure = WordsOfFailure([&] { Read(kind, path); })) {
    const bool halfRead = IsHalfRead(before);
    // The file's count of panels is that of a layout that there is not.
    if (halfRead) sail.PanelCount = 0;
    ShowMessage(parent, TitleWith(ReaderTitle(kind)), *failure);
    if (halfRead) ShowHalfRead(windows, parent);
    return;
  }
  windows.Dimensions().Begin();
  RunDesignPass(windows, parent, TitleWith(texts::kOpenTitle));
  windows.Picture().FitAndShow();
}

}  // namespace

void OpenCommand(Windows& windows, QWidget* parent) {
  RunGuarded(parent, TitleWith(texts::kOpenTitle), [&] {
    const std::optional<std::string> path = AskOpenPath(parent, Question());
    if (!path) throw std::runtime_error(FromQt(CurrentText(texts::kCancelSelected)));
    OpenFile(windows, parent, *path);
  });
}

void OpenSail(Windows& windows, QWidget* parent, const std::string& path) {
  KeepFolderOf(path);
  RunGuarded(parent, TitleWith(texts::kOpenTitle), [&] { OpenFile(windows, parent, path); });
}

}  // namespace brivane
