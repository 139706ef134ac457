#include <gtest/gtest.h>

#include <QGuiApplication>

// The views need an application, but no display.
int main(int argc, char** argv) {
  if (!qEnvironmentVariableIsSet("QT_QPA_PLATFORM")) qputenv("QT_QPA_PLATFORM", "offscreen");
  qputenv("QT_LINUX_ACCESSIBILITY_ALWAYS_ON", "1");
  testing::InitGoogleTest(&argc, argv);
  const QGuiApplication application(argc, argv);
  return RUN_ALL_TESTS();
}
