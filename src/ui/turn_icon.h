#pragma once

#include <QWidget>

namespace brivane {

/// A small picture beside a scroll bar: an arrow about the axis that the bar turns the view round.
class TurnIcon : public QWidget {
 public:
  TurnIcon(Qt::Orientation axis, QWidget* parent);
  QSize sizeHint() const override;

 protected:
  void paintEvent(QPaintEvent* event) override;

 private:
  Qt::Orientation axis_;
};

}  // namespace brivane
