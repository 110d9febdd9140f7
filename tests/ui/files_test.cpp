#include <QComboBox>
#include <QDir>
#include <QFile>
#include <QFileDialog>
#include <QMessageBox>
#include <QPushButton>
#include <QTest>

#include "model/sail_file.h"
#include "ui/desk.h"
#include "ui/save_command.h"

using namespace brivane;

/// Opening and saving through the real dialogs.
class FilesTest : public QObject {
  Q_OBJECT

 private slots:
  void init() { folder_ = std::make_unique<QTemporaryDir>(); }

  void SavingRenamesTheSail();
  void SavedFileReadsBackByteForByte();
  void MissingExtensionIsAdded();
  void CancelledSaveIsSilent();
  void ReplacingIsAskedInTheLanguage_data();
  void ReplacingIsAskedInTheLanguage();
  void PanelsAreAFamilyOfFiles();
  void PanelsThatWouldBeReplacedAreNamed();
  void EveryKindIsWritten();
  void FailureIsTold();
  void KindsOutsideTheTableDoNothing();
  void DialogsFollowTheLanguage_data();
  void DialogsFollowTheLanguage();
  void OpensTheNewerGeneration();
  void OpensTheOlderGeneration();
  void NameInTheFileWins();
  void WrongTypeIsRefused();
  void CancelledOpenIsTold();
  void UnreadableFileIsTold();
  void OverflowIsToldUnderTheReadersTitle();
  void HalfReadSailHasNoPanelsWhileItsMessageIsUp();
  void OpenedVerticalCutIsShownInTheDimensions();
  void FolderOfTheLastDialogIsKept();

 private:
  QString Path(const QString& name) const { return folder_->filePath(name); }
  void Write(const QString& name, const QByteArray& text) const {
    QFile file(Path(name));
    QVERIFY(file.open(QIODevice::WriteOnly));
    QCOMPARE(file.write(text), text.size());
  }
  QByteArray Read(const QString& name) const {
    QFile file(Path(name));
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray("no file");
  }
  /// Saves through the menu under a name of the folder.
  void Save(QAction* command, const QString& name) const {
    WhenDialogIsUp("FileDialog", [this, name](QWidget* dialog) { ChooseFile(dialog, Path(name)); });
    command->trigger();
  }
  void Open(Desk& desk, const QString& name) const { Save(desk.Picture().fOpen, name); }

  std::unique_ptr<QTemporaryDir> folder_;
};

namespace {

/// A sail of the older generation, 28 lines.
const QByteArray kOldSail =
    "Brivane 4 VERSION_ 12 March 1999\r\nOldSail\r\nCROSSCUT\r\ndefault_vertical\r\n"
    " 5200\r\n 6100\r\n 3100\r\n 2400\r\n .6\r\n 0\r\n 0\r\n 0\r\n 60\r\n 50\r\n 80\r\n 50\r\n"
    " 120\r\n 50\r\n 60\r\n 50\r\n 9\r\n 3\r\n .06\r\n 4\r\n .2\r\n 900\r\n 20\r\n 0\r\n";

QString NameTypedIn(QWidget* dialog) {
  return dialog->findChild<QLineEdit*>("fileNameEdit")->text();
}

QPushButton* ButtonOf(QWidget* box, const QString& caption) {
  for (QPushButton* button : box->findChildren<QPushButton*>())
    if (Plain(button->text()) == caption) return button;
  return nullptr;
}

}  // namespace

void FilesTest::SavingRenamesTheSail() {
  Desk desk;
  desk.DesignDefaultSail();
  QString proposed;
  WhenDialogIsUp("FileDialog", [&](QWidget* dialog) {
    proposed = NameTypedIn(dialog);
    ChooseFile(dialog, Path("Main.bv3"));
  });
  desk.Picture().fSave_Data->trigger();
  QCOMPARE(proposed, "NEWSAIL.bv3");
  QCOMPARE(Definition().SailName, std::string("Main"));
  QCOMPARE(desk.Picture().windowTitle(), "Brivane 2000 - Drawing of the sail : Main");
  const QList<QByteArray> lines = Read("Main.bv3").split('\n');
  QCOMPARE(lines.size(), 42);  // 41 lines, each ended
  QCOMPARE(lines[0], "Brivane 2000 VERSION_ 25 June 2000 \r");
  QCOMPARE(lines[1], "Main\r");
  QCOMPARE(lines[8], " .05\r");
  QCOMPARE(lines[19], "-100\r");
  QCOMPARE(lines[40], "EOF \r");
  WhenDialogIsUp("FileDialog", [&](QWidget* dialog) {
    proposed = NameTypedIn(dialog);
    qobject_cast<QFileDialog*>(dialog)->reject();
  });
  desk.Picture().fSave_XY->trigger();
  QCOMPARE(proposed, "Main.xyz");
  QVERIFY(desk.Seen.empty());
}

void FilesTest::SavedFileReadsBackByteForByte() {
  Desk desk;
  desk.DesignDefaultSail();
  Save(desk.Picture().fSave_Data, "Main.bv3");
  const QByteArray first = Read("Main.bv3");
  desk.Picture().fNew->trigger();
  Press(desk.Dimensions().Validation);
  Open(desk, "Main.bv3");
  QFile::remove(Path("Main.bv3"));
  Save(desk.Picture().fSave_Data, "Main.bv3");
  QCOMPARE(Read("Main.bv3"), first);
}

void FilesTest::MissingExtensionIsAdded() {
  Desk desk;
  desk.DesignDefaultSail();
  Save(desk.Picture().fSave_Data, "Jib");
  QVERIFY(QFile::exists(Path("Jib.bv3")));
  QCOMPARE(Definition().SailName, std::string("Jib"));
}

void FilesTest::CancelledSaveIsSilent() {
  Desk desk;
  desk.DesignDefaultSail();
  WhenDialogIsUp("FileDialog", [](QWidget* dialog) { QTest::keyClick(dialog, Qt::Key_Escape); });
  desk.Picture().fSave_Data->trigger();
  QVERIFY(desk.Seen.empty());
  QCOMPARE(Definition().SailName, std::string("NEWSAIL"));
}

void FilesTest::ReplacingIsAskedInTheLanguage_data() {
  QTest::addColumn<int>("language");
  QTest::addColumn<QString>("yes");
  QTest::addColumn<QString>("no");
  QTest::addColumn<QString>("words");
  QTest::newRow("English") << 1 << "Yes"
                           << "No"
                           << "replace";
  QTest::newRow("French") << 0 << "Oui"
                          << "Non"
                          << "remplacer";
}

void FilesTest::ReplacingIsAskedInTheLanguage() {
  QFETCH(int, language);
  QFETCH(QString, yes);
  QFETCH(QString, no);
  QFETCH(QString, words);
  Desk desk(static_cast<Language>(language));
  desk.DesignDefaultSail();
  Write("Main.bv3", "another sail");
  QString question;
  // "No" leads back to the dialog, which is cancelled then. The name lacks its extension, so that
  // the question comes after it has been added.
  WhenDialogIsUp("FileDialog", [&](QWidget* dialog) {
    WhenDialogIsUp("ReplaceQuestion", [&](QWidget* box) {
      question = qobject_cast<QMessageBox*>(box)->text();
      Press(ButtonOf(box, no));
    });
    ChooseFile(dialog, Path("Main"));
    QVERIFY(dialog->isVisible());
    qobject_cast<QFileDialog*>(dialog)->reject();
  });
  desk.Picture().fSave_Data->trigger();
  QVERIFY(question.contains("Main.bv3"));
  QVERIFY(question.contains(words));
  QCOMPARE(Read("Main.bv3"), "another sail");
  QCOMPARE(Definition().SailName, std::string("NEWSAIL"));
  WhenDialogIsUp("FileDialog", [&](QWidget* dialog) {
    WhenDialogIsUp("ReplaceQuestion", [&](QWidget* box) { Press(ButtonOf(box, yes)); });
    ChooseFile(dialog, Path("Main.bv3"));
  });
  desk.Picture().fSave_Data->trigger();
  QVERIFY(Read("Main.bv3").startsWith("Brivane 2000 VERSION_"));
}

void FilesTest::PanelsAreAFamilyOfFiles() {
  Desk desk;
  desk.DesignDefaultSail();
  Save(desk.Picture().fSave_panelDXF, "Main.old.dxf");
  QCOMPARE(Definition().SailName, std::string("Main"));
  QCOMPARE(QDir(folder_->path()).entryList({"*.DXF"}).size(), qsizetype{Definition().PanelCount});
  QVERIFY(QFile::exists(Path("Main_Panel01.DXF")));
  QCOMPARE(desk.Seen.size(), std::size_t{1});
  QCOMPARE(desk.Seen[0].Title, "Brivane 2000 : panels DXF");
  const QString last = QString("%1").arg(Definition().PanelCount, 2, 10, QChar('0'));
  QCOMPARE(
      desk.Seen[0].Text,
      "Developped panels saved \nfrom : Main_Panel01.DXF \n   to : Main_Panel" + last + ".DXF");
}

void FilesTest::PanelsThatWouldBeReplacedAreNamed() {
  Desk desk;
  desk.DesignDefaultSail();
  Write("Main_Panel02.DXF", "panel of another sail");
  QString question;
  WhenDialogIsUp("FileDialog", [&](QWidget* dialog) {
    WhenDialogIsUp("ReplaceQuestion", [&](QWidget* box) {
      question = qobject_cast<QMessageBox*>(box)->text();
      QTest::keyClick(box, Qt::Key_Escape);  // means "No"
    });
    ChooseFile(dialog, Path("Main.dxf"));
    qobject_cast<QFileDialog*>(dialog)->reject();
  });
  desk.Picture().fSave_panelDXF->trigger();
  QVERIFY(question.contains("Main_Panel02.DXF"));
  QCOMPARE(Read("Main_Panel02.DXF"), "panel of another sail");
  QVERIFY(!QFile::exists(Path("Main_Panel01.DXF")));
}

void FilesTest::EveryKindIsWritten() {
  Desk desk;
  desk.DesignDefaultSail();
  Save(desk.Picture().fSave_XY, "Main.xyz");
  Save(desk.Picture().fSave_Tovarek, "Main.bp4");
  Save(desk.Picture().fSave_VRML, "Main.WRL");
  WhenDialogIsUp("FileDialog", [this](QWidget* dialog) { ChooseFile(dialog, Path("Old.wrl")); });
  SaveData(&desk.Picture(), 3);
  QVERIFY(Read("Main.xyz").startsWith("Main; Panels development XY\r\n"));
  QVERIFY(Read("Main.bp4").startsWith("Brivane 2000 Tovarek Plotter Development: Main\r\n"));
  QVERIFY(Read("Main.WRL").startsWith("#VRML V2.0 utf8 \r\n"));
  QVERIFY(Read("Old.wrl").startsWith("#VRML V1.0 ascii \r\n"));
  QVERIFY(desk.Seen.empty());
}

void FilesTest::FailureIsTold() {
  Desk desk;
  desk.DesignDefaultSail();
  Save(desk.Picture().fSave_Data, "nowhere/Main.bv3");
  QCOMPARE(desk.Seen.size(), std::size_t{1});
  QCOMPARE(desk.Seen[0].Title, "Brivane 2000 : Writing eData2");
  QCOMPARE(desk.Seen[0].Text, "Trying to write over a Read Only File or an invalid Path");
  QVERIFY(QApplication::overrideCursor() == nullptr);
}

void FilesTest::KindsOutsideTheTableDoNothing() {
  Desk desk;
  desk.DesignDefaultSail();
  for (const int kind : {-1, 5, 99}) SaveData(&desk.Picture(), static_cast<std::int16_t>(kind));
  QVERIFY(QApplication::activeModalWidget() == nullptr);
  QVERIFY(desk.Seen.empty());
}

void FilesTest::DialogsFollowTheLanguage_data() {
  QTest::addColumn<int>("language");
  QTest::addColumn<QString>("open");
  QTest::addColumn<QString>("save");
  QTest::addColumn<QString>("cancel");
  QTest::addColumn<QString>("folderLabel");
  QTest::newRow("English") << 1 << "Open"
                           << "Save"
                           << "Cancel"
                           << "Look in:";
  QTest::newRow("French") << 0 << "Ouvrir"
                          << "Enregistrer"
                          << "Annuler"
                          << "Voir dans :";
}

void FilesTest::DialogsFollowTheLanguage() {
  QFETCH(int, language);
  QFETCH(QString, open);
  QFETCH(QString, save);
  QFETCH(QString, cancel);
  QFETCH(QString, folderLabel);
  Desk desk(static_cast<Language>(language));
  desk.DesignDefaultSail();
  QStringList filters;
  QString proposed;
  WhenDialogIsUp("FileDialog", [&](QWidget* dialog) {
    QVERIFY(ButtonOf(dialog, open) != nullptr);
    QVERIFY(ButtonOf(dialog, cancel) != nullptr);
    QCOMPARE(dialog->findChild<QLabel*>("lookInLabel")->text(), folderLabel);
    auto* types = dialog->findChild<QComboBox*>("fileTypeCombo");
    for (int i = 0; i < types->count(); ++i) filters << types->itemText(i);
    proposed = NameTypedIn(dialog);
    qobject_cast<QFileDialog*>(dialog)->reject();
  });
  desk.Picture().fOpen->trigger();
  QCOMPARE(filters, (QStringList{"Brivane2000(.bv3)", "Brivane4(.bv4)"}));
  QCOMPARE(proposed, "NEWSAIL.bv3");
  const std::array<std::pair<QAction*, const char*>, 5> kinds = {
      {{desk.Picture().fSave_Data, "Brivane files (.bv3)"},
       {desk.Picture().fSave_panelDXF, "Developped files (.dxf)"},
       {desk.Picture().fSave_XY, "Developped files (.xyz)"},
       {desk.Picture().fSave_Tovarek, "Tovarek plotter files (.bp4)"},
       {desk.Picture().fSave_VRML, "VRML (*.WRL)"}}};
  for (const auto& [command, filter] : kinds) {
    QString seen;
    WhenDialogIsUp("FileDialog", [&](QWidget* dialog) {
      QVERIFY(ButtonOf(dialog, save) != nullptr);
      seen = dialog->findChild<QComboBox*>("fileTypeCombo")->currentText();
      qobject_cast<QFileDialog*>(dialog)->reject();
    });
    command->trigger();
    QCOMPARE(seen, filter);
  }
}

void FilesTest::OpensTheNewerGeneration() {
  Desk desk;
  desk.DesignDefaultSail();
  Save(desk.Picture().fSave_Data, "Main.bv3");
  const SailDefinition saved = Definition();
  Definition().LuffLength = 7000;
  Definition().Depth = {1, 9, 4};
  desk.Picture().HScroll1->setValue(40);
  Open(desk, "Main.bv3");
  QVERIFY(Definition() == saved);
  QVERIFY(desk.Picture().Content() == PictureContent{.SeamLines = true});
  QCOMPARE(desk.Picture().HScroll1->value(), 0);
  QVERIFY(desk.Seen.empty());
}

void FilesTest::OpensTheOlderGeneration() {
  Desk desk;
  desk.DesignDefaultSail();
  Write("Old.bv4", kOldSail);
  Open(desk, "Old.bv4");
  QCOMPARE(Definition().SailName, std::string("OldSail"));
  QCOMPARE(Definition().LuffLength, 5200.0);
  QCOMPARE(Definition().LuffRake, 0.0);
  QCOMPARE(Definition().Depth, (std::array<double, 3>{0, 9, 0.9 * 9}));
  QCOMPARE(Definition().CutType, std::string("CROSSCUT"));
  QVERIFY(Definition().PanelCount > 3);
  QVERIFY(desk.Picture().windowTitle().endsWith("OldSail"));
  QVERIFY(desk.Seen.empty());
}

void FilesTest::NameInTheFileWins() {
  Desk desk;
  desk.DesignDefaultSail();
  Save(desk.Picture().fSave_Data, "Main.bv3");
  QVERIFY(QFile::rename(Path("Main.bv3"), Path("Copy.bv3")));
  Open(desk, "Copy.bv3");
  QCOMPARE(Definition().SailName, std::string("Main"));
}

void FilesTest::WrongTypeIsRefused() {
  Desk desk;
  desk.DesignDefaultSail();
  const double luff = Definition().LuffLength;
  Write("letter.txt", kOldSail);
  Open(desk, "letter.txt");
  QCOMPARE(desk.Seen.size(), std::size_t{1});
  QCOMPARE(desk.Seen[0].Title, "Brivane 2000 : Dessin1 File Open procedure");
  QCOMPARE(desk.Seen[0].Text, "Invalid file type selected");
  QCOMPARE(Definition().LuffLength, luff);
  QVERIFY(Definition().PanelCount > 3);
}

void FilesTest::CancelledOpenIsTold() {
  Desk desk;
  desk.DesignDefaultSail();
  const SailDefinition before = Definition();
  WhenDialogIsUp("FileDialog", [](QWidget* dialog) { QTest::keyClick(dialog, Qt::Key_Escape); });
  desk.Picture().fOpen->trigger();
  QCOMPARE(desk.Seen.size(), std::size_t{1});
  QCOMPARE(desk.Seen[0].Title, "Brivane 2000 : Dessin1 File Open procedure");
  QVERIFY(!desk.Seen[0].Text.isEmpty());
  QVERIFY(Definition() == before);
}

void FilesTest::UnreadableFileIsTold() {
  Desk desk;
  desk.DesignDefaultSail();
  Open(desk, "missing.bv3");
  QCOMPARE(desk.Seen.size(), std::size_t{1});
  QCOMPARE(desk.Seen[0].Title, "Brivane 2000 : Reading data file");
  Open(desk, "missing.bv4");
  QCOMPARE(desk.Seen.size(), std::size_t{2});
  QCOMPARE(desk.Seen[1].Title, "Brivane 2000 : Reading data ");
  QVERIFY(Definition().PanelCount > 3);
  QVERIFY(QApplication::overrideCursor() == nullptr);
}

void FilesTest::OverflowIsToldUnderTheReadersTitle() {
  Desk desk;
  desk.DesignDefaultSail();
  Save(desk.Picture().fSave_Data, "Main.bv3");
  QByteArray text = Read("Main.bv3");
  QVERIFY(text.contains("\r\n 890\r\n"));
  Write("Main.bv3", text.replace("\r\n 890\r\n", "\r\n 40000\r\n").replace(" 4550", " 5000"));
  Open(desk, "Main.bv3");
  QCOMPARE(desk.Seen.size(), std::size_t{1});
  QCOMPARE(desk.Seen[0].Title, "Brivane 2000 : Reading data file");
  // What had been read before stays, and is shown without panels.
  QCOMPARE(Definition().LuffLength, 5000.0);
  QCOMPARE(int{Definition().PanelCount}, 0);
  QVERIFY(desk.Picture().Content().Outline);
}

void FilesTest::HalfReadSailHasNoPanelsWhileItsMessageIsUp() {
  Desk desk;
  desk.DesignDefaultSail();
  const int panels = Definition().PanelCount;
  QVERIFY(panels > 0);
  QByteArrayList lines = QByteArray::fromStdString(SailDataText(Definition())).split('\n');
  lines[5] = " 119\r";     // PanelCount
  lines[38] = " 99999\r";  // ClothWidth
  Write("half.bv3", lines.join('\n'));
  std::vector<int> counts;
  desk.WhileMessageIsUp = [&counts] { counts.push_back(Definition().PanelCount); };
  Open(desk, "half.bv3");
  QCOMPARE(counts, std::vector<int>{0});
  // Where nothing was read the layout stays.
  desk.DesignDefaultSail();
  counts.clear();
  Write("huge.bv3", QByteArray(2 << 20, ' '));
  Open(desk, "huge.bv3");
  QCOMPARE(counts, std::vector<int>{panels});
}

void FilesTest::OpenedVerticalCutIsShownInTheDimensions() {
  Desk desk;
  desk.DesignDefaultSail();
  Definition().CutType = kVerticalCut;
  Save(desk.Picture().fSave_Data, "Main.bv3");
  Definition().CutType = kCrossCut;
  Open(desk, "Main.bv3");
  desk.GoTo(desk.Dimensions());
  QVERIFY(desk.Dimensions().OptCut1[2]->isChecked());
  // A keyword that no option stands for is kept.
  Definition().CutType = "RADIAL";
  desk.GoTo(desk.Picture());
  desk.GoTo(desk.Dimensions());
  for (const QRadioButton* option : desk.Dimensions().OptCut1) QVERIFY(!option->isChecked());
  QCOMPARE(Definition().CutType, std::string("RADIAL"));
}

void FilesTest::FolderOfTheLastDialogIsKept() {
  Desk desk;
  desk.DesignDefaultSail();
  Save(desk.Picture().fSave_Data, "Main.bv3");
  QString folder;
  WhenDialogIsUp("FileDialog", [&](QWidget* dialog) {
    folder = qobject_cast<QFileDialog*>(dialog)->directory().absolutePath();
    qobject_cast<QFileDialog*>(dialog)->reject();
  });
  desk.Picture().fOpen->trigger();
  QCOMPARE(folder, QDir(folder_->path()).absolutePath());
}

QTEST_MAIN(FilesTest)
#include "files_test.moc"
