#include "ui/fitting_label.h"

namespace brivane {

void FittingLabel::SetTexts(const QStringList& texts) {
  if (texts == texts_) return;
  texts_ = texts;
  updateGeometry();
  ShowFitting();
}

void FittingLabel::resizeEvent(QResizeEvent* event) {
  QLabel::resizeEvent(event);
  ShowFitting();
}

QSize FittingLabel::HintFor(const QString& text) const {
  const QSize words = fontMetrics().size(Qt::TextSingleLine, text);
  const int frame = 2 * margin();
  return words.grownBy(contentsMargins()) + QSize(frame, frame);
}

void FittingLabel::ShowFitting() {
  for (const QString& text : texts_) {
    if (text != texts_.back() && HintFor(text).width() > width()) continue;
    if (text != QLabel::text()) setText(text);
    return;
  }
}

}  // namespace brivane
