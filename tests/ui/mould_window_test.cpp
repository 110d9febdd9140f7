#include <QFile>
#include <QFileDialog>
#include <QTest>

#include "model/sail_file.h"
#include "panels/design_pass.h"
#include "ui/desk.h"
#include "ui/qt_text.h"
#include "ui/texts.h"

using namespace brivane;

/// The mould window, driven by keyboard and mouse.
class MouldWindowTest : public QObject {
  Q_OBJECT

 private slots:
  void CaptionsInBothLanguages();
  void FillsFromTheRecord();
  void LuffShapeFollowsItsBar();
  void TopLeechBarStaysAboveTheMiddleOne();
  void DepthPositionFollowsItsBar();
  void ManualsTellTheRangesOfTheBars();
  void DepthIsLimited();
  void DroppedDepthIsReadBack();
  void ShowsWhatTheDimensionsAreLeftWith();
  void EveryMoveIsDrawnAtOnce();
  void ValuesBeyondABarAreKept();
  void ClosingLaysTheSailOutAnew();
  void EscapeKeepsATypedDepth();
  void LoadsTheMouldOneLineEarly();
  void RefusesOtherFiles();
  void MissingFileIsTold();
};

namespace {

void OpenMould(Desk& desk) {
  desk.DesignDefaultSail();
  desk.Picture().m_Mold->trigger();
  QVERIFY(QTest::qWaitForWindowActive(&desk.Mould()));
}

}  // namespace

void MouldWindowTest::CaptionsInBothLanguages() {
  Desk desk;
  OpenMould(desk);
  SailForm& window = desk.Mould();
  QCOMPARE(window.windowTitle(), "Brivane 2000 - Sail mould");
  QCOMPARE(window.ColumnTitle[0]->text(), "Bottom");
  QCOMPARE(window.ColumnTitle[1]->text(), "Middle");
  QCOMPARE(window.ColumnTitle[2]->text(), "Top");
  QCOMPARE(window.FirstTitle->text(),
           "Maximum depth profile in a plane perpendicular to the leech");
  QCOMPARE(window.SecondTitle->text(), "Top of sail profile in a plane perpendicular to the leech");
  QCOMPARE(Plain(window.Load->text()), "Load the mould from a sail");
  QCOMPARE(Plain(window.Done->text()), "Done");
  QStringList labels;
  for (const QLabel* label : window.findChildren<QLabel*>()) labels << label->text();
  for (const char* row :
       {"Shape on luff side . . . . . . . .", "Sail depth  (%)",
        "Vertical position of maximum depth", "Shape on leech side . . . . . . . .",
        "Depth at 20%  (%) . . . . . . . .", "Depth at 80%  (%) . . . . . . . ."})
    QVERIFY2(labels.contains(row), row);
  desk.GoTo(desk.Start());
  desk.Start().Langue1[0]->click();
  desk.GoTo(window);
  QCOMPARE(window.windowTitle(), "Brivane 2000 - Moule de la voile");
  QCOMPARE(window.ColumnTitle[0]->text(), "Bas");
  QCOMPARE(window.FirstTitle->text(),
           "Profil au creux max de la voile dans un plan perpendiculaire à la chute");
  QCOMPARE(window.SecondTitle->text(),
           "Profil en haut de la voile dans un plan perpendiculaire à la chute");
  QCOMPARE(Plain(window.Load->text()), "Charger le moule d'une voile");
  QCOMPARE(Plain(window.Done->text()), "Terminé");
}

void MouldWindowTest::FillsFromTheRecord() {
  Desk desk;
  OpenMould(desk);
  SailForm& window = desk.Mould();
  QCOMPARE(window.Text2[0]->text(), "3");
  QCOMPARE(window.Text2[1]->text(), "10");
  QCOMPARE(window.Text2[2]->text(), "5");
  QCOMPARE(window.VScroll1[1]->value(), 30);
  QCOMPARE(window.VScroll1[2]->value(), 60);
  QCOMPARE(window.VScroll2[1]->value(), 30);
  QCOMPARE(window.VScroll2[2]->value(), 40);
  QCOMPARE(window.VScroll3->value(), 4);
  QCOMPARE(window.LuffShapeValue[2]->text(), "6.0");
  QCOMPARE(window.DepthPositionValue->text(), "4");
  // The foot is a parabola 3 % deep: 0.64 of it at 20 % and at 80 % of the chord.
  QCOMPARE(window.DepthAt20[0]->text(), "1.9");
  QCOMPARE(window.DepthAt80[0]->text(), "1.9");
}

void MouldWindowTest::LuffShapeFollowsItsBar() {
  Desk desk;
  OpenMould(desk);
  SailForm& window = desk.Mould();
  window.VScroll1[1]->setValue(35);
  QCOMPARE(Definition().LuffShape[1], 3.5);
  QCOMPARE(window.LuffShapeValue[1]->text(), "3.5");
  window.VScroll1[0]->setFocus();
  QTest::keyClick(window.VScroll1[0], Qt::Key_Up);
  QCOMPARE(Definition().LuffShape[0], 0.1);
}

void MouldWindowTest::TopLeechBarStaysAboveTheMiddleOne() {
  Desk desk;
  OpenMould(desk);
  SailForm& window = desk.Mould();
  window.VScroll2[1]->setValue(50);
  QCOMPARE(window.VScroll2[2]->value(), 50);
  QCOMPARE(Definition().LeechShape[1], 0.1);
  QCOMPARE(Definition().LeechShape[2], 0.1);
  window.VScroll2[2]->setValue(40);  // jumps back
  QCOMPARE(window.VScroll2[2]->value(), 50);
  QCOMPARE(Definition().LeechShape[2], 0.1);
  window.VScroll2[2]->setValue(60);
  QCOMPARE(Definition().LeechShape[2], 0.12);
  QCOMPARE(Definition().LeechShape[1], 0.1);
}

void MouldWindowTest::DepthPositionFollowsItsBar() {
  Desk desk;
  OpenMould(desk);
  SailForm& window = desk.Mould();
  QCOMPARE(window.VScroll3->minimum(), 1);
  QCOMPARE(window.VScroll3->maximum(), 8);
  window.VScroll3->setValue(6);
  QCOMPARE(Definition().DepthPosition, 6.0);
  QCOMPARE(window.DepthPositionValue->text(), "6");
}

/// A line "- **caption**, least to most: ..." of each manual.
void MouldWindowTest::ManualsTellTheRangesOfTheBars() {
  Desk desk;
  OpenMould(desk);
  SailForm& window = desk.Mould();
  struct Row {
    BilingualText Caption;
    const QScrollBar* Bar;
    double Steps;  ///< of the bar to 1
  };
  const Row rows[] = {{texts::kLuffSide, window.VScroll1[0], 10},
                      {texts::kLeechSide, window.VScroll2[0], 500},
                      {texts::kDepthPosition, window.VScroll3, 1}};
  for (const auto& [folder, between] : {std::pair{"en", "to"}, {"fr", "à"}}) {
    QFile manual(QString(BRIVANE_SOURCE_DIR "/docs/manual/%1/README.md").arg(folder));
    QVERIFY(manual.open(QIODevice::ReadOnly));
    const QString text = QString::fromUtf8(manual.readAll()).replace("0,", "0.");
    for (const Row& row : rows) {
      const bool isEnglish = folder == std::string_view("en");
      const QString line = QString("- **%1**, %2 %3 %4")
                               .arg(ToQt(isEnglish ? row.Caption.English : row.Caption.French))
                               .arg(row.Bar->minimum() / row.Steps)
                               .arg(between)
                               .arg(row.Bar->maximum() / row.Steps);
      QVERIFY2(text.contains(line), qPrintable(line));
    }
  }
}

void MouldWindowTest::DepthIsLimited() {
  Desk desk;
  OpenMould(desk);
  SailForm& window = desk.Mould();
  TypeInto(window.Text2[1], "4");
  QCOMPARE(Definition().Depth[1], 5.0);
  QCOMPARE(window.Text2[1]->text(), "5");
  TypeInto(window.Text2[1], "10,5");
  QCOMPARE(Definition().Depth[1], 10.5);
  QCOMPARE(window.Text2[1]->text(), "10.5");
  TypeAndStay(window.Text2[2], "11");
  QTest::keyClick(window.Text2[2], Qt::Key_Return);
  QCOMPARE(window.Text2[2]->text(), "10");
  QVERIFY(window.isVisible());
}

void MouldWindowTest::DroppedDepthIsReadBack() {
  Desk desk;
  OpenMould(desk);
  SailForm& window = desk.Mould();
  TypeAndStay(window.Text2[1], "12");
  window.Text2[2]->clear();
  DropInto(window.Text2[2], "7");
  QVERIFY(window.Text2[2]->hasFocus());
  QCOMPARE(Definition().Depth[1], 12.0);
  Press(window.Done);
  QTRY_COMPARE(Definition().Depth[2], 7.0);
}

void MouldWindowTest::ShowsWhatTheDimensionsAreLeftWith() {
  Desk desk;
  OpenMould(desk);
  desk.GoTo(desk.Dimensions());
  TypeAndStay(desk.Dimensions().SDepth[1], "12");
  desk.GoTo(desk.Mould());
  QTRY_COMPARE(Definition().Depth[1], 12.0);
  QCOMPARE(desk.Mould().Text2[1]->text(), "12");
}

void MouldWindowTest::EveryMoveIsDrawnAtOnce() {
  Desk desk;
  OpenMould(desk);
  SailForm& window = desk.Mould();
  const auto curve = [](const PictureBox* picture) {
    std::vector<std::vector<PlanePoint>> points;
    for (const Stroke& stroke : picture->Shown().Strokes) points.push_back(stroke.Points);
    return points;
  };
  auto first = curve(window.Picture1);
  int draws = window.DrawCount();
  window.VScroll1[1]->setValue(80);
  QVERIFY(curve(window.Picture1) != first);
  QCOMPARE(window.DrawCount(), draws + 1);
  auto second = curve(window.Picture2);
  draws = window.DrawCount();
  window.VScroll3->setValue(8);
  QVERIFY(curve(window.Picture2) != second);
  QCOMPARE(window.DrawCount(), draws + 1);
  first = curve(window.Picture1);
  TypeInto(window.Text2[1], "15");
  QVERIFY(curve(window.Picture1) != first);
}

void MouldWindowTest::ValuesBeyondABarAreKept() {
  Desk desk;
  desk.DesignDefaultSail();
  Definition().LuffShape[2] = 12.5;
  Definition().LeechShape[2] = 0.3;
  Definition().DepthPosition = 5.6;
  desk.Picture().m_Mold->trigger();
  QVERIFY(QTest::qWaitForWindowActive(&desk.Mould()));
  QCOMPARE(Definition().LuffShape[2], 12.5);
  QCOMPARE(Definition().LeechShape[2], 0.3);
  QCOMPARE(Definition().DepthPosition, 6.0);
  QCOMPARE(desk.Mould().VScroll1[2]->value(), 100);
  desk.Mould().VScroll1[2]->setValue(99);
  QCOMPARE(Definition().LuffShape[2], 9.9);
}

void MouldWindowTest::ClosingLaysTheSailOutAnew() {
  Desk desk;
  OpenMould(desk);
  TypeInto(desk.Mould().Text2[1], "14");
  Press(desk.Mould().Done);
  QTRY_VERIFY(desk.Picture().isActiveWindow());
  QVERIFY(!desk.Mould().isVisible());
  Sail expected = Current().TheSail;
  DesignPass(expected);
  QVERIFY(Current().TheSail.Panels == expected.Panels);
  QCOMPARE(Definition().Depth[1], 14.0);
  QVERIFY(desk.Picture().Developing->hasFocus());
}

void MouldWindowTest::EscapeKeepsATypedDepth() {
  Desk desk;
  OpenMould(desk);
  TypeAndStay(desk.Mould().Text2[1], "12");
  QTest::keyClick(desk.Mould().Text2[1], Qt::Key_Escape);
  QTRY_VERIFY(desk.Picture().isActiveWindow());
  QCOMPARE(Definition().Depth[1], 12.0);
}

void MouldWindowTest::LoadsTheMouldOneLineEarly() {
  Desk desk;
  OpenMould(desk);
  QTemporaryDir folder;
  const QString path = folder.filePath("Donor.bv3");
  WriteSailDataFile(FromQt(path), SailDefinition{});
  WhenDialogIsUp("FileDialog", [&](QWidget* dialog) { ChooseFile(dialog, path); });
  Press(desk.Mould().Load);
  QVERIFY(desk.Seen.empty());
  // One line early: 0, 3, 10; the limits then raise the middle to 5 and lower the top to it.
  QCOMPARE(Definition().Depth, (std::array<double, 3>{0, 5, 5}));
  QCOMPARE(Definition().LuffShape, (std::array<double, 3>{5, 0, 3}));
  QCOMPARE(Definition().LeechShape, (std::array<double, 3>{6, 0, 0.06}));
  QCOMPARE(Definition().DepthPosition, 1.0);  // 0.08, brought to the nearest position
  QCOMPARE(Definition().TwistAngle, 4.0);
  QCOMPARE(desk.Mould().Text2[1]->text(), "5");
  QCOMPARE(desk.Mould().VScroll1[0]->value(), 50);
}

void MouldWindowTest::RefusesOtherFiles() {
  Desk desk;
  OpenMould(desk);
  const SailDefinition before = Definition();
  QTemporaryDir folder;
  QFile old(folder.filePath("Old.bv4"));
  QVERIFY(old.open(QIODevice::WriteOnly));
  old.close();
  WhenDialogIsUp("FileDialog", [&](QWidget* dialog) { ChooseFile(dialog, old.fileName()); });
  Press(desk.Mould().Load);
  QCOMPARE(desk.Seen.size(), std::size_t{1});
  QCOMPARE(desk.Seen[0].Title, "Brivane 2000 : SailForm File Open procedure");
  QCOMPARE(desk.Seen[0].Text, " Selected type of file cannot be imported");
  QVERIFY(Definition() == before);
}

void MouldWindowTest::MissingFileIsTold() {
  Desk desk;
  OpenMould(desk);
  const SailDefinition before = Definition();
  QTemporaryDir folder;
  WhenDialogIsUp("FileDialog",
                 [&](QWidget* dialog) { ChooseFile(dialog, folder.filePath("missing.bv3")); });
  Press(desk.Mould().Load);
  QCOMPARE(desk.Seen.size(), std::size_t{1});
  QCOMPARE(desk.Seen[0].Title, "Brivane 2000 : Reading mould data file");
  WhenDialogIsUp("FileDialog", [](QWidget* dialog) { QTest::keyClick(dialog, Qt::Key_Escape); });
  Press(desk.Mould().Load);
  QCOMPARE(desk.Seen.size(), std::size_t{1});
  QVERIFY(Definition() == before);
}

QTEST_MAIN(MouldWindowTest)
#include "mould_window_test.moc"
