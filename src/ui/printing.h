#pragma once

#include <QByteArray>
#include <QPageLayout>
#include <QString>
#include <QWidget>
#include <functional>
#include <vector>

#include "view/drawing.h"
#include "view/paper.h"

namespace brivane {

/// Where and on what the reports are printed. Chosen in "Printer setup", held until the program
/// ends.
struct PrinterSettings {
  bool ToPdf = false;
  QString PdfPath;                ///< used when ToPdf
  bool PdfMayBeReplaced = false;  ///< the user has been asked about an existing file
  QString PrinterName;            ///< empty: the system's default printer
  QPageSize::PageSizeId Paper = QPageSize::A4;
  QPageLayout::Orientation Orientation = QPageLayout::Portrait;
};

/// The settings of this run of the program.
PrinterSettings& CurrentPrinter();

/// What can be printed: the data listing, the drawing, the panels.
enum class Report { Data, Drawing, Panels };

/// Prints a report of the current sail on the printer, or into the file, that is set up. Any
/// failure is told as "Printer problem", and nothing else happens.
void PrintReport(QWidget* parent, Report report);

/// The page that the settings stand for, with a margin that every printer can keep.
QPageLayout PageOf(const PrinterSettings& settings);

/// Makes the pages of a report for a paper and the measure of the font that it is printed with.
using PageMaker = std::function<std::vector<Drawing>(const Paper&, const TextMeasure&)>;

/// The pages as a PDF file of that page size. Throws std::runtime_error where it cannot be made.
QByteArray PdfOfPages(const QPageLayout& page, const QString& title, const PageMaker& makePages);

}  // namespace brivane
