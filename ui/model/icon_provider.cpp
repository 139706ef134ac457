#include "ui/model/icon_provider.h"

#include <QFile>
#include <QIcon>
#include <QUrl>

namespace orvane {

namespace {

constexpr int defaultSide = 48;

bool isPath(const QString& name) {
  return name.startsWith(QLatin1Char('/'));
}

}  // namespace

QString IconProvider::source(const std::string& name) {
  const QString text = QString::fromStdString(name);
  const bool exists = isPath(text) ? QFile::exists(text) : QIcon::hasThemeIcon(text);
  if (!exists) return {};
  return QStringLiteral("image://%1/%2")
      .arg(QLatin1String(IconProvider::providerId),
           QString::fromLatin1(QUrl::toPercentEncoding(text)));
}

QImage IconProvider::requestImage(const QString& id, QSize* size, const QSize& requestedSize) {
  const QString name = QUrl::fromPercentEncoding(id.toLatin1());
  const QIcon icon = isPath(name) ? QIcon(name) : QIcon::fromTheme(name);
  const QSize wanted = requestedSize.isValid() && !requestedSize.isEmpty()
                           ? requestedSize
                           : QSize(defaultSide, defaultSide);
  QImage image = icon.pixmap(wanted, 1.0).toImage();
  // Icons never grow by themselves: a theme may only have a smaller one.
  if (!image.isNull() && image.size() != wanted) {
    image = image.scaled(wanted, Qt::IgnoreAspectRatio, Qt::SmoothTransformation);
  }
  if (size != nullptr) *size = image.size();
  return image;
}

}  // namespace orvane
