#pragma once

#include <QScrollArea>

namespace brivane {

/// A part of a window that scrolls where the screen has no room for all of it. Where there is room
/// it is as large as its contents, which cannot be told from contents without it. What gets the
/// focus scrolls into view; the wheel turns the page, and a bar on the page only when it has the
/// focus.
class ScrollBox : public QScrollArea {
 public:
  /// Owns the contents, which have a layout.
  explicit ScrollBox(QWidget* contents);

  /// Lets the contents scroll down, or across, or both, as far as the window with all that is in it
  /// would be larger than the room. The window has a layout.
  void FitInto(QSize room);

  /// Enlarges the window, up to the room, as long as not all of the page is to be seen.
  void ShowMore(QSize room);

  bool Scrolls() const { return bool(scrolling_); }

  QSize sizeHint() const override;
  QSize minimumSizeHint() const override;

 protected:
  bool eventFilter(QObject* object, QEvent* event) override;

 private:
  void Let(Qt::Orientations scrolling);
  QSize WithBars(QSize size) const;
  void Reveal(QWidget* focused);

  Qt::Orientations scrolling_;
};

}  // namespace brivane
