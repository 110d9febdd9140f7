#include <QtTest/qtestspontaneevent.h>

#include <QAbstractButton>
#include <QApplication>
#include <QComboBox>
#include <QFile>
#include <QProcess>
#include <QPushButton>
#include <QRadioButton>
#include <QScreen>
#include <QScrollArea>
#include <QScrollBar>
#include <QTemporaryDir>
#include <QTest>
#include <QWheelEvent>

#include "ui/desk.h"
#include "ui/file_dialogs.h"
#include "ui/fitting_label.h"
#include "ui/printer_setup.h"
#include "ui/printers.h"
#include "ui/scroll_box.h"

using namespace brivane;

/// The windows on a screen of 1366 x 768 pixels, as it is and with everything shown one and a half
/// times and twice as large, when it has less room: 910 x 512 and 683 x 384. The program runs
/// itself once for each.
class SmallScreenTest : public QObject {
  Q_OBJECT

 private slots:
  void WindowsStandOnTheScreen_data();
  void WindowsStandOnTheScreen();
  void NothingIsCutOff_data();
  void NothingIsCutOff();
  void TabShowsWhatItComesTo_data();
  void TabShowsWhatItComesTo();
  void DialogsStandOnTheScreen_data();
  void DialogsStandOnTheScreen();
  void NothingScrollsOnALargeScreen();
  void TheWheelTurnsThePageNotTheBarsOnIt();
  void PressingDoesNotScroll();
};

namespace {

QRect Screen() { return QGuiApplication::primaryScreen()->availableGeometry(); }
bool IsLarge() { return Screen().width() >= 1366; }

void AddLanguages() {
  QTest::addColumn<int>("language");
  QTest::newRow("English") << 1;
  QTest::newRow("French") << 0;
}

std::vector<QWidget*> WindowsOf(Desk& desk) {
  return {&desk.Start(), &desk.Dimensions(), &desk.Picture(), &desk.Mould(), &desk.Patches()};
}

QRect PlaceIn(const QWidget* window, const QWidget* control) {
  return {control->mapTo(window, QPoint(0, 0)), control->size()};
}

bool IsWhollySeen(const QWidget* control) {
  return control->visibleRegion() == QRegion(control->rect());
}

/// The controls and words of a window, without the bars and buttons that others are made of.
std::vector<QWidget*> PartsOf(const QWidget* window) {
  std::vector<QWidget*> parts;
  for (QWidget* part : window->findChildren<QWidget*>()) {
    const bool isOwn = !part->objectName().startsWith("qt_") && part->isVisibleTo(window);
    const bool isPart = qobject_cast<QAbstractButton*>(part) || qobject_cast<QLineEdit*>(part) ||
                        qobject_cast<QLabel*>(part) || qobject_cast<QComboBox*>(part) ||
                        qobject_cast<QScrollBar*>(part) || dynamic_cast<PictureBox*>(part);
    const auto* area = qobject_cast<QScrollArea*>(part->parentWidget()->parentWidget());
    const bool isBarOfPage = area != nullptr && !area->widget()->isAncestorOf(part) &&
                             part->parentWidget() != area->viewport();
    if (isOwn && isPart && !isBarOfPage) parts.push_back(part);
  }
  return parts;
}

QString Named(const QWidget* window, const QWidget* part) {
  const auto* label = qobject_cast<const QLabel*>(part);
  return window->objectName() + ": " + part->objectName() + (label ? " " + label->text() : "");
}

/// What does not fit into its own place, or not into the place of what it stands on.
QString CutOff(const QWidget* part) {
  QSize needed = part->minimumSizeHint();
  if (const auto* label = qobject_cast<const QLabel*>(part); label && label->wordWrap())
    needed = QSize(0, label->heightForWidth(label->width()));
  if (part->width() < needed.width() || part->height() < needed.height()) return "too small";
  if (!part->parentWidget()->rect().contains(part->geometry())) return "off its place";
  return {};
}

}  // namespace

void SmallScreenTest::WindowsStandOnTheScreen_data() { AddLanguages(); }

void SmallScreenTest::WindowsStandOnTheScreen() {
  QFETCH(int, language);
  Desk desk(static_cast<Language>(language));
  desk.DesignDefaultSail();
  for (QWidget* window : WindowsOf(desk)) {
    desk.GoTo(*window);
    QTest::qWait(0);
    const QRect place = window->frameGeometry();
    QVERIFY2(Screen().contains(place), qPrintable(QString("%1 at %2, %3, %4 x %5")
                                                      .arg(window->objectName())
                                                      .arg(place.x())
                                                      .arg(place.y())
                                                      .arg(place.width())
                                                      .arg(place.height())));
  }
}

void SmallScreenTest::NothingIsCutOff_data() { AddLanguages(); }

void SmallScreenTest::NothingIsCutOff() {
  QFETCH(int, language);
  // The other language first: what its texts needed must not stay.
  Desk desk(static_cast<Language>(1 - language));
  desk.DesignDefaultSail();
  for (QWidget* window : WindowsOf(desk)) desk.GoTo(*window);
  desk.GoTo(desk.Start());
  desk.Start().Langue1[static_cast<std::size_t>(language)]->click();
  for (QWidget* window : WindowsOf(desk)) {
    desk.GoTo(*window);
    QTest::qWait(20);
    const std::vector<QWidget*> parts = PartsOf(window);
    QVERIFY(parts.size() > 5);
    const auto pages = window->findChildren<ScrollBox*>();
    for (QWidget* part : parts) {
      const QString what = CutOff(part);
      QVERIFY2(what.isEmpty(), qPrintable(Named(window, part) + " is " + what));
      for (ScrollBox* page : pages)
        if (page->widget()->isAncestorOf(part)) page->ensureWidgetVisible(part);
      QVERIFY2(IsWhollySeen(part), qPrintable(Named(window, part) + " cannot be seen whole"));
    }
  }
}

void SmallScreenTest::TabShowsWhatItComesTo_data() { AddLanguages(); }

void SmallScreenTest::TabShowsWhatItComesTo() {
  QFETCH(int, language);
  Desk desk(static_cast<Language>(language));
  desk.DesignDefaultSail();
  for (QWidget* window : WindowsOf(desk)) {
    desk.GoTo(*window);
    QTest::qWait(20);
    std::set<QWidget*> seen;
    for (int press = 0; press < 40; ++press) {
      QTest::keyClick(window, Qt::Key_Tab);
      QWidget* const focused = window->focusWidget();
      QVERIFY(focused != nullptr);
      QVERIFY2(IsWhollySeen(focused), qPrintable(Named(window, focused) + " is out of sight"));
      seen.insert(focused);
    }
    for (const QLineEdit* field : window->findChildren<QLineEdit*>())
      QVERIFY2(!field->isEnabled() || seen.count(const_cast<QLineEdit*>(field)) == 1,
               qPrintable(Named(window, field)));
  }
}

void SmallScreenTest::DialogsStandOnTheScreen_data() { AddLanguages(); }

void SmallScreenTest::DialogsStandOnTheScreen() {
  QFETCH(int, language);
  Desk desk(static_cast<Language>(language));
  desk.DesignDefaultSail();
  const auto stands = [](QWidget* dialog) {
    QTest::qWait(20);
    QVERIFY(Screen().contains(dialog->frameGeometry()));
    for (QWidget* part : PartsOf(dialog))
      if (qobject_cast<QAbstractButton*>(part)) {
        // The toolkit makes its own small ones as small as their pictures.
        const bool hasWords = qobject_cast<QPushButton*>(part) || qobject_cast<QRadioButton*>(part);
        if (hasWords) QVERIFY2(CutOff(part).isEmpty(), qPrintable(Named(dialog, part)));
        QVERIFY2(IsWhollySeen(part), qPrintable(Named(dialog, part)));
      }
  };
  const auto look = [&stands](QWidget* dialog) {
    stands(dialog);
    dialog->close();
  };
  WhenDialogIsUp("FileDialog", look);
  desk.Picture().fSave_Data->trigger();
  WhenDialogIsUp("FileDialog", look);
  desk.Picture().fOpen->trigger();
  WhenDialogIsUp("PrinterSetup", look);
  desk.Picture().fprint_setup->trigger();
  desk.ShowRealMessages();
  WhenDialogIsUp("Message", look);
  ShowMessage(&desk.Mould(), "Brivane 2000 : SailForm file loading procedure",
              QString("/home/somebody/sails/of/a/very/long/path/to/nowhere.bv3\n").repeated(4));
}

void SmallScreenTest::NothingScrollsOnALargeScreen() {
  if (!IsLarge()) return;
  for (const Language language : {Language::English, Language::French}) {
    Desk desk(language);
    desk.DesignDefaultSail();
    for (QWidget* window : WindowsOf(desk)) {
      desk.GoTo(*window);
      // Nor as small as it can be made: it cannot be made smaller than its contents.
      window->resize(1, 1);
      QTest::qWait(20);
      for (const ScrollBox* page : window->findChildren<ScrollBox*>()) {
        QVERIFY(!page->Scrolls());
        QVERIFY(!page->verticalScrollBar()->isVisible() &&
                !page->horizontalScrollBar()->isVisible());
        QVERIFY2(page->viewport()->rect().contains(page->widget()->geometry()),
                 qPrintable(window->objectName()));
      }
    }
  }
}

void SmallScreenTest::TheWheelTurnsThePageNotTheBarsOnIt() {
  Desk desk;
  desk.DesignDefaultSail();
  desk.GoTo(desk.Mould());
  QTest::qWait(20);
  QScrollBar* const bar = desk.Mould().VScroll1[1];
  auto* const page = desk.Mould().findChild<ScrollBox*>();
  const auto turn = [bar, &desk] {
    const QPoint at = PlaceIn(&desk.Mould(), bar).center();
    QWheelEvent event(at, desk.Mould().mapToGlobal(at), {}, {0, -120}, Qt::NoButton, {},
                      Qt::NoScrollPhase, false);
    QSpontaneKeyEvent::setSpontaneous(&event);
    qApp->notify(desk.Mould().windowHandle(), &event);  // sending would forget it
    return bar->value();
  };
  bar->clearFocus();
  const int before = bar->value();
  const bool scrolls = page->verticalScrollBar()->maximum() > 0;
  QCOMPARE(turn() == before, scrolls);
  QCOMPARE(page->verticalScrollBar()->value() > 0, scrolls);
  page->verticalScrollBar()->setValue(0);
  bar->setFocus();
  const int focused = bar->value();
  QVERIFY(turn() != focused);
}

void SmallScreenTest::PressingDoesNotScroll() {
  Desk desk;
  desk.CreateSail();
  auto* const page = desk.Dimensions().findChild<ScrollBox*>();
  page->verticalScrollBar()->setValue(page->verticalScrollBar()->maximum());
  const int before = page->verticalScrollBar()->value();
  // By the window, as the windowing system does: only then does the toolkit know of the button.
  QWidget* const field = desk.Dimensions().SeamWidth;
  const QPoint at = PlaceIn(&desk.Dimensions(), field).center();
  QTest::mousePress(desk.Dimensions().windowHandle(), Qt::LeftButton, {}, at);
  QVERIFY(field->hasFocus());
  QCOMPARE(page->verticalScrollBar()->value(), before);
  QTest::mouseRelease(desk.Dimensions().windowHandle(), Qt::LeftButton, {}, at);
}

namespace {

/// Runs this program on a screen of a size, in the toolkit's units; its exit code.
int RunOn(const QSize& screen, const QStringList& arguments) {
  const QTemporaryDir folder;
  QFile file(folder.filePath("screen.json"));
  if (!file.open(QIODevice::WriteOnly)) return 1;
  file.write(QString(R"({"screens": [{"name": "small", "x": 0, "y": 0, "width": %1, "height": %2,)"
                     R"( "logicalDpi": 96, "logicalBaseDpi": 96, "dpr": 1}]})")
                 .arg(screen.width())
                 .arg(screen.height())
                 .toUtf8());
  file.close();
  QProcess program;
  QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
  environment.insert("QT_QPA_PLATFORM", "offscreen:configfile=" + file.fileName());
  environment.insert("BRIVANE_SCREEN", QString::number(screen.width()));
  program.setProcessEnvironment(environment);
  program.setProcessChannelMode(QProcess::ForwardedChannels);
  program.start(QCoreApplication::applicationFilePath(), arguments);
  program.waitForFinished(-1);
  return program.exitStatus() == QProcess::NormalExit ? program.exitCode() : 1;
}

}  // namespace

int main(int argc, char** argv) {
  if (qEnvironmentVariableIsSet("BRIVANE_SCREEN")) {
    QApplication application(argc, argv);
    if (Screen().width() != qEnvironmentVariableIntValue("BRIVANE_SCREEN")) return 1;
    SmallScreenTest test;
    return QTest::qExec(&test, argc, argv);
  }
  const QCoreApplication application(argc, argv);
  int failed = 0;
  for (const QSize& screen : {QSize(1366, 768), QSize(910, 512), QSize(683, 384)})
    failed += RunOn(screen, QCoreApplication::arguments().mid(1));
  return failed;
}

#include "small_screen_test.moc"
