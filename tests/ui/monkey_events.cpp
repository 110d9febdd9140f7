#include <QApplication>
#include <QClipboard>
#include <QDir>
#include <QRadioButton>

#include "ui/monkey.h"

// The single events of a monkey, and the texts that it types.

namespace brivane {

QString NameOf(const QWidget* widget) {
  QString name = widget->objectName();
  if (name.isEmpty()) name = widget->metaObject()->className();
  if (widget->isWindow()) return name;
  return widget->window()->objectName() + "/" + name;
}

// --- Single events -------------------------------------------------------------------------------

void Monkey::FillField(QLineEdit* field, const QString& text) {
  intentions_.clear();
  Intend(field, [this, field] { Click(field); });
  Intend(field, [this] { Key(Qt::Key_A, Qt::ControlModifier); });
  // A short number is typed key by key, now and then.
  if (text.size() <= 5 && dice_.Chance(40)) {
    for (const QChar character : text) Intend(field, [this, character] { Type(character); });
    if (text.isEmpty()) Intend(field, [this] { Key(Qt::Key_Delete); });
    return;
  }
  Intend(field, [this, text] { Paste(text); });
}

QPoint Monkey::PlaceIn(const QWidget* widget) {
  return {dice_.Below(std::max(1, widget->width())), dice_.Below(std::max(1, widget->height()))};
}

QWidget* Monkey::AnyChild(QWidget* window) {
  std::vector<QWidget*> children;
  for (QWidget* child : window->findChildren<QWidget*>())
    if (child->window() == window && child->isVisible()) children.push_back(child);
  return children.empty() ? nullptr : dice_.Pick(children);
}

void Monkey::Click(QWidget* widget, Qt::MouseButton button) {
  const QPoint at = PlaceIn(widget);
  // Buttons with a round mark take clicks on the mark and its text alone.
  const QPoint mark(std::min(at.x(), 12), widget->height() / 2);
  const bool isRadio = qobject_cast<QRadioButton*>(widget) != nullptr;
  const char* const how = button == Qt::LeftButton ? "click on " : "odd click on ";
  Note(how + NameOf(widget) + QString(" at %1, %2").arg(at.x()).arg(at.y()));
  hands_.Click(widget, isRadio ? mark : at, button);
}

void Monkey::ClickSomewhere(QWidget* window) {
  QWidget* const there = AnyChild(window);
  if (there == nullptr) return;
  if (there->objectName() == "Terminate" && dice_.Chance(85)) return;
  if (dice_.Chance(15)) {
    Note("double click on " + NameOf(there));
    return hands_.DoubleClick(there, PlaceIn(there));
  }
  const int button = dice_.Below(10);
  Click(there, button == 0 ? Qt::RightButton : button == 1 ? Qt::MiddleButton : Qt::LeftButton);
}

void Monkey::HoldSomewhere(QWidget* widget) {
  Note("press on " + NameOf(widget));
  const QPoint at = PlaceIn(widget);
  hands_.Press(widget, at, dice_.Chance(60) ? Qt::LeftButton : Qt::RightButton);
}

void Monkey::Wheel(QWidget* widget) {
  const int notches = dice_.Between(-6, 6);
  const bool odd = dice_.Chance(15);
  Note(QString("wheel %1 over %2").arg(notches).arg(NameOf(widget)));
  hands_.Wheel(widget, PlaceIn(widget),
               odd ? QPoint(notches * 120, notches) : QPoint(0, notches * 120),
               odd ? Qt::ControlModifier : Qt::NoModifier);
}

void Monkey::Key(int key, Qt::KeyboardModifiers modifiers, const QString& text) {
  Note(QString("key %1 \"%2\"").arg(key | static_cast<int>(modifiers), 0, 16).arg(text));
  hands_.Key(key, modifiers, text);
}

void Monkey::Type(QChar character) {
  Note(QString("type %1").arg(character));
  hands_.Character(character);
}

void Monkey::Paste(const QString& text) {
  Note("paste \"" + text.left(60) + "\"");
  QGuiApplication::clipboard()->setText(text);
  hands_.Key(Qt::Key_V, Qt::ControlModifier);
}

void Monkey::AnyKey() {
  const int kind = dice_.Below(10);
  if (kind < 3) return Type(dice_.Pick(QString("0123456789+-.,; eExX/\\:*é€")));
  if (kind < 5)
    return Key(dice_.Pick(std::vector<int>{Qt::Key_A, Qt::Key_C, Qt::Key_X, Qt::Key_V, Qt::Key_Z,
                                           Qt::Key_Y, Qt::Key_Backspace, Qt::Key_Delete}),
               Qt::ControlModifier);
  if (kind < 6) return Key(dice_.Between(Qt::Key_A, Qt::Key_Z), Qt::AltModifier);
  const std::vector<int> keys = {Qt::Key_Tab,    Qt::Key_Tab,    Qt::Key_Backtab,  Qt::Key_Return,
                                 Qt::Key_Enter,  Qt::Key_Escape, Qt::Key_Up,       Qt::Key_Down,
                                 Qt::Key_Left,   Qt::Key_Right,  Qt::Key_Home,     Qt::Key_End,
                                 Qt::Key_PageUp, Qt::Key_F10,    Qt::Key_PageDown, Qt::Key_Delete,
                                 Qt::Key_F1,     Qt::Key_Menu,   Qt::Key_Backspace};
  const int key = dice_.Pick(keys);
  Key(key, key == Qt::Key_Backtab || dice_.Chance(10) ? Qt::ShiftModifier : Qt::NoModifier);
}

void Monkey::CloseWindow(QWidget* window) {
  Note("close " + NameOf(window));
  hands_.CloseFrame(window);
}

void Monkey::Resize(QWidget* window) {
  const QSize size(dice_.Between(1, 1500), dice_.Between(1, 1100));
  Note(QString("resize %1 to %2 x %3").arg(NameOf(window)).arg(size.width()).arg(size.height()));
  window->resize(size);
}

void Monkey::Drop(QWidget* window) {
  QList<QLineEdit*> fields = window->findChildren<QLineEdit*>();
  fields.removeIf([](const QLineEdit* field) { return !field->isVisible(); });
  if (fields.isEmpty()) return Wheel(window);
  QLineEdit* const field = dice_.Pick(fields);
  const QString text = AnyText();
  Note("drop \"" + text.left(60) + "\" on " + NameOf(field));
  hands_.Drop(field, PlaceIn(field), text);
}

void Monkey::DropFile(Dessin1& window) {
  const QStringList files = QDir(scratch_.Documents()).entryList(QDir::AllEntries | QDir::System);
  const QString file = dice_.Pick(files);
  Note("drop the file " + file);
  hands_.Drop(window.Picture1, PlaceIn(window.Picture1), {}, scratch_.Documents() + "/" + file);
}

// --- Texts ---------------------------------------------------------------------------------------

QString Monkey::AnyText() {
  if (dice_.Chance(60)) return AnyNumber();
  return dice_.Pick(QStringList{"", " ", "sail", "../../up", "/dev/null", "a\tb\nc", "%1%n%s",
                                QString::fromUtf8("été 日本"), QString(5000, '9'),
                                QString(QChar(0)), QString(QChar(0xD800)), "&x", "<b>x</b>"});
}

QString Monkey::AnyNumber() {
  static const QStringList kOdd = {"0",
                                   "-0",
                                   "1",
                                   "-1",
                                   "1e308",
                                   "1E400",
                                   "-1d300",
                                   "32767",
                                   "32768",
                                   "-32769",
                                   "65536",
                                   ".5",
                                   ",5",
                                   "1;5",
                                   "1 2 3",
                                   "--5",
                                   "1e-400",
                                   "nan",
                                   "inf",
                                   "&H10",
                                   "1.797E308",
                                   "2147483648",
                                   "99999999999999999999",
                                   "5",
                                   "6",
                                   "100",
                                   "200"};
  return dice_.Chance(50) ? dice_.Pick(kOdd) : QString::number(dice_.Between(-100, 9000));
}

QString Monkey::NumberFor(const QWidget* field) {
  const QString name = field->objectName();
  if (name == "SailName") return AnyText();
  if (dice_.Chance(25)) return AnyNumber();
  const auto between = [this](int least, int most) {
    return QString::number(dice_.Between(least, most));
  };
  if (name == "Luff" || name == "Diag") return between(3000, 8000);
  if (name == "Foot") return between(1500, 5000);
  if (name == "Gaff") return between(0, 3000);
  if (name == "GaffA") return between(10, 80);
  if (name == "LuffRake" || name == "Twistxt") return between(-10, 20);
  if (name.endsWith("Pos")) return between(30, 70);
  if (name.endsWith("Rond")) return between(-200, 300);
  if (name == "ClothWidth") return between(300, 1500);
  return between(0, 40);
}

}  // namespace brivane
