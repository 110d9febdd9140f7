#include "ui/accessible.h"

#include <QAccessible>
#include <QAccessibleWidget>
#include <algorithm>

#include "ui/menu1.h"
#include "ui/picture_box.h"
#include "ui/turn_icon.h"

namespace brivane {

namespace {

/// A picture. Its words are made when they are asked for: turning a sail must not wait for them.
class Picture : public QAccessibleWidget {
 public:
  explicit Picture(PictureBox* box) : QAccessibleWidget(box, QAccessible::Graphic), box_(*box) {}

  QString text(QAccessible::Text kind) const override {
    if (kind == QAccessible::Description && box_.Describe) return box_.Describe();
    return QAccessibleWidget::text(kind);
  }

 private:
  const PictureBox& box_;
};

QAccessibleInterface* InterfaceOf(const QString&, QObject* object) {
  if (auto* picture = dynamic_cast<PictureBox*>(object)) return new Picture(picture);
  if (auto* icon = dynamic_cast<TurnIcon*>(object))
    return new QAccessibleWidget(icon, QAccessible::Graphic);
  if (auto* start = dynamic_cast<Menu1*>(object))
    return new QAccessibleWidget(start, QAccessible::Dialog);
  return nullptr;
}

void PlaceTabStop(const std::vector<QRadioButton*>& options) {
  const bool none = std::none_of(options.begin(), options.end(),
                                 [](const QRadioButton* option) { return option->isChecked(); });
  for (QRadioButton* option : options)
    option->setFocusPolicy(none || option->isChecked() ? Qt::StrongFocus : Qt::ClickFocus);
}

}  // namespace

void DescribeOwnWidgets() { QAccessible::installFactory(InterfaceOf); }

void TabToChecked(const std::vector<QRadioButton*>& options) {
  for (QRadioButton* option : options)
    QObject::connect(option, &QRadioButton::toggled, option, [options] { PlaceTabStop(options); });
  PlaceTabStop(options);
}

QString Spoken(const QString& caption) {
  QString spoken = caption;
  for (const char* mark : {"&", " .", "="}) spoken.remove(mark);
  return spoken.simplified();
}

}  // namespace brivane
