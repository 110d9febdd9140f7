// The least program of the toolkit that shows a window.
#include <QApplication>
#include <QWidget>

int main(int argc, char** argv) {
  QApplication application(argc, argv);
  QWidget window;
  window.show();
  return QApplication::exec();
}
