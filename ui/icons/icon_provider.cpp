#include "ui/icons/icon_provider.h"

#include <QFile>
#include <QFileInfo>
#include <QIcon>
#include <QImageReader>
#include <QLoggingCategory>
#include <QPixmapCache>
#include <QUrl>

#include "ui/icons/icon_decoder.h"

namespace orvane {

namespace {

constexpr int defaultSide = 48;
constexpr int mostMegabytes = 64;
constexpr std::size_t largestFile = std::size_t{4} << 20U;

bool isPath(const QString& name) {
  return name.startsWith(QLatin1Char('/'));
}

/// A name with a folder in it would lead out of the theme.
bool isThemed(const QString& name) {
  return !name.isEmpty() && !name.contains(QLatin1Char('/')) && QIcon::hasThemeIcon(name);
}

QImage themedIcon(const QString& name, QSize size) {
  QImage image = QIcon::fromTheme(name).pixmap(size, 1.0).toImage();
  // Icons never grow by themselves: a theme may only have a smaller one.
  if (image.isNull() || image.size() == size) return image;
  return image.scaled(size, Qt::IgnoreAspectRatio, Qt::SmoothTransformation);
}

QImage clearPixel() {
  QImage image(1, 1, QImage::Format_ARGB32_Premultiplied);
  image.fill(Qt::transparent);
  return image;
}

}  // namespace

IconProvider::IconProvider(FileReader readFile)
    : QQuickImageProvider(QQuickImageProvider::Image), readFile_(std::move(readFile)) {
  QImageReader::setAllocationLimit(mostMegabytes);
  QPixmapCache::setCacheLimit(0);
  QLoggingCategory::setFilterRules(QStringLiteral("qt.svg*=false\nqt.gui.imageio*=false"));
}

QString IconProvider::source(const std::string& name) {
  const QString text = QString::fromStdString(name);
  const bool exists = isPath(text) ? QFileInfo(text).isFile() : isThemed(text);
  if (!exists) return {};
  return QStringLiteral("image://%1/%2")
      .arg(QLatin1String(IconProvider::providerId),
           QString::fromLatin1(QUrl::toPercentEncoding(text)));
}

QImage IconProvider::requestImage(const QString& id, QSize* size, const QSize& requestedSize) {
  const QString name = QUrl::fromPercentEncoding(id.toLatin1());
  const QSize wanted = requestedSize.isValid() && !requestedSize.isEmpty()
                           ? requestedSize
                           : QSize(defaultSide, defaultSide);
  QImage image = isPath(name) ? fileIcon(name, wanted) : themedIcon(name, wanted);
  if (image.isNull()) image = clearPixel();
  if (size != nullptr) *size = image.size();
  return image;
}

QImage IconProvider::fileIcon(const QString& path, QSize size) const {
  const auto bytes = readFile_(QFile::encodeName(path).toStdString(), largestFile);
  return bytes ? decodeIcon(QByteArray::fromStdString(*bytes), size) : QImage();
}

}  // namespace orvane
