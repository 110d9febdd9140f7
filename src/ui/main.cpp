#include <QApplication>

#include "model/region.h"
#include "ui/current_sail.h"
#include "ui/menu1.h"
#include "ui/qt_text.h"
#include "ui/windows.h"

int main(int argc, char** argv) {
  QApplication application(argc, argv);
  QApplication::setApplicationName(brivane::ToQt(brivane::ProgramTitle));
  brivane::Current().DecimalMark = brivane::RegionalDecimalMark();
  brivane::Windows windows;
  windows.Start().show();
  return QApplication::exec();
}
