#include "ui/desk.h"

#include <QAbstractButton>
#include <QApplication>
#include <QDialogButtonBox>
#include <QDragEnterEvent>
#include <QElapsedTimer>
#include <QKeyEvent>
#include <QMimeData>
#include <QPushButton>
#include <QTest>
#include <QTimer>
#include <QWheelEvent>
#include <algorithm>

namespace brivane {

namespace {

constexpr int kPatienceMs = 30000;
constexpr int kTickMs = 10;
constexpr int kActivationTicks = 30;

}  // namespace

Desk::Desk(Language language) {
  QApplication::setQuitOnLastWindowClosed(false);
  Current() = CurrentSail{};
  SetMessageShower([this](QWidget*, const QString& title, const QString& text) {
    Seen.push_back({title, text});
    if (WhileMessageIsUp) WhileMessageIsUp();
  });
  windows_ = std::make_unique<Windows>();
  Start().show();
  if (!QTest::qWaitForWindowActive(&Start())) qFatal("the start window does not come up");
  Start().Langue1[static_cast<std::size_t>(language)]->click();
}

Desk::~Desk() {
  SetMessageShower({});
  windows_.reset();
  QCoreApplication::sendPostedEvents();
}

void Desk::GoTo(QWidget& window) {
  windows_->BringToFront(window);
  QVERIFY(QTest::qWaitForWindowActive(&window));
  QTest::qWait(0);  // what the other window does as it is left
}

void Desk::ShowRealMessages() { SetMessageShower({}); }

void Desk::CreateSail() {
  Press(Start().Create);
  QVERIFY(QTest::qWaitForWindowActive(&Dimensions()));
}

void Desk::DesignDefaultSail() {
  CreateSail();
  Press(Dimensions().Validation);
  QVERIFY(QTest::qWaitForWindowActive(&Picture()));
}

SailDefinition& Definition() { return Current().TheSail.Definition; }

void TypeAndStay(QLineEdit* field, const QString& text) {
  QTest::mouseClick(field, Qt::LeftButton);
  QTest::keyClick(field, Qt::Key_A, Qt::ControlModifier);
  QTest::keyClick(field, Qt::Key_Delete);
  QTest::keyClicks(field, text);
}

void TypeLetter(QLineEdit* field, QChar letter) {
  QKeyEvent press(QEvent::KeyPress, 0, Qt::NoModifier, QString(letter));
  QApplication::sendEvent(field, &press);
}

void TypeInto(QLineEdit* field, const QString& text) {
  TypeAndStay(field, text);
  QTest::keyClick(field, Qt::Key_Tab);
  QTest::qWait(0);
}

void DropInto(QLineEdit* field, const QString& text) {
  QMimeData data;
  data.setText(text);
  QDragEnterEvent enter({1, 1}, Qt::CopyAction, &data, Qt::LeftButton, {});
  QApplication::sendEvent(field, &enter);
  QDropEvent drop(field->rect().center(), Qt::CopyAction, &data, Qt::LeftButton, {});
  QApplication::sendEvent(field, &drop);
}

void Press(QAbstractButton* button) { QTest::mouseClick(button, Qt::LeftButton); }

void Wheel(QWidget* picture, QPoint at, int angle) {
  QWheelEvent event(at, picture->mapToGlobal(at), {}, {0, angle}, Qt::NoButton, Qt::NoModifier,
                    Qt::NoScrollPhase, false);
  QApplication::sendEvent(picture, &event);
}

bool Shows(const PictureBox* picture, const std::string& text) {
  const std::vector<DrawnText>& texts = picture->Shown().Texts;
  return std::any_of(texts.begin(), texts.end(),
                     [&text](const DrawnText& shown) { return shown.Text == text; });
}

bool IsYellow(const QLineEdit* field) {
  return field->palette().color(QPalette::Base) == QColor(Qt::yellow);
}

QString Plain(QString caption) { return caption.remove('&'); }

bool EndsTheProgram(const std::function<void()>& step) {
  constexpr int kNotEnded = 7;
  QTimer::singleShot(0, qApp, step);
  QTimer late;
  QObject::connect(&late, &QTimer::timeout, qApp, [] { QCoreApplication::exit(kNotEnded); });
  late.start(3000);
  return QCoreApplication::exec() == 0;
}

void WhenDialogIsUp(const QString& name, const std::function<void(QWidget*)>& steps) {
  auto* watch = new QTimer(qApp);
  QElapsedTimer since;
  since.start();
  QObject::connect(watch, &QTimer::timeout, watch, [=, shownTicks = 0]() mutable {
    QWidget* const dialog = QApplication::activeModalWidget();
    const bool isShown = dialog != nullptr && dialog->objectName() == name && dialog->isVisible();
    // A platform without a window manager does not always activate a dialog above a dialog. Counted
    // in rounds of the event loop: a slow machine is to have as many. A file dialog that has not
    // got the keyboard puts what it finds in the place of what is typed.
    const bool isUp = isShown && (dialog->isActiveWindow() || ++shownTicks > kActivationTicks);
    if (isShown && !isUp) return dialog->activateWindow();
    if (!isUp && since.elapsed() < kPatienceMs) return;
    watch->stop();
    watch->deleteLater();
    if (isUp) return steps(dialog);
    if (dialog != nullptr) dialog->close();
    qFatal("no dialog %s came up", qPrintable(name));
  });
  watch->start(kTickMs);
}

void ChooseFile(QWidget* dialog, const QString& path) {
  auto* name = dialog->findChild<QLineEdit*>("fileNameEdit");
  // The list of completions would take the key, as soon as the folder has been read.
  name->setCompleter(nullptr);
  TypeAndStay(name, path);
  QTest::keyClick(name, Qt::Key_Return);
}

}  // namespace brivane
