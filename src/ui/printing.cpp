#include "ui/printing.h"

#include <QBuffer>
#include <QFontMetricsF>
#include <QPainter>
#include <QPdfWriter>
#include <QProcess>
#include <QStandardPaths>
#include <QTemporaryFile>
#include <stdexcept>

#include "model/text_file.h"
#include "ui/current_sail.h"
#include "ui/file_dialogs.h"
#include "ui/messages.h"
#include "ui/painter.h"
#include "ui/printers.h"
#include "ui/qt_text.h"
#include "ui/texts.h"
#include "view/data_listing.h"
#include "view/print_drawing.h"
#include "view/print_panels.h"

namespace brivane {

namespace {

constexpr double kUnitsPerInch = 1440;
constexpr double kUnitsPerPoint = 20;
constexpr double kMarginMm = 10;
constexpr int kDotsPerInch = 1200;
constexpr double kPenPoints = 0.6;
constexpr int kSpoolerPatienceMs = 60000;

/// A failure of the printer or of what stands between. Its words are for the developer; the user
/// reads "Printer problem".
struct PrinterFault : std::runtime_error {
  using std::runtime_error::runtime_error;
};

Paper PaperOf(const QPageLayout& page) {
  const QSizeF points = page.paintRect(QPageLayout::Point).size();
  return {points.width() * kUnitsPerPoint, points.height() * kUnitsPerPoint};
}

/// The font of the pages. Without ligatures: text copied from a page is the text that was printed.
QFont PaperFont() {
  QFont font;
  font.setStyleStrategy(QFont::PreferNoShaping);
  return font;
}

/// Texts grow in proportion to their size, so one size measures them all.
TextMeasure MeasureOn(QPaintDevice& device) {
  constexpr int kMeasuredPixels = 1000;
  QFont font = PaperFont();
  font.setPixelSize(kMeasuredPixels);
  const QFontMetricsF metrics(font, &device);
  return [metrics](std::string_view text, double size) {
    return metrics.horizontalAdvance(ToQt(text)) * size / kMeasuredPixels;
  };
}

void PaintPages(QPdfWriter& writer, const std::vector<Drawing>& pages, const Paper& paper) {
  QPainter painter;
  if (!painter.begin(&writer)) throw PrinterFault("the page cannot be begun");
  painter.setFont(PaperFont());
  constexpr double kDotsPerUnit = kDotsPerInch / kUnitsPerInch;
  const QTransform toDots(kDotsPerUnit, 0, 0, -kDotsPerUnit, 0, paper.Height * kDotsPerUnit);
  for (std::size_t i = 0; i < pages.size(); ++i) {
    if (i > 0 && !writer.newPage()) throw PrinterFault("no further page can be begun");
    PaintDrawing(painter, pages[i], toDots, kPenPoints * kDotsPerInch / 72);
  }
  if (!painter.end()) throw PrinterFault("the last page cannot be ended");
}

std::vector<Drawing> PagesOf(Report report, const Paper& paper, const TextMeasure& measure) {
  const Sail& sail = Current().TheSail;
  const Language language = Current().Language;
  switch (report) {
    case Report::Data:
      return {ListingPage(DataListing(sail.Definition, language), paper, measure)};
    case Report::Drawing:
      return {PrintedDrawing(sail.Definition, paper, language, measure)};
    case Report::Panels:
      return PrintedPanels(sail, paper, language, measure);
  }
  return {};
}

/// Hands the file to the system's print service, whose command tells whether the job was taken.
void Spool(const QByteArray& pdf, const PrinterSettings& settings) {
  const QString command = QStandardPaths::findExecutable("lp");
  if (command.isEmpty()) throw PrinterFault("there is no print service");
  QTemporaryFile file;
  const bool written = file.open() && file.write(pdf) == pdf.size() && file.flush();
  if (!written) throw PrinterFault("the job cannot be written");
  QStringList arguments = {"-t", ToQt(ProgramTitle),
                           "-o", "media=" + QPageSize::key(settings.Paper),
                           "-o", "print-scaling=none"};
  // Without a printer's name the job goes to the default one.
  if (!settings.PrinterName.isEmpty()) arguments << QStringList{"-d", settings.PrinterName};
  QProcess job;
  job.setStandardOutputFile(QProcess::nullDevice());
  job.setStandardErrorFile(QProcess::nullDevice());
  job.start(command, arguments << "--" << file.fileName());
  const bool ended = EndsInTime(job, kSpoolerPatienceMs);
  if (!ended) job.kill();
  const bool taken = ended && job.exitStatus() == QProcess::NormalExit && job.exitCode() == 0;
  if (!taken) throw PrinterFault("the print service refused the job");
}

void Deliver(const QByteArray& pdf, PrinterSettings& settings) {
  if (!settings.ToPdf) return Spool(pdf, settings);
  const std::string_view bytes(pdf.constData(), static_cast<std::size_t>(pdf.size()));
  WriteBytesSafely(FromQt(settings.PdfPath), bytes);
  settings.PdfMayBeReplaced = false;
}

bool MayPrint(QWidget* parent, const PrinterSettings& settings) {
  if (!settings.ToPdf || settings.PdfMayBeReplaced) return true;
  return ConfirmReplacing(parent, ExistingFiles({FromQt(settings.PdfPath)}));
}

}  // namespace

PrinterSettings& CurrentPrinter() {
  static PrinterSettings settings;
  return settings;
}

QPageLayout PageOf(const PrinterSettings& settings) {
  return QPageLayout(QPageSize(settings.Paper), settings.Orientation,
                     QMarginsF(kMarginMm, kMarginMm, kMarginMm, kMarginMm),
                     QPageLayout::Millimeter);
}

QByteArray PdfOfPages(const QPageLayout& page, const QString& title, const PageMaker& makePages) {
  QByteArray pdf;
  QBuffer buffer(&pdf);
  buffer.open(QIODevice::WriteOnly);
  QPdfWriter writer(&buffer);
  writer.setPageLayout(page);
  writer.setResolution(kDotsPerInch);
  writer.setTitle(title);
  writer.setCreator(ToQt(ProgramTitle));
  const Paper paper = PaperOf(page);
  PaintPages(writer, makePages(paper, MeasureOn(writer)), paper);
  return pdf;
}

void PrintReport(QWidget* parent, Report report) {
  PrinterSettings& settings = CurrentPrinter();
  if (!MayPrint(parent, settings)) return;
  const std::optional<QString> failure = WordsOfFailure([&settings, report] {
    const WaitCursor wait;
    const QString title = ToQt(Current().TheSail.Definition.SailName);
    const auto make = [report](const Paper& paper, const TextMeasure& measure) {
      return PagesOf(report, paper, measure);
    };
    Deliver(PdfOfPages(PageOf(settings), title, make), settings);
  });
  if (failure) ShowMessage(parent, ToQt(ProgramTitle), ToQt(texts::kPrinterProblem));
}

}  // namespace brivane
