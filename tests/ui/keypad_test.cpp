#include <QTest>

#include "geometry/outline.h"
#include "ui/desk.h"

using namespace brivane;

/// The decimal mark of the keypad, which is a point or a comma by the keyboard and by what the
/// desktop makes of it: every numeric field of every window takes both, in both languages.
class KeypadTest : public QObject {
  Q_OBJECT

 private slots:
  void EveryFieldTakesBothMarks_data();
  void EveryFieldTakesBothMarks();
};

namespace {

struct Mark {
  Qt::Key Key;
  const char* Text;
};

/// The key and the character need not agree.
constexpr std::array<Mark, 4> kMarks = {
    {{Qt::Key_Period, "."}, {Qt::Key_Comma, ","}, {Qt::Key_Period, ","}, {Qt::Key_Comma, "."}}};

void PressKeypad(QWidget* field, int key, const QString& text) {
  for (const QEvent::Type type : {QEvent::KeyPress, QEvent::KeyRelease}) {
    QKeyEvent event(type, key, Qt::KeypadModifier, text);
    QApplication::sendEvent(field, &event);
  }
}

/// Types digits, a mark where there is one, and a 5, all on the keypad.
void TypeOnKeypad(QLineEdit* field, const QString& digits, const Mark* mark) {
  TypeAndStay(field, "");
  for (const QChar digit : digits) PressKeypad(field, digit.unicode(), digit);
  if (mark != nullptr) PressKeypad(field, mark->Key, mark->Text);
  PressKeypad(field, Qt::Key_5, "5");
}

struct Sail {
  SailDefinition Definition;
  PatchSizes Patches;
};

void Restore(QWidget* window, const brivane::Sail& sail) {
  Current().TheSail = sail;
  dynamic_cast<ProgramWindow*>(window)->Activated();
}

/// What the sail has become after a text was typed into a field and the field was left.
Sail After(QLineEdit* field, const QString& digits, const Mark* mark, const brivane::Sail& before) {
  Restore(field->window(), before);
  TypeOnKeypad(field, digits, mark);
  QTest::keyClick(field, Qt::Key_Tab);
  QTest::qWait(0);
  // Not every field has the outline computed as it is left.
  RecomputeOutline(Current().TheSail);
  return {Definition(), Current().TheSail.Patches};
}

bool AreEqual(const Sail& a, const Sail& b) {
  return a.Definition == b.Definition && a.Patches.PatchHeight == b.Patches.PatchHeight &&
         a.Patches.PatchWidth == b.Patches.PatchWidth;
}

/// The digits that leave each field with a value within its limits, with ".5" behind them and
/// another value without the mark.
QString DigitsFor(const QString& name, const QString& shown) {
  if (name.startsWith("SDepth") || shown.size() == 1) return "6";
  return shown.startsWith('-') ? shown.mid(1) : shown;
}

void CheckFields(QWidget* window) {
  const QList<QLineEdit*> fields = window->findChildren<QLineEdit*>();
  int checked = 0;
  for (QLineEdit* field : fields) {
    if (field->objectName() == "SailName" || !field->isEnabled()) continue;
    ++checked;
    const brivane::Sail before = Current().TheSail;
    const QString digits = DigitsFor(field->objectName(), field->text());
    for (const Mark& mark : kMarks) {
      TypeOnKeypad(field, digits, &mark);
      QCOMPARE(field->text(), digits + mark.Text + "5");
    }
    const Sail withPoint = After(field, digits, kMarks.data(), before);
    for (const Mark& mark : kMarks)
      QVERIFY2(AreEqual(After(field, digits, &mark, before), withPoint),
               qPrintable(field->objectName() + mark.Text));
    QVERIFY2(!AreEqual(After(field, digits, nullptr, before), withPoint),
             qPrintable(field->objectName() + " without a mark"));
    Restore(window, before);
  }
  QCOMPARE(checked, window->objectName() == "Create1"  ? 18
                    : window->objectName() == "Patch1" ? 8
                                                       : 3);
}

}  // namespace

void KeypadTest::EveryFieldTakesBothMarks_data() {
  QTest::addColumn<int>("language");
  QTest::addColumn<int>("window");
  for (const int language : {0, 1})
    for (const int window : {0, 1, 2})
      QTest::addRow("%s, %s", language == 0 ? "French" : "English",
                    std::array{"dimensions", "mould", "patches"}[static_cast<std::size_t>(window)])
          << language << window;
}

void KeypadTest::EveryFieldTakesBothMarks() {
  QFETCH(int, language);
  QFETCH(int, window);
  Desk desk(static_cast<Language>(language));
  desk.DesignDefaultSail();
  const std::array<QWidget*, 3> windows = {&desk.Dimensions(), &desk.Mould(), &desk.Patches()};
  QWidget* const seen = windows[static_cast<std::size_t>(window)];
  desk.GoTo(*seen);
  CheckFields(seen);
}

QTEST_MAIN(KeypadTest)
#include "keypad_test.moc"
