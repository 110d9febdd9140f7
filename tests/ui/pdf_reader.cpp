#include "ui/pdf_reader.h"

#include <QProcess>
#include <QRegularExpression>
#include <QTransform>
#include <QXmlStreamReader>

namespace brivane {

namespace {

QByteArray OutputOf(const QString& command, const QStringList& arguments) {
  QProcess process;
  process.start(command, arguments);
  if (!process.waitForFinished(30000) || process.exitCode() != 0)
    qFatal("%s fails: %s", qPrintable(command), process.readAllStandardError().constData());
  return process.readAllStandardOutput();
}

QStringList OnlyPage(int page) {
  const QString number = QString::number(page);
  return {"-f", number, "-l", number};
}

double NumberIn(const QXmlStreamReader& xml, const char* name) {
  return xml.attributes().value(name).toDouble();
}

QTransform TransformOf(const QString& text) {
  static const QRegularExpression number("-?[0-9.]+(?:e-?[0-9]+)?");
  QList<double> m;
  for (auto found = number.globalMatch(text); found.hasNext();)
    m.append(found.next().captured().toDouble());
  return m.size() == 6 ? QTransform(m[0], m[1], m[2], m[3], m[4], m[5]) : QTransform();
}

/// The straight lines of a path: "M x y L x y ...".
PdfStroke StrokeOf(const QString& path, const QTransform& transform) {
  PdfStroke stroke;
  const QStringList words = path.split(' ', Qt::SkipEmptyParts);
  for (qsizetype i = 0; i + 2 < words.size();) {
    if (words[i] != "M" && words[i] != "L") {
      ++i;
      continue;
    }
    stroke.append(transform.map(QPointF(words[i + 1].toDouble(), words[i + 2].toDouble())));
    i += 3;
  }
  return stroke;
}

}  // namespace

int PdfPageCount(const QString& path) {
  static const QRegularExpression pages("Pages:\\s+(\\d+)");
  return pages.match(OutputOf("pdfinfo", {path})).captured(1).toInt();
}

QSizeF PdfPageSize(const QString& path) {
  static const QRegularExpression size("Page size:\\s+([0-9.]+) x ([0-9.]+)");
  const auto found = size.match(OutputOf("pdfinfo", {path}));
  return {found.captured(1).toDouble(), found.captured(2).toDouble()};
}

QStringList PdfLines(const QString& path, int page) {
  const QByteArray text = OutputOf("pdftotext", OnlyPage(page) + QStringList{"-layout", path, "-"});
  return QString::fromUtf8(text).remove('\f').split('\n');
}

QList<PdfWord> PdfWords(const QString& path, int page) {
  QList<PdfWord> words;
  QXmlStreamReader xml(OutputOf("pdftotext", OnlyPage(page) + QStringList{"-bbox", path, "-"}));
  while (!xml.atEnd()) {
    if (xml.readNext() != QXmlStreamReader::StartElement || xml.name() != u"word") continue;
    const QRectF box(QPointF(NumberIn(xml, "xMin"), NumberIn(xml, "yMin")),
                     QPointF(NumberIn(xml, "xMax"), NumberIn(xml, "yMax")));
    words.append({xml.readElementText(), box});
  }
  return words;
}

QList<PdfStroke> PdfStrokes(const QString& path, int page) {
  QList<PdfStroke> strokes;
  QXmlStreamReader xml(OutputOf("pdftocairo", OnlyPage(page) + QStringList{"-svg", path, "-"}));
  while (!xml.atEnd()) {
    if (xml.readNext() != QXmlStreamReader::StartElement || xml.name() != u"path") continue;
    if (!xml.attributes().hasAttribute("stroke") &&
        !xml.attributes().value("style").contains(u"stroke:rgb"))
      continue;
    const PdfStroke stroke = StrokeOf(xml.attributes().value("d").toString(),
                                      TransformOf(xml.attributes().value("transform").toString()));
    if (stroke.size() > 1) strokes.append(stroke);
  }
  return strokes;
}

}  // namespace brivane
