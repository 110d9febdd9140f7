#include "ui/typed_field.h"

#include <QFocusEvent>

namespace brivane {

void TypedField::Show(const QString& text) {
  Shown = text;
  if (Edit->text() != text) Edit->setText(text);
}

bool LeavesField(const QEvent* event) {
  if (event->type() != QEvent::FocusOut) return false;
  const Qt::FocusReason reason = static_cast<const QFocusEvent*>(event)->reason();
  return reason != Qt::ActiveWindowFocusReason && reason != Qt::PopupFocusReason;
}

bool IsDropElsewhere(const QEvent* event, const QLineEdit* field) {
  return event->type() == QEvent::Drop && field->window()->focusWidget() != field;
}

bool IsRefusedKey(DimensionField field, const QKeyEvent* event) {
  if (event->modifiers() & (Qt::ControlModifier | Qt::AltModifier | Qt::MetaModifier)) return false;
  for (const char32_t character : event->text().toStdU32String())
    if (QChar::isPrint(character) && !MayBeTyped(field, character)) return true;
  return false;
}

}  // namespace brivane
