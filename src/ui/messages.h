#pragma once

#include <QString>
#include <QWidget>
#include <functional>
#include <optional>

namespace brivane {

/// Shows one message and waits for its OK.
using MessageShower =
    std::function<void(QWidget* parent, const QString& title, const QString& text)>;

/// Replaces the message box, for tests; an empty function brings it back.
void SetMessageShower(MessageShower shower);

/// Shows a message with an OK button, on top of the parent, in the arrow cursor.
void ShowMessage(QWidget* parent, const QString& title, const QString& text);

/// Runs the action. Any failure is caught here, and only here; its words come back, nothing after
/// an action that ended well.
std::optional<QString> WordsOfFailure(const std::function<void()>& action);

/// Runs the action and tells any failure in a message with the title. True when the action ended
/// well.
bool RunGuarded(QWidget* parent, const QString& title, const std::function<void()>& action);

/// Shows the hourglass as long as it lives.
class WaitCursor {
 public:
  WaitCursor();
  ~WaitCursor();
  WaitCursor(const WaitCursor&) = delete;
  WaitCursor& operator=(const WaitCursor&) = delete;
};

}  // namespace brivane
