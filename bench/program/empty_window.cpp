// A window with nothing in it, drawn as Orvane draws its own.
#include <QtGui/QGuiApplication>
#include <QtQuick/QQuickWindow>

int main(int argc, char** argv) {
  const QGuiApplication application(argc, argv);
  QQuickWindow::setGraphicsApi(QSGRendererInterface::Software);
  QQuickWindow window;
  window.resize(440, 510);
  window.show();
  return QGuiApplication::exec();
}
