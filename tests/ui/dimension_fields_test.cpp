#include <QClipboard>
#include <QTest>
#include <cmath>

#include "ui/desk.h"

using namespace brivane;

/// The rules of the dimensions window's fields, typed as a user types them.
class DimensionFieldsTest : public QObject {
  Q_OBJECT

 private slots:
  void CaptionsInBothLanguages_data();
  void CaptionsInBothLanguages();
  void LuffTooShort();
  void LuffTooShortInFrench();
  void LuffIsNotNormalised();
  void FootFollowsTheLuff();
  void FootTooLong();
  void FootTooShort();
  void DiagonalThatCannotClose();
  void DiagonalTooFlat();
  void DiagonalTooShort();
  void NegativeDiagonalIsMadePositive();
  void GaffBeyondTheClew();
  void ShortGaffMakesATriangle();
  void RoundsKeepTheirSign();
  void RoundPositions();
  void DepthLimits();
  void AnglesInDegrees();
  void UntouchedFieldsKeepTheStoredValue();
  void CommaAndSemicolon();
  void PastedNonsenseGivesZero();
  void DroppedTextIsReadBack();
  void KeyFilters();
  void TabOrderFollowsTheEye();
  void ResultDisplays();
  void OneOutlineForOneField();
  void CutOptions();
  void EveryFieldHasItsLabelAndName();
};

namespace {

const QString kLuffTooShort = "Luff too short, has been adjusted to minimum";

struct Made {
  explicit Made(Language language = Language::English) : TheDesk(language) { TheDesk.CreateSail(); }
  Create1* operator->() { return &TheDesk.Dimensions(); }
  Desk TheDesk;
};

}  // namespace

void DimensionFieldsTest::CaptionsInBothLanguages_data() {
  QTest::addColumn<int>("language");
  QTest::addColumn<QStringList>("captions");
  QTest::newRow("English") << 1
                           << QStringList{"Luff length",
                                          "Luff rake",
                                          "Luff round",
                                          "Luff round position",
                                          "Foot length",
                                          "Foot round",
                                          "Diagonal length",
                                          "Gaff length",
                                          "Gaff round",
                                          "Gaff angle / luff",
                                          "Leech roach",
                                          "Leech roach position",
                                          "Sail file name",
                                          "Foot depth",
                                          "Max depth",
                                          "Head depth",
                                          "Twist angle head/foot",
                                          "Usefull cloth width",
                                          "Seams width",
                                          "Validate",
                                          "Brivane 2000 - Sail dimensions"};
  QTest::newRow("French") << 0
                          << QStringList{"Longueur guindant",
                                         "Inclinaison guindant",
                                         "Rond de guindant",
                                         "Position du rond de guindant",
                                         "Longueur bordure",
                                         "Rond de bordure",
                                         "Longueur diagonale",
                                         "Longueur vergue",
                                         "Rond de vergue",
                                         "Angle de la vergue / guindant",
                                         "Rond de chute",
                                         "Position du rond de chute",
                                         "Nom fichier voile",
                                         "Creux bordure",
                                         "Creux max",
                                         "Creux tête",
                                         "Angle vrillage tête/bordure",
                                         "Largeur utile du tissu",
                                         "Largeur des coutures",
                                         "Valider",
                                         "Brivane 2000 - Géométrie de la voile"};
}

void DimensionFieldsTest::CaptionsInBothLanguages() {
  QFETCH(int, language);
  QFETCH(QStringList, captions);
  Made window(static_cast<Language>(language));
  QStringList seen;
  for (const DimensionFieldInfo& info : DimensionFields())
    seen << Plain(window->CaptionOf(info.Field)->text());
  seen << Plain(window->Validation->text()) << window->windowTitle();
  QCOMPARE(seen, captions);
}

void DimensionFieldsTest::LuffTooShort() {
  Made window;
  bool wasYellow = false;
  window.TheDesk.WhileMessageIsUp = [&] { wasYellow = IsYellow(window->Luff); };
  TypeInto(window->Luff, "150");
  QTRY_COMPARE(window.TheDesk.Seen.size(), std::size_t{1});
  QCOMPARE(window.TheDesk.Seen[0].Text, kLuffTooShort);
  QVERIFY(wasYellow);
  QVERIFY(!IsYellow(window->Luff));
  QCOMPARE(window->Luff->text(), "200");
  QCOMPARE(Definition().LuffLength, 200.0);
  QCOMPARE(window->LuffRond->text(), "0");
  // The foot is checked again: 3600 > 3 x 200. The diagonal: 1.1 x |600 - 200| = 440 is less than
  // 5750, 0.9 x 800 = 720 less too: it becomes that of a right angle, Int(632.4).
  QCOMPARE(window->Foot->text(), "600");
  QCOMPARE(window->Diag->text(), "632");
}

void DimensionFieldsTest::LuffTooShortInFrench() {
  Made window(Language::French);
  TypeInto(window->Luff, "150");
  QTRY_COMPARE(window.TheDesk.Seen.size(), std::size_t{1});
  QVERIFY(!window.TheDesk.Seen[0].Text.isEmpty());
  QCOMPARE(Definition().LuffLength, 200.0);
}

void DimensionFieldsTest::LuffIsNotNormalised() {
  Made window;
  TypeInto(window->Luff, "4550,5");
  QCOMPARE(Definition().LuffLength, 4550.0);
  QCOMPARE(window->Luff->text(), "4550");
  TypeInto(window->Luff, "-4600.9");
  QCOMPARE(Definition().LuffLength, 4600.0);
}

void DimensionFieldsTest::FootFollowsTheLuff() {
  Made window;
  TypeInto(window->Foot, "300");
  QCOMPARE(window->Foot->text(), "456");
  QVERIFY(window.TheDesk.Seen.empty());
}

void DimensionFieldsTest::FootTooLong() {
  Made window;
  TypeInto(window->Foot, "20000");
  QCOMPARE(window->Foot->text(), "13650");
  QVERIFY(window.TheDesk.Seen.empty());
}

void DimensionFieldsTest::FootTooShort() {
  Made window;
  TypeInto(window->Foot, "99");
  QTRY_COMPARE(window.TheDesk.Seen.size(), std::size_t{1});
  QCOMPARE(window.TheDesk.Seen[0].Text, "Foot too short, has been adjusted to minimum");
  QCOMPARE(window->Foot->text(), "100");
  QCOMPARE(window->FootRond->text(), "0");
}

void DimensionFieldsTest::DiagonalThatCannotClose() {
  Made window;
  TypeInto(window->Diag, "900");
  QCOMPARE(window->Diag->text(), "5801");
  QVERIFY(window.TheDesk.Seen.empty());
}

void DimensionFieldsTest::DiagonalTooFlat() {
  Made window;
  TypeInto(window->Diag, "7500");
  QCOMPARE(window->Diag->text(), "5801");
}

void DimensionFieldsTest::DiagonalTooShort() {
  Made window;
  TypeInto(window->Diag, "99");
  // The second message: a triangle that cannot close has no outline.
  QTRY_COMPARE(window.TheDesk.Seen.size(), std::size_t{2});
  QCOMPARE(window.TheDesk.Seen[0].Text, "Diagonal too short, has been adjusted to minimum");
  QVERIFY(!window.TheDesk.Seen[1].Text.isEmpty());
  QCOMPARE(window->Diag->text(), "100");
}

void DimensionFieldsTest::NegativeDiagonalIsMadePositive() {
  Made window;
  TypeInto(window->Diag, "-6000");
  QCOMPARE(window->Diag->text(), "6000");
}

void DimensionFieldsTest::GaffBeyondTheClew() {
  Made window;
  TypeInto(window->Gaff, "9000");
  // 0.9 x 3599.40 / sin 0.7
  QCOMPARE(window->Gaff->text(), QString::number(int(0.9 * 3599.3962 / std::sin(0.7))));
  QVERIFY(window.TheDesk.Seen.empty());
}

void DimensionFieldsTest::ShortGaffMakesATriangle() {
  Made window;
  TypeInto(window->Gaff, "5,9");
  QCOMPARE(window->Gaff->text(), "5");
  TypeInto(window->GaffRond, "10");  // leaving it computes the outline
  QCOMPARE(window->GaffRond->text(), "0");
  QCOMPARE(Definition().GaffRound, std::int16_t{0});
}

void DimensionFieldsTest::RoundsKeepTheirSign() {
  Made window;
  TypeInto(window->LuffRond, "-80.5");
  QCOMPARE(window->LuffRond->text(), "-81");
  TypeInto(window->LeechRond, "200");
  QCOMPARE(window->LeechRond->text(), "200");
  TypeInto(window->FootRond, "-30");  // the outline allows no hollow foot
  QCOMPARE(window->FootRond->text(), "0");
  TypeInto(window->LuffRond, "5000");  // held at a tenth of the luff
  QCOMPARE(window->LuffRond->text(), "455");
  QVERIFY(window.TheDesk.Seen.empty());
}

void DimensionFieldsTest::RoundPositions() {
  Made window;
  TypeInto(window->LuffRondPos, "70");
  QCOMPARE(window->LuffRondPos->text(), "65");
  QVERIFY(IsYellow(window->LuffRondPos));
  TypeInto(window->LuffRondPos, "20");
  QCOMPARE(window->LuffRondPos->text(), "35");
  QVERIFY(IsYellow(window->LuffRondPos));
  TypeInto(window->LuffRondPos, "50");
  QCOMPARE(window->LuffRondPos->text(), "50");
  QVERIFY(!IsYellow(window->LuffRondPos));
  TypeInto(window->LeechRondPos, "-66");
  QCOMPARE(window->LeechRondPos->text(), "65");
  QVERIFY(IsYellow(window->LeechRondPos));
  QVERIFY(window.TheDesk.Seen.empty());
}

void DimensionFieldsTest::DepthLimits() {
  Made window;
  TypeInto(window->SDepth[1], "4");
  QCOMPARE(window->SDepth[1]->text(), "5");
  TypeInto(window->SDepth[2], "12");
  QCOMPARE(window->SDepth[2]->text(), "5");
  TypeInto(window->SDepth[1], "10;5");
  QCOMPARE(window->SDepth[1]->text(), "10.5");
  TypeInto(window->SDepth[0], "8");
  QCOMPARE(window->SDepth[0]->text(), "7");
}

void DimensionFieldsTest::AnglesInDegrees() {
  Made window;
  QCOMPARE(window->LuffRake->text(), "2");
  QCOMPARE(window->GaffA->text(), "40");
  QCOMPARE(window->Twistxt->text(), "12");
  TypeInto(window->GaffA, "127");
  QCOMPARE(window->GaffA->text(), "127");
  QCOMPARE(Definition().GaffAngle, 127 / 57.2957795130823);
  TypeInto(window->Twistxt, "0");
  QCOMPARE(Definition().TwistAngle, 0.0);
}

void DimensionFieldsTest::UntouchedFieldsKeepTheStoredValue() {
  Made window;
  const SailDefinition before = Definition();
  QTest::mouseClick(window->Luff, Qt::LeftButton);
  for (int i = 0; i < 30; ++i) QTest::keyClick(window->focusWidget(), Qt::Key_Tab);
  QCOMPARE(Definition().GaffAngle, 0.7);
  QCOMPARE(Definition().LuffRake, 0.05);
  QVERIFY(Definition() == before);
  QCOMPARE(window->OutlineCount(), 0);
}

void DimensionFieldsTest::CommaAndSemicolon() {
  Made window;
  TypeInto(window->Twistxt, "12,5");
  QCOMPARE(Definition().TwistAngle, 12.5 / 57.2957795130823);
  TypeInto(window->Foot, "3500;9");
  QCOMPARE(Definition().FootLength, 3500.0);
}

void DimensionFieldsTest::PastedNonsenseGivesZero() {
  Made window;
  QApplication::clipboard()->setText("nonsense \xE2\x82\xAC");
  QTest::mouseClick(window->LuffRond, Qt::LeftButton);
  QTest::keyClick(window->LuffRond, Qt::Key_A, Qt::ControlModifier);
  QTest::keyClick(window->LuffRond, Qt::Key_V, Qt::ControlModifier);
  QTest::keyClick(window->LuffRond, Qt::Key_Tab);
  QCOMPARE(window->LuffRond->text(), "0");
}

void DimensionFieldsTest::DroppedTextIsReadBack() {
  Made window;
  TypeAndStay(window->Foot, "3500");
  window->Luff->clear();
  DropInto(window->Luff, "5100");
  QVERIFY(window->Luff->hasFocus());
  QCOMPARE(Definition().FootLength, 3500.0);
  Press(window->Validation);
  QCOMPARE(Definition().LuffLength, 5100.0);
  QCOMPARE(window->Luff->text(), "5100");
}

void DimensionFieldsTest::KeyFilters() {
  Made window;
  TypeAndStay(window->Luff, "4a8!0x0");
  TypeLetter(window->Luff, QChar(0xE9));
  QCOMPARE(window->Luff->text(), "4800");
  TypeAndStay(window->SailName, "Grand-voile 2/");
  TypeLetter(window->SailName, QChar(0xE9));
  QCOMPARE(window->SailName->text(), QString("Grand-voile 2") + QChar(0xE9));
}

void DimensionFieldsTest::TabOrderFollowsTheEye() {
  Made window;
  const QList<QWidget*> order = {window->Luff,     window->LuffRake,   window->Foot,
                                 window->Diag,     window->Gaff,       window->GaffA,
                                 window->LuffRond, window->LuffRondPos};
  QTest::mouseClick(window->SailName, Qt::LeftButton);
  for (QWidget* next : order) {
    QTest::keyClick(window->focusWidget(), Qt::Key_Tab);
    QCOMPARE(window->focusWidget(), next);
  }
}

void DimensionFieldsTest::ResultDisplays() {
  Made window;
  QCOMPARE(window->LpValue->text(), " 3599");
  const double dx = 3599.3962 - 2600 * std::sin(0.7);
  const double dy = 4550 + 2600 * std::cos(0.7) - 65.93;
  QCOMPARE(window->LeechLengthValue->text(),
           QString(" %1").arg(std::lround(std::sqrt(dx * dx + dy * dy))));
  TypeInto(window->Diag, "5801");  // nearly a right angle at the tack: the clew at 3600
  QCOMPARE(window->LpValue->text(), " 3599");
}

void DimensionFieldsTest::OneOutlineForOneField() {
  Made window;
  TypeInto(window->Diag, "5700");
  QCOMPARE(window->OutlineCount(), 1);
  TypeInto(window->Luff, "4600");  // not one of the outline's fields
  QCOMPARE(window->OutlineCount(), 1);
  TypeInto(window->LeechRond, "-50");
  QCOMPARE(window->OutlineCount(), 2);
  QCOMPARE(window->PassCount(), 0);
}

void DimensionFieldsTest::CutOptions() {
  Made window;
  QVERIFY(window->OptCut1[1]->isChecked());
  QTest::mouseClick(window->OptCut1[0], Qt::LeftButton, {}, {8, window->OptCut1[0]->height() / 2});
  QCOMPARE(Definition().CutType, std::string("CROSSCUT"));
  QTest::mouseClick(window->OptCut1[2], Qt::LeftButton, {}, {8, window->OptCut1[2]->height() / 2});
  QCOMPARE(Definition().CutType, std::string("VERTICALCUT"));
  QTest::mouseClick(window->OptCut1[1], Qt::LeftButton, {}, {8, window->OptCut1[1]->height() / 2});
  QCOMPARE(Definition().CutType, std::string("TWISTFOOTCUT"));
}

void DimensionFieldsTest::EveryFieldHasItsLabelAndName() {
  Made window;
  for (const DimensionFieldInfo& info : DimensionFields()) {
    QLineEdit* field = window->FieldOf(info.Field);
    QCOMPARE(window->CaptionOf(info.Field)->buddy(), field);
    QVERIFY(!field->accessibleName().isEmpty());
    QVERIFY(!field->toolTip().isEmpty());
    QVERIFY(field->objectName().size() > 0);
  }
  QCOMPARE(window->Luff->objectName(), "Luff");
  QCOMPARE(window->Validation->objectName(), "Validation");
}

QTEST_MAIN(DimensionFieldsTest)
#include "dimension_fields_test.moc"
