#include "ui/printer_setup.h"

#include <QDir>
#include <QFileInfo>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QPointer>
#include <QSignalBlocker>

#include "ui/accessible.h"
#include "ui/current_sail.h"
#include "ui/file_dialogs.h"
#include "ui/mnemonics.h"
#include "ui/qt_text.h"
#include "ui/texts.h"

namespace brivane {

namespace {

constexpr std::array<QPageSize::PageSizeId, 9> kPapers = {
    QPageSize::A5, QPageSize::A4,     QPageSize::A3,    QPageSize::A2,     QPageSize::A1,
    QPageSize::A0, QPageSize::Letter, QPageSize::Legal, QPageSize::Tabloid};

const QString kPdfDestination = "\tpdf";  // no printer is called so

std::string CompletePath(const std::string& typed) {
  const QFileInfo file(QDir(CurrentFolder()), ToQt(typed));
  const QString suffix = file.fileName().contains('.') ? "" : ".pdf";
  return FromQt(file.absoluteFilePath() + suffix);
}

QLabel* LabelOf(const BilingualText& caption, QWidget* buddy) {
  auto* label = new QLabel(CurrentText(caption));
  label->setBuddy(buddy);
  buddy->setAccessibleName(CurrentText(caption).remove('&'));
  return label;
}

}  // namespace

PrinterSetup::PrinterSetup(QWidget* parent, const PrinterSettings& settings) : QDialog(parent) {
  setObjectName("PrinterSetup");
  setWindowTitle(CurrentText(texts::kPrinterSetup));
  auto* grid = new QGridLayout(this);
  grid->setContentsMargins(16, 16, 16, 14);
  grid->setHorizontalSpacing(10);
  grid->setVerticalSpacing(10);
  grid->setColumnStretch(1, 1);
  BuildDestination(grid, settings);
  BuildPaper(grid, settings);
  BuildButtons(grid);
  AnswerLettersAtOnce(*this);
  FollowDestination();
  AskForPrinters(this, [this](const Printers& printers) { TakePrinters(printers); });
}

void PrinterSetup::BuildDestination(QGridLayout* grid, const PrinterSettings& settings) {
  Destination = new QComboBox;
  Destination->setObjectName("Destination");
  Destination->setPlaceholderText(CurrentText(texts::kAskingForPrinters));
  if (!settings.PrinterName.isEmpty())
    Destination->addItem(settings.PrinterName, settings.PrinterName);
  Destination->addItem(CurrentText(texts::kPdfFile), kPdfDestination);
  Destination->setCurrentIndex(settings.ToPdf ? Destination->count() - 1 : 0);
  if (!settings.ToPdf && settings.PrinterName.isEmpty()) Destination->setCurrentIndex(-1);
  connect(Destination, &QComboBox::currentIndexChanged, this, &PrinterSetup::FollowDestination);

  PdfPath = new QLineEdit(settings.PdfPath);
  PdfPath->setObjectName("PdfPath");
  PdfPath->setMinimumWidth(320);
  if (settings.PdfPath.isEmpty()) {
    const QString name = ToQt(Current().TheSail.Definition.SailName) + ".pdf";
    PdfPath->setText(QDir(CurrentFolder()).filePath(name));
  }
  connect(PdfPath, &QLineEdit::textEdited, this, [this] { mayReplace_ = false; });
  Browse = new QPushButton(CurrentText(texts::kBrowse));
  Browse->setObjectName("Browse");
  Browse->setAutoDefault(false);
  connect(Browse, &QPushButton::clicked, this, &PrinterSetup::AskPdfPath);

  grid->addWidget(LabelOf(texts::kPrinter, Destination), 0, 0);
  grid->addWidget(Destination, 0, 1, 1, 2);
  grid->addWidget(LabelOf(texts::kPdfPath, PdfPath), 1, 0);
  grid->addWidget(PdfPath, 1, 1);
  grid->addWidget(Browse, 1, 2);
}

void PrinterSetup::BuildPaper(QGridLayout* grid, const PrinterSettings& settings) {
  PaperSize = new QComboBox;
  PaperSize->setObjectName("PaperSize");
  for (const QPageSize::PageSizeId paper : kPapers)
    PaperSize->addItem(QPageSize::name(paper), paper);
  PaperSize->setCurrentIndex(PaperSize->findData(settings.Paper));
  Portrait = new QRadioButton(CurrentText(texts::kPortrait));
  Portrait->setObjectName("Portrait");
  Landscape = new QRadioButton(CurrentText(texts::kLandscape));
  Landscape->setObjectName("Landscape");
  (settings.Orientation == QPageLayout::Portrait ? Portrait : Landscape)->setChecked(true);
  TabToChecked({Portrait, Landscape});
  auto* row = new QHBoxLayout;
  row->addWidget(Portrait);
  row->addWidget(Landscape);
  row->addStretch();
  grid->addWidget(LabelOf(texts::kPaper, PaperSize), 2, 0);
  grid->addWidget(PaperSize, 2, 1, 1, 2);
  grid->addLayout(row, 3, 1, 1, 2);
}

void PrinterSetup::BuildButtons(QGridLayout* grid) {
  Ok = new QPushButton(CurrentText(texts::kOk));
  Ok->setObjectName("Ok");
  Ok->setDefault(true);
  Cancel = new QPushButton(CurrentText(texts::kCancelButton));
  Cancel->setObjectName("Cancel");
  Cancel->setAutoDefault(false);
  connect(Ok, &QPushButton::clicked, this, &PrinterSetup::accept);
  connect(Cancel, &QPushButton::clicked, this, &PrinterSetup::reject);
  auto* row = new QHBoxLayout;
  row->addStretch();
  row->addWidget(Ok);
  row->addWidget(Cancel);
  grid->setRowStretch(4, 1);
  grid->addLayout(row, 5, 0, 1, 3);
}

bool PrinterSetup::IsPdf() const { return Destination->currentData() == kPdfDestination; }

void PrinterSetup::TakePrinters(const Printers& printers) {
  const QVariant chosen =
      Destination->currentIndex() < 0 ? printers.Default : Destination->currentData();
  const QSignalBlocker quiet(Destination);
  while (Destination->count() > 1) Destination->removeItem(0);
  for (const QString& name : printers.Names)
    Destination->insertItem(Destination->count() - 1, name, name);
  const int index = Destination->findData(chosen);
  Destination->setCurrentIndex(index < 0 ? Destination->count() - 1 : index);
  FollowDestination();
}

void PrinterSetup::FollowDestination() {
  PdfPath->setEnabled(IsPdf());
  Browse->setEnabled(IsPdf());
  Ok->setEnabled(Destination->currentIndex() >= 0);
}

void PrinterSetup::AskPdfPath() {
  const SaveQuestion question = {CurrentText(texts::kPdfFile),
                                 {CurrentText(texts::kPdfFiles), "*.pdf"},
                                 QFileInfo(PdfPath->text()).fileName(),
                                 CompletePath,
                                 [](const std::string& path) { return ExistingFiles({path}); }};
  const std::optional<std::string> path = AskSavePath(this, question);
  if (!path) return;
  PdfPath->setText(ToQt(*path));
  mayReplace_ = true;
}

void PrinterSetup::accept() {
  if (IsPdf() && !mayReplace_) {
    if (PdfPath->text().trimmed().isEmpty()) return PdfPath->setFocus();
    PdfPath->setText(ToQt(CompletePath(FromQt(PdfPath->text().trimmed()))));
    if (!ConfirmReplacing(this, ExistingFiles({FromQt(PdfPath->text())}))) return;
    mayReplace_ = true;
  }
  QDialog::accept();
}

PrinterSettings PrinterSetup::Chosen() const {
  PrinterSettings chosen;
  chosen.ToPdf = IsPdf();
  chosen.PdfPath = PdfPath->text();
  chosen.PdfMayBeReplaced = mayReplace_;
  if (!chosen.ToPdf) chosen.PrinterName = Destination->currentData().toString();
  chosen.Paper = PaperSize->currentData().value<QPageSize::PageSizeId>();
  chosen.Orientation = Landscape->isChecked() ? QPageLayout::Landscape : QPageLayout::Portrait;
  return chosen;
}

void SetUpPrinter(QWidget* parent) {
  const QPointer<PrinterSetup> dialog = new PrinterSetup(parent, CurrentPrinter());
  const bool accepted = dialog->exec() == QDialog::Accepted;
  if (dialog.isNull()) return;
  if (accepted) CurrentPrinter() = dialog->Chosen();
  delete dialog.data();
}

}  // namespace brivane
