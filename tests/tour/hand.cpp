#include "tour/hand.h"

#include <QApplication>
#include <QDialog>
#include <QMenu>
#include <QMessageBox>
#include <QStyle>
#include <QStyleOptionButton>
#include <QStyleOptionSlider>
#include <QTest>
#include <QTimer>
#include <QWindow>
#include <algorithm>

namespace brivane::tour {

namespace {

constexpr int kPatience = 8000;  // ms

QWindow& WindowOf(const QWidget& control) {
  QWindow* window = control.window()->windowHandle();
  if (window == nullptr) throw LostWay(control.objectName() + " stands in no window");
  return *window;
}

/// Where the key events go: an open menu or list, or else the window in front.
QWindow& WindowInFront() {
  if (const QWidget* popup = QApplication::activePopupWidget()) return WindowOf(*popup);
  if (const QWidget* window = QApplication::activeWindow()) return WindowOf(*window);
  throw LostWay("no window is in front");
}

QPoint InWindow(const QWidget& control, QPoint at) { return control.mapTo(control.window(), at); }

QStyleOptionSlider OptionOf(const QScrollBar& bar) {
  QStyleOptionSlider option;
  option.initFrom(&bar);
  option.subControls = QStyle::SC_None;
  option.activeSubControls = QStyle::SC_None;
  option.orientation = bar.orientation();
  option.minimum = bar.minimum();
  option.maximum = bar.maximum();
  option.sliderPosition = bar.sliderPosition();
  option.sliderValue = bar.value();
  option.singleStep = bar.singleStep();
  option.pageStep = bar.pageStep();
  option.upsideDown = bar.invertedAppearance();
  option.state.setFlag(QStyle::State_Horizontal, bar.orientation() == Qt::Horizontal);
  return option;
}

QRect PartOf(const QScrollBar& bar, QStyle::SubControl part) {
  const QStyleOptionSlider option = OptionOf(bar);
  return bar.style()->subControlRect(QStyle::CC_ScrollBar, &option, part, &bar);
}

QMenuBar& BarOf(const QWidget& window) {
  auto* bar = window.findChild<QMenuBar*>();
  if (bar == nullptr) throw LostWay(window.objectName() + " has no menu bar");
  return *bar;
}

/// The entry of a menu or menu bar with an object name, its own or that of the menu it opens.
QAction* EntryOf(const QWidget& menu, const char* name) {
  for (QAction* action : menu.actions())
    if (action->objectName() == name ||
        (action->menu() != nullptr && action->menu()->objectName() == name))
      return action;
  return nullptr;
}

QPoint PlaceOf(const QWidget& menu, QAction* entry) {
  if (const auto* list = qobject_cast<const QMenu*>(&menu))
    return list->actionGeometry(entry).center();
  return static_cast<const QMenuBar&>(menu).actionGeometry(entry).center();
}

}  // namespace

Hand::Hand() { Watch(); }

void Hand::Rest(int milliseconds) { QTest::qWait(milliseconds); }

QWidget& Hand::Window(const char* name) {
  QWidget* found = nullptr;
  const bool there = QTest::qWaitFor(
      [&found, name] {
        for (QWidget* window : QApplication::topLevelWidgets())
          if (window->objectName() == name && window->isVisible() && window->isActiveWindow())
            found = window;
        return found != nullptr;
      },
      kPatience);
  Check();
  if (!there) throw LostWay(QString("the window %1 is not in front").arg(name));
  Rest();
  return *found;
}

void Hand::Click(QWidget& control) { ClickAt(control, control.rect().center()); }

void Hand::ClickAt(QWidget& control, QPoint at) {
  if (!control.isEnabled()) throw LostWay(control.objectName() + " is disabled");
  QTest::mouseClick(&WindowOf(control), Qt::LeftButton, {}, InWindow(control, at));
  Rest();
  Check();
}

void Hand::Choose(QAbstractButton& option) {
  QStyleOptionButton style;
  style.initFrom(&option);
  const QRect mark =
      option.style()->subElementRect(QStyle::SE_RadioButtonIndicator, &style, &option);
  ClickAt(option, mark.center());
  if (!option.isChecked()) throw LostWay(option.objectName() + " cannot be chosen");
}

void Hand::ChooseLine(QComboBox& list, int line) {
  Click(list);
  Press(Qt::Key_Home);
  for (int row = 0; row < line; ++row) Press(Qt::Key_Down);
  Press(Qt::Key_Return);
  Rest();
  if (list.currentIndex() != line)
    throw LostWay(list.objectName() + " does not let its line be chosen");
}

void Hand::Drag(QWidget& control, QPoint from, QPoint to, Qt::MouseButton button,
                const std::function<void()>& midway) {
  QWindow& window = WindowOf(control);
  constexpr int kSteps = 12;
  QTest::mousePress(&window, button, {}, InWindow(control, from));
  for (int step = 1; step <= kSteps; ++step)
    QTest::mouseMove(&window, InWindow(control, from + (to - from) * step / kSteps), 10);
  Rest();
  if (midway) midway();
  QTest::mouseRelease(&window, button, {}, InWindow(control, to));
  Rest();
  Check();
}

void Hand::Turn(QScrollBar& bar, int value) {
  const QRect handle = PartOf(bar, QStyle::SC_ScrollBarSlider);
  const QRect groove = PartOf(bar, QStyle::SC_ScrollBarGroove);
  const bool lying = bar.orientation() == Qt::Horizontal;
  const int room = lying ? groove.width() - handle.width() : groove.height() - handle.height();
  const int before = bar.value();
  const int way = QStyle::sliderPositionFromValue(bar.minimum(), bar.maximum(), value, room,
                                                  bar.invertedAppearance()) -
                  QStyle::sliderPositionFromValue(bar.minimum(), bar.maximum(), before, room,
                                                  bar.invertedAppearance());
  const QPoint from = handle.center();
  Drag(bar, from, from + (lying ? QPoint(way, 0) : QPoint(0, way)), Qt::LeftButton);
  const int onePixel = (bar.maximum() - bar.minimum()) / std::max(room, 1) + 1;
  if (std::abs(bar.value() - value) > 2 * onePixel)
    throw LostWay(
        QString("%1 stands at %2, not at %3").arg(bar.objectName()).arg(bar.value()).arg(value));
}

void Hand::Press(int key, Qt::KeyboardModifiers modifiers) {
  QTest::keyClick(&WindowInFront(), static_cast<Qt::Key>(key), modifiers, 5);
  Check();
}

void Hand::Type(const QString& text) {
  for (const QChar character : text)
    if (character.unicode() < 128)
      QTest::keyClick(&WindowInFront(), character.toLatin1(), Qt::NoModifier, 2);
    else
      QTest::sendKeyEvent(QTest::Click, &WindowInFront(), Qt::Key_unknown, character, {}, 2);
}

void Hand::Fill(QLineEdit& field, const QString& text) {
  Click(field);
  Press(Qt::Key_A, Qt::ControlModifier);
  Type(text);
  if (field.text() != text)
    throw LostWay(QString("%1 holds \"%2\" after \"%3\" was typed")
                      .arg(field.objectName(), field.text(), text));
  Press(Qt::Key_Tab);
  Rest();
  Check();
}

void Hand::Pick(QWidget& window, const std::vector<const char*>& names) {
  QWidget* menu = &BarOf(window);
  for (const char* name : names) {
    QAction* entry = EntryOf(*menu, name);
    if (entry == nullptr) throw LostWay(QString("there is no menu entry %1").arg(name));
    if (!entry->isEnabled()) throw LostWay(QString("the menu entry %1 is disabled").arg(name));
    ClickAt(*menu, PlaceOf(*menu, entry));
    menu = entry->menu();
    if (menu == nullptr) break;
    if (!QTest::qWaitFor([menu] { return menu->isVisible(); }, kPatience))
      throw LostWay(QString("the menu %1 does not open").arg(name));
    Rest();
  }
  Check();
}

// --- Dialogs -------------------------------------------------------------------------------------

void Hand::WhenAsked(const char* dialogName, std::function<void(QWidget&)> answer) {
  expected_.push_back({dialogName, std::move(answer)});
}

void Hand::Watch() {
  // Armed anew before the dialog is answered: the answer may bring up another one.
  QTimer::singleShot(40, this, &Hand::Watch);
  QWidget* dialog = QApplication::activeModalWidget();
  if (dialog == nullptr || !dialog->isVisible() || !dialog->isActiveWindow()) return;
  if (std::find(atWork_.begin(), atWork_.end(), dialog) != atWork_.end()) return;
  atWork_.push_back(dialog);
  try {
    Answer(*dialog);
  } catch (const LostWay& lost) {
    // An exception must not cross the dialog's event loop.
    if (lost_.isEmpty()) lost_ = QString::fromUtf8(lost.what());
    if (auto* box = qobject_cast<QDialog*>(dialog)) box->reject();
  }
  std::erase(atWork_, dialog);
}

void Hand::Answer(QWidget& dialog) {
  Rest();
  if (expected_.empty() || expected_.front().Name != dialog.objectName()) {
    const auto* box = qobject_cast<QMessageBox*>(&dialog);
    throw LostWay(QString("nobody expected the dialog %1 \"%2\": %3")
                      .arg(dialog.objectName(), dialog.windowTitle(),
                           box != nullptr ? box->text() : QString()));
  }
  const Question question = std::move(expected_.front());
  expected_.pop_front();
  question.Answer(dialog);
}

void Hand::AllAnswered() {
  const auto done = [this] { return !lost_.isEmpty() || (expected_.empty() && atWork_.empty()); };
  const bool answered = QTest::qWaitFor(done, kPatience);
  Check();
  if (!answered)
    throw LostWay(expected_.empty() ? QString("a dialog does not go away")
                                    : "the dialog did not come: " + expected_.front().Name);
  Rest();
}

void Hand::GivePath(QWidget& dialog, const QString& path) {
  auto& field = In<QLineEdit>(dialog, "fileNameEdit");
  Click(field);
  Press(Qt::Key_A, Qt::ControlModifier);
  Type(path);
  Rest();
  // The list of completions would take the next key for itself.
  if (QApplication::activePopupWidget() != nullptr) Press(Qt::Key_Escape);
  if (field.text() != path) throw LostWay("the file dialog holds \"" + field.text() + "\"");
  Press(Qt::Key_Return);
}

void Hand::ClickButton(QWidget& box, const QString& text) {
  for (QAbstractButton* button : box.findChildren<QAbstractButton*>()) {
    const QString caption = QString(button->text()).remove('&');
    if (button->isVisible() && (text.isEmpty() || caption == text)) return Click(*button);
  }
  throw LostWay(box.objectName() + " has no button \"" + text + "\"");
}

void Hand::Check() {
  if (lost_.isEmpty()) return;
  const QString words = lost_;
  lost_.clear();
  throw LostWay(words);
}

}  // namespace brivane::tour
