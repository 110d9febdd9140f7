#include "ui/save_command.h"

#include "ui/current_sail.h"
#include "ui/file_dialogs.h"
#include "ui/messages.h"
#include "ui/qt_text.h"

namespace brivane {

namespace {

SaveQuestion QuestionOf(SaveKind kind) {
  const Sail& sail = Current().TheSail;
  const SaveDialogTexts dialog = DialogTexts(kind);
  return {ToQt(dialog.Title),
          {ToQt(dialog.Description), ToQt(dialog.Pattern)},
          ToQt(ProposedName(kind, sail.Definition.SailName)),
          [kind](const std::string& path) { return WithExtension(kind, path); },
          [kind, &sail](const std::string& path) { return FilesToReplace(kind, sail, path); }};
}

SaveOutcome SaveTo(SaveKind kind, const std::string& path) {
  const WaitCursor wait;
  return SaveSail(kind, Current().TheSail, path, Current().Language, Current().DecimalMark);
}

}  // namespace

void SaveCommand(QWidget* parent, SaveKind kind) {
  RunGuarded(parent, ToQt(SaveCommandTitle()), [parent, kind] {
    const std::optional<std::string> path = AskSavePath(parent, QuestionOf(kind));
    if (!path) return;
    const SaveOutcome outcome = SaveTo(kind, *path);
    if (outcome.Failure)
      ShowMessage(parent, ToQt(outcome.Failure->Title), ToQt(outcome.Failure->Text));
    else if (outcome.Confirmation)
      ShowMessage(parent, ToQt(outcome.Confirmation->Title), ToQt(outcome.Confirmation->Text));
  });
}

void SaveData(QWidget* parent, std::int16_t kind) {
  if (const std::optional<SaveKind> asked = SaveKindOfNumber(kind)) SaveCommand(parent, *asked);
}

}  // namespace brivane
