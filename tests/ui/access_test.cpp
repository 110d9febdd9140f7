#include <QAccessible>
#include <QMenuBar>
#include <QTest>
#include <map>

#include "ui/accessible.h"
#include "ui/desk.h"
#include "ui/printer_setup.h"
#include "ui/texts.h"

using namespace brivane;

/// What the windows offer to the keyboard and to a screen reader. The interface itself is worked by
/// the tests of the built program.
class AccessTest : public QObject {
  Q_OBJECT

 private slots:
  void MnemonicsDoNotClash_data();
  void MnemonicsDoNotClash();
  void TabComesToTheCheckedOption();
  void ResultsAreNamed();
  void PicturesAreImagesWithWords();
  void WordsFollowThePicture();
  void CaptionsAreSpokenWithoutMarks();
};

namespace {

/// The letters that Alt answers to in a window, each with the captions that claim it.
std::map<QChar, QStringList> LettersOf(const QWidget& window) {
  QStringList captions;
  for (const auto* button : window.findChildren<QAbstractButton*>()) captions << button->text();
  for (const auto* label : window.findChildren<QLabel*>())
    if (label->buddy() != nullptr) captions << label->text();
  if (const auto* bar = window.findChild<QMenuBar*>())
    for (const QAction* action : bar->actions()) captions << action->text();
  std::map<QChar, QStringList> letters;
  for (const QString& caption : captions) {
    const QKeySequence key = QKeySequence::mnemonic(caption);
    if (!key.isEmpty()) letters[key.toString().back()] << caption;
  }
  return letters;
}

QString AccessibleText(QWidget* widget, QAccessible::Text kind) {
  return QAccessible::queryAccessibleInterface(widget)->text(kind);
}

QAccessible::Role RoleOf(QWidget* widget) {
  return QAccessible::queryAccessibleInterface(widget)->role();
}

}  // namespace

void AccessTest::MnemonicsDoNotClash_data() {
  QTest::addColumn<int>("language");
  QTest::newRow("English") << 1;
  QTest::newRow("French") << 0;
}

void AccessTest::MnemonicsDoNotClash() {
  QFETCH(int, language);
  Desk desk(static_cast<Language>(language));
  desk.DesignDefaultSail();
  desk.Mould().SetCaptions();
  desk.Patches().SetCaptions();
  PrinterSetup setup(nullptr, {});
  for (const QWidget* window :
       std::initializer_list<QWidget*>{&desk.Start(), &desk.Dimensions(), &desk.Picture(),
                                       &desk.Mould(), &desk.Patches(), &setup}) {
    const auto letters = LettersOf(*window);
    QVERIFY2(letters.size() >= 2, qPrintable(window->objectName()));
    for (const auto* button : window->findChildren<QPushButton*>())
      QVERIFY2(button->text() == CurrentText(texts::kOk) || button->text().contains('&'),
               qPrintable(button->text()));
    for (const auto& [letter, captions] : letters)
      QVERIFY2(captions.size() == 1,
               qPrintable(window->objectName() + ", " + letter + ": " + captions.join(" | ")));
  }
}

void AccessTest::TabComesToTheCheckedOption() {
  Desk desk;
  QTest::keyClick(desk.Start().Create, Qt::Key_Backtab);
  QVERIFY(desk.Start().Langue1[1]->hasFocus());
  desk.CreateSail();
  Create1& window = desk.Dimensions();
  for (const std::size_t checked : {2, 0, 1}) {
    window.OptCut1[checked]->click();
    window.GaffRond->setFocus();
    QTest::keyClick(window.GaffRond, Qt::Key_Tab);
    QVERIFY(window.OptCut1[checked]->hasFocus());
    QTest::keyClick(window.OptCut1[checked], Qt::Key_Tab);
    QVERIFY(window.SDepth[0]->hasFocus());
  }
  // A keyword that no option stands for leaves none checked: Tab finds them all the same.
  Definition().CutType = "OTHERCUT";
  window.Begin();
  window.GaffRond->setFocus();
  QTest::keyClick(window.GaffRond, Qt::Key_Tab);
  QVERIFY(window.OptCut1[0]->hasFocus());
}

void AccessTest::ResultsAreNamed() {
  Desk desk;
  desk.CreateSail();
  const Create1& window = desk.Dimensions();
  QCOMPARE(window.LeechLengthValue->accessibleName(),
           "Leech length: " + window.LeechLengthValue->text().trimmed() + " mm");
  QCOMPARE(window.AreaValue->accessibleName(), "Sail area: " + window.AreaValue->text() + " m²");
  TypeInto(window.Luff, "5000");
  QCOMPARE(window.LpValue->accessibleName(), "LP: " + window.LpValue->text().trimmed() + " mm");
}

void AccessTest::PicturesAreImagesWithWords() {
  Desk desk;
  desk.DesignDefaultSail();
  desk.GoTo(desk.Mould());
  desk.GoTo(desk.Patches());
  for (QWidget* picture : std::initializer_list<QWidget*>{
           desk.Picture().Picture1, desk.Picture().Image1, desk.Picture().Image2,
           desk.Mould().Picture1, desk.Mould().Picture2, desk.Patches().Picture1}) {
    QCOMPARE(RoleOf(picture), QAccessible::Graphic);
    QVERIFY(!AccessibleText(picture, QAccessible::Name).isEmpty());
    QVERIFY(!AccessibleText(picture, QAccessible::Description).isEmpty());
  }
  QVERIFY(RoleOf(&desk.Start()) != QAccessible::Client);
}

void AccessTest::WordsFollowThePicture() {
  Desk desk;
  desk.DesignDefaultSail();
  PictureBox* picture = desk.Picture().Picture1;
  const auto words = [picture] { return AccessibleText(picture, QAccessible::Description); };
  QVERIFY(words().startsWith("NEWSAIL; "));
  QVERIFY(words().endsWith("azimuth 90, elevation 0"));
  desk.Picture().HScroll1->setValue(60);  // 34.4 degrees, Int(34.4 + 90.5)
  QVERIFY(words().endsWith("azimuth 124, elevation 0"));
  Press(desk.Picture().Developing);
  QVERIFY(words().endsWith("laid flat beside the sail"));
  desk.GoTo(desk.Mould());
  const QString before = AccessibleText(desk.Mould().Picture1, QAccessible::Description);
  desk.Mould().VScroll1[1]->setValue(70);
  QVERIFY(AccessibleText(desk.Mould().Picture1, QAccessible::Description) != before);
  QCOMPARE(desk.Mould().VScroll1[1]->accessibleDescription(), "7.0");
  desk.GoTo(desk.Patches());
  TypeInto(desk.Patches().Text2[1], "20");
  QVERIFY(AccessibleText(desk.Patches().Picture1, QAccessible::Description)
              .contains("tack 20 % along the luff"));
}

void AccessTest::CaptionsAreSpokenWithoutMarks() {
  QCOMPARE(Spoken("Shape on luff side . . . . . . . ."), "Shape on luff side");
  QCOMPARE(Spoken("Depth at 20%  (%) . . . ."), "Depth at 20% (%)");
  QCOMPARE(Spoken("Leech length ="), "Leech length");
  QCOMPARE(Spoken("&File name"), "File name");
}

QTEST_MAIN(AccessTest)
#include "access_test.moc"
