#include "ui/painted_pixels.h"

#include <QImage>
#include <QPainterPath>
#include <QScreen>
#include <QTest>
#include <random>

#include "ui/painter.h"
#include "ui/picture_box.h"
#include "view/navigation.h"

using namespace brivane;

/// The lines that are put straight into the pixels of pictures and windows.
class PaintedPixelsTest : public QObject {
  Q_OBJECT

 private slots:
  void AWindowShowsThem();
  void PartsOfAWindowShowThem();
  void TheyLieWithinHalfAPixelOfTheToolkits();
  void ThePainterMovesAndScalesThem();
  void SteppedLinesAreStepped();
  void TheOrderOfTheStrokesIsKept();
  void OtherPaintersAreLeftToTheToolkit_data();
  void OtherPaintersAreLeftToTheToolkit();
  void WidePensAndOtherPixelsAreLeftToTheToolkit();
  void ACopyTakenMeanwhileStaysAsItIs();
};

namespace {

const QSize kSize(120, 90);

QImage Paper(QImage::Format format = QImage::Format_RGB32) {
  QImage paper(kSize, format);
  paper.fill(Qt::white);
  return paper;
}

Drawing LineOf(std::vector<PlanePoint> points, Colour ink = kBlue) {
  Drawing drawing;
  AddStroke(drawing, {std::move(points), ink});
  return drawing;
}

const std::vector<PlanePoint> kLine = {{10, 12}, {60.5, 20}, {100, 70.25}, {30, 80}};

/// What the pixels of the line are, and nothing else on white paper.
QImage PutOnPaper(const std::vector<PlanePoint>& line, QSize size = kSize,
                  LineEdge edge = LineEdge::Smooth) {
  QImage paper(size, QImage::Format_RGB32);
  paper.fill(Qt::white);
  const PixelRows rows{{reinterpret_cast<std::uint32_t*>(paper.bits()),
                        static_cast<std::size_t>(size.width() * size.height())},
                       size.width()};
  PutLine(rows, rows.Box(), line, 0xff0000ff, edge);
  return paper;
}

/// The drawing in a window, at a place of it and beside something else.
struct ShownBox {
  ShownBox() {
    Window.resize(320, 240);
    Box.setGeometry(20, 30, 240, 180);
    Over.setAutoFillBackground(true);
    Over.setPalette(QColor(10, 200, 30));
    Over.setGeometry(100, 80, 40, 30);
    Box.Show(LineOf({Box.PointAt({10.25, 20}), Box.PointAt({200, 90.5}), Box.PointAt({60, 170})}));
    Window.show();
  }
  /// What the screen shows of the box.
  QImage Seen() {
    QApplication::processEvents();
    const QPixmap all = Window.screen()->grabWindow(Window.winId());
    return all.copy(Box.geometry()).toImage().convertToFormat(QImage::Format_RGB32);
  }
  /// The pixels of the line where it comes to lie.
  QImage Expected() const {
    std::vector<PlanePoint> line = Box.Shown().Strokes[0].Points;
    for (PlanePoint& point : line) {
      const QPointF pixel = SurfaceToPixels(Box.size()).map(QPointF(point.x, point.y));
      point = {pixel.x(), pixel.y()};
    }
    return PutOnPaper(line, Box.size());
  }

  QWidget Window;
  PictureBox Box{&Window};
  QWidget Over{&Window};
};

/// How dark a picture is in all.
long DarkOf(const QImage& picture) {
  long sum = 0;
  for (int y = 0; y < picture.height(); ++y)
    for (int x = 0; x < picture.width(); ++x) sum += 255 - qRed(picture.pixel(x, y));
  return sum;
}

/// Where the middle of the ink lies in a column.
double MiddleOfColumn(const QImage& picture, int x) {
  double dark = 0;
  double moment = 0;
  for (int y = 0; y < picture.height(); ++y) {
    const int here = 255 - qRed(picture.pixel(x, y));
    dark += here;
    moment += here * (y + 0.5);
  }
  return moment / dark;
}

/// The solid lines of the drawing as the toolkit's own pen draws them.
QImage ByTheToolkit(const Drawing& drawing, const std::function<void(QPainter&)>& prepare,
                    QImage paper = Paper(), double width = 1) {
  QPainter painter(&paper);
  prepare(painter);
  for (const Stroke& stroke : drawing.Strokes) {
    QPen pen(QColor(stroke.Ink.Red, stroke.Ink.Green, stroke.Ink.Blue), width);
    pen.setCosmetic(true);
    painter.setPen(pen);
    QPolygonF line;
    for (const PlanePoint& point : stroke.Points) line.append({point.x, point.y});
    painter.drawPolyline(line);
  }
  painter.end();
  return paper.convertToFormat(QImage::Format_RGB32);
}

QImage OnPicture(const Drawing& drawing, const std::function<void(QPainter&)>& prepare,
                 QImage paper = Paper(), double pen = 1) {
  QPainter painter(&paper);
  prepare(painter);
  PaintDrawing(painter, drawing, QTransform(), pen);
  painter.end();
  return paper.convertToFormat(QImage::Format_RGB32);
}

void Smooth(QPainter& painter) { painter.setRenderHint(QPainter::Antialiasing); }

}  // namespace

void PaintedPixelsTest::AWindowShowsThem() {
  ShownBox shown;
  shown.Over.hide();
  QTRY_COMPARE(shown.Seen(), shown.Expected());
}

void PaintedPixelsTest::PartsOfAWindowShowThem() {
  ShownBox shown;
  QImage expected = shown.Expected();
  QPainter(&expected).fillRect(80, 50, 40, 30, QColor(10, 200, 30));
  QTRY_COMPARE(shown.Seen(), expected);  // four parts round what lies over the box
  shown.Box.update(QRect(90, 10, 70, 100));
  QTRY_COMPARE(shown.Seen(), expected);
  shown.Over.hide();
  QTRY_COMPARE(shown.Seen(), shown.Expected());
}

void PaintedPixelsTest::TheyLieWithinHalfAPixelOfTheToolkits() {
  std::mt19937 random(3);
  std::uniform_real_distribution<double> across(5, 85);
  for (int count = 0; count < 200; ++count) {
    const Drawing line = LineOf({{10, across(random)}, {110, across(random)}}, kBlack);
    const QImage ours = OnPicture(line, Smooth);
    const QImage theirs = ByTheToolkit(line, Smooth);
    QVERIFY(qAbs(DarkOf(ours) - DarkOf(theirs)) <= 255);  // one pixel, for both ends
    for (int x = 12; x < 108; ++x)
      QVERIFY(qAbs(MiddleOfColumn(ours, x) - MiddleOfColumn(theirs, x)) < 0.55);
  }
}

void PaintedPixelsTest::ThePainterMovesAndScalesThem() {
  const auto prepare = [](QPainter& painter) {
    Smooth(painter);
    painter.translate(7.5, 3);
    painter.scale(0.5, 0.75);
  };
  std::vector<PlanePoint> line = kLine;
  for (PlanePoint& point : line) point = {point.x * 0.5 + 7.5, point.y * 0.75 + 3};
  QCOMPARE(OnPicture(LineOf(kLine), prepare), PutOnPaper(line));
  QImage fine = Paper();
  fine.setDevicePixelRatio(1.5);
  for (PlanePoint& point : line = kLine) point = 1.5 * point;
  QImage seen = OnPicture(LineOf(kLine), Smooth, fine);
  seen.setDevicePixelRatio(1);
  QCOMPARE(seen, PutOnPaper(line));
}

void PaintedPixelsTest::SteppedLinesAreStepped() {
  QCOMPARE(OnPicture(LineOf(kLine), [](QPainter&) {}), PutOnPaper(kLine, kSize, LineEdge::Stepped));
}

void PaintedPixelsTest::TheOrderOfTheStrokesIsKept() {
  Drawing drawing = LineOf({{10, 40.5}, {100, 40.5}}, kRed);
  AddStroke(drawing, {{{50.5, 10}, {50.5, 80}}, kBlue, PenStyle::Dashed});
  AddStroke(drawing, {{{10, 41.5}, {100, 41.5}}, kBlack});
  const QImage seen = OnPicture(drawing, [](QPainter&) {});
  int blueRows = 0;
  for (int y = 10; y < 80; ++y) blueRows += seen.pixelColor(50, y) == QColor(Qt::blue) ? 1 : 0;
  QVERIFY(blueRows > 30 && blueRows < 60);  // six pixels of ten
  QCOMPARE(seen.pixelColor(50, 41), QColor(Qt::black));
  QCOMPARE(seen.pixelColor(30, 40), QColor(Qt::red));
}

void PaintedPixelsTest::OtherPaintersAreLeftToTheToolkit_data() {
  using Prepare = std::function<void(QPainter&)>;
  QTest::addColumn<Prepare>("prepare");
  QTest::newRow("a clip") << Prepare([](QPainter& p) { p.setClipRect(0, 0, 50, 90); });
  QTest::newRow("a round clip") << Prepare([](QPainter& p) {
    QPainterPath path;
    path.addEllipse(20, 10, 70, 70);
    p.setClipPath(path);
  });
  QTest::newRow("a turn") << Prepare([](QPainter& p) { p.rotate(10); });
  QTest::newRow("half an ink") << Prepare([](QPainter& p) { p.setOpacity(0.5); });
  QTest::newRow("another way of mixing")
      << Prepare([](QPainter& p) { p.setCompositionMode(QPainter::CompositionMode_Multiply); });
}

void PaintedPixelsTest::OtherPaintersAreLeftToTheToolkit() {
  QFETCH(std::function<void(QPainter&)>, prepare);
  const auto prepareSmoothly = [&](QPainter& painter) {
    Smooth(painter);
    prepare(painter);
  };
  QCOMPARE(OnPicture(LineOf(kLine), prepareSmoothly), ByTheToolkit(LineOf(kLine), prepareSmoothly));
}

void PaintedPixelsTest::WidePensAndOtherPixelsAreLeftToTheToolkit() {
  const Drawing line = LineOf(kLine);
  QCOMPARE(OnPicture(line, Smooth, Paper(), 2), ByTheToolkit(line, Smooth, Paper(), 2));
  for (const QImage::Format format : {QImage::Format_RGB16, QImage::Format_ARGB32})
    QCOMPARE(OnPicture(line, Smooth, Paper(format)), ByTheToolkit(line, Smooth, Paper(format)));
}

void PaintedPixelsTest::ACopyTakenMeanwhileStaysAsItIs() {
  QImage paper = Paper();
  QPainter painter(&paper);
  const QImage copy = paper;
  PaintDrawing(painter, LineOf(kLine), QTransform());
  painter.end();
  QCOMPARE(copy, Paper());
  QCOMPARE(paper, PutOnPaper(kLine, kSize, LineEdge::Stepped));
}

QTEST_MAIN(PaintedPixelsTest)

#include "painted_pixels_test.moc"
