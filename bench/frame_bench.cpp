#include <QApplication>
#include <QImage>
#include <QPainter>

#include "bench_sails.h"
#include "harness.h"
#include "ui/painter.h"
#include "view/navigation.h"
#include "view/sail_drawing.h"

namespace bench {
namespace {

using namespace brivane;

constexpr QSize kPicture(1200, 900);
constexpr double kAzimuth = 0.4;

void Clear(QPainter& painter) { painter.fillRect(QRect(QPoint(), kPicture), Qt::white); }

Row FrameRow(const std::string& name, bool antialiased, double goal) {
  const Sail sail = SeventyPanelSail();
  const PictureSize size = SizeOfPixels(kPicture.width(), kPicture.height());
  ViewState view;
  FitView(sail.Definition, size, view);
  QImage picture(kPicture, QImage::Format_RGB32);
  QImage cleared(kPicture, QImage::Format_RGB32);
  const Minima times = TimeInTurns(
      [&] {
        QPainter painter(&picture);
        Clear(painter);
        painter.setRenderHint(QPainter::Antialiasing, antialiased);
        PaintDrawing(
            painter,
            SailDrawing(sail, view, size, {.SeamLines = true}, kAzimuth, 0, Language::English),
            SurfaceToPixels(kPicture));
      },
      [&] {
        QPainter painter(&cleared);
        Clear(painter);
      });
  return {name + " / clearing the picture", times.Ratio(), goal, false, Sides(times)};
}

}  // namespace

Rows FrameRows() {
  qputenv("QT_QPA_PLATFORM", "offscreen");
  qputenv("QT_LOGGING_RULES", "*.warning=false");
  int count = 1;
  char name[] = "bench";
  char* names[] = {name, nullptr};
  const QApplication application(count, names);
  return {FrameRow("frame of 71 lines, plain", false, 5),
          FrameRow("frame of 71 lines, antialiased", true, 7)};
}

}  // namespace bench
