#include <QTest>
#include <QTimer>

#include "ui/desk.h"

using namespace brivane;

class StartWindowTest : public QObject {
  Q_OBJECT

 private slots:
  void CaptionsInBothLanguages();
  void BeginsInEnglishWithDefaults();
  void CreateNamesTheSailAndShowsBothWindows();
  void CreateTwiceKeepsTheDimensions();
  void FrenchReachesTheOtherWindows();
  void MnemonicsWorkInBothLanguages();
  void ALanguageChosenByItsLetterShowsInTheWindowThatFollowsAtOnce();
  void ALanguageChosenByItsLetterIsChosenBeforeAnyClick();
  void QuitEndsTheProgram();
  void ActivationAsksForAFittedDrawing();
  void EscapeGoesBackToTheDrawing();
};

void StartWindowTest::CaptionsInBothLanguages() {
  Desk desk;
  QCOMPARE(desk.Start().windowTitle(), " Welcome to Brivane 2000  version: 25 June 2000 ");
  QCOMPARE(Plain(desk.Start().Create->text()), "Create a new sail");
  QCOMPARE(Plain(desk.Start().Terminate->text()), "Quit");
  QCOMPARE(desk.Start().Label1->text(), "Brivane 2000");
  desk.Start().Langue1[0]->click();
  QCOMPARE(desk.Start().windowTitle(), " Bienvenue sur Brivane 2000  version: 25 June 2000 ");
  QCOMPARE(Plain(desk.Start().Create->text()), "Créer une nouvelle voile");
  QCOMPARE(Plain(desk.Start().Terminate->text()), "Quitter");
  QCOMPARE(desk.Start().Label1->text(), "Brivane 2000");
}

void StartWindowTest::BeginsInEnglishWithDefaults() {
  Definition().LuffLength = 1;
  Desk desk;
  QVERIFY(desk.Start().Langue1[1]->isChecked());
  QCOMPARE(Current().Language, Language::English);
  QCOMPARE(Definition().LuffLength, 4550.0);
  QCOMPARE(Definition().SailName, std::string("Newsail"));
  // The outline stands from the start: the gaff's rule needs a clew.
  QVERIFY(qAbs(Definition().ClewPoint.x - 3599.40) < 0.01);
  desk.Start().Langue1[0]->click();
  QCOMPARE(Current().Language, Language::French);
}

void StartWindowTest::CreateNamesTheSailAndShowsBothWindows() {
  Desk desk;
  desk.CreateSail();
  QCOMPARE(Definition().SailName, std::string("NEWSAIL"));
  QVERIFY(desk.Picture().isVisible());
  QVERIFY(desk.Dimensions().isVisible());
  QCOMPARE(QApplication::activeWindow(), &desk.Dimensions());
  QCOMPARE(desk.Dimensions().SailName->text(), "NEWSAIL");
}

void StartWindowTest::CreateTwiceKeepsTheDimensions() {
  Desk desk;
  desk.CreateSail();
  TypeInto(desk.Dimensions().Luff, "5000");
  TypeInto(desk.Dimensions().SailName, "Main");
  desk.All().BringToFront(desk.Start());
  QVERIFY(QTest::qWaitForWindowActive(&desk.Start()));
  desk.CreateSail();
  QCOMPARE(Definition().SailName, std::string("NEWSAIL"));
  QCOMPARE(Definition().LuffLength, 5000.0);
  QCOMPARE(desk.Dimensions().Luff->text(), "5000");
}

void StartWindowTest::FrenchReachesTheOtherWindows() {
  Desk desk(Language::French);
  desk.CreateSail();
  QCOMPARE(desk.Dimensions().windowTitle(), "Brivane 2000 - Géométrie de la voile");
  QCOMPARE(desk.Picture().windowTitle(), "Brivane 2000 - Dessin de la voile : NEWSAIL");
  // A change of language shows in a window when it next comes to the front.
  desk.All().BringToFront(desk.Start());
  QVERIFY(QTest::qWaitForWindowActive(&desk.Start()));
  desk.Start().Langue1[1]->click();
  QCOMPARE(desk.Picture().windowTitle(), "Brivane 2000 - Dessin de la voile : NEWSAIL");
  desk.All().BringToFront(desk.Picture());
  QVERIFY(QTest::qWaitForWindowActive(&desk.Picture()));
  QCOMPARE(desk.Picture().windowTitle(), "Brivane 2000 - Drawing of the sail : NEWSAIL");
}

void StartWindowTest::MnemonicsWorkInBothLanguages() {
  Desk desk;
  QTest::keyClick(&desk.Start(), Qt::Key_F, Qt::AltModifier);
  QTRY_COMPARE(Current().Language, Language::French);
  QTest::keyClick(&desk.Start(), Qt::Key_E, Qt::AltModifier);
  QTRY_COMPARE(Current().Language, Language::English);
  QTest::keyClick(&desk.Start(), Qt::Key_C, Qt::AltModifier);
  QTRY_VERIFY(desk.Dimensions().isActiveWindow());
}

void StartWindowTest::ALanguageChosenByItsLetterShowsInTheWindowThatFollowsAtOnce() {
  Desk desk;
  QTest::keyClick(&desk.Start(), Qt::Key_F, Qt::AltModifier);
  QTest::keyClick(&desk.Start(), Qt::Key_Return);
  QVERIFY(QTest::qWaitForWindowActive(&desk.Dimensions()));
  QCOMPARE(Current().Language, Language::French);
  QCOMPARE(desk.Dimensions().windowTitle(), "Brivane 2000 - Géométrie de la voile");
}

// Chosen any later, it would change under a window that has its captions already, or undo what the
// user chose next.
void StartWindowTest::ALanguageChosenByItsLetterIsChosenBeforeAnyClick() {
  constexpr int kLongerThanAPress = 200;  // ms
  Desk desk;
  QTest::keyClick(&desk.Start(), Qt::Key_F, Qt::AltModifier);
  QCOMPARE(Current().Language, Language::French);
  QVERIFY(desk.Start().Langue1[0]->hasFocus());
  Press(desk.Start().Create);
  QVERIFY(QTest::qWaitForWindowActive(&desk.Dimensions()));
  QCOMPARE(desk.Dimensions().windowTitle(), "Brivane 2000 - Géométrie de la voile");
  desk.GoTo(desk.Start());
  QTest::keyClick(&desk.Start(), Qt::Key_F, Qt::AltModifier);
  desk.Start().Langue1[1]->click();
  QTest::qWait(kLongerThanAPress);
  QCOMPARE(Current().Language, Language::English);
}

void StartWindowTest::QuitEndsTheProgram() {
  Desk desk;
  QVERIFY(EndsTheProgram([&desk] { Press(desk.Start().Terminate); }));
  QVERIFY(!desk.Start().isVisible());
}

void StartWindowTest::ActivationAsksForAFittedDrawing() {
  Desk desk;
  desk.DesignDefaultSail();
  QCOMPARE(Current().View.Mode, RedrawMode::Surface);
  Press(desk.Picture().Cancel);
  QVERIFY(QTest::qWaitForWindowActive(&desk.Start()));
  QCOMPARE(Current().View.Mode, RedrawMode::FitOutline);
  QVERIFY(desk.Picture().isVisible());
}

void StartWindowTest::EscapeGoesBackToTheDrawing() {
  Desk desk;
  desk.DesignDefaultSail();
  Press(desk.Picture().Cancel);
  QVERIFY(QTest::qWaitForWindowActive(&desk.Start()));
  QTest::keyClick(&desk.Start(), Qt::Key_Escape);
  QVERIFY(QTest::qWaitForWindowActive(&desk.Picture()));
}

QTEST_MAIN(StartWindowTest)
#include "start_window_test.moc"
