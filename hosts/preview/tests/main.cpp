#include <gtest/gtest.h>
#include <QApplication>

// Fonts, pictures and child processes need an application, but no screen.
int main(int argc, char** argv) {
  qputenv("QT_QPA_PLATFORM", "offscreen");
  const QApplication application(argc, argv);
  testing::InitGoogleTest(&argc, argv);
  return RUN_ALL_TESTS();
}
