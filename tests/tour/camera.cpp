#include "tour/camera.h"

#include <QGuiApplication>
#include <QPainter>
#include <QScreen>
#include <cstdio>

#include "tour/hand.h"

namespace brivane::tour {

namespace {

QImage FromScreen(const QRect& area) {
  return QGuiApplication::primaryScreen()
      ->grabWindow(0, area.x(), area.y(), area.width(), area.height())
      .toImage();
}

QImage FromWindows(const std::vector<QWidget*>& windows, const QRect& area) {
  QImage image(area.size(), QImage::Format_RGB32);
  image.fill(QColor(70, 80, 95));
  QPainter painter(&image);
  for (QWidget* window : windows)
    painter.drawPixmap(window->frameGeometry().topLeft() - area.topLeft(), window->grab());
  return image;
}

bool IsBlank(const QImage& image) {
  if (image.isNull()) return true;
  const QRgb first = image.pixel(0, 0);
  for (int y = 0; y < image.height(); ++y)
    for (int x = 0; x < image.width(); ++x)
      if (image.pixel(x, y) != first) return false;
  return true;
}

}  // namespace

void Camera::Take(const QString& name, const std::vector<QWidget*>& windows) const {
  QRect area;
  for (const QWidget* window : windows) area |= window->frameGeometry();
  area &= QGuiApplication::primaryScreen()->geometry();
  QImage image;
  if (QGuiApplication::platformName() == "xcb") image = FromScreen(area);
  if (IsBlank(image)) image = FromWindows(windows, area);
  const QString path = folder_.filePath(name + ".png");
  if (IsBlank(image) || !image.save(path)) throw LostWay("no picture could be taken: " + name);
  std::printf("  picture %s\n", qPrintable(name));
  std::fflush(stdout);
}

}  // namespace brivane::tour
