#pragma once

#include <QPoint>
#include <QString>
#include <QWidget>
#include <QWindow>

namespace brivane {

/// Mouse and keyboard. Events go the way of those of the platform: through the window under the
/// pointer or with the keyboard, by its shortcuts, its modal dialogs, its popups and its focus.
class MonkeyHands {
 public:
  /// Presses and releases a key, to whoever has the keyboard.
  void Key(int key, Qt::KeyboardModifiers modifiers = {}, const QString& text = {});
  /// The key of a character.
  void Character(QChar character);

  /// A place of a widget, in its own coordinates.
  void Press(QWidget* widget, QPoint at, Qt::MouseButton button);
  void Move(QWidget* widget, QPoint at);
  /// Releases the held button, if any.
  void Release(QWidget* widget, QPoint at);
  void ReleaseAnywhere();
  void Click(QWidget* widget, QPoint at, Qt::MouseButton button = Qt::LeftButton);
  void DoubleClick(QWidget* widget, QPoint at);
  void Wheel(QWidget* widget, QPoint at, QPoint turn, Qt::KeyboardModifiers modifiers);
  Qt::MouseButton Held() const { return held_; }

  /// Drops a text, or a file, that comes from another program.
  void Drop(QWidget* widget, QPoint at, const QString& text, const QString& file = {});
  /// What an input method writes.
  void Commit(const QString& text);

  /// Closes a window by its frame.
  void CloseFrame(QWidget* window);

 private:
  void Send(QWidget* widget, QPoint at, QEvent::Type type, Qt::MouseButton button);

  Qt::MouseButton held_ = Qt::NoButton;
  int time_ = 10000;  ///< ms, as the events tell it
};

}  // namespace brivane
