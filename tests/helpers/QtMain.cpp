#include <gtest/gtest.h>

#include <QApplication>

/// The tests' own main for everything that needs widgets.
int main(int argc, char** argv) {
  testing::InitGoogleTest(&argc, argv);
  QApplication application(argc, argv);
  QApplication::setQuitOnLastWindowClosed(false);
  return RUN_ALL_TESTS();
}
