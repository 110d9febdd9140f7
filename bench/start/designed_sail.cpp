// The program with a sail of 70 panels: shows the start window, puts the sail into the dimensions
// window, validates it, and reports when the drawing window has been painted.
#include <QApplication>
#include <QTimer>

#include "bench_sails.h"
#include "geometry/outline.h"
#include "report.h"
#include "ui/create1.h"
#include "ui/current_sail.h"
#include "ui/dessin1.h"
#include "ui/menu1.h"
#include "ui/windows.h"

namespace {

void Design(brivane::Windows& windows) {
  brivane::Sail& sail = brivane::Current().TheSail;
  sail.Definition = bench::SeventyPanels();
  brivane::ComputeOutline(sail.Definition);
  windows.Dimensions().Begin();
  windows.BringToFront(windows.Dimensions());
  QCoreApplication::processEvents();
  windows.Dimensions().Validation->click();
}

void ReportWhenPainted(brivane::Windows& windows) {
  if (brivane::Current().TheSail.Definition.PanelCount != 70) std::exit(1);
  if (windows.Picture().Picture1->PaintCount() > 0) bench::ReportAndEnd();
  QTimer::singleShot(0, [&windows] { ReportWhenPainted(windows); });
}

}  // namespace

int main(int argc, char** argv) {
  QApplication application(argc, argv);
  brivane::Windows windows;
  windows.Start().show();
  QTimer::singleShot(0, [&windows] {
    Design(windows);
    ReportWhenPainted(windows);
  });
  return QApplication::exec();
}
