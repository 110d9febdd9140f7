#include <QApplication>
#include <csignal>

#include "model/region.h"
#include "ui/current_sail.h"
#include "ui/menu1.h"
#include "ui/qt_text.h"
#include "ui/windows.h"

int main(int argc, char** argv) {
  // Where files may not grow any further, the writing fails and is told; the program goes on.
  std::signal(SIGXFSZ, SIG_IGN);
  QApplication application(argc, argv);
  QApplication::setApplicationName(brivane::ToQt(brivane::ProgramTitle));
  brivane::Current().DecimalMark = brivane::RegionalDecimalMark();
  brivane::Windows windows;
  windows.Start().show();
  return QApplication::exec();
}
