#include "ui/screen_room.h"

#include <QApplication>
#include <QScreen>
#include <QWindow>
#include <algorithm>

#include "ui/current_sail.h"

namespace brivane {

namespace {

/// What the desktop has put round the windows of the program.
QMargins FrameMargins() {
  constexpr QMargins kUsual(4, 28, 4, 4);
  for (const QWidget* window : QApplication::topLevelWidgets()) {
    const bool isFramed = window->isVisible() && window->windowHandle() != nullptr &&
                          !window->windowHandle()->frameMargins().isNull();
    if (isFramed && window->windowType() != Qt::Popup)
      return window->windowHandle()->frameMargins();
  }
  return kUsual;
}

/// Where a part of a length begins that is to lie within another one, or at its start where it is
/// longer.
int Within(int start, int length, int least, int room) {
  return std::max(least, std::min(start, least + room - length));
}

}  // namespace

QSize RoomFor(const QWidget& window) {
  const QMargins frame = FrameMargins();
  return window.screen()->availableGeometry().marginsRemoved(frame).size();
}

void KeepOnScreen(QWidget& window) {
  if (window.isMaximized() || window.isFullScreen() || window.isMinimized()) return;
  const QSize held = window.size().boundedTo(RoomFor(window));
  if (held != window.size()) window.resize(held);
  // One that the desktop has not placed yet is placed by it.
  if (!window.isVisible() && !window.testAttribute(Qt::WA_Moved)) return;
  const QRect screen = window.screen()->availableGeometry();
  const QRect place = window.geometry().marginsAdded(FrameMargins());
  const QPoint to(Within(place.left(), place.width(), screen.left(), screen.width()),
                  Within(place.top(), place.height(), screen.top(), screen.height()));
  if (to != place.topLeft()) window.move(window.pos() + to - place.topLeft());
}

bool Arrangement::IsOutdated(const QWidget& window) {
  const QSize room = RoomFor(window);
  if (room_ == room && language_ == Current().Language) return false;
  room_ = room;
  language_ = Current().Language;
  return true;
}

}  // namespace brivane
