#include "ui/monkey_hands.h"

#include <QApplication>
#include <QDragEnterEvent>
#include <QInputMethodEvent>
#include <QMimeData>
#include <QPointer>
#include <QTest>
#include <QUrl>
#include <QWheelEvent>

namespace brivane {

namespace {

constexpr int kSlowly = 2000;  // ms between clicks that are no double click
constexpr int kQuickly = 20;

QWindow* FrameOf(const QWidget* widget) { return widget->window()->windowHandle(); }

}  // namespace

void MonkeyHands::Key(int key, Qt::KeyboardModifiers modifiers, const QString& text) {
  const QPointer<QWindow> window = QGuiApplication::focusWindow();
  if (window == nullptr) return;
  qt_handleKeyEvent(window, QEvent::KeyPress, key, modifiers, text);
  if (window != nullptr) qt_handleKeyEvent(window, QEvent::KeyRelease, key, modifiers, text);
}

void MonkeyHands::Character(QChar character) {
  const QChar upper = character.toUpper();
  const bool hasKey = upper.unicode() >= ' ' && upper.unicode() <= '_';
  Key(hasKey ? upper.unicode() : int{Qt::Key_unknown}, {}, QString(character));
}

void MonkeyHands::Send(QWidget* widget, QPoint at, QEvent::Type type, Qt::MouseButton button) {
  QWindow* const window = FrameOf(widget);
  if (window == nullptr) return;
  const QPoint local = widget->mapTo(widget->window(), at);
  qt_handleMouseEvent(window, local, window->mapToGlobal(local), held_, button, type, {}, time_);
}

void MonkeyHands::Press(QWidget* widget, QPoint at, Qt::MouseButton button) {
  Move(widget, at);
  time_ += kSlowly;
  held_ = button;
  Send(widget, at, QEvent::MouseButtonPress, button);
}

void MonkeyHands::Move(QWidget* widget, QPoint at) {
  time_ += kQuickly;
  Send(widget, at, QEvent::MouseMove, Qt::NoButton);
}

void MonkeyHands::Release(QWidget* widget, QPoint at) {
  if (held_ == Qt::NoButton) return;
  const Qt::MouseButton button = held_;
  held_ = Qt::NoButton;
  time_ += kQuickly;
  Send(widget, at, QEvent::MouseButtonRelease, button);
}

void MonkeyHands::Click(QWidget* widget, QPoint at, Qt::MouseButton button) {
  const QPointer<QWidget> there = widget;
  Press(widget, at, button);
  // The press may have opened a menu in which the button was released.
  there != nullptr ? Release(there, at) : ReleaseAnywhere();
}

void MonkeyHands::ReleaseAnywhere() {
  QWidget* const window = QApplication::activeWindow();
  if (window != nullptr && window->isVisible()) return Release(window, {1, 1});
  held_ = Qt::NoButton;
}

void MonkeyHands::DoubleClick(QWidget* widget, QPoint at) {
  const QPointer<QWidget> there = widget;
  Click(widget, at);
  if (there == nullptr || FrameOf(there) == nullptr) return;
  time_ -= kSlowly;
  Click(there, at);
}

void MonkeyHands::Wheel(QWidget* widget, QPoint at, QPoint turn, Qt::KeyboardModifiers modifiers) {
  QWindow* const window = FrameOf(widget);
  if (window == nullptr) return;
  const QPoint local = widget->mapTo(widget->window(), at);
  QWheelEvent event(local, window->mapToGlobal(local), {}, turn, held_, modifiers,
                    Qt::NoScrollPhase, false);
  QCoreApplication::sendEvent(window, &event);
}

void MonkeyHands::Drop(QWidget* widget, QPoint at, const QString& text, const QString& file) {
  QWindow* const window = FrameOf(widget);
  if (window == nullptr) return;
  const QPoint local = widget->mapTo(widget->window(), at);
  QMimeData data;
  if (!text.isEmpty()) data.setText(text);
  if (!file.isEmpty()) data.setUrls({QUrl::fromLocalFile(file)});
  QDragEnterEvent enter(local, Qt::CopyAction, &data, Qt::LeftButton, {});
  QCoreApplication::sendEvent(window, &enter);
  QDragMoveEvent move(local, Qt::CopyAction, &data, Qt::LeftButton, {});
  QCoreApplication::sendEvent(window, &move);
  if (!move.isAccepted()) {
    QDragLeaveEvent leave;
    QCoreApplication::sendEvent(window, &leave);
    return;
  }
  QDropEvent drop(local, Qt::CopyAction, &data, Qt::LeftButton, {});
  QCoreApplication::sendEvent(window, &drop);
}

void MonkeyHands::Commit(const QString& text) {
  QObject* const focus = QGuiApplication::focusObject();
  if (focus == nullptr) return;
  QInputMethodEvent event;
  event.setCommitString(text);
  QCoreApplication::sendEvent(focus, &event);
}

void MonkeyHands::CloseFrame(QWidget* window) {
  if (FrameOf(window) != nullptr) FrameOf(window)->close();
}

}  // namespace brivane
