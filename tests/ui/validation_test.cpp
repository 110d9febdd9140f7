#include <QAbstractButton>
#include <QMessageBox>
#include <QTest>

#include "panels/design_pass.h"
#include "ui/desk.h"

using namespace brivane;

/// Validating and leaving the dimensions window.
class ValidationTest : public QObject {
  Q_OBJECT

 private slots:
  void WholePass_data();
  void WholePass();
  void EnterValidates();
  void ACutChosenByItsLetterIsLaidOutAtOnce();
  void EscapeLeaves();
  void LeavingForAnotherWindowRunsThePass();
  void ComingBackAndLeavingRunsItAgain();
  void MessageBoxDoesNotCountAsLeaving();
  void ClickOnValidateWithABadField();
  void TooManyPanels();
  void SailThatCannotBeLaidOut();
  void ClosingInTheMiddleOfAMessage();
  void EndingTheProgramInTheMiddleOfAMessage();
  void RealMessageBoxIsInTheLanguage();
};

namespace {

/// Presses the only button of a message box.
void PressOk(QWidget* box) {
  QAbstractButton* ok = qobject_cast<QMessageBox*>(box)->buttons().front();
  QTest::mouseClick(ok, Qt::LeftButton);
}

/// A sail so tall for its diagonal that the narrowest cloth takes more than 70 panels.
void TypeTallSail(Create1& window) {
  TypeInto(window.GaffA, "5");
  TypeInto(window.Gaff, "6000");
  TypeInto(window.ClothWidth, "10");
}

}  // namespace

void ValidationTest::WholePass_data() {
  QTest::addColumn<int>("language");
  QTest::addColumn<int>("cut");
  for (int language = 0; language < 2; ++language)
    for (int cut = 0; cut < 3; ++cut)
      QTest::addRow("%s, cut %d", language == 1 ? "English" : "French", cut) << language << cut;
}

void ValidationTest::WholePass() {
  QFETCH(int, language);
  QFETCH(int, cut);
  Desk desk(static_cast<Language>(language));
  desk.CreateSail();
  Create1& window = desk.Dimensions();
  TypeInto(window.Luff, "5200");
  TypeInto(window.Foot, "3000");
  TypeInto(window.Diag, "6100");
  TypeInto(window.Gaff, "2000");
  TypeInto(window.LeechRond, "50");
  TypeInto(window.ClothWidth, "900");
  QRadioButton* option = window.OptCut1[static_cast<std::size_t>(cut)];
  QTest::mouseClick(option, Qt::LeftButton, {}, {8, option->height() / 2});
  Sail expected = Current().TheSail;
  Press(window.Validation);
  QVERIFY(QTest::qWaitForWindowActive(&desk.Picture()));
  DesignPass(expected);
  QVERIFY(Definition() == expected.Definition);
  QVERIFY(Current().TheSail.Panels == expected.Panels);
  QVERIFY(Definition().PanelCount > 3);
  QVERIFY(desk.Seen.empty());
  QTest::qWait(50);
  QCOMPARE(window.PassCount(), 1);
  // The seam lines, PanelCount + 1 of them, are on the picture.
  QVERIFY(desk.Picture().Content().SeamLines);
  QCOMPARE(desk.Picture().Picture1->Shown().Strokes.size(),
           static_cast<std::size_t>(Definition().PanelCount) + 1);
}

void ValidationTest::EnterValidates() {
  Desk desk;
  desk.CreateSail();
  TypeAndStay(desk.Dimensions().Luff, "5000");
  QTest::keyClick(desk.Dimensions().Luff, Qt::Key_Return);
  QVERIFY(QTest::qWaitForWindowActive(&desk.Picture()));
  QTest::qWait(50);
  QCOMPARE(Definition().LuffLength, 5000.0);
  QCOMPARE(desk.Dimensions().PassCount(), 1);
}

void ValidationTest::ACutChosenByItsLetterIsLaidOutAtOnce() {
  constexpr int kLongerThanAPress = 200;  // ms
  Desk desk;
  desk.CreateSail();
  const QKeySequence letter = QKeySequence::mnemonic(desk.Dimensions().OptCut1[2]->text());
  QTest::keySequence(&desk.Dimensions(), letter);
  QVERIFY(desk.Dimensions().OptCut1[2]->hasFocus());
  QTest::keyClick(&desk.Dimensions(), Qt::Key_Return);
  QVERIFY(QTest::qWaitForWindowActive(&desk.Picture()));
  QCOMPARE(Definition().CutType, std::string(kVerticalCut));
  const Sail laidOut = Current().TheSail;
  QTest::qWait(kLongerThanAPress);
  QCOMPARE(desk.Dimensions().PassCount(), 1);
  QVERIFY(Definition() == laidOut.Definition);
}

void ValidationTest::EscapeLeaves() {
  Desk desk;
  desk.CreateSail();
  TypeAndStay(desk.Dimensions().Luff, "5000");
  QTest::keyClick(desk.Dimensions().Luff, Qt::Key_Escape);
  QTRY_COMPARE(desk.Dimensions().PassCount(), 1);
  QVERIFY(!desk.Dimensions().isVisible());
  QCOMPARE(Definition().LuffLength, 5000.0);
  QVERIFY(desk.Picture().isVisible());
}

void ValidationTest::LeavingForAnotherWindowRunsThePass() {
  Desk desk;
  desk.CreateSail();
  TypeAndStay(desk.Dimensions().Foot, "3500");
  desk.GoTo(desk.Picture());
  QTRY_COMPARE(desk.Dimensions().PassCount(), 1);
  QCOMPARE(Definition().FootLength, 3500.0);
  QVERIFY(Definition().PanelCount > 3);
  QCOMPARE(Current().View.Mode, RedrawMode::Surface);
}

void ValidationTest::ComingBackAndLeavingRunsItAgain() {
  Desk desk;
  desk.DesignDefaultSail();
  desk.Picture().m_Dimensions->trigger();
  QVERIFY(QTest::qWaitForWindowActive(&desk.Dimensions()));
  Press(desk.Dimensions().Validation);
  QVERIFY(QTest::qWaitForWindowActive(&desk.Picture()));
  QTest::qWait(50);
  QCOMPARE(desk.Dimensions().PassCount(), 2);
}

void ValidationTest::MessageBoxDoesNotCountAsLeaving() {
  Desk desk;
  desk.ShowRealMessages();
  desk.CreateSail();
  bool wasUp = false;
  WhenDialogIsUp("Message", [&wasUp](QWidget* box) {
    wasUp = true;
    PressOk(box);
  });
  TypeInto(desk.Dimensions().Luff, "150");
  QTRY_VERIFY(wasUp);
  QTest::qWait(50);
  QVERIFY(QApplication::activeModalWidget() == nullptr);
  QCOMPARE(desk.Dimensions().PassCount(), 0);
}

void ValidationTest::ClickOnValidateWithABadField() {
  Desk desk;
  desk.CreateSail();
  TypeAndStay(desk.Dimensions().Luff, "150");
  Press(desk.Dimensions().Validation);
  QVERIFY(QTest::qWaitForWindowActive(&desk.Picture()));
  QTest::qWait(50);
  QCOMPARE(desk.Seen.size(), std::size_t{1});
  QCOMPARE(desk.Dimensions().PassCount(), 1);
  QCOMPARE(Definition().LuffLength, 200.0);
  QVERIFY(!desk.Dimensions().Validation->isDown());
}

void ValidationTest::TooManyPanels() {
  Desk desk;
  desk.CreateSail();
  Create1& window = desk.Dimensions();
  TypeTallSail(window);
  QString whileUp;
  desk.WhileMessageIsUp = [&] {
    whileUp = window.ClothWidth->text() + (IsYellow(window.ClothWidth) ? " yellow" : "");
  };
  Press(window.Validation);
  QTest::qWait(50);
  QCOMPARE(desk.Seen.size(), std::size_t{1});
  QCOMPARE(desk.Seen[0].Text,
           " Too many Panels  71\n Cloth is too narrow \nLe tissu est trop étroit");
  const int cloth = static_cast<int>(Definition().PeakPoint.y / 50);
  QCOMPARE(int{Definition().ClothWidth}, cloth);
  QCOMPARE(whileUp, QString::number(cloth) + " yellow");
  QCOMPARE(window.PassCount(), 1);
  QVERIFY(window.isActiveWindow());
  QCOMPARE(int{Definition().PanelCount}, 0);
  // The user validates again: about fifty panels.
  Press(window.Validation);
  QVERIFY(QTest::qWaitForWindowActive(&desk.Picture()));
  QVERIFY(!IsYellow(window.ClothWidth));
  QVERIFY(Definition().PanelCount > 40);
}

void ValidationTest::SailThatCannotBeLaidOut() {
  Desk desk;
  desk.CreateSail();
  TypeInto(desk.Dimensions().Diag, "99");
  QTRY_COMPARE(desk.Seen.size(), std::size_t{2});
  desk.Seen.clear();
  Press(desk.Dimensions().Validation);
  QTest::qWait(50);
  QCOMPARE(desk.Seen.size(), std::size_t{1});
  QVERIFY(!desk.Seen[0].Text.isEmpty());
  QCOMPARE(int{Definition().PanelCount}, 0);
  QVERIFY(Current().TheSail.Grid == SurfaceGrid{});
  QVERIFY(desk.Dimensions().isActiveWindow());
  TypeInto(desk.Dimensions().Diag, "5750");
  Press(desk.Dimensions().Validation);
  QVERIFY(QTest::qWaitForWindowActive(&desk.Picture()));
  QVERIFY(Definition().PanelCount > 3);
}

void ValidationTest::ClosingInTheMiddleOfAMessage() {
  Desk desk;
  desk.ShowRealMessages();
  desk.CreateSail();
  bool wasUp = false;
  WhenDialogIsUp("Message", [&](QWidget* box) {
    wasUp = true;
    desk.Dimensions().close();
    PressOk(box);
  });
  TypeInto(desk.Dimensions().Foot, "50");
  QTRY_VERIFY(wasUp);
  QTRY_COMPARE(desk.Dimensions().PassCount(), 1);
  QCOMPARE(Definition().FootLength, 100.0);
}

void ValidationTest::EndingTheProgramInTheMiddleOfAMessage() {
  auto desk = std::make_unique<Desk>();
  desk->ShowRealMessages();
  desk->CreateSail();
  QVERIFY(EndsTheProgram([&desk] {
    WhenDialogIsUp("Message", [&desk](QWidget*) { desk->Picture().close(); });
    TypeInto(desk->Dimensions().Foot, "50");
  }));
  desk.reset();
}

void ValidationTest::RealMessageBoxIsInTheLanguage() {
  Desk desk(Language::French);
  desk.ShowRealMessages();
  desk.CreateSail();
  QString title, text;
  WhenDialogIsUp("Message", [&](QWidget* box) {
    title = box->windowTitle();
    text = qobject_cast<QMessageBox*>(box)->text();
    QTest::keyClick(box, Qt::Key_Return);
  });
  TypeInto(desk.Dimensions().Foot, "50");
  QTRY_VERIFY(!text.isEmpty());
  QCOMPARE(title, "Brivane 2000 - Géométrie de la voile");
  QVERIFY(text != "Foot too short, has been adjusted to minimum");
}

QTEST_MAIN(ValidationTest)
#include "validation_test.moc"
