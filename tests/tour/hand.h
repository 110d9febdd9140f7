#pragma once

#include <QAbstractButton>
#include <QComboBox>
#include <QLineEdit>
#include <QMenuBar>
#include <QScrollBar>
#include <QString>
#include <QWidget>
#include <deque>
#include <functional>
#include <stdexcept>
#include <vector>

namespace brivane::tour {

/// Something stood not where the tour expects it, or did not happen.
class LostWay : public std::runtime_error {
 public:
  explicit LostWay(const QString& words) : std::runtime_error(words.toStdString()) {}
};

/// The hand of a user: presses real keys and real mouse buttons in the windows that are up. Every
/// event enters where the windowing system's own events do, so that focus, activation and modal
/// dialogs count. Throws LostWay where a thing is not to be found or does not happen in time.
class Hand : public QObject {
 public:
  Hand();

  /// The shown window with an object name, in front; waits for both.
  QWidget& Window(const char* name);
  /// The shown control with an object name in a window.
  template <class Control>
  Control& In(QWidget& window, const QString& name) {
    auto* control = window.findChild<Control*>(name);
    if (control == nullptr || !control->isVisible())
      throw LostWay(name + " is not shown in " + window.objectName());
    return *control;
  }

  /// Clicks the middle of a control, or a place of it, with the left button.
  void Click(QWidget& control);
  void ClickAt(QWidget& control, QPoint at);
  /// Clicks the mark of an option button, whose widget may be wider than its text.
  void Choose(QAbstractButton& option);
  /// Opens a list and picks one of its lines, counted from 0.
  void ChooseLine(QComboBox& list, int line);
  /// Drags from one place of a control to another. While the button is still down the action runs.
  void Drag(QWidget& control, QPoint from, QPoint to, Qt::MouseButton button,
            const std::function<void()>& midway = {});
  /// Drags the handle of a scroll bar until the bar has the value, or the nearest one to be had.
  void Turn(QScrollBar& bar, int value);
  /// Presses a key, in whatever has the focus of the window in front.
  void Press(int key, Qt::KeyboardModifiers modifiers = Qt::NoModifier);
  /// Types characters in whatever has the focus of the window in front.
  void Type(const QString& text);
  /// Clicks a field, replaces its text by the typed one and leaves it with the Tab key.
  void Fill(QLineEdit& field, const QString& text);
  /// Opens the menus and picks the last of the named entries.
  void Pick(QWidget& window, const std::vector<const char*>& names);

  /// What to do with the next modal dialog that comes up; it must have the object name.
  void WhenAsked(const char* dialogName, std::function<void(QWidget&)> answer);
  /// Waits until every announced dialog has come and gone.
  void AllAnswered();
  /// Types a path into a file dialog and accepts it.
  void GivePath(QWidget& dialog, const QString& path);
  /// Clicks the button of a message with a text, or its only one.
  void ClickButton(QWidget& box, const QString& text = {});

  /// Lets the program work until nothing is left to do for a moment.
  void Rest(int milliseconds = 120);

  /// Throws what went wrong while a dialog was answered.
  void Check();

 private:
  struct Question {
    QString Name;
    std::function<void(QWidget&)> Answer;
  };

  void Watch();
  void Answer(QWidget& dialog);

  std::deque<Question> expected_;
  std::vector<QWidget*> atWork_;  ///< dialogs that are being answered
  QString lost_;                  ///< the first failure inside a dialog
};

}  // namespace brivane::tour
