#pragma once

#include <QKeyEvent>
#include <QLineEdit>
#include <array>

#include "model/dimension_fields.h"

namespace brivane {

/// A field with the text that the program put into it: as long as it stands there, nothing has
/// been typed and nothing is read back.
struct TypedField {
  QLineEdit* Edit = nullptr;
  QString Shown;

  bool IsTyped() const { return Edit->text() != Shown; }
  void Show(const QString& text);
  void ShowUnlessTyped(const QString& text) {
    if (!IsTyped()) Show(text);
  }
};

/// The depth field of a height: 0 foot, 1 middle, 2 top.
inline DimensionField DepthField(std::size_t height) {
  constexpr std::array<DimensionField, 3> kDepths = {
      DimensionField::SDepth0, DimensionField::SDepth1, DimensionField::SDepth2};
  return kDepths.at(height);
}

/// True for a loss of the focus to another control; leaving for another program, a message or a
/// menu is not leaving the field.
bool LeavesField(const QEvent* event);

/// True for a text that is dropped onto a field which has not got the focus: it is to have it
/// first, so that the text is read back when the field is left.
bool IsDropElsewhere(const QEvent* event, const QLineEdit* field);

/// True where a key would type a character that the field does not take.
bool IsRefusedKey(DimensionField field, const QKeyEvent* event);

}  // namespace brivane
