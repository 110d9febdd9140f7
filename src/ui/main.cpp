#include <QApplication>
#include <QIcon>
#include <csignal>

#include "model/region.h"
#include "ui/current_sail.h"
#include "ui/menu1.h"
#include "ui/messages.h"
#include "ui/qt_text.h"
#include "ui/windows.h"

namespace brivane {
namespace {

/// A failure that no command has told ends its event, not the program and the user's work.
class Application : public QApplication {
 public:
  using QApplication::QApplication;

  bool notify(QObject* receiver, QEvent* event) override {
    bool handled = false;
    RunGuarded(activeWindow(), ToQt(ProgramTitle),
               [&] { handled = QApplication::notify(receiver, event); });
    return handled;
  }
};

int Run(int argc, char** argv) {
  // Where files may not grow any further, the writing fails and is told; the program goes on.
  std::signal(SIGXFSZ, SIG_IGN);
  Application application(argc, argv);
  Application::setApplicationName(ToQt(ProgramTitle));
  Application::setDesktopFileName("org.brivane.brivane");
  Application::setWindowIcon(QIcon::fromTheme("org.brivane.brivane"));
  Current().DecimalMark = RegionalDecimalMark();
  Windows windows;
  windows.Start().show();
  return Application::exec();
}

}  // namespace
}  // namespace brivane

int main(int argc, char** argv) { return brivane::Run(argc, argv); }
