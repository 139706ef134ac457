#include "ui/icons/icon_decoder.h"

#include <QBuffer>
#include <QImageReader>
#include <QRegularExpression>
#include <QXmlStreamReader>
#include <algorithm>

namespace orvane {

namespace {

constexpr qint64 mostPixels = qint64{4096} * 4096;
constexpr qsizetype longestDrawing = 1 << 20;  // takes half a second at most

bool isDrawing(const QImageReader& reader) {
  return reader.format().startsWith("svg");
}

/// False also for a format that doesn't tell its size beforehand.
bool isSmallEnough(const QImageReader& reader, const QByteArray& bytes) {
  // libpng prints a line, past all of Qt, about a file that ends early.
  if (reader.format() == "png" && !bytes.contains("IEND")) return false;
  const QSize size = reader.size();
  return !size.isEmpty() && qint64{size.width()} * size.height() <= mostPixels;
}

/// Whether an address within a drawing is a picture of pixels, and holds all of it.
bool isEmbeddedPicture(QStringView address) {
  constexpr QLatin1String start("data:");
  constexpr QLatin1String encoding("base64,");
  const qsizetype found = address.lastIndexOf(encoding);
  if (!address.startsWith(start) || found < 0) return false;
  QByteArray bytes = QByteArray::fromBase64(address.mid(found + encoding.size()).toLatin1());
  QBuffer buffer(&bytes);
  const QImageReader reader(&buffer);
  return !isDrawing(reader) && isSmallEnough(reader, bytes);
}

/// Whether a style rule asks for dashes, also in the style sheet's escapes: there may be millions.
bool hasDashes(const QString& rule) {
  static const QRegularExpression dashes(
      QStringLiteral(R"(\\|dasharray(?!\s*:\s*(none|0\s*(;|$))))"),
      QRegularExpression::CaseInsensitiveOption);
  return dashes.match(rule).hasMatch();
}

/// Qt Svg opens whatever file an image element names, and waits for a pipe's writer.
bool isHarmless(const QByteArray& drawing) {
  QXmlStreamReader xml(drawing);
  xml.setNamespaceProcessing(false);
  while (!xml.atEnd()) {
    const bool isElement = xml.readNext() == QXmlStreamReader::StartElement;
    if (xml.isCharacters() && hasDashes(xml.text().toString())) return false;
    if (!isElement) continue;
    const bool isImage = xml.qualifiedName().endsWith(QLatin1String("image"));
    for (const QXmlStreamAttribute& attribute : xml.attributes()) {
      const QStringView name = attribute.qualifiedName();
      const bool isAddress = isImage && name.endsWith(QLatin1String("href"));
      if (isAddress && !isEmbeddedPicture(attribute.value())) return false;
      const bool isStyle = name == QLatin1String("style") || name.contains(QLatin1String("dash"));
      if (isStyle && hasDashes(QStringLiteral("%1:%2").arg(name, attribute.value()))) return false;
    }
  }
  return !xml.hasError();
}

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

}  // namespace

QImage decodeIcon(const QByteArray& bytes, QSize size) {
  QByteArray content = bytes;
  QBuffer buffer(&content);
  QImageReader reader(&buffer);
  if (isDrawing(reader)) {
    if (bytes.size() > longestDrawing || !isHarmless(bytes)) return {};
    reader.setScaledSize(size);
  } else {
    chooseOneOfSeveral(reader, size);
    if (!isSmallEnough(reader, bytes)) return {};
  }
  QImage image = reader.read();
  if (image.isNull() || image.size() == size) return image;
  return image.scaled(size, Qt::IgnoreAspectRatio, Qt::SmoothTransformation);
}

}  // namespace orvane
