#include "ui/windows.h"

#include <QCoreApplication>
#include <QEvent>
#include <QWidget>

#include "ui/accessible.h"
#include "ui/create1.h"
#include "ui/current_sail.h"
#include "ui/dessin1.h"
#include "ui/menu1.h"
#include "ui/mnemonics.h"
#include "ui/patch1.h"
#include "ui/sail_form.h"
#include "ui/screen_room.h"

namespace brivane {

// The start window resets the current sail, which the others show.
Windows::Windows() {
  DescribeOwnWidgets();
  Start();
}

Windows::~Windows() { ending_ = true; }

template <typename Window>
Window& Windows::Made(std::unique_ptr<Window>& window) {
  if (!window) {
    window = std::make_unique<Window>(*this);
    watched_[window.get()] = window.get();
    window->installEventFilter(this);
    AnswerLettersAtOnce(*window);
  }
  return *window;
}

Menu1& Windows::Start() { return Made(start_); }
Dessin1& Windows::Picture() { return Made(picture_); }
Create1& Windows::Dimensions() { return Made(dimensions_); }
SailForm& Windows::Mould() { return Made(mould_); }
Patch1& Windows::Patches() { return Made(patches_); }

void Windows::BringToFront(QWidget& window) {
  if (window.isMinimized()) window.showNormal();
  window.show();
  window.raise();
  window.activateWindow();
}

void Windows::ShowBehind(QWidget& window) {
  if (window.isVisible()) return;
  window.setAttribute(Qt::WA_ShowWithoutActivating);
  window.show();
  window.setAttribute(Qt::WA_ShowWithoutActivating, false);
}

void Windows::CountAsLeft(ProgramWindow& window) {
  if (front_ == &window) front_ = nullptr;
}

void Windows::EndProgram() {
  ending_ = true;
  QCoreApplication::exit(0);
}

bool Windows::eventFilter(QObject* object, QEvent* event) {
  const auto found = watched_.find(object);
  if (found == watched_.end() || ending_) return false;
  ProgramWindow& window = *found->second;
  if (event->type() == QEvent::Show) window.SetCaptions();
  if (object->isWidgetType()) Settle(*static_cast<QWidget*>(object), *event);
  if (event->type() == QEvent::WindowActivate) CameToFront(window);
  if (event->type() == QEvent::Hide && !event->spontaneous()) WasHidden(window);
  return false;
}

/// How large its frame is, and where it stands, is known when a window has come to the front.
void Windows::Settle(QWidget& window, const QEvent& event) {
  const bool isShown = event.type() == QEvent::Show && !event.spontaneous();
  if (isShown) unsettled_.insert(&window);
  const bool isPlaced = event.type() == QEvent::WindowActivate && unsettled_.erase(&window) > 0;
  if (isShown || isPlaced) KeepOnScreen(window);
}

void Windows::CameToFront(ProgramWindow& window) {
  ProgramWindow* const previous = front_;
  front_ = &window;
  window.SetCaptions();
  if (previous != nullptr && previous != &window) TellLeft(*previous);
  window.Activated();
}

void Windows::WasHidden(ProgramWindow& window) {
  if (front_ != &window) return;
  front_ = nullptr;
  TellLeft(window);
}

void Windows::TellLeft(ProgramWindow& window) {
  // Queued: what a window does when it is left may show a message, which must not run inside the
  // change of activation.
  QMetaObject::invokeMethod(
      this,
      [this, &window] {
        if (ending_) return;
        const SailDefinition before = Current().TheSail.Definition;
        window.Left();
        // The window that came to the front has filled itself from what was there before.
        const bool changed = Current().TheSail.Definition != before;
        if (changed && front_ != nullptr && !ending_) front_->Activated();
      },
      Qt::QueuedConnection);
}

}  // namespace brivane
