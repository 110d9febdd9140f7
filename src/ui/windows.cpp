#include "ui/windows.h"

#include <QCoreApplication>
#include <QEvent>
#include <QWidget>

#include "ui/create1.h"
#include "ui/dessin1.h"
#include "ui/menu1.h"
#include "ui/patch1.h"
#include "ui/sail_form.h"

namespace brivane {

Windows::Windows()
    : start_(std::make_unique<Menu1>(*this)),
      picture_(std::make_unique<Dessin1>(*this)),
      dimensions_(std::make_unique<Create1>(*this)),
      mould_(std::make_unique<SailForm>(*this)),
      patches_(std::make_unique<Patch1>(*this)) {
  Watch(*start_, *start_);
  Watch(*picture_, *picture_);
  Watch(*dimensions_, *dimensions_);
  Watch(*mould_, *mould_);
  Watch(*patches_, *patches_);
}

Windows::~Windows() { ending_ = true; }

void Windows::Watch(QWidget& widget, ProgramWindow& window) {
  watched_[&widget] = &window;
  widget.installEventFilter(this);
}

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
  if (event->type() == QEvent::WindowActivate) CameToFront(window);
  if (event->type() == QEvent::Hide && !event->spontaneous()) WasHidden(window);
  return false;
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
        if (!ending_) window.Left();
      },
      Qt::QueuedConnection);
}

}  // namespace brivane
