#include "ui/icons/icon_drawing.h"

#include <QBuffer>
#include <QFile>
#include <QIcon>
#include <QImage>
#include <QImageReader>
#include <algorithm>

namespace orvane {

namespace {

constexpr std::size_t largestFile = std::size_t{4} << 20U;
constexpr int largestSide = 4096;

/// Steps to the smallest picture of a file that isn't smaller than `size`, else to the largest.
void chooseOneOfSeveral(QImageReader& reader, QSize size) {
  constexpr int mostChoices = 32;
  const int count = std::min(reader.imageCount(), mostChoices);
  int best = 0;
  int bestWidth = 0;
  for (int index = 0; count > 1 && index < count && reader.jumpToImage(index); ++index) {
    const int width = reader.size().width();
    const bool better =
        bestWidth < size.width() ? width > bestWidth : width >= size.width() && width < bestWidth;
    if (!better) continue;
    best = index;
    bestWidth = width;
  }
  if (count > 1) reader.jumpToImage(best);
}

QImage fileIcon(const IconRequest& request, const FileReader& readFile) {
  const auto content = readFile(QFile::encodeName(request.icon).toStdString(), largestFile);
  if (!content) return {};
  QByteArray bytes = QByteArray::fromStdString(*content);
  QBuffer buffer(&bytes);
  QImageReader reader(&buffer);
  if (reader.format().startsWith("svg")) {
    reader.setScaledSize(request.size);
  } else {
    chooseOneOfSeveral(reader, request.size);
  }
  return reader.read();
}

}  // namespace

QStringList IconRequest::arguments() const {
  return QStringList{icon, QString::number(size.width()), QString::number(size.height()), theme,
                     fallbackTheme} +
         searchPaths;
}

std::optional<IconRequest> IconRequest::from(const QStringList& arguments) {
  constexpr int fixedArguments = 5;
  if (arguments.size() < fixedArguments) return {};
  const QSize size(arguments[1].toInt(), arguments[2].toInt());
  if (size.isEmpty() || qMax(size.width(), size.height()) > largestSide) return {};
  return IconRequest{arguments[0], size, arguments[3], arguments[4], arguments.mid(fixedArguments)};
}

QByteArray drawIcon(const IconRequest& request, const FileReader& readFile) {
  // Icons never grow by themselves: a theme may only have a smaller one.
  const QImage image = request.icon.startsWith(QLatin1Char('/'))
                           ? fileIcon(request, readFile)
                           : QIcon::fromTheme(request.icon).pixmap(request.size, 1.0).toImage();
  if (image.isNull()) return {};
  const QImage drawn = image.scaled(request.size, Qt::IgnoreAspectRatio, Qt::SmoothTransformation)
                           .convertToFormat(QImage::Format_ARGB32_Premultiplied);
  return {reinterpret_cast<const char*>(drawn.constBits()), drawn.sizeInBytes()};
}

}  // namespace orvane
