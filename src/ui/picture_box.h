#pragma once

#include <QWidget>
#include <functional>

#include "geometry/plane.h"
#include "view/drawing.h"
#include "view/view_state.h"

namespace brivane {

/// A picture surface: a sheet of white paper in a user scale of surface units, whatever the theme.
/// It shows a drawing and turns the mouse, and the keys while it has the focus, into gestures, told
/// in surface units.
class PictureBox : public QWidget {
 public:
  explicit PictureBox(QWidget* parent = nullptr);

  /// The right button was dragged from one point to another.
  std::function<void(PlanePoint from, PlanePoint to)> OnPan;
  /// The left button was dragged from one corner of a rectangle to the other.
  std::function<void(PlanePoint from, PlanePoint to)> OnZoom;
  /// The wheel was turned by so many notches with the pointer at a point.
  std::function<void(PlanePoint at, double notches)> OnWheel;
  std::function<void()> OnResize;
  /// Tells in words what is shown, for who cannot see it.
  std::function<QString()> Describe;

  /// Replaces what is shown; painted once, with everything else that this event changes.
  void Show(Drawing drawing);
  const Drawing& Shown() const { return drawing_; }

  PictureSize Size() const;
  /// The surface point under a pixel, and back.
  PlanePoint PointAt(QPointF pixel) const;
  QPointF PixelAt(PlanePoint point) const;

  int PaintCount() const { return paintCount_; }  ///< paint events so far

 protected:
  void paintEvent(QPaintEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;
  void mousePressEvent(QMouseEvent* event) override;
  void mouseMoveEvent(QMouseEvent* event) override;
  void mouseReleaseEvent(QMouseEvent* event) override;
  void wheelEvent(QWheelEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;

 private:
  void PaintRubberBand(QPainter& painter) const;
  void PaintFocus(QPainter& painter) const;
  void EndDrag();
  bool MoveByKey(int key);
  bool ZoomByKey(int key);

  Drawing drawing_;
  Qt::MouseButton dragButton_ = Qt::NoButton;
  QPointF dragStart_;
  QPointF dragEnd_;
  int paintCount_ = 0;
};

}  // namespace brivane
