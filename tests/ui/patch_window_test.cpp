#include <QDir>
#include <QFileDialog>
#include <QTest>

#include "ui/desk.h"
#include "ui/file_dialogs.h"

using namespace brivane;

/// The corner patch window, driven by keyboard and mouse.
class PatchWindowTest : public QObject {
  Q_OBJECT

 private slots:
  void CaptionsInBothLanguages_data();
  void CaptionsInBothLanguages();
  void SizesAreHeldAndDrawnAsAFieldIsLeft();
  void DroppedSizeIsReadBack();
  void PlotterFileOfTheCurrentFolder();
  void ButtonsAnswerTheirLettersAtOnce();
  void DxfFilesInFrench();
  void TriangularSailHasNoPeak();
  void FailureIsTold();
  void QuitCloses();
};

namespace {

void ShowPatches(Desk& desk) {
  desk.Picture().m_Patch->trigger();
  QVERIFY(QTest::qWaitForWindowActive(&desk.Patches()));
}

void OpenPatches(Desk& desk) {
  desk.DesignDefaultSail();
  ShowPatches(desk);
}

/// Makes a folder that of the last file dialog.
void GoToFolder(Desk& desk, const QString& folder) {
  WhenDialogIsUp("FileDialog",
                 [=](QWidget* dialog) { ChooseFile(dialog, folder + "/missing.bv3"); });
  desk.Picture().fOpen->trigger();
  desk.Seen.clear();
}

}  // namespace

void PatchWindowTest::CaptionsInBothLanguages_data() {
  QTest::addColumn<int>("language");
  QTest::addColumn<QString>("title");
  QTest::addColumn<QStringList>("corners");
  QTest::addColumn<QStringList>("heights");
  QTest::addColumn<QStringList>("widths");
  QTest::addColumn<QStringList>("buttons");
  QTest::newRow("English")
      << 1 << "Brivane 2000 - Corner patches"
      << QStringList{"Clew corner patch", "Tack corner patch", "Head of luff patch", "Peak patch"}
      << QStringList{"Height (% leech)", "Height (% luff)", "Height (% luff)", "Height (% leech)"}
      << QStringList{"Width (% foot)", "Width (% foot)", "Width (% gaff)", "Width (% gaff)"}
      << QStringList{"Tovarek plotter file", "DXF files", "Quit"};
  QTest::newRow("French") << 0 << "Brivane 2000 - Renforts des coins"
                          << QStringList{"Renfort point d'écoute", "Renfort point d'amure",
                                         "Renfort tête du guindant", "Renfort extrémité de vergue"}
                          << QStringList{"Hauteur (% chute)", "Hauteur (% guindant)",
                                         "Hauteur (% guindant)", "Hauteur (% chute)"}
                          << QStringList{"Largeur (% bordure)", "Largeur (% bordure)",
                                         "Largeur (% vergue)", "Largeur (% vergue)"}
                          << QStringList{"Fichier traceur Tovarek", "Fichiers DXF", "Quitter"};
}

void PatchWindowTest::CaptionsInBothLanguages() {
  QFETCH(int, language);
  QFETCH(QString, title);
  QFETCH(QStringList, corners);
  QFETCH(QStringList, heights);
  QFETCH(QStringList, widths);
  QFETCH(QStringList, buttons);
  Desk desk(static_cast<Language>(language));
  OpenPatches(desk);
  const Patch1& window = desk.Patches();
  QCOMPARE(window.windowTitle(), title);
  for (std::size_t i = 0; i < Patch1::kCorners; ++i) {
    const auto at = static_cast<qsizetype>(i);
    QCOMPARE(window.Label1[i]->text(), corners[at]);
    QCOMPARE(window.Label2[i]->text(), heights[at]);
    QCOMPARE(window.Label3[i]->text(), widths[at]);
    QCOMPARE(window.Label2[i]->buddy(), window.Text2[i]);
    QCOMPARE(window.Label3[i]->buddy(), window.Text3[i]);
  }
  QCOMPARE((QStringList{Plain(window.Validate1[0]->text()), Plain(window.Validate1[1]->text()),
                        Plain(window.Cancel->text())}),
           buttons);
}

void PatchWindowTest::SizesAreHeldAndDrawnAsAFieldIsLeft() {
  Desk desk;
  OpenPatches(desk);
  Patch1& window = desk.Patches();
  const QStringList heights = {"11", "9", "8", "8"};
  const QStringList widths = {"12", "10", "12", "12"};
  for (std::size_t i = 0; i < Patch1::kCorners; ++i) {
    QCOMPARE(window.Text2[i]->text(), heights[static_cast<qsizetype>(i)]);
    QCOMPARE(window.Text3[i]->text(), widths[static_cast<qsizetype>(i)]);
  }
  const int draws = window.DrawCount();
  TypeInto(window.Text2[1], "60");
  QCOMPARE(window.Text2[1]->text(), "50");
  QCOMPARE(Current().TheSail.Patches.PatchHeight[1], std::int16_t{50});
  QCOMPARE(window.DrawCount(), draws + 1);
  TypeInto(window.Text3[3], "0");
  QCOMPARE(Current().TheSail.Patches.PatchWidth[3], std::int16_t{1});
  TypeAndStay(window.Text3[0], "20,4");
  QTest::keyClick(window.Text3[0], Qt::Key_Return);
  QCOMPARE(window.Text3[0]->text(), "20");
  QVERIFY(window.isVisible());
}

void PatchWindowTest::DroppedSizeIsReadBack() {
  Desk desk;
  OpenPatches(desk);
  Patch1& window = desk.Patches();
  TypeAndStay(window.Text2[1], "22");
  window.Text3[1]->clear();
  DropInto(window.Text3[1], "33");
  QCOMPARE(Current().TheSail.Patches.PatchHeight[1], std::int16_t{22});
  Press(window.Cancel);
  QTRY_COMPARE(Current().TheSail.Patches.PatchWidth[1], std::int16_t{33});
}

void PatchWindowTest::PlotterFileOfTheCurrentFolder() {
  QTemporaryDir folder;
  Desk desk;
  desk.DesignDefaultSail();
  GoToFolder(desk, folder.path());
  ShowPatches(desk);
  for (int i = 0; i < 2; ++i) Press(desk.Patches().Validate1[0]);
  QCOMPARE(QDir(folder.path()).entryList(QDir::Files), QStringList{"Patches.bp4"});
  QCOMPARE(desk.Seen.size(), std::size_t{2});
  QCOMPARE(desk.Seen[0].Title, "Brivane 2000 patches for Tovarek plotter");
  QCOMPARE(desk.Seen[0].Text, "Patches saved in file: Patches.BP4");
}

// Any later, the window may have been closed and the language changed.
void PatchWindowTest::ButtonsAnswerTheirLettersAtOnce() {
  QTemporaryDir folder;
  Desk desk;
  desk.DesignDefaultSail();
  GoToFolder(desk, folder.path());
  ShowPatches(desk);
  QTest::keySequence(&desk.Patches(), QKeySequence::mnemonic(desk.Patches().Validate1[0]->text()));
  QCOMPARE(desk.Seen.size(), std::size_t{1});
  QTest::keySequence(&desk.Patches(), QKeySequence::mnemonic(desk.Patches().Cancel->text()));
  QVERIFY(!desk.Patches().isVisible());
  QCOMPARE(desk.Seen.size(), std::size_t{1});
}

void PatchWindowTest::DxfFilesInFrench() {
  QTemporaryDir folder;
  Desk desk(Language::French);
  desk.DesignDefaultSail();
  GoToFolder(desk, folder.path());
  ShowPatches(desk);
  Press(desk.Patches().Validate1[1]);
  QCOMPARE(QDir(folder.path()).entryList(QDir::Files).size(), 8);
  QCOMPARE(desk.Seen.size(), std::size_t{1});
  QCOMPARE(desk.Seen[0].Title, "Brivane 2000 - patches in DXF");
  QVERIFY(desk.Seen[0].Text.startsWith("\nRenforts sauvegardés dans les fichiers: "));
  QVERIFY(desk.Seen[0].Text.contains("  Patch_peak00.DXF et Patch_head01.DXF"));
}

void PatchWindowTest::TriangularSailHasNoPeak() {
  QTemporaryDir folder;
  Desk desk;
  desk.CreateSail();
  TypeInto(desk.Dimensions().Gaff, "5");
  Press(desk.Dimensions().Validation);
  QVERIFY(QTest::qWaitForWindowActive(&desk.Picture()));
  GoToFolder(desk, folder.path());
  ShowPatches(desk);
  QVERIFY(!desk.Patches().Text2[3]->isEnabled());
  QVERIFY(desk.Patches().Text2[2]->isEnabled());
  Press(desk.Patches().Validate1[1]);
  QCOMPARE(QDir(folder.path()).entryList(QDir::Files).size(), 6);
  QCOMPARE(desk.Seen.size(), std::size_t{1});
  QVERIFY(!desk.Seen[0].Text.contains("peak"));
}

void PatchWindowTest::FailureIsTold() {
  Desk desk;
  desk.DesignDefaultSail();
  GoToFolder(desk, "/nowhere");
  ShowPatches(desk);
  Press(desk.Patches().Validate1[0]);
  QCOMPARE(desk.Seen.size(), std::size_t{1});
  QVERIFY(desk.Seen[0].Title.startsWith("Brivane 2000"));
  QCOMPARE(desk.Seen[0].Text, "Trying to write over a Read Only File or an invalid Path");
  QVERIFY(QApplication::overrideCursor() == nullptr);
}

void PatchWindowTest::QuitCloses() {
  Desk desk;
  OpenPatches(desk);
  TypeAndStay(desk.Patches().Text2[0], "15");
  Press(desk.Patches().Cancel);
  QVERIFY(!desk.Patches().isVisible());
  QCOMPARE(Current().TheSail.Patches.PatchHeight[0], std::int16_t{15});
}

QTEST_MAIN(PatchWindowTest)
#include "patch_window_test.moc"
