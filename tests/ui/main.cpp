#include <gtest/gtest.h>

#include <QFont>
#include <QGuiApplication>

// The views need an application, but no display.
int main(int argc, char** argv) {
  if (!qEnvironmentVariableIsSet("QT_QPA_PLATFORM")) qputenv("QT_QPA_PLATFORM", "offscreen");
  qputenv("QT_LINUX_ACCESSIBILITY_ALWAYS_ON", "1");
  testing::InitGoogleTest(&argc, argv);
  const QGuiApplication application(argc, argv);
  QFont font = QGuiApplication::font();
  font.setPointSizeF(10);  // at which texts have the sizes that the views name
  QGuiApplication::setFont(font);
  return RUN_ALL_TESTS();
}
