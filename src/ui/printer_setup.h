#pragma once

#include <QComboBox>
#include <QDialog>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>

#include "ui/printers.h"
#include "ui/printing.h"

class QGridLayout;

namespace brivane {

/// "Printer setup": the printer or a PDF file, the paper and its orientation. The printers are
/// filled in when the print service has told them; until then nothing is chosen, unless it was
/// before.
class PrinterSetup : public QDialog {
 public:
  PrinterSetup(QWidget* parent, const PrinterSettings& settings);

  /// What the dialog shows.
  PrinterSettings Chosen() const;

  QComboBox* Destination;  ///< the printers, then the PDF file
  QLineEdit* PdfPath;
  QPushButton* Browse;
  QComboBox* PaperSize;
  QRadioButton *Portrait, *Landscape;
  QPushButton *Ok, *Cancel;

 protected:
  void accept() override;

 private:
  void BuildDestination(QGridLayout* grid, const PrinterSettings& settings);
  void BuildPaper(QGridLayout* grid, const PrinterSettings& settings);
  void BuildButtons(QGridLayout* grid);
  void TakePrinters(const Printers& printers);
  void FollowDestination();
  void AskPdfPath();
  bool IsPdf() const;

  bool mayReplace_ = false;
};

/// Runs the dialog and keeps what was chosen; a cancel keeps what was set before.
void SetUpPrinter(QWidget* parent);

}  // namespace brivane
