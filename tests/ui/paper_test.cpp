// What really stands on the paper: reports printed into PDF files and read back by a reader that we
// did not write.

#include <QAction>
#include <QFile>
#include <QTest>
#include <QtMath>

#include "panels/design_pass.h"
#include "ui/desk.h"
#include "ui/pdf_reader.h"
#include "ui/printing.h"
#include "ui/qt_text.h"
#include "view/data_listing.h"

using namespace brivane;

class PaperTest : public QObject {
  Q_OBJECT

 private slots:
  void init();
  void ListingReadsBackAsItIs_data();
  void ListingReadsBackAsItIs();
  void DrawingIsToScale_data();
  void DrawingIsToScale();
  void NothingLeavesThePrintableArea_data();
  void NothingLeavesThePrintableArea();
  void OffsetsNeverOverprint_data();
  void OffsetsNeverOverprint();
  void PanelsPagesCarryTheirHeading();
  void NoPrinterIsTold();
  void AMissingFolderIsTold();

 private:
  QString Print(Desk& desk, const char* command);

  QTemporaryDir folder_;
};

namespace {

constexpr double kMarginPoints = 10 * 72 / 25.4;
constexpr double kPenPoints = 0.6;

/// The lines that say something, without their blanks: on a page a blank is a gap, and a reader
/// guesses how many it stands for.
QStringList Inked(const QStringList& lines) {
  QStringList kept;
  for (const QString& line : lines) {
    const QString inked = line.simplified().remove(' ');
    if (!inked.isEmpty()) kept.append(inked);
  }
  return kept;
}

void DesignWith(const std::function<void(SailDefinition&)>& change) {
  change(Definition());
  DesignPass(Current().TheSail);
}

double ChordOf(const PdfStroke& stroke) { return QLineF(stroke.front(), stroke.back()).length(); }

/// The one level stroke of two points that is long enough to be the scale bar.
double LongestLevelLine(const QList<PdfStroke>& strokes) {
  double longest = 0;
  for (const PdfStroke& stroke : strokes)
    if (stroke.size() == 2 && qAbs(stroke[0].y() - stroke[1].y()) < 0.01)
      longest = qMax(longest, ChordOf(stroke));
  return longest;
}

}  // namespace

void PaperTest::init() {
  CurrentPrinter() = PrinterSettings{};
  CurrentPrinter().ToPdf = true;
  CurrentPrinter().PdfPath = folder_.filePath("page.pdf");
  QFile::remove(CurrentPrinter().PdfPath);
}

QString PaperTest::Print(Desk& desk, const char* command) {
  CurrentPrinter().PdfMayBeReplaced = true;
  auto* action = desk.Picture().findChild<QAction*>(command);
  if (action == nullptr) qFatal("no command %s", command);
  action->trigger();
  for (const SeenMessage& message : desk.Seen) qWarning() << message.Title << message.Text;
  return CurrentPrinter().PdfPath;
}

void PaperTest::ListingReadsBackAsItIs_data() {
  QTest::addColumn<int>("language");
  QTest::newRow("English") << 1;
  QTest::newRow("French") << 0;
}

void PaperTest::ListingReadsBackAsItIs() {
  QFETCH(int, language);
  Desk desk(static_cast<Language>(language));
  desk.DesignDefaultSail();
  const QStringList read = Inked(PdfLines(Print(desk, "fPrint_Data"), 1));
  QStringList expected;
  for (const std::string& line : ListingText(DataListing(Definition(), Current().Language)))
    expected.append(ToQt(line));
  expected = Inked(expected);
  QCOMPARE(expected.size(), 32);
  QCOMPARE(read, expected);
}

void PaperTest::DrawingIsToScale_data() {
  QTest::addColumn<int>("paper");
  QTest::addColumn<double>("luff");
  QTest::newRow("A4, default sail") << static_cast<int>(QPageSize::A4) << 4550.0;
  QTest::newRow("A5, dinghy") << static_cast<int>(QPageSize::A5) << 1500.0;
  QTest::newRow("A0, large") << static_cast<int>(QPageSize::A0) << 18000.0;
}

void PaperTest::DrawingIsToScale() {
  QFETCH(int, paper);
  QFETCH(double, luff);
  CurrentPrinter().Paper = static_cast<QPageSize::PageSizeId>(paper);
  Desk desk;
  desk.DesignDefaultSail();
  DesignWith([luff](SailDefinition& sail) {
    const double scale = luff / sail.LuffLength;
    sail.LuffLength *= scale, sail.FootLength *= scale;
    sail.DiagonalLength *= scale, sail.GaffLength *= scale;
    sail.ClothWidth = 1500;
  });
  const QString pdf = Print(desk, "fPrint_Drawing");
  const QList<PdfStroke> strokes = PdfStrokes(pdf, 1);
  const QString text = PdfLines(pdf, 1).join('\n');
  const double barMm = text.contains("1000 mm") ? 1000 : 200;
  QVERIFY(text.contains(QString("%1 mm").arg(barMm)));
  const double pointsPerMm = LongestLevelLine(strokes) / barMm;
  // The luff is the first of the four edges, each of 21 points.
  const auto edge = std::find_if(strokes.begin(), strokes.end(),
                                 [](const PdfStroke& stroke) { return stroke.size() == 21; });
  QVERIFY(edge != strokes.end());
  const double measuredLuff = ChordOf(*edge) / pointsPerMm;
  QVERIFY2(qAbs(measuredLuff / Definition().LuffLength - 1) < 0.002,
           qPrintable(QString("luff of %1 mm by the bar").arg(measuredLuff)));
}

void PaperTest::NothingLeavesThePrintableArea_data() {
  QTest::addColumn<QByteArray>("command");
  QTest::addColumn<int>("paper");
  QTest::addColumn<bool>("landscape");
  QTest::addColumn<QString>("name");
  QTest::addColumn<int>("cloth");
  const QString longName(200, 'W');
  for (const char* command : {"fPrint_Data", "fPrint_Drawing", "fPrint_Panels"}) {
    const QByteArray label(command);
    const auto row = [&](const char* what, QPageSize::PageSizeId paper, bool landscape,
                         const QString& name, int cloth) {
      QTest::newRow((label + ' ' + what).constData())
          << label << static_cast<int>(paper) << landscape << name << cloth;
    };
    row("A4", QPageSize::A4, false, "Main", 890);
    row("A3 landscape", QPageSize::A3, true, "Main", 890);
    row("A5, long name", QPageSize::A5, false, longName, 890);
    row("A0", QPageSize::A0, false, "Main", 1500);
    row("A5 landscape, narrow cloth", QPageSize::A5, true, "Main", 120);
  }
}

void PaperTest::NothingLeavesThePrintableArea() {
  QFETCH(QByteArray, command);
  QFETCH(int, paper);
  QFETCH(bool, landscape);
  QFETCH(QString, name);
  QFETCH(int, cloth);
  CurrentPrinter().Paper = static_cast<QPageSize::PageSizeId>(paper);
  CurrentPrinter().Orientation = landscape ? QPageLayout::Landscape : QPageLayout::Portrait;
  Desk desk;
  desk.DesignDefaultSail();
  DesignWith([&](SailDefinition& sail) {
    sail.SailName = FromQt(name);
    sail.ClothWidth = static_cast<std::int16_t>(cloth);
  });
  const QString pdf = Print(desk, command.constData());
  const QSizeF size = PdfPageSize(pdf);
  QCOMPARE(size.width() > size.height(), landscape);
  const QRectF area = QRectF(QPointF(0, 0), size)
                          .adjusted(kMarginPoints, kMarginPoints, -kMarginPoints, -kMarginPoints)
                          .adjusted(-kPenPoints, -kPenPoints, kPenPoints, kPenPoints);
  int seen = 0;
  for (int page = 1; page <= PdfPageCount(pdf); ++page) {
    for (const PdfStroke& stroke : PdfStrokes(pdf, page))
      for (const QPointF& point : stroke) {
        ++seen;
        QVERIFY2(
            area.contains(point),
            qPrintable(
                QString("stroke at %1, %2 of page %3").arg(point.x()).arg(point.y()).arg(page)));
      }
    for (const PdfWord& word : PdfWords(pdf, page)) {
      ++seen;
      QVERIFY2(area.contains(word.Box.center()) && area.left() <= word.Box.left() &&
                   area.right() >= word.Box.right(),
               qPrintable(word.Text + QString(" on page %1").arg(page)));
    }
  }
  QVERIFY(seen > 30);
}

void PaperTest::OffsetsNeverOverprint_data() {
  QTest::addColumn<QString>("cut");
  QTest::addColumn<int>("paper");
  for (const char* cut : {kCrossCut, kTwistFootCut, kVerticalCut}) {
    QTest::newRow(QByteArray(cut) + " A4") << cut << static_cast<int>(QPageSize::A4);
    QTest::newRow(QByteArray(cut) + " A3") << cut << static_cast<int>(QPageSize::A3);
  }
}

void PaperTest::OffsetsNeverOverprint() {
  QFETCH(QString, cut);
  QFETCH(int, paper);
  CurrentPrinter().Paper = static_cast<QPageSize::PageSizeId>(paper);
  Desk desk;
  desk.DesignDefaultSail();
  DesignWith([&](SailDefinition& sail) { sail.CutType = FromQt(cut); });
  const QString pdf = Print(desk, "fPrint_Panels");
  int offsets = 0;
  for (int page = 1; page <= PdfPageCount(pdf); ++page) {
    QList<QRectF> boxes;
    for (const PdfWord& word : PdfWords(pdf, page)) {
      if (!word.Text.startsWith("X=") && !word.Text.startsWith("Y=")) continue;
      ++offsets;
      // The reader's boxes span the font's whole height; the ink of digits takes the middle.
      const double trim = word.Box.height() * 0.15;
      const QRectF box = word.Box.adjusted(0.1, trim, -0.1, -trim);
      for (const QRectF& other : boxes)
        QVERIFY2(!box.intersects(other), qPrintable(word.Text + QString(" page %1").arg(page)));
      boxes.append(box);
    }
  }
  // At least the corners and every fifth point of both seams: 14 to a panel, X and Y each.
  QVERIFY2(offsets >= Definition().PanelCount * 14, qPrintable(QString::number(offsets)));
}

void PaperTest::PanelsPagesCarryTheirHeading() {
  Desk desk(Language::French);
  desk.DesignDefaultSail();
  Definition().SailName = "Misaine";
  const QString pdf = Print(desk, "fPrint_Panels");
  QVERIFY(PdfPageCount(pdf) > 1);
  for (int page = 1; page <= PdfPageCount(pdf); ++page) {
    const QString text = PdfLines(pdf, page).join(' ').simplified();
    QVERIFY2(text.contains("Brivane 2000"), qPrintable(text));
    QVERIFY2(text.contains("Pour cotes détaillées, voir fichier Misaine.XYZ"), qPrintable(text));
    QVERIFY2(text.contains(QString("page %1").arg(page)), qPrintable(text));
  }
}

void PaperTest::NoPrinterIsTold() {
  Desk desk;
  desk.DesignDefaultSail();
  CurrentPrinter() = PrinterSettings{};
  CurrentPrinter().PrinterName = "no such printer";
  desk.Picture().findChild<QAction*>("fPrint_Data")->trigger();
  QCOMPARE(desk.Seen.size(), 1U);
  QCOMPARE(desk.Seen[0].Title, "Brivane 2000");
  QCOMPARE(desk.Seen[0].Text, "Printer problem");
}

void PaperTest::AMissingFolderIsTold() {
  Desk desk;
  desk.DesignDefaultSail();
  CurrentPrinter().PdfPath = folder_.filePath("missing/page.pdf");
  CurrentPrinter().PdfMayBeReplaced = true;
  desk.Picture().findChild<QAction*>("fPrint_Drawing")->trigger();
  QCOMPARE(desk.Seen.size(), 1U);
  QCOMPARE(desk.Seen[0].Text, "Printer problem");
  QVERIFY(!QFile::exists(folder_.filePath("missing/page.pdf")));
}

QTEST_MAIN(PaperTest)
#include "paper_test.moc"
