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

/// What a picture is drawn in.
struct BadgeColors {
  QColor ground;
  QColor hairline;  ///< inside the border
  QColor drawing;
};

BadgeColors badgeColors(std::optional<ColorScheme> panel) {
  const QColor dark(38, 40, 46);
  const QColor light(226, 228, 233);
  if (panel == ColorScheme::dark) return {light, light, dark};
  return {dark, panel ? dark : QColor(255, 255, 255, 96), QColor(255, 255, 255)};
}

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

/// The ground that makes the drawing stand out on the panel.
void drawBadge(QPainter& painter, int size, const BadgeColors& colors) {
  const double line = std::max(1.0, std::round(size / 22.0));
  const QRectF outer(0, 0, size, size);
  const double radius = size * 0.23;
  painter.setPen(Qt::NoPen);
  painter.setBrush(colors.ground);
  painter.drawRoundedRect(outer, radius, radius);
  if (colors.hairline == colors.ground) return;
  painter.setPen(QPen(colors.hairline, line));
  painter.setBrush(Qt::NoBrush);
  const double inset = line / 2;
  painter.drawRoundedRect(outer.adjusted(inset, inset, -inset, -inset), radius - inset,
                          radius - inset);
}

/// A drawing of one colour on the badge.
std::vector<IconPixmap> drawnIcon(const QString& resource, const BadgeColors& colors) {
  QSvgRenderer renderer(resource);
  return inAllSizes([&renderer, &colors](QPainter& painter, int size) {
    drawBadge(painter, size, colors);
    if (!renderer.isValid()) return;
    QImage drawing(size, size, QImage::Format_ARGB32_Premultiplied);
    drawing.fill(Qt::transparent);
    QPainter inner(&drawing);
    const double margin = std::round(size / 11.0);
    renderer.render(&inner, QRectF(margin, margin, size - 2 * margin, size - 2 * margin));
    inner.setCompositionMode(QPainter::CompositionMode_SourceIn);
    inner.fillRect(drawing.rect(), colors.drawing);
    inner.end();
    painter.drawImage(0, 0, drawing);
  });
}

/// Where the digits go, in whole pixels; the widths and gaps of a number come to an even sum, as
/// the sizes are, so that it stands in the middle.
struct NumberLayout {
  int size;
  double stroke;
  double height;
  std::array<double, 3> digitWidth;  ///< in numbers of one, two and three digits
  std::array<double, 3> gap;
  double firstOfThree;  ///< width of the 1 in 100
};

constexpr std::array<NumberLayout, 6> numberLayouts = {{
    {16, 2, 10, {6, 5, 5}, {0, 2, 1}, 2},
    {22, 2, 14, {8, 7, 6}, {0, 2, 1}, 4},
    {24, 2, 14, {8, 8, 6}, {0, 2, 1}, 4},
    {32, 3, 18, {12, 10, 9}, {0, 2, 1}, 4},
    {44, 4, 28, {16, 14, 12}, {0, 4, 2}, 8},
    {48, 4, 28, {16, 16, 13}, {0, 4, 2}, 8},
}};

void drawNumber(QPainter& painter, int size, int number, const QColor& color) {
  const std::string digits = std::to_string(number);
  const NumberLayout& layout =
      *std::find_if(numberLayouts.begin(), numberLayouts.end(),
                    [size](const NumberLayout& one) { return one.size == size; });
  const std::size_t more = digits.size() - 1;
  const bool narrow = more == 2;
  const auto widthOf = [&](char digit) {
    return narrow && digit == '1' ? layout.firstOfThree : layout.digitWidth.at(more);
  };
  double total = layout.gap.at(more) * static_cast<double>(more);
  for (const char digit : digits) total += widthOf(digit);
  double x = (size - total) / 2;
  const double y = (size - layout.height) / 2;
  painter.setPen(QPen(color, layout.stroke, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
  painter.setBrush(Qt::NoBrush);
  const double inset = layout.stroke / 2;
  for (const char digit : digits) {
    QRectF box = QRectF(x, y, widthOf(digit), layout.height).adjusted(inset, inset, -inset, -inset);
    if (digit == '1' && !narrow) box.adjust(box.width() * 0.2, 0, -box.width() * 0.3, 0);
    painter.drawPath(digitShape(digit - '0', box));
    x += widthOf(digit) + layout.gap.at(more);
  }
}

}  // namespace

std::vector<IconPixmap> StatusIconPainter::normal(std::optional<ColorScheme> panel) const {
  const QString resource = QStringLiteral(":/orvane/StatusIcon.svg");
  if (!QFile::exists(resource)) return {};
  return drawnIcon(resource, badgeColors(panel));
}

std::vector<IconPixmap> StatusIconPainter::boosting(std::optional<ColorScheme> panel) const {
  return drawnIcon(QStringLiteral(":/orvane/bolt.fill.svg"), badgeColors(panel));
}

std::vector<IconPixmap> StatusIconPainter::percentage(int percent,
                                                      std::optional<ColorScheme> panel) const {
  const BadgeColors colors = badgeColors(panel);
  const int number = std::clamp(percent, 0, 100);
  return inAllSizes([&colors, number](QPainter& painter, int size) {
    drawBadge(painter, size, colors);
    drawNumber(painter, size, number, colors.drawing);
  });
}

}  // namespace orvane
