#include "tour/camera.h"

#include <QGuiApplication>
#include <QPainter>
#include <QScreen>
#include <QTest>
#include <algorithm>
#include <cstdio>

#include "tour/hand.h"

namespace brivane::tour {

namespace {

constexpr int kPatience = 3000;  ///< for the window manager and the server, ms

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

/// What the windows take of the screen, with their frames.
QRect AreaOf(const std::vector<QWidget*>& windows) {
  QRect area;
  for (const QWidget* window : windows) area |= window->frameGeometry();
  return area & QGuiApplication::primaryScreen()->geometry();
}

/// On a busy machine the window manager frames a window some time after it is up, and moves it
/// then.
void WaitForFrames(const std::vector<QWidget*>& windows) {
  static bool areFramed = true;  // no longer asked where nobody frames windows
  const auto framed = [&] {
    return std::all_of(windows.begin(), windows.end(), [](const QWidget* window) {
      return window->frameGeometry() != window->geometry();
    });
  };
  if (areFramed) areFramed = QTest::qWaitFor(framed, kPatience);
}

}  // namespace

void Camera::Take(const QString& name, const std::vector<QWidget*>& windows) const {
  QImage image;
  const auto isShown = [&] {
    image = FromScreen(AreaOf(windows));
    return !IsBlank(image);
  };
  const bool hasScreen = QGuiApplication::platformName() == "xcb";
  if (hasScreen) WaitForFrames(windows);
  if (!hasScreen || !QTest::qWaitFor(isShown, kPatience))
    image = FromWindows(windows, AreaOf(windows));
  const QString path = folder_.filePath(name + ".png");
  if (IsBlank(image) || !image.save(path)) throw LostWay("no picture could be taken: " + name);
  std::printf("  picture %s\n", qPrintable(name));
  std::fflush(stdout);
}

}  // namespace brivane::tour
