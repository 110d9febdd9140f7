#pragma once

#include <QLineEdit>
#include <QString>
#include <QTemporaryDir>
#include <functional>
#include <vector>

#include "ui/create1.h"
#include "ui/current_sail.h"
#include "ui/dessin1.h"
#include "ui/menu1.h"
#include "ui/messages.h"
#include "ui/patch1.h"
#include "ui/sail_form.h"
#include "ui/windows.h"

namespace brivane {

/// A message as the user would see it.
struct SeenMessage {
  QString Title;
  QString Text;
};

/// The program on the desk of a user: its windows with a fresh sail, in a language. Messages are
/// written down instead of shown, unless asked for.
class Desk {
 public:
  explicit Desk(Language language = Language::English);
  ~Desk();

  Menu1& Start() { return windows_->Start(); }
  Create1& Dimensions() { return windows_->Dimensions(); }
  Dessin1& Picture() { return windows_->Picture(); }
  SailForm& Mould() { return windows_->Mould(); }
  Patch1& Patches() { return windows_->Patches(); }
  Windows& All() { return *windows_; }

  /// Presses "Create a new sail" and waits for the dimensions window.
  void CreateSail();
  /// Creates a sail and validates it unchanged: the drawing window is in front.
  void DesignDefaultSail();

  /// Brings a window to the front and waits for it.
  void GoTo(QWidget& window);

  /// Lets real message boxes come up.
  void ShowRealMessages();
  std::vector<SeenMessage> Seen;
  std::function<void()> WhileMessageIsUp;  ///< run each time a message is written down

 private:
  std::unique_ptr<Windows> windows_;
};

SailDefinition& Definition();

/// Clicks into the field, selects all, types the text and leaves the field with the tab key.
void TypeInto(QLineEdit* field, const QString& text);
/// The same without leaving the field.
void TypeAndStay(QLineEdit* field, const QString& text);

/// Types one letter that no test keyboard has.
void TypeLetter(QLineEdit* field, QChar letter);

/// Drops a text, dragged from elsewhere, into the middle of the field.
void DropInto(QLineEdit* field, const QString& text);

/// Presses a button with the mouse.
void Press(QAbstractButton* button);

/// Turns the wheel over a place of a picture, by eighths of a degree.
void Wheel(QWidget* picture, QPoint at, int angle);

/// Whether one of the texts on a picture is this one.
bool Shows(const PictureBox* picture, const std::string& text);

bool IsYellow(const QLineEdit* field);

/// A caption without its mnemonic.
QString Plain(QString caption);

/// Runs the event loop of the program, takes the step in it, and tells whether that ended it.
bool EndsTheProgram(const std::function<void()>& step);

/// Runs the steps as soon as a dialog of this object name is up, with the dialog. Fails the test
/// when none comes up within seconds.
void WhenDialogIsUp(const QString& name, const std::function<void(QWidget*)>& steps);

/// Types a file name into a file dialog that is up and presses its accepting button.
void ChooseFile(QWidget* dialog, const QString& path);

}  // namespace brivane
