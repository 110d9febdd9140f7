#include <QApplication>
#include <QComboBox>
#include <QFileDialog>
#include <QListView>
#include <QMenu>
#include <QMenuBar>
#include <QMessageBox>

#include "ui/current_sail.h"
#include "ui/monkey.h"
#include "ui/printer_setup.h"

// What a monkey does next, by what is in front. Long because every window and dialog has acts of
// its own, and the choice among them stands in one place.

namespace brivane {

namespace {

/// Whether the widget's window can be worked with the mouse.
bool IsWorkable(const QWidget* widget) {
  if (widget == nullptr || !widget->isVisible() || !widget->isEnabled()) return false;
  const QWidget* const modal = QApplication::activeModalWidget();
  return modal == nullptr || modal == widget->window();
}

}  // namespace

void Monkey::Act() {
  if (hands_.Held() != Qt::NoButton) return ActHolding();
  QWidget* const modal = QApplication::activeModalWidget();
  if (modal != nullptr) scratch_.KeepInside(modal);
  if (QWidget* const popup = QApplication::activePopupWidget()) return ActInPopup(popup);
  if (modal != nullptr) return ActInDialog(modal);
  if (dice_.Chance(95) && ActAsIntended()) return;
  const SeenWindows windows;
  if (windows.Front == nullptr || dice_.Chance(9)) return ActOnFrames(windows);
  ActInWindow(windows.Front);
}

// --- Intentions ----------------------------------------------------------------------------------

void Monkey::Intend(QWidget* widget, const std::function<void()>& act) {
  intentions_.push_back({widget, act});
}

bool Monkey::ActAsIntended() {
  if (intentions_.empty()) return false;
  const Intention next = intentions_.front();
  intentions_.pop_front();
  if (!IsWorkable(next.Widget) || !next.Widget->window()->isActiveWindow()) {
    intentions_.clear();
    return false;
  }
  next.Act();
  return true;
}

// --- Mouse button held, popups -------------------------------------------------------------------

void Monkey::ActHolding() {
  QWidget* const window = QApplication::activeWindow();
  QWidget* const there = window == nullptr ? nullptr : AnyChild(window);
  if (there == nullptr) return hands_.ReleaseAnywhere();
  const QPoint at = PlaceIn(there);
  if (dice_.Chance(20)) return AnyKey();
  if (dice_.Chance(40)) {
    Note("move to " + NameOf(there));
    return hands_.Move(there, at);
  }
  Note("release on " + NameOf(there));
  hands_.Release(there, at);
}

void Monkey::ActInPopup(QWidget* popup) {
  if (auto* menu = qobject_cast<QMenu*>(popup); menu != nullptr && dice_.Chance(50))
    return ActInMenu(menu);
  switch (dice_.Below(6)) {
    case 0:
      return Key(Qt::Key_Escape);
    case 1:
      return Key(Qt::Key_Return);
    case 2:
    case 3:
      return Key(dice_.Pick(
          std::vector<int>{Qt::Key_Down, Qt::Key_Up, Qt::Key_Right, Qt::Key_Left, Qt::Key_Tab}));
    case 4: {
      Note("click beside the popup");
      return hands_.Click(popup, {-5, -5});
    }
    default:
      return Click(popup);
  }
}

void Monkey::ActInMenu(QMenu* menu) {
  QList<QAction*> actions = menu->actions();
  actions.removeIf([](const QAction* action) { return action->isSeparator(); });
  if (actions.isEmpty()) return Key(Qt::Key_Escape);
  const QAction* action = dice_.Pick(actions);
  // The end of the program comes soon enough.
  if (action->objectName() == "fQuit" && dice_.Chance(85)) action = actions.front();
  Note("choose " + action->text() + " in the menu " + menu->objectName());
  hands_.Click(menu, menu->actionGeometry(const_cast<QAction*>(action)).center());
}

// --- Dialogs -------------------------------------------------------------------------------------

void Monkey::ActInDialog(QWidget* dialog) {
  ++account_.Dialogs;
  ++account_.Windows[dialog->objectName()];
  if (dice_.Chance(95) && ActAsIntended()) return;
  if (dice_.Chance(3)) return ActBehindDialog();
  if (qobject_cast<QFileDialog*>(dialog) != nullptr) return ActInFileDialog(dialog);
  if (dynamic_cast<PrinterSetup*>(dialog) != nullptr) return ActInPrinterSetup(dialog);
  ActInMessage(dialog);
}

/// On a window that the dialog blocks.
void Monkey::ActBehindDialog() {
  const SeenWindows windows;
  std::vector<QWidget*> visible = windows.All();
  std::erase_if(visible, [](const QWidget* window) { return !window->isVisible(); });
  if (visible.empty()) return Key(Qt::Key_Tab);
  QWidget* const window =
      dice_.Chance(50) && windows.Front != nullptr ? windows.Front : dice_.Pick(visible);
  switch (dice_.Below(5)) {
    case 0:
      return ClickSomewhere(window);
    case 1:
      return CloseWindow(window);
    case 2:
      return window == windows.Picture ? DropFile(*windows.Picture) : Drop(window);
    case 3:
      return Wheel(window);
    default:
      return Resize(window);
  }
}

void Monkey::ActInMessage(QWidget* dialog) {
  const QList<QPushButton*> buttons = dialog->findChildren<QPushButton*>();
  switch (dice_.Below(10)) {
    case 0:
      return Key(Qt::Key_Escape);
    case 1:
      return Key(Qt::Key_Return);
    case 2:
      return Key(Qt::Key_Space, {}, " ");
    case 3:
      return CloseWindow(dialog);
    case 4:
      return AnyKey();
    case 5:
      return ClickSomewhere(dialog);
    case 6:
      return ActBehindDialog();
    default:
      if (buttons.isEmpty()) return Key(Qt::Key_Escape);
      return Click(dice_.Pick(buttons));
  }
}

void Monkey::ActInFileDialog(QWidget* dialog) {
  auto* name = dialog->findChild<QLineEdit*>("fileNameEdit");
  const QList<QPushButton*> buttons = dialog->findChildren<QPushButton*>();
  switch (dice_.Below(14)) {
    case 0:
      return Key(Qt::Key_Escape);
    case 1:
      return CloseWindow(dialog);
    case 2:
      return Key(Qt::Key_Return);
    case 3:
    case 4:
      return Click(dice_.Pick(buttons));
    case 5: {
      QWidget* const list = dialog->findChild<QListView*>("listView")->viewport();
      Note("double click in the list of files");
      return hands_.DoubleClick(list, PlaceIn(list));
    }
    case 6:
      return ClickSomewhere(dialog);
    case 7:
      return Key(dice_.Pick(std::vector<int>{Qt::Key_Tab, Qt::Key_Down, Qt::Key_Up, Qt::Key_Backtab,
                                             Qt::Key_Delete, Qt::Key_Backspace}));
    case 8:
      return Type(dice_.Pick(QString("abTV1. 9")));
    case 9:
      return Wheel(dialog);
    default:
      FillField(name, dice_.Pick(scratch_.Names()));
      Intend(name, [this] { Key(Qt::Key_Return); });
      ActAsIntended();
  }
}

void Monkey::ActInPrinterSetup(QWidget* dialog) {
  auto& setup = dynamic_cast<PrinterSetup&>(*dialog);
  switch (dice_.Below(10)) {
    case 0:
    case 1:
      return Click(setup.Ok);
    case 2:
      return Click(setup.Cancel);
    case 3:
      return dice_.Chance(50) ? Key(Qt::Key_Escape) : CloseWindow(dialog);
    case 4:
      return Click(setup.Browse);
    case 5:
      return Wheel(setup.PaperSize);
    case 6:
      return Click(dice_.Chance(50) ? setup.Portrait : setup.Landscape);
    case 7:
      return ClickSomewhere(dialog);
    default:
      FillField(setup.PdfPath, dice_.Chance(60) ? "monkey.pdf" : dice_.Pick(scratch_.Names()));
      Intend(setup.PdfPath, [this] { Key(Qt::Key_Return); });
      ActAsIntended();
  }
}

// --- Windows -------------------------------------------------------------------------------------

void Monkey::ActOnFrames(const SeenWindows& windows) {
  std::vector<QWidget*> visible = windows.All();
  std::erase_if(visible, [](const QWidget* window) { return !window->isVisible(); });
  if (visible.empty()) return;
  QWidget* const window = dice_.Pick(visible);
  switch (dice_.Below(10)) {
    case 0:
    case 1:
    case 2:
      return Resize(window);
    case 3:
      // The drawing window would end the program, the start window its choice of language.
      if ((window == windows.Picture || window == windows.Start) && dice_.Chance(80))
        return Key(Qt::Key_Escape);
      return CloseWindow(window);
    case 4:
      Note("minimise " + window->objectName());
      return window->showMinimized();
    case 5:
      Note("another program comes to the front");
      elsewhere_.show();
      return elsewhere_.requestActivate();
    default:
      Note("activate " + window->objectName());
      if (window->isMinimized()) window->showNormal();
      return window->activateWindow();
  }
}

void Monkey::ActInWindow(QWidget* window) {
  ++account_.Windows[window->objectName()];
  if (auto* start = dynamic_cast<Menu1*>(window)) return ActInStart(*start);
  if (auto* dimensions = dynamic_cast<Create1*>(window)) return ActInDimensions(*dimensions);
  if (auto* picture = dynamic_cast<Dessin1*>(window)) return ActInPicture(*picture);
  if (auto* mould = dynamic_cast<SailForm*>(window)) return ActInMould(*mould);
  if (auto* patches = dynamic_cast<Patch1*>(window)) return ActInPatches(*patches);
  ActAnyhow(window);
}

void Monkey::ActInStart(Menu1& window) {
  const bool isAtHome = Current().Language == plan_.Home;
  if (dice_.Chance(isAtHome ? 8 : 40))
    return Click(window.Langue1[isAtHome == (plan_.Home == Language::English) ? 0 : 1]);
  if (dice_.Chance(40)) return Click(window.Create);
  if (dice_.Chance(2)) return Click(window.Terminate);
  if (dice_.Chance(20)) return Key(Qt::Key_Return);
  ActAnyhow(&window);
}

void Monkey::ActInDimensions(Create1& window) {
  if (dice_.Chance(35)) {
    QLineEdit* const field =
        window.FieldOf(DimensionFields()[static_cast<std::size_t>(dice_.Below(19))].Field);
    const QString text = NumberFor(field);
    FillField(field, text);
    const int leaving = dice_.Below(4);
    if (leaving == 0) Intend(field, [this] { Key(Qt::Key_Tab); });
    if (leaving == 1) Intend(field, [this] { Key(Qt::Key_Return); });
    QWidget* const validate = window.Validation;
    if (leaving == 2) Intend(field, [this, validate] { Click(validate); });
    ActAsIntended();
    return;
  }
  if (dice_.Chance(15)) return Click(window.Validation);
  if (dice_.Chance(12)) return Click(window.OptCut1[static_cast<std::size_t>(dice_.Below(3))]);
  ActAnyhow(&window);
}

void Monkey::ActInPicture(Dessin1& window) {
  if (dice_.Chance(30)) return ChooseMenu(window);
  if (dice_.Chance(15))
    return Click(dice_.Pick(std::vector<QPushButton*>{window.Developing, window.Clean,
                                                      window.Legende1, window.Cancel}));
  if (dice_.Chance(20)) return HoldSomewhere(window.Picture1);
  if (dice_.Chance(20)) return Wheel(window.Picture1);
  if (dice_.Chance(20)) return Click(dice_.Chance(50) ? window.HScroll1 : window.VScroll1);
  if (dice_.Chance(10)) return Key(Qt::Key_S, Qt::ControlModifier);
  if (dice_.Chance(10)) return Key(Qt::Key_O, Qt::ControlModifier);
  if (dice_.Chance(10)) return DropFile(window);
  ActAnyhow(&window);
}

void Monkey::ChooseMenu(Dessin1& window) {
  if (dice_.Chance(15)) return Key(Qt::Key_F, Qt::AltModifier);
  QMenuBar* const bar = window.menuBar();
  const QList<QAction*> actions = bar->actions();
  QAction* const action = dice_.Pick(actions);
  Note("click on " + action->text() + " in the menu bar");
  hands_.Click(bar, bar->actionGeometry(action).center());
}

void Monkey::ActInMould(SailForm& window) {
  const auto height = static_cast<std::size_t>(dice_.Below(3));
  switch (dice_.Below(8)) {
    case 0:
    case 1: {
      QLineEdit* const field = window.Text2[height];
      FillField(field, AnyNumber());
      if (dice_.Chance(50)) Intend(field, [this] { Key(Qt::Key_Tab); });
      ActAsIntended();
      return;
    }
    case 2:
      return Click(window.VScroll1[height]);
    case 3:
      return Click(window.VScroll2[height]);
    case 4:
      return Click(window.VScroll3);
    case 5:
      if (dice_.Chance(40)) return Click(window.Load);
      return dice_.Chance(30) ? Click(window.Done) : Wheel(window.VScroll2[height]);
    default:
      return ActAnyhow(&window);
  }
}

void Monkey::ActInPatches(Patch1& window) {
  const auto corner = static_cast<std::size_t>(dice_.Below(4));
  if (dice_.Chance(40)) {
    QLineEdit* const field = dice_.Chance(50) ? window.Text2[corner] : window.Text3[corner];
    FillField(field, dice_.Chance(50) ? QString::number(dice_.Between(1, 50)) : AnyNumber());
    const int leaving = dice_.Below(3);
    if (leaving == 0) Intend(field, [this] { Key(Qt::Key_Tab); });
    if (leaving == 1) Intend(field, [this] { Key(Qt::Key_Return); });
    ActAsIntended();
    return;
  }
  if (dice_.Chance(15)) return Click(window.Validate1[static_cast<std::size_t>(dice_.Below(2))]);
  if (dice_.Chance(10)) return Click(window.Cancel);
  ActAnyhow(&window);
}

void Monkey::ActAnyhow(QWidget* window) {
  const int choice = dice_.Below(100);
  if (choice < 35) return AnyKey();
  if (choice < 70) return ClickSomewhere(window);
  if (choice < 78) return Wheel(window);
  if (choice < 86) {
    if (QWidget* const there = AnyChild(window)) return HoldSomewhere(there);
  }
  if (choice < 92) return Drop(window);
  if (choice < 96) return Paste(AnyText());
  const QString text = AnyText();
  Note("an input method writes \"" + text + "\"");
  hands_.Commit(text);
}

}  // namespace brivane
