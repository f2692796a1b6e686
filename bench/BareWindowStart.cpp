#include <QApplication>
#include <QWidget>

#include "FirstPaint.h"

/// What a start costs at least: an empty window of the main screen's size, painted once.
int main(int argc, char** argv) {
  QApplication application(argc, argv);
  QWidget window;
  window.resize(420, 360);
  quillmeter::bench::QuitAtFirstPaint quit;
  window.installEventFilter(&quit);
  window.show();
  return QApplication::exec();
}
