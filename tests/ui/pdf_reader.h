#pragma once

#include <QList>
#include <QPointF>
#include <QRectF>
#include <QString>
#include <QStringList>

namespace brivane {

/// A word of a page and its box, points, origin in the upper left corner of the paper.
struct PdfWord {
  QString Text;
  QRectF Box;
};

/// A stroked line of a page, points, origin in the upper left corner of the paper.
using PdfStroke = QList<QPointF>;

/// What a reader that we did not write finds in a PDF file. Pages count from 1.
int PdfPageCount(const QString& path);
QSizeF PdfPageSize(const QString& path);
QStringList PdfLines(const QString& path, int page);
QList<PdfWord> PdfWords(const QString& path, int page);
QList<PdfStroke> PdfStrokes(const QString& path, int page);

}  // namespace brivane
