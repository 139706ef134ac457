#include "ui/icons/icon_provider.h"

#include <QFileInfo>
#include <QIcon>
#include <QPixmapCache>
#include <QUrl>
#include <cstring>
#include <utility>

namespace orvane {

namespace {

constexpr int defaultSide = 48;

/// A name with a folder in it would lead out of the theme.
bool isThemed(const QString& name) {
  return !name.isEmpty() && !name.contains(QLatin1Char('/')) && QIcon::hasThemeIcon(name);
}

QImage clearPixel() {
  QImage image(1, 1, QImage::Format_ARGB32_Premultiplied);
  image.fill(Qt::transparent);
  return image;
}

QString encoded(const QString& text) {
  return QString::fromLatin1(QUrl::toPercentEncoding(text));
}

}  // namespace

IconProvider::IconProvider(IconDrawer draw)
    : QQuickImageProvider(QQuickImageProvider::Image, ForceAsynchronousImageLoading),
      draw_(std::move(draw)) {
  QPixmapCache::setCacheLimit(0);
  request_.fallbackTheme = QIcon::fallbackThemeName();
  request_.searchPaths = QIcon::themeSearchPaths();
}

QString IconProvider::source(const std::string& name) {
  const QString text = QString::fromStdString(name);
  const bool isPath = text.startsWith(QLatin1Char('/'));
  const bool exists = isPath ? QFileInfo(text).isFile() : isThemed(text);
  if (!exists) return {};
  // With another theme it is another picture.
  const QString theme = isPath ? QString() : QLatin1Char('/') + encoded(QIcon::themeName());
  return QStringLiteral("image://%1/%2%3")
      .arg(QLatin1String(IconProvider::providerId), encoded(text), theme);
}

QImage IconProvider::requestImage(const QString& id, QSize* size, const QSize& requestedSize) {
  IconRequest request = request_;
  request.icon = QUrl::fromPercentEncoding(id.section(QLatin1Char('/'), 0, 0).toLatin1());
  request.theme = QUrl::fromPercentEncoding(id.section(QLatin1Char('/'), 1, 1).toLatin1());
  request.size = requestedSize.isEmpty() ? QSize(defaultSide, defaultSide) : requestedSize;
  const QByteArray pixels = draw_(request);
  QImage image(request.size, QImage::Format_ARGB32_Premultiplied);
  if (!pixels.isEmpty() && pixels.size() == image.sizeInBytes()) {
    std::memcpy(image.bits(), pixels.constData(), static_cast<std::size_t>(pixels.size()));
  } else {
    image = clearPixel();
  }
  if (size != nullptr) *size = image.size();
  return image;
}

}  // namespace orvane
