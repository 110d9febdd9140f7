// Loaded into a program before it starts (LD_PRELOAD), to measure it as it is delivered: reports
// and ends it as soon as its first window has been painted.
#include <QCoreApplication>
#include <QEvent>
#include <QTimer>
#include <QWidget>

#include "report.h"

namespace {

class FirstWindow : public QObject {
 public:
  using QObject::QObject;

 protected:
  bool eventFilter(QObject* object, QEvent* event) override {
    if (event->type() == QEvent::Paint && !painted_) {
      const auto* widget = qobject_cast<QWidget*>(object);
      painted_ = widget != nullptr && widget->isWindow();
      // When the event loop is back the whole window has been painted and shown.
      if (painted_) QTimer::singleShot(0, [] { bench::ReportAndEnd(); });
    }
    return false;
  }

 private:
  bool painted_ = false;
};

void WatchForFirstWindow() {
  QCoreApplication::instance()->installEventFilter(new FirstWindow(QCoreApplication::instance()));
}

}  // namespace

Q_COREAPP_STARTUP_FUNCTION(WatchForFirstWindow)
