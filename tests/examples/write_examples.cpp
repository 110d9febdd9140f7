// Writes the sails of the folder "examples" with the program's own writer, and the contact sheet
// that shows them: write_examples FOLDER PICTURE. Run by scripts/update-examples.

#include <QGuiApplication>
#include <QImage>
#include <QPainter>
#include <cstdio>
#include <stdexcept>

#include "examples/example_sails.h"
#include "model/sail_file.h"
#include "panels/design_pass.h"
#include "ui/painter.h"
#include "ui/qt_text.h"
#include "view/sail_drawing.h"

namespace brivane {
namespace {

constexpr int kColumns = 3;
constexpr QSize kCell(320, 330);
constexpr int kMargin = 16;       // around a sail, px
constexpr int kCaption = 44;      // below it, px
constexpr int kSharpness = 2;     // pixels of the picture to one px
constexpr double kAzimuth = 0.5;  // rad: turned enough for the seams to show the mould

Sail Designed(const ExampleSail& example) {
  Sail sail;
  sail.Definition = example.Typed;
  if (DesignPass(sail).End != DesignEnd::Fitted)
    throw std::runtime_error(sail.Definition.SailName + " does not fit its cloth");
  return sail;
}

/// Seams and edges of the sail as the drawing window shows them turned, in mm.
Drawing SeamsOf(const Sail& sail) {
  ViewState view;
  view.ViewScale = 1;
  Drawing drawing;
  const SurfaceMapping mapping(sail.Definition, view, kAzimuth, 0);
  for (int line = 0; line <= sail.Definition.PanelCount; ++line)
    AppendSeamLine(sail.Grid, mapping, line, drawing);
  return drawing;
}

QRectF ExtentOf(const Drawing& drawing) {
  QPolygonF all;
  for (const Stroke& stroke : drawing.Strokes)
    for (const PlanePoint& point : stroke.Points) all << QPointF(point.x, point.y);
  return all.boundingRect();
}

/// Turns the drawing's axes upside down and puts it into the middle of the place.
QTransform Into(const QRectF& place, const QRectF& extent) {
  const double scale = std::min(place.width() / extent.width(), place.height() / extent.height());
  QTransform transform;
  transform.translate(place.center().x(), place.center().y());
  transform.scale(scale, -scale);
  transform.translate(-extent.center().x(), -extent.center().y());
  return transform;
}

void PaintCell(QPainter& painter, const QRect& cell, const ExampleSail& example, const Sail& sail) {
  const QRect inside = cell.adjusted(kMargin, kMargin, -kMargin, -kMargin - kCaption);
  const Drawing seams = SeamsOf(sail);
  PaintDrawing(painter, seams, Into(inside, ExtentOf(seams)), 1.2);
  painter.setPen(Qt::black);
  const QRect words(cell.left(), cell.bottom() - kCaption, cell.width(), kCaption);
  const SailDefinition& definition = sail.Definition;
  const QString figures =
      QString("%1 m², %2 panels").arg(definition.SailArea, 0, 'f', 1).arg(definition.PanelCount);
  const QString title = QString::fromUtf8(example.English.data(), int(example.English.size()));
  painter.drawText(words, Qt::AlignHCenter | Qt::AlignTop, title + "\n" + figures);
}

void Write(const QString& folder, const QString& picture) {
  const auto& examples = ExampleSails();
  const int rows = (int(examples.size()) + kColumns - 1) / kColumns;
  QImage sheet(QSize(kCell.width() * kColumns, kCell.height() * rows) * kSharpness,
               QImage::Format_RGB32);
  sheet.fill(Qt::white);
  QPainter painter(&sheet);
  painter.setRenderHint(QPainter::Antialiasing);
  painter.scale(kSharpness, kSharpness);
  QFont font("DejaVu Sans");
  font.setPixelSize(14);
  painter.setFont(font);
  for (std::size_t i = 0; i < examples.size(); ++i) {
    const Sail sail = Designed(examples[i]);
    WriteSailDataFile(FromQt(folder) + '/' + sail.Definition.SailName + ".bv3", sail.Definition);
    const int column = int(i) % kColumns, row = int(i) / kColumns;
    PaintCell(painter, {QPoint(column * kCell.width(), row * kCell.height()), kCell}, examples[i],
              sail);
  }
  painter.end();
  if (!sheet.save(picture)) throw std::runtime_error("the contact sheet cannot be saved");
}

}  // namespace
}  // namespace brivane

int main(int argc, char** argv) {
  QGuiApplication application(argc, argv);
  if (argc != 3) return 2;
  try {
    brivane::Write(QString::fromLocal8Bit(argv[1]), QString::fromLocal8Bit(argv[2]));
  } catch (const std::exception& failure) {
    std::fprintf(stderr, "write_examples: %s\n", failure.what());
    return 1;
  }
  return 0;
}
