#pragma once

#include <QLabel>
#include <QStringList>

namespace brivane {

/// A label in one line that says as much as it has room for.
class FittingLabel : public QLabel {
 public:
  using QLabel::QLabel;

  /// Texts that say the same, the longest first. The last one always has room.
  void SetTexts(const QStringList& texts);

  QSize sizeHint() const override { return HintFor(texts_.value(0)); }
  QSize minimumSizeHint() const override { return HintFor(texts_.value(texts_.size() - 1)); }

 protected:
  void resizeEvent(QResizeEvent* event) override;

 private:
  QSize HintFor(const QString& text) const;
  void ShowFitting();

  QStringList texts_;
};

}  // namespace brivane
