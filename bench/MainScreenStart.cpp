#include <QApplication>
#include <memory>

#include "FirstPaint.h"
#include "app/AppDelegate.h"
#include "app/CustomShapeWindow.h"
#include "app/MakeServices.h"
#include "app/OpenPanel.h"

/// The application's start, up to the first painting of the main screen.
int main(int argc, char** argv) {
  const QApplication application(argc, argv);
  quillmeter::AppDelegate delegate(quillmeter::makeServices(), std::make_unique<quillmeter::QtOpenPanel>());
  quillmeter::bench::QuitAtFirstPaint quit;
  delegate.window()->installEventFilter(&quit);
  delegate.applicationDidFinishLaunching();
  return QApplication::exec();
}
