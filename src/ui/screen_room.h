#pragma once

#include <QWidget>
#include <optional>

#include "model/language.h"

namespace brivane {

/// The largest size that a window can have on its screen with its frame around it, in the toolkit's
/// units: a screen of 1366 pixels that shows everything twice as large is 683 units wide. As long
/// as the desktop has framed no window of the program, a frame is taken for granted.
QSize RoomFor(const QWidget& window);

/// Shrinks a window that is larger than its room, and moves one that stands partly off the screen
/// onto it. A maximised or minimised one is left to the desktop.
void KeepOnScreen(QWidget& window);

/// What the contents of a window are arranged for.
class Arrangement {
 public:
  /// Whether the room of the window, or the language of its captions, is another one than when this
  /// was last asked.
  bool IsOutdated(const QWidget& window);

 private:
  std::optional<QSize> room_;
  Language language_ = Language::English;
};

}  // namespace brivane
