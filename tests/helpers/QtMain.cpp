#include <gtest/gtest.h>

#include <QApplication>
#include <QSettings>

/// The tests' own main for everything that needs widgets.
int main(int argc, char** argv) {
  testing::InitGoogleTest(&argc, argv);
  QApplication application(argc, argv);
  QApplication::setQuitOnLastWindowClosed(false);
  // As in the application: file panels would remember folders in a file in the home of whoever runs the
  // tests.
  QSettings::setPath(QSettings::NativeFormat, QSettings::UserScope, QStringLiteral("/dev/null"));
  return RUN_ALL_TESTS();
}
