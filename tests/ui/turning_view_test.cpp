#include <QTest>

#include "ui/desk.h"

using namespace brivane;

/// The view of the sail: turned by scroll bars, moved and zoomed by keys, mouse and wheel.
class TurningViewTest : public QObject {
  Q_OBJECT

 private slots:
  void ScrollBarsTurnTheView();
  void ArrowsMoveTheThumbTheirWay();
  void KeysMoveAndZoomThePicture();
  void AngleReadouts();
  void PanMovesByTheDrag();
  void ZoomFillsWithTheRectangle();
  void SmallRectangleIsAClick();
  void ZoomStopsAtItsCap();
  void WheelKeepsThePointUnderThePointer();
  void RubberBandIsXored();
  void OnePaintForOneEvent();
  void ResizingKeepsTheFit();
};

namespace {

/// Surface units in a pixel: 15 twips and a margin of 5 % on either side.
constexpr double kUnits = 15 * 1.1;

void Drag(QWidget* picture, Qt::MouseButton button, QPoint from, QPoint to) {
  QTest::mousePress(picture, button, {}, from);
  QTest::mouseMove(picture, (from + to) / 2);
  QMouseEvent move(QEvent::MouseMove, to, picture->mapToGlobal(to), Qt::NoButton, button, {});
  QApplication::sendEvent(picture, &move);
  QTest::mouseRelease(picture, button, {}, to);
}

}  // namespace

void TurningViewTest::ScrollBarsTurnTheView() {
  Desk desk;
  desk.DesignDefaultSail();
  Dessin1& window = desk.Picture();
  QCOMPARE(window.HScroll1->minimum(), -157);
  QCOMPARE(window.HScroll1->maximum(), 157);
  QCOMPARE(window.VScroll1->minimum(), -157);
  QCOMPARE(window.VScroll1->maximum(), 157);
  Press(window.Developing);
  QVERIFY(Current().View.DevelopShown);
  int draws = window.DrawCount();
  window.HScroll1->setFocus();
  QTest::keyClick(window.HScroll1, Qt::Key_End);
  QCOMPARE(window.HScroll1->value(), 157);
  QCOMPARE(window.DrawCount(), draws + 1);
  QVERIFY(!Current().View.DevelopShown);
  QVERIFY(window.Content() == PictureContent{.SeamLines = true});
  draws = window.DrawCount();
  QTest::keyClick(window.VScroll1, Qt::Key_Home);
  QCOMPARE(window.VScroll1->value(), -157);
  QCOMPARE(window.HScroll1->value(), 0);
  QCOMPARE(window.DrawCount(), draws + 1);
}

void TurningViewTest::ArrowsMoveTheThumbTheirWay() {
  Desk desk;
  desk.DesignDefaultSail();
  Dessin1& window = desk.Picture();
  const auto press = [](QScrollBar* bar, int key) {
    bar->setFocus();
    bar->setValue(0);
    QTest::keyClick(bar, static_cast<Qt::Key>(key));
    return bar->value();
  };
  QVERIFY(press(window.HScroll1, Qt::Key_Right) > 0);  // the least value stands on the left
  QVERIFY(press(window.HScroll1, Qt::Key_Left) < 0);
  QVERIFY(press(window.VScroll1, Qt::Key_Down) > 0);  // and at the top
  QVERIFY(press(window.VScroll1, Qt::Key_Up) < 0);
}

void TurningViewTest::KeysMoveAndZoomThePicture() {
  Desk desk;
  desk.DesignDefaultSail();
  PictureBox* picture = desk.Picture().Picture1;
  const auto press = [picture](int key) {
    const ViewState before = Current().View;
    QTest::keyClick(picture, static_cast<Qt::Key>(key));
    const ViewState& after = Current().View;
    return PlanePoint{after.ViewOffsetX - before.ViewOffsetX,
                      after.ViewOffsetY - before.ViewOffsetY};
  };
  picture->setFocus(Qt::TabFocusReason);
  QVERIFY(picture->hasFocus());
  // A tenth of the picture, the other way than the arrow looks.
  const double across = picture->width() * kUnits / 10;
  const double up = picture->height() * kUnits / 10;
  QVERIFY(qAbs(press(Qt::Key_Right).x + across) < 1e-6);
  QVERIFY(qAbs(press(Qt::Key_Left).x - across) < 1e-6);
  QVERIFY(qAbs(press(Qt::Key_Up).y + up) < 1e-6);
  QVERIFY(qAbs(press(Qt::Key_Down).y - up) < 1e-6);
  // Zooming keeps the middle and comes back.
  const ViewState before = Current().View;
  press(Qt::Key_Plus);
  QVERIFY(Current().View.ViewScale > before.ViewScale);
  const PlanePoint middle = picture->PointAt(QRectF(picture->rect()).center());
  const double still = (middle.x - before.ViewOffsetX) / before.ViewScale;
  QVERIFY(qAbs((middle.x - Current().View.ViewOffsetX) / Current().View.ViewScale - still) < 1e-6);
  press(Qt::Key_Minus);
  QVERIFY(qAbs(Current().View.ViewScale / before.ViewScale - 1) < 1e-9);
  QVERIFY(desk.Picture().Content().SeamLines);
}

void TurningViewTest::AngleReadouts() {
  Desk desk;
  desk.DesignDefaultSail();
  Dessin1& window = desk.Picture();
  QVERIFY(Shows(window.Picture1, "azimuth= 90"));
  QVERIFY(Shows(window.Picture1, "   elevation= 0"));
  window.HScroll1->setValue(60);  // 34.88 degrees
  QVERIFY(Shows(window.Picture1, "azimuth= 124"));
  window.VScroll1->setValue(-100);  // Int(-57.3 + 0.5)
  QVERIFY(Shows(window.Picture1, "azimuth= 90"));
  QVERIFY(Shows(window.Picture1, "   elevation=-57"));
  for (const DrawnText& text : window.Picture1->Shown().Texts)
    QCOMPARE(text.Ink == kRedOrange, text.Text.find("elevation") != std::string::npos);
}

void TurningViewTest::PanMovesByTheDrag() {
  Desk desk;
  desk.DesignDefaultSail();
  const ViewState before = Current().View;
  Drag(desk.Picture().Picture1, Qt::RightButton, {100, 100}, {160, 70});
  QVERIFY(qAbs(Current().View.ViewOffsetX - before.ViewOffsetX - 60 * kUnits) < 1e-6);
  QVERIFY(qAbs(Current().View.ViewOffsetY - before.ViewOffsetY - 30 * kUnits) < 1e-6);
  QCOMPARE(Current().View.ViewScale, before.ViewScale);
  QVERIFY(desk.Picture().Content().SeamLines);
}

void TurningViewTest::ZoomFillsWithTheRectangle() {
  Desk desk;
  desk.DesignDefaultSail();
  PictureBox* picture = desk.Picture().Picture1;
  const ViewState before = Current().View;
  const double width = 15.0 * picture->width();
  const double height = 15.0 * picture->height();
  Drag(picture, Qt::LeftButton, {260, 240}, {100, 140});
  const double k = 0.9 * 1.1 * width / (160 * kUnits);
  QVERIFY(qAbs(Current().View.ViewScale / before.ViewScale - k) < 1e-9);
  // The middle of the rectangle, pixel (180, 190), lands in the middle of the nominal area.
  const double middleX = 180 * kUnits - 0.05 * width;
  const double middleY = 1.05 * height - 190 * kUnits;
  QVERIFY(qAbs(Current().View.ViewOffsetX - (width / 2 - (middleX - before.ViewOffsetX) * k)) <
          1e-6);
  QVERIFY(qAbs(Current().View.ViewOffsetY - (height / 2 - (middleY - before.ViewOffsetY) * k)) <
          1e-6);
}

void TurningViewTest::SmallRectangleIsAClick() {
  Desk desk;
  desk.DesignDefaultSail();
  const double scale = Current().View.ViewScale;
  Drag(desk.Picture().Picture1, Qt::LeftButton, {100, 100}, {118, 300});  // 297 units wide
  QCOMPARE(Current().View.ViewScale, scale);
  QTest::mouseClick(desk.Picture().Picture1, Qt::LeftButton, {}, {50, 50});
  QCOMPARE(Current().View.ViewScale, scale);
  Drag(desk.Picture().Picture1, Qt::LeftButton, {100, 100}, {119, 100});  // 313.5 units wide
  QVERIFY(Current().View.ViewScale > scale);
}

void TurningViewTest::ZoomStopsAtItsCap() {
  Desk desk;
  desk.DesignDefaultSail();
  for (int i = 0; i < 8; ++i) Drag(desk.Picture().Picture1, Qt::LeftButton, {100, 100}, {130, 110});
  QVERIFY(qAbs(Current().View.ViewScale * Definition().DiagonalLength - 264000) < 1e-6);
  for (int i = 0; i < 20; ++i) Wheel(desk.Picture().Picture1, {100, 100}, 120);
  QVERIFY(Current().View.ViewScale * Definition().DiagonalLength < 264000 + 1e-6);
}

void TurningViewTest::WheelKeepsThePointUnderThePointer() {
  Desk desk;
  desk.DesignDefaultSail();
  PictureBox* picture = desk.Picture().Picture1;
  const QPoint pointer(200, 150);
  const auto sailPoint = [&] {
    const PlanePoint at = picture->PointAt(pointer);
    const ViewState& view = Current().View;
    return PlanePoint{(at.x - view.ViewOffsetX) / view.ViewScale,
                      (at.y - view.ViewOffsetY) / view.ViewScale};
  };
  const PlanePoint before = sailPoint();
  const double scale = Current().View.ViewScale;
  Wheel(picture, pointer, 240);
  QVERIFY(Current().View.ViewScale > scale);
  QVERIFY(qAbs(sailPoint().x - before.x) < 1e-6);
  QVERIFY(qAbs(sailPoint().y - before.y) < 1e-6);
  Wheel(picture, pointer, -240);
  QVERIFY(qAbs(Current().View.ViewScale / scale - 1) < 1e-9);
}

void TurningViewTest::RubberBandIsXored() {
  Desk desk;
  desk.DesignDefaultSail();
  PictureBox* picture = desk.Picture().Picture1;
  // The left margin is empty paper.
  QTest::mousePress(picture, Qt::LeftButton, {}, {2, 2});
  QMouseEvent move(QEvent::MouseMove, QPoint(18, 18), picture->mapToGlobal(QPoint(18, 18)),
                   Qt::NoButton, Qt::LeftButton, {});
  QApplication::sendEvent(picture, &move);
  const QImage band = picture->grab().toImage();
  QCOMPARE(band.pixelColor(2, 6), QColor(255, 0, 255));  // white turned by green
  QCOMPARE(band.pixelColor(10, 8), QColor(0, 255, 0));   // white turned by magenta
  QCOMPARE(band.pixelColor(5, 5), QColor(255, 255, 255));
  QTest::mouseRelease(picture, Qt::LeftButton, {}, {18, 18});
  QCOMPARE(picture->grab().toImage().pixelColor(2, 6), QColor(255, 255, 255));
}

void TurningViewTest::OnePaintForOneEvent() {
  Desk desk;
  desk.DesignDefaultSail();
  QTest::qWait(100);
  PictureBox* picture = desk.Picture().Picture1;
  for (const int value : {10, 20, -30}) {
    const int before = picture->PaintCount();
    desk.Picture().HScroll1->setValue(value);
    QTest::qWait(40);
    QCOMPARE(picture->PaintCount(), before + 1);
  }
  const int before = picture->PaintCount();
  const int draws = desk.Picture().DrawCount();
  Press(desk.Picture().Clean);
  QTest::qWait(40);
  QCOMPARE(picture->PaintCount(), before + 1);
  QCOMPARE(desk.Picture().DrawCount(), draws + 1);
}

void TurningViewTest::ResizingKeepsTheFit() {
  Desk desk;
  desk.DesignDefaultSail();
  const double scale = Current().View.ViewScale;
  desk.Picture().resize(desk.Picture().size() + QSize(200, 200));
  QTRY_VERIFY(Current().View.ViewScale > scale);
  // A view that was moved by hand stays as it is.
  Wheel(desk.Picture().Picture1, {100, 100}, 120);
  const ViewState moved = Current().View;
  desk.Picture().resize(desk.Picture().size() - QSize(100, 100));
  QTest::qWait(40);
  QCOMPARE(Current().View.ViewScale, moved.ViewScale);
  QCOMPARE(Current().View.ViewOffsetX, moved.ViewOffsetX);
}

QTEST_MAIN(TurningViewTest)
#include "turning_view_test.moc"
