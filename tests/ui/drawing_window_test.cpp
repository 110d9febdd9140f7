#include <QMenuBar>
#include <QTest>
#include <QWheelEvent>
#include <cmath>

#include "ui/desk.h"

using namespace brivane;

/// The drawing window: its commands, its scroll bars and the mouse on its picture.
/// Long because bars, keys, mouse and commands all work the one picture and each other.
class DrawingWindowTest : public QObject {
  Q_OBJECT

 private slots:
  void MenuTree_data();
  void MenuTree();
  void ButtonsAndCaption();
  void LayoutAroundThePicture();
  void LabelsSpeakWithTheCaptions();
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
  void DevelopRedrawLabels();
  void LabelsFollowTheLanguage();
  void NewSail();
  void CancelShowsTheStartWindow();
  void ClosingEndsTheProgram();
  void QuitEndsTheProgram();
  void PaperIsWhiteInADarkTheme();
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

void Wheel(QWidget* picture, QPoint at, int angle) {
  QWheelEvent event(at, picture->mapToGlobal(at), {}, {0, angle}, Qt::NoButton, Qt::NoModifier,
                    Qt::NoScrollPhase, false);
  QApplication::sendEvent(picture, &event);
}

std::vector<std::string> TextsOn(const PictureBox* picture) {
  std::vector<std::string> texts;
  for (const DrawnText& text : picture->Shown().Texts) texts.push_back(text.Text);
  return texts;
}

bool Shows(const PictureBox* picture, const std::string& text) {
  const std::vector<std::string> texts = TextsOn(picture);
  return std::find(texts.begin(), texts.end(), text) != texts.end();
}

/// The tree as lines: "name: caption", indented by its depth; a separator's name alone.
void ListMenu(const QList<QAction*>& actions, const QString& indent, QStringList& lines) {
  for (const QAction* action : actions) {
    const QMenu* menu = action->menu();
    const QString name = menu != nullptr ? menu->objectName() : action->objectName();
    lines << (action->isSeparator() ? indent + name : indent + name + ": " + action->text());
    if (menu != nullptr) ListMenu(menu->actions(), indent + "  ", lines);
  }
}

}  // namespace

void DrawingWindowTest::MenuTree_data() {
  QTest::addColumn<int>("language");
  QTest::addColumn<QStringList>("expected");
  QTest::newRow("English") << 1
                           << QStringList{"fmenu: &File",
                                          "  fNew: &New",
                                          "  fSep1",
                                          "  fOpen: &Open",
                                          "  fSep2",
                                          "  fprint: &Print",
                                          "    fPrint_Data: Data",
                                          "    fPrint_Drawing: Drawing",
                                          "    fPrint_Panels: Panels",
                                          "    fprint_setup: Printer setup",
                                          "  fSep3",
                                          "  fSave: &Save",
                                          "    fSave_Data: Data",
                                          "    fSave_panelDXF: Panels DXF",
                                          "    fSave_XY: Panels X-Y",
                                          "    fSave_Tovarek: Tovarek plotter",
                                          "    fSave_VRML: VRML",
                                          "  fSep4",
                                          "  fQuit: &Quit",
                                          "m_Dimensions: &Dimensions",
                                          "m_Mold: Mould",
                                          "m_Patch: Patches"};
  QTest::newRow("French") << 0
                          << QStringList{"fmenu: &Fichier",
                                         "  fNew: &Nouveau",
                                         "  fSep1",
                                         "  fOpen: &Ouvrir",
                                         "  fSep2",
                                         "  fprint: Im&Primer",
                                         "    fPrint_Data: Données",
                                         "    fPrint_Drawing: Dessin",
                                         "    fPrint_Panels: Laizes",
                                         "    fprint_setup: Printer setup",
                                         "  fSep3",
                                         "  fSave: &Sauvegarder",
                                         "    fSave_Data: Données",
                                         "    fSave_panelDXF: Laizes DXF",
                                         "    fSave_XY: Laizes X-Y",
                                         "    fSave_Tovarek: Table Tovarek",
                                         "    fSave_VRML: VRML",
                                         "  fSep4",
                                         "  fQuit: &Quitter",
                                         "m_Dimensions: &Dimensions",
                                         "m_Mold: Moule",
                                         "m_Patch: Renforts"};
}

void DrawingWindowTest::MenuTree() {
  QFETCH(int, language);
  QFETCH(QStringList, expected);
  Desk desk(static_cast<Language>(language));
  desk.DesignDefaultSail();
  QStringList lines;
  ListMenu(desk.Picture().menuBar()->actions(), "", lines);
  QCOMPARE(lines, expected);
  for (const QAction* action : desk.Picture().findChildren<QAction*>())
    QVERIFY2(action->isEnabled(), qPrintable(action->objectName()));
}

void DrawingWindowTest::ButtonsAndCaption() {
  Desk desk(Language::French);
  desk.DesignDefaultSail();
  Dessin1& window = desk.Picture();
  QCOMPARE(Plain(window.Developing->text()), "Développer");
  QCOMPARE(Plain(window.Clean->text()), "Redessiner");
  QCOMPARE(Plain(window.Legende1->text()), "Légende");
  QCOMPARE(Plain(window.Cancel->text()), "Quitter");
  QCOMPARE(window.windowTitle(), "Brivane 2000 - Dessin de la voile : NEWSAIL");
  desk.GoTo(desk.Start());
  desk.Start().Langue1[1]->click();
  desk.GoTo(window);
  QCOMPARE(Plain(window.Developing->text()), "Develop");
  QCOMPARE(Plain(window.Clean->text()), "Redraw");
  QCOMPARE(Plain(window.Legende1->text()), "Labels");
  QCOMPARE(Plain(window.Cancel->text()), "Quit");
  QCOMPARE(window.windowTitle(), "Brivane 2000 - Drawing of the sail : NEWSAIL");
}

void DrawingWindowTest::LayoutAroundThePicture() {
  Desk desk;
  desk.DesignDefaultSail();
  Dessin1& window = desk.Picture();
  for (const QSize size : {QSize(1366, 700), QSize(640, 480)}) {
    window.resize(size);
    QTest::qWait(20);
    const auto place = [&window](QWidget* control) {
      return QRect(control->mapTo(&window, QPoint(0, 0)), control->size());
    };
    const QRect picture = place(window.Picture1);
    QVERIFY(place(window.HScroll1).bottom() < picture.top());
    QVERIFY(qAbs(place(window.HScroll1).center().x() - picture.center().x()) < 30);
    QVERIFY(place(window.Image2).left() > place(window.HScroll1).right());
    QVERIFY(place(window.VScroll1).right() < picture.left());
    QVERIFY(place(window.Image1).top() > place(window.VScroll1).bottom());
    int above = 0;
    for (QWidget* button : {window.Developing, window.Clean, window.Legende1, window.Cancel}) {
      QVERIFY(place(button).left() > picture.right());
      QVERIFY(place(button).top() > above);
      QVERIFY(window.rect().contains(place(button)));
      above = place(button).bottom();
    }
  }
}

void DrawingWindowTest::LabelsSpeakWithTheCaptions() {
  Desk desk;
  desk.DesignDefaultSail();
  Dessin1& window = desk.Picture();
  Press(window.Legende1);
  desk.GoTo(desk.Start());
  desk.Start().Langue1[0]->click();
  window.resize(window.size() * 0.9);  // draws, as the window still stands behind
  QTest::qWait(0);
  QVERIFY(Shows(window.Picture1, "Foot"));
  QVERIFY(!Shows(window.Picture1, "Bordure"));
  desk.GoTo(window);
  QVERIFY(Shows(window.Picture1, "Bordure"));
  QVERIFY(!Shows(window.Picture1, "Foot"));
}

void DrawingWindowTest::ScrollBarsTurnTheView() {
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

void DrawingWindowTest::ArrowsMoveTheThumbTheirWay() {
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

void DrawingWindowTest::KeysMoveAndZoomThePicture() {
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

void DrawingWindowTest::AngleReadouts() {
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

void DrawingWindowTest::PanMovesByTheDrag() {
  Desk desk;
  desk.DesignDefaultSail();
  const ViewState before = Current().View;
  Drag(desk.Picture().Picture1, Qt::RightButton, {100, 100}, {160, 70});
  QVERIFY(qAbs(Current().View.ViewOffsetX - before.ViewOffsetX - 60 * kUnits) < 1e-6);
  QVERIFY(qAbs(Current().View.ViewOffsetY - before.ViewOffsetY - 30 * kUnits) < 1e-6);
  QCOMPARE(Current().View.ViewScale, before.ViewScale);
  QVERIFY(desk.Picture().Content().SeamLines);
}

void DrawingWindowTest::ZoomFillsWithTheRectangle() {
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

void DrawingWindowTest::SmallRectangleIsAClick() {
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

void DrawingWindowTest::ZoomStopsAtItsCap() {
  Desk desk;
  desk.DesignDefaultSail();
  for (int i = 0; i < 8; ++i) Drag(desk.Picture().Picture1, Qt::LeftButton, {100, 100}, {130, 110});
  QVERIFY(qAbs(Current().View.ViewScale * Definition().DiagonalLength - 264000) < 1e-6);
  for (int i = 0; i < 20; ++i) Wheel(desk.Picture().Picture1, {100, 100}, 120);
  QVERIFY(Current().View.ViewScale * Definition().DiagonalLength < 264000 + 1e-6);
}

void DrawingWindowTest::WheelKeepsThePointUnderThePointer() {
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

void DrawingWindowTest::RubberBandIsXored() {
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

void DrawingWindowTest::OnePaintForOneEvent() {
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

void DrawingWindowTest::ResizingKeepsTheFit() {
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

void DrawingWindowTest::DevelopRedrawLabels() {
  Desk desk;
  desk.DesignDefaultSail();
  Dessin1& window = desk.Picture();
  const std::size_t seams = window.Picture1->Shown().Strokes.size();
  Press(window.Developing);
  QVERIFY(window.Content().Panels && window.Content().SeamLines);
  QVERIFY(window.Picture1->Shown().Strokes.size() > seams);
  window.HScroll1->setValue(50);
  QVERIFY(!window.Content().Panels);
  const ViewState fitted = Current().View;
  Wheel(window.Picture1, {10, 10}, 120);
  Press(window.Clean);
  QCOMPARE(window.HScroll1->value(), 0);
  QCOMPARE(Current().View.ViewScale, fitted.ViewScale);
  QCOMPARE(Current().View.Mode, RedrawMode::Surface);
  QVERIFY(window.Content() == PictureContent{.SeamLines = true});
  Press(window.Legende1);
  QVERIFY(window.Content().Outline && window.Content().Labels && !window.Content().SeamLines);
  QVERIFY(Shows(window.Picture1, "clew"));
  QVERIFY(Shows(window.Picture1, " Gaff"));
}

void DrawingWindowTest::LabelsFollowTheLanguage() {
  Desk desk;
  desk.DesignDefaultSail();
  Press(desk.Picture().Legende1);
  QVERIFY(Shows(desk.Picture().Picture1, "Luff"));
  desk.GoTo(desk.Start());
  desk.Start().Langue1[0]->click();
  desk.GoTo(desk.Picture());
  Press(desk.Picture().Legende1);
  QVERIFY(Shows(desk.Picture().Picture1, "Guindant"));
  QVERIFY(Shows(desk.Picture().Picture1, "écoute"));
  QVERIFY(!Shows(desk.Picture().Picture1, "Luff"));
}

void DrawingWindowTest::NewSail() {
  Desk desk;
  desk.CreateSail();
  TypeInto(desk.Dimensions().Luff, "6000");
  TypeInto(desk.Dimensions().LuffRondPos, "70");
  Press(desk.Dimensions().Validation);
  QVERIFY(QTest::qWaitForWindowActive(&desk.Picture()));
  Current().TheSail.Patches.PatchHeight[0] = 20;
  desk.Picture().fNew->trigger();
  QVERIFY(QTest::qWaitForWindowActive(&desk.Dimensions()));
  QCOMPARE(Definition().LuffLength, 4550.0);
  QCOMPARE(Definition().SailName, std::string("Newsail"));
  QCOMPARE(Current().TheSail.Patches.PatchHeight[0], std::int16_t{11});
  QCOMPARE(desk.Dimensions().Luff->text(), "4550");
  QVERIFY(!IsYellow(desk.Dimensions().LuffRondPos));
  QVERIFY(desk.Picture().windowTitle().endsWith("Newsail"));
  QCOMPARE(int{Definition().PanelCount}, 0);
}

void DrawingWindowTest::CancelShowsTheStartWindow() {
  Desk desk;
  desk.DesignDefaultSail();
  Press(desk.Picture().Cancel);
  QVERIFY(QTest::qWaitForWindowActive(&desk.Start()));
  QVERIFY(desk.Picture().isVisible());
}

void DrawingWindowTest::ClosingEndsTheProgram() {
  Desk desk;
  desk.DesignDefaultSail();
  QVERIFY(EndsTheProgram([&desk] { desk.Picture().close(); }));
}

void DrawingWindowTest::QuitEndsTheProgram() {
  Desk desk;
  desk.DesignDefaultSail();
  QVERIFY(EndsTheProgram([&desk] { desk.Picture().fQuit->trigger(); }));
}

void DrawingWindowTest::PaperIsWhiteInADarkTheme() {
  const QPalette light = QApplication::palette();
  QApplication::setPalette(QPalette(QColor(40, 40, 40)));
  {
    Desk desk;
    desk.DesignDefaultSail();
    QCOMPARE(desk.Picture().Picture1->grab().toImage().pixelColor(3, 3), QColor(Qt::white));
    desk.GoTo(desk.Dimensions());
    TypeInto(desk.Dimensions().LuffRondPos, "70");
    const QPalette field = desk.Dimensions().LuffRondPos->palette();
    QCOMPARE(field.color(QPalette::Base), QColor(Qt::yellow));
    QCOMPARE(field.color(QPalette::Text), QColor(Qt::black));
  }
  QApplication::setPalette(light);
}

QTEST_MAIN(DrawingWindowTest)
#include "drawing_window_test.moc"
