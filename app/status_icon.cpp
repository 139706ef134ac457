#include "app/status_icon.h"

#include <QtCore/QFile>
#include <QtGui/QImage>
#include <QtGui/QPainter>
#include <QtGui/QPen>
#include <QtSvg/QSvgRenderer>
#include <algorithm>
#include <array>
#include <cmath>
#include <functional>

#include "app/digit_shapes.h"

namespace orvane {
namespace {

constexpr std::array<int, 6> iconSizes = {16, 22, 24, 32, 44, 48};

const QColor badgeColor(38, 40, 46);
const QColor hairlineColor(255, 255, 255, 96);
const QColor drawingColor(255, 255, 255);

IconPixmap pixmapOf(const QImage& image) {
  IconPixmap pixmap{.width = image.width(), .height = image.height(), .pixels = {}};
  const QImage straight = image.convertToFormat(QImage::Format_ARGB32);
  for (int y = 0; y < straight.height(); ++y) {
    const auto* line = reinterpret_cast<const std::uint32_t*>(straight.constScanLine(y));
    pixmap.pixels.insert(pixmap.pixels.end(), line, line + straight.width());
  }
  return pixmap;
}

using Drawing = std::function<void(QPainter&, int size)>;

/// Draws in low bands: QPainter hands larger shapes to a pool of threads, which costs more than the
/// drawing.
void drawInBands(QImage& image, const Drawing& draw) {
  constexpr int bandHeight = 8;
  for (int y = 0; y < image.height(); y += bandHeight) {
    QPainter painter(&image);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setClipRect(0, y, image.width(), bandHeight);
    draw(painter, image.width());
  }
}

std::vector<IconPixmap> inAllSizes(const Drawing& draw) {
  std::vector<IconPixmap> icon;
  for (const int size : iconSizes) {
    QImage image(size, size, QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::transparent);
    drawInBands(image, draw);
    icon.push_back(pixmapOf(image));
  }
  return icon;
}

/// The dark ground that makes a light drawing stand out on any panel. The hairline lies inside it.
void drawBadge(QPainter& painter, int size) {
  const double line = std::max(1.0, std::round(size / 22.0));
  const QRectF outer(0, 0, size, size);
  const double radius = size * 0.23;
  painter.setPen(Qt::NoPen);
  painter.setBrush(badgeColor);
  painter.drawRoundedRect(outer, radius, radius);
  painter.setPen(QPen(hairlineColor, line));
  painter.setBrush(Qt::NoBrush);
  const double inset = line / 2;
  painter.drawRoundedRect(outer.adjusted(inset, inset, -inset, -inset), radius - inset,
                          radius - inset);
}

/// A drawing of one colour on the badge.
std::vector<IconPixmap> drawnIcon(const QString& resource) {
  QSvgRenderer renderer(resource);
  return inAllSizes([&renderer](QPainter& painter, int size) {
    drawBadge(painter, size);
    if (!renderer.isValid()) return;
    QImage drawing(size, size, QImage::Format_ARGB32_Premultiplied);
    drawing.fill(Qt::transparent);
    QPainter inner(&drawing);
    const double margin = std::round(size / 11.0);
    renderer.render(&inner, QRectF(margin, margin, size - 2 * margin, size - 2 * margin));
    inner.setCompositionMode(QPainter::CompositionMode_SourceIn);
    inner.fillRect(drawing.rect(), drawingColor);
    inner.end();
    painter.drawImage(0, 0, drawing);
  });
}

/// Where the digits go, in whole pixels.
struct NumberLayout {
  double stroke;
  double height;
  double digitWidth;
  double oneWidth;
  double gap;
};

NumberLayout numberLayout(int size, int digits) {
  const double unit = size / 22.0;
  const double stroke = std::max(2.0, std::round(2 * unit));
  const bool narrow = digits > 2;
  return {.stroke = stroke,
          .height = std::round(13 * unit),
          .digitWidth = std::round((narrow ? 6.4 : 8) * unit),
          .oneWidth = std::round((size < 22 ? 2.6 : 3.6) * unit),
          .gap = std::max(1.0, std::round((narrow ? 1 : 2) * unit))};
}

void drawNumber(QPainter& painter, int size, int number) {
  const std::string digits = std::to_string(number);
  const NumberLayout layout = numberLayout(size, static_cast<int>(digits.size()));
  const bool narrow = digits.size() > 2;
  const auto widthOf = [&](char digit) {
    return narrow && digit == '1' ? layout.oneWidth : layout.digitWidth;
  };
  double total = layout.gap * static_cast<double>(digits.size() - 1);
  for (const char digit : digits) total += widthOf(digit);
  double x = std::round((size - total) / 2);
  const double y = std::round((size - layout.height) / 2);
  painter.setPen(QPen(drawingColor, layout.stroke, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
  painter.setBrush(Qt::NoBrush);
  const double inset = layout.stroke / 2;
  for (const char digit : digits) {
    QRectF box = QRectF(x, y, widthOf(digit), layout.height).adjusted(inset, inset, -inset, -inset);
    if (digit == '1' && !narrow) box.adjust(box.width() * 0.2, 0, -box.width() * 0.3, 0);
    painter.drawPath(digitShape(digit - '0', box));
    x += widthOf(digit) + layout.gap;
  }
}

}  // namespace

std::vector<IconPixmap> StatusIconPainter::normal() const {
  const QString resource = QStringLiteral(":/orvane/StatusIcon.svg");
  if (!QFile::exists(resource)) return {};
  return drawnIcon(resource);
}

std::vector<IconPixmap> StatusIconPainter::boosting() const {
  return drawnIcon(QStringLiteral(":/orvane/bolt.fill.svg"));
}

std::vector<IconPixmap> StatusIconPainter::percentage(int percent) const {
  return inAllSizes([number = std::clamp(percent, 0, 100)](QPainter& painter, int size) {
    drawBadge(painter, size);
    drawNumber(painter, size, number);
  });
}

}  // namespace orvane
