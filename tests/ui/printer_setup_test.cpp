#include "ui/printer_setup.h"

#include <QElapsedTimer>
#include <QFile>
#include <QFileDialog>
#include <QMessageBox>
#include <QTest>
#include <QTimer>

#include "ui/desk.h"

using namespace brivane;

/// The printer that is set up, and the print service behind it.
class PrinterSetupTest : public QObject {
  Q_OBJECT

 private slots:
  void init();
  void cleanup();
  void ChoiceHoldsAndCancelKeepsIt();
  void DialogFollowsTheLanguage();
  void AnOrientationChosenByItsLetterIsChosenAtOnce();
  void ExtensionIsAddedAndReplacingIsAsked();
  void SecondReportAsksBeforeItReplacesTheFirst();
  void BrowsingChoosesTheFile();
  void PageSizesReachTheFile();
  void PrintersOfTheServiceAreOffered();
  void ChosenPrinterStaysWhereItIsStillOffered();
  void ServiceThatDoesNotAnswerHoldsNothingUp();
  void SystemsOwnPrinterGetsTheJob();
  void WindowsArePaintedWhileTheJobIsTaken();
  void JobGoesToThePrintService();
  void RefusedJobIsTold();
  void MissingPrintServiceIsTold();
  void FileThatCannotBeWrittenIsTold();

 private:
  QString Path(const QString& name) const { return folder_->filePath(name); }
  QByteArray Read(const QString& name) const {
    QFile file(Path(name));
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray("no file");
  }
  /// Puts a print command of ours into the search path: it keeps its arguments and the job.
  void ProvidePrintService(int exitCode) const;
  /// Puts a status command of ours into the search path: two printers, the second the system's own.
  void ProvidePrinters() const;
  void ProvideCommand(const QString& name, const QByteArray& script) const;

  std::unique_ptr<QTemporaryDir> folder_;
  QByteArray searchPath_;
};

namespace {

PrinterSetup* SetupIn(QWidget* dialog) { return dynamic_cast<PrinterSetup*>(dialog); }

/// Chooses the PDF file of that path in the setup dialog and agrees.
void SetUpPdf(Desk& desk, const QString& path) {
  WhenDialogIsUp("PrinterSetup", [path](QWidget* dialog) {
    PrinterSetup* setup = SetupIn(dialog);
    setup->Destination->setCurrentIndex(setup->Destination->count() - 1);
    TypeAndStay(setup->PdfPath, path);
    QTest::keyClick(setup->PdfPath, Qt::Key_Return);
  });
  desk.Picture().fprint_setup->trigger();
}

}  // namespace

void PrinterSetupTest::init() {
  folder_ = std::make_unique<QTemporaryDir>();
  searchPath_ = qgetenv("PATH");
  CurrentPrinter() = PrinterSettings{};
}

void PrinterSetupTest::cleanup() { qputenv("PATH", searchPath_); }

void PrinterSetupTest::ProvideCommand(const QString& name, const QByteArray& script) const {
  QFile command(Path(name));
  QVERIFY(command.open(QIODevice::WriteOnly));
  command.write("#!/bin/sh\n" + script);
  command.close();
  QVERIFY(command.setPermissions(QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner));
  qputenv("PATH", folder_->path().toUtf8() + ":" + searchPath_);
}

void PrinterSetupTest::ProvidePrintService(int exitCode) const {
  ProvideCommand("lp", "printf '%s\\n' \"$@\" > " + Path("arguments").toUtf8() +
                           "\nfor last; do :; done\ncp \"$last\" " + Path("job").toUtf8() +
                           "\nexit " + QByteArray::number(exitCode) + "\n");
}

void PrinterSetupTest::ProvidePrinters() const {
  ProvideCommand("lpstat",
                 "test \"$*, $LC_ALL\" = '-d -e, C.UTF-8' &&\n"
                 "printf 'system default destination: Loft\\nOffice\\nLoft\\n'\n");
}

void PrinterSetupTest::ChoiceHoldsAndCancelKeepsIt() {
  Desk desk;
  desk.DesignDefaultSail();
  WhenDialogIsUp("PrinterSetup", [this](QWidget* dialog) {
    PrinterSetup* setup = SetupIn(dialog);
    setup->Destination->setCurrentIndex(setup->Destination->count() - 1);
    TypeAndStay(setup->PdfPath, Path("plan.pdf"));
    setup->PaperSize->setCurrentText("A3");
    Press(setup->Landscape);
    setup->Landscape->setChecked(true);
    Press(setup->Ok);
  });
  desk.Picture().fprint_setup->trigger();
  QVERIFY(CurrentPrinter().ToPdf);
  QCOMPARE(CurrentPrinter().PdfPath, Path("plan.pdf"));
  QCOMPARE(CurrentPrinter().Paper, QPageSize::A3);
  QCOMPARE(CurrentPrinter().Orientation, QPageLayout::Landscape);
  // The dialog comes up with what was chosen; a cancel changes nothing.
  WhenDialogIsUp("PrinterSetup", [this](QWidget* dialog) {
    PrinterSetup* setup = SetupIn(dialog);
    QCOMPARE(setup->PdfPath->text(), Path("plan.pdf"));
    QCOMPARE(setup->PaperSize->currentText(), "A3");
    QVERIFY(setup->Landscape->isChecked());
    setup->PaperSize->setCurrentText("A5");
    QTest::keyClick(setup, Qt::Key_Escape);
  });
  desk.Picture().fprint_setup->trigger();
  QCOMPARE(CurrentPrinter().Paper, QPageSize::A3);
}

void PrinterSetupTest::AnOrientationChosenByItsLetterIsChosenAtOnce() {
  Desk desk;
  WhenDialogIsUp("PrinterSetup", [](QWidget* dialog) {
    PrinterSetup* setup = SetupIn(dialog);
    setup->Destination->setCurrentIndex(setup->Destination->count() - 1);
    QTest::keyClick(dialog, Qt::Key_L, Qt::AltModifier);
    Press(setup->Ok);
  });
  desk.Picture().fprint_setup->trigger();
  QCOMPARE(CurrentPrinter().Orientation, QPageLayout::Landscape);
}

void PrinterSetupTest::DialogFollowsTheLanguage() {
  Desk desk(Language::French);
  desk.DesignDefaultSail();
  WhenDialogIsUp("PrinterSetup", [](QWidget* dialog) {
    PrinterSetup* setup = SetupIn(dialog);
    QCOMPARE(setup->windowTitle(), "Printer setup");
    QCOMPARE(Plain(setup->Landscape->text()), "Paysage");
    QCOMPARE(Plain(setup->Cancel->text()), "Annuler");
    QCOMPARE(setup->PaperSize->accessibleName(), "Papier");
    Press(setup->Cancel);
  });
  desk.Picture().fprint_setup->trigger();
}

void PrinterSetupTest::ExtensionIsAddedAndReplacingIsAsked() {
  Desk desk;
  desk.DesignDefaultSail();
  QFile old(Path("plan.pdf"));
  QVERIFY(old.open(QIODevice::WriteOnly));
  old.close();
  bool asked = false;
  WhenDialogIsUp("PrinterSetup", [&](QWidget* dialog) {
    PrinterSetup* setup = SetupIn(dialog);
    setup->Destination->setCurrentIndex(setup->Destination->count() - 1);
    TypeAndStay(setup->PdfPath, Path("plan"));
    WhenDialogIsUp("ReplaceQuestion", [&asked](QWidget* box) {
      asked = true;
      QTest::keyClick(box, Qt::Key_Escape);
    });
    Press(setup->Ok);
    QVERIFY(setup->isVisible());
    TypeAndStay(setup->PdfPath, Path("other"));
    Press(setup->Ok);
  });
  desk.Picture().fprint_setup->trigger();
  QVERIFY(asked);
  QCOMPARE(CurrentPrinter().PdfPath, Path("other.pdf"));
}

void PrinterSetupTest::SecondReportAsksBeforeItReplacesTheFirst() {
  Desk desk;
  desk.DesignDefaultSail();
  SetUpPdf(desk, Path("plan.pdf"));
  desk.Picture().fPrint_Data->trigger();
  const QByteArray listing = Read("plan.pdf");
  QVERIFY(listing.startsWith("%PDF-"));
  WhenDialogIsUp("ReplaceQuestion", [](QWidget* box) { QTest::keyClick(box, Qt::Key_Escape); });
  desk.Picture().fPrint_Drawing->trigger();
  QCOMPARE(Read("plan.pdf"), listing);
  QVERIFY(desk.Seen.empty());
}

void PrinterSetupTest::BrowsingChoosesTheFile() {
  Desk desk;
  desk.DesignDefaultSail();
  WhenDialogIsUp("PrinterSetup", [this](QWidget* dialog) {
    PrinterSetup* setup = SetupIn(dialog);
    setup->Destination->setCurrentIndex(setup->Destination->count() - 1);
    WhenDialogIsUp("FileDialog", [this](QWidget* files) { ChooseFile(files, Path("found")); });
    Press(setup->Browse);
    QCOMPARE(setup->PdfPath->text(), Path("found.pdf"));
    Press(setup->Ok);
  });
  desk.Picture().fprint_setup->trigger();
  QCOMPARE(CurrentPrinter().PdfPath, Path("found.pdf"));
}

void PrinterSetupTest::PageSizesReachTheFile() {
  PrinterSettings settings;
  settings.Paper = QPageSize::A5;
  settings.Orientation = QPageLayout::Landscape;
  const QPageLayout page = PageOf(settings);
  QCOMPARE(page.fullRect(QPageLayout::Millimeter).size(), QSizeF(210, 148));
  QCOMPARE(page.paintRect(QPageLayout::Millimeter), QRectF(10, 10, 190, 128));
}

void PrinterSetupTest::PrintersOfTheServiceAreOffered() {
  ProvidePrinters();
  Desk desk;
  desk.DesignDefaultSail();
  WhenDialogIsUp("PrinterSetup", [](QWidget* dialog) {
    PrinterSetup* setup = SetupIn(dialog);
    QTRY_COMPARE(setup->Destination->count(), 3);  // the last is the PDF file
    QCOMPARE(setup->Destination->itemText(0), "Office");
    QCOMPARE(setup->Destination->currentText(), "Loft");
    setup->Destination->setCurrentIndex(0);
    Press(setup->Ok);
  });
  desk.Picture().fprint_setup->trigger();
  QVERIFY(!CurrentPrinter().ToPdf);
  QCOMPARE(CurrentPrinter().PrinterName, "Office");
}

void PrinterSetupTest::ChosenPrinterStaysWhereItIsStillOffered() {
  ProvidePrinters();
  Desk desk;
  desk.DesignDefaultSail();
  for (const auto& [chosen, shown] : {std::pair{"Office", "Office"}, {"Sold", "PDF file"}}) {
    CurrentPrinter().PrinterName = chosen;
    WhenDialogIsUp("PrinterSetup", [shown = shown](QWidget* dialog) {
      PrinterSetup* setup = SetupIn(dialog);
      QTRY_COMPARE(setup->Destination->count(), 3);
      QCOMPARE(setup->Destination->currentText(), shown);
      Press(setup->Cancel);
    });
    desk.Picture().fprint_setup->trigger();
  }
}

void PrinterSetupTest::ServiceThatDoesNotAnswerHoldsNothingUp() {
  ProvideCommand("lpstat", "exec sleep 100\n");
  Desk desk;
  desk.DesignDefaultSail();
  QElapsedTimer time;
  time.start();
  WhenDialogIsUp("PrinterSetup", [](QWidget* dialog) {
    PrinterSetup* setup = SetupIn(dialog);
    QCOMPARE(setup->Destination->currentIndex(), -1);
    QCOMPARE(setup->Destination->placeholderText(), "Asking for printers…");
    QVERIFY(!setup->Ok->isEnabled());
    QVERIFY(!setup->PdfPath->isEnabled());
    setup->Destination->setCurrentIndex(0);
    QVERIFY(setup->Ok->isEnabled());
    QVERIFY(setup->PdfPath->isEnabled());
    Press(setup->Ok);
  });
  desk.Picture().fprint_setup->trigger();
  QVERIFY(CurrentPrinter().ToPdf);
  QVERIFY2(time.elapsed() < 5000, "the dialog waited for the printers");
}

void PrinterSetupTest::SystemsOwnPrinterGetsTheJob() {
  ProvidePrinters();
  ProvidePrintService(0);
  Desk desk;
  desk.DesignDefaultSail();
  desk.Picture().fPrint_Data->trigger();
  QVERIFY(desk.Seen.empty());
  QVERIFY(Read("arguments").startsWith("-t\n"));  // no printer is named
}

void PrinterSetupTest::WindowsArePaintedWhileTheJobIsTaken() {
  Desk desk;
  desk.DesignDefaultSail();
  ProvideCommand("lp", "while ! test -e " + Path("seen").toUtf8() + "; do sleep 0.01; done\n");
  // Only a program that goes on with its events lets the command end.
  QTimer::singleShot(0, this, [this] {
    QVERIFY(QApplication::overrideCursor() != nullptr);
    QVERIFY(QFile(Path("seen")).open(QIODevice::WriteOnly));
  });
  desk.Picture().fPrint_Data->trigger();
  QVERIFY(desk.Seen.empty());
  QVERIFY(QFile::exists(Path("seen")));
}

void PrinterSetupTest::JobGoesToThePrintService() {
  Desk desk;
  desk.DesignDefaultSail();
  ProvidePrintService(0);
  CurrentPrinter().PrinterName = "Loft printer";
  desk.Picture().fPrint_Panels->trigger();
  QVERIFY(desk.Seen.empty());
  QVERIFY(Read("job").startsWith("%PDF-"));
  const QList<QByteArray> arguments = Read("arguments").split('\n');
  QVERIFY(arguments.contains("Loft printer"));
  QVERIFY(arguments.contains("media=A4"));
}

void PrinterSetupTest::RefusedJobIsTold() {
  Desk desk(Language::French);
  desk.DesignDefaultSail();
  ProvidePrintService(1);
  CurrentPrinter().PrinterName = "Loft printer";
  desk.Picture().fPrint_Data->trigger();
  QCOMPARE(desk.Seen.size(), std::size_t{1});
  QCOMPARE(desk.Seen[0].Title, "Brivane 2000");
  QCOMPARE(desk.Seen[0].Text, "Printer problem");
  QVERIFY(QApplication::overrideCursor() == nullptr);
}

void PrinterSetupTest::MissingPrintServiceIsTold() {
  Desk desk;
  desk.DesignDefaultSail();
  CurrentPrinter().PrinterName = "Loft printer";
  qputenv("PATH", folder_->path().toUtf8());
  desk.Picture().fPrint_Data->trigger();
  QCOMPARE(desk.Seen.size(), std::size_t{1});
  QCOMPARE(desk.Seen[0].Text, "Printer problem");
}

void PrinterSetupTest::FileThatCannotBeWrittenIsTold() {
  Desk desk;
  desk.DesignDefaultSail();
  for (const char* path : {"/dev/full", "/nowhere/plan.pdf"}) {
    desk.Seen.clear();
    CurrentPrinter().ToPdf = CurrentPrinter().PdfMayBeReplaced = true;
    CurrentPrinter().PdfPath = path;
    desk.Picture().fPrint_Drawing->trigger();
    QCOMPARE(desk.Seen.size(), std::size_t{1});
    QCOMPARE(desk.Seen[0].Text, "Printer problem");
  }
}

QTEST_MAIN(PrinterSetupTest)
#include "printer_setup_test.moc"
