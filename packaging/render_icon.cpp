// Renders an icon at build time: render_icon SVG SIZE PNG
#include <QtCore/QByteArray>
#include <QtCore/QString>
#include <QtGui/QImage>
#include <QtGui/QPainter>
#include <QtSvg/QSvgRenderer>

int main(int count, char** arguments) {
  if (count != 4) return 2;
  QSvgRenderer drawing(QString::fromLocal8Bit(arguments[1]));
  const int size = QByteArray(arguments[2]).toInt();
  QImage icon(size, size, QImage::Format_ARGB32);
  icon.fill(Qt::transparent);
  QPainter painter(&icon);
  drawing.render(&painter);
  painter.end();
  return drawing.isValid() && icon.save(QString::fromLocal8Bit(arguments[3]), "PNG") ? 0 : 1;
}
