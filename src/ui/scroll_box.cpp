#include "ui/scroll_box.h"

#include <QApplication>
#include <QEvent>
#include <QLayout>
#include <QScrollBar>
#include <array>

namespace brivane {

ScrollBox::ScrollBox(QWidget* contents) {
  setFrameShape(QFrame::NoFrame);
  setFocusPolicy(Qt::NoFocus);
  setWidgetResizable(true);
  setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Preferred);
  setWidget(contents);
  for (QScrollBar* bar : contents->findChildren<QScrollBar*>()) bar->installEventFilter(this);
  connect(qApp, &QApplication::focusChanged, this,
          [this](QWidget*, QWidget* focused) { Reveal(focused); });
}

void ScrollBox::FitInto(QSize room) {
  constexpr std::array<Qt::Orientations, 4> kLeastFirst = {
      Qt::Orientations(), Qt::Vertical, Qt::Horizontal, Qt::Horizontal | Qt::Vertical};
  QLayout* const whole = window()->layout();
  // What is only tried must not change the size of the window.
  whole->setSizeConstraint(QLayout::SetNoConstraint);
  for (const Qt::Orientations scrolling : kLeastFirst) {
    Let(scrolling);
    const QSize least = whole->totalMinimumSize();
    if (least.boundedTo(room) == least) break;
  }
  whole->setSizeConstraint(QLayout::SetDefaultConstraint);
}

void ScrollBox::ShowMore(QSize room) {
  window()->layout()->activate();
  if (!scrolling_) return;
  window()->resize(window()->size().expandedTo(window()->sizeHint()).boundedTo(room));
}

void ScrollBox::Let(Qt::Orientations scrolling) {
  scrolling_ = scrolling;
  setHorizontalScrollBarPolicy(scrolling & Qt::Horizontal ? Qt::ScrollBarAsNeeded
                                                          : Qt::ScrollBarAlwaysOff);
  setVerticalScrollBarPolicy(scrolling & Qt::Vertical ? Qt::ScrollBarAsNeeded
                                                      : Qt::ScrollBarAlwaysOff);
  // Of groups within the page the innermost first: each tells the one around it what it needs now.
  const QList<QWidget*> parts = widget()->findChildren<QWidget*>();
  for (auto part = parts.crbegin(); part != parts.crend(); ++part)
    if ((*part)->layout() != nullptr) (*part)->layout()->activate();
  widget()->layout()->activate();
  updateGeometry();
  window()->layout()->activate();
}

QSize ScrollBox::WithBars(QSize size) const {
  if (scrolling_ & Qt::Vertical) size.rwidth() += verticalScrollBar()->sizeHint().width();
  if (scrolling_ & Qt::Horizontal) size.rheight() += horizontalScrollBar()->sizeHint().height();
  return size;
}

QSize ScrollBox::sizeHint() const { return WithBars(widget()->sizeHint()); }

QSize ScrollBox::minimumSizeHint() const {
  constexpr QSize kLeast(160, 100);
  QSize least = WithBars(widget()->minimumSizeHint());
  if (scrolling_ & Qt::Horizontal) least.setWidth(kLeast.width());
  if (scrolling_ & Qt::Vertical) least.setHeight(kLeast.height());
  return least;
}

bool ScrollBox::eventFilter(QObject* object, QEvent* event) {
  auto* bar = qobject_cast<QScrollBar*>(object);
  const bool isOnPage = bar != nullptr && widget()->isAncestorOf(bar);
  if (isOnPage && scrolling_ && event->type() == QEvent::Wheel && !bar->hasFocus()) {
    event->ignore();  // it goes on to the page
    return true;
  }
  return QScrollArea::eventFilter(object, event);
}

void ScrollBox::Reveal(QWidget* focused) {
  // A control that is pressed must not move away under the pointer.
  const bool isPressed = QApplication::mouseButtons() != Qt::NoButton;
  if (focused == nullptr || isPressed || !widget()->isAncestorOf(focused)) return;
  // By its whole size: the toolkit's own way would show no more of a field than its cursor.
  constexpr int kRoomAround = 12;
  const QRect place(focused->mapTo(widget(), QPoint(0, 0)), focused->size());
  ensureVisible(place.center().x(), place.center().y(), place.width() / 2 + kRoomAround,
                place.height() / 2 + kRoomAround);
}

}  // namespace brivane
