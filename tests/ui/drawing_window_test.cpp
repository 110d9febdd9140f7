#include <QMenuBar>
#include <QTest>

#include "ui/desk.h"

using namespace brivane;

/// The drawing window: its menus, buttons and captions, and what they do.
class DrawingWindowTest : public QObject {
  Q_OBJECT

 private slots:
  void MenuTree_data();
  void MenuTree();
  void ButtonsAndCaption();
  void LayoutAroundThePicture();
  void LabelsSpeakWithTheCaptions();
  void DevelopRedrawLabels();
  void LabelsFollowTheLanguage();
  void NewSail();
  void CancelShowsTheStartWindow();
  void ClosingEndsTheProgram();
  void QuitEndsTheProgram();
  void PaperIsWhiteInADarkTheme();
};

namespace {

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
