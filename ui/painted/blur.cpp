#include "ui/painted/blur.h"

#include <QImage>
#include <QPainter>
#include <algorithm>
#include <array>
#include <cmath>

namespace orvane {

namespace {

// A blurred picture holds no detail smaller than this many of its pixels, so it is worked out at
// that resolution and enlarged.
constexpr double deviationInPixels = 3;
constexpr int reachInPixels = 9;

using Pixel = std::array<float, 4>;  // of Format_RGBA32FPx4_Premultiplied

std::array<float, reachInPixels + 1> halfKernel() {
  std::array<float, reachInPixels + 1> kernel{};
  float sum = 0;
  for (std::size_t i = 0; i < kernel.size(); ++i) {
    const double distance = static_cast<double>(i) / deviationInPixels;
    kernel[i] = static_cast<float>(std::exp(-distance * distance / 2));
    sum += (i == 0 ? 1.0F : 2.0F) * kernel[i];
  }
  for (float& weight : kernel) weight /= sum;
  return kernel;
}

/// Blurs along the rows and transposes: done twice, it blurs both ways.
QImage blurredAcross(const QImage& image) {
  static const auto kernel = halfKernel();
  QImage result(image.size().transposed(), image.format());
  for (int y = 0; y < image.height(); ++y) {
    const auto* row = reinterpret_cast<const Pixel*>(image.constScanLine(y));
    for (int x = 0; x < image.width(); ++x) {
      Pixel sum{};
      const int first = std::max(0, x - reachInPixels);
      const int last = std::min(image.width() - 1, x + reachInPixels);
      for (int i = first; i <= last; ++i) {
        const float weight = kernel[static_cast<std::size_t>(std::abs(i - x))];
        for (std::size_t c = 0; c < sum.size(); ++c) sum[c] += weight * row[i][c];
      }
      reinterpret_cast<Pixel*>(result.scanLine(x))[y] = sum;
    }
  }
  return result;
}

}  // namespace

void paintBlurred(QPainter& painter, const QRectF& bounds, double radius,
                  const std::function<void(QPainter&)>& drawing) {
  if (radius <= 0 || bounds.isEmpty()) return;
  const double reach = blurReach(radius);
  const QRectF area = bounds.adjusted(-reach, -reach, reach, reach);
  const double scale = deviationInPixels / (radius / 2);
  QImage image(static_cast<int>(std::ceil(area.width() * scale)),
               static_cast<int>(std::ceil(area.height() * scale)),
               QImage::Format_ARGB32_Premultiplied);
  image.fill(Qt::transparent);
  {
    QPainter small(&image);
    small.setRenderHint(QPainter::Antialiasing);
    small.scale(scale, scale);
    small.translate(-area.topLeft());
    drawing(small);
  }
  image.convertTo(QImage::Format_RGBA32FPx4_Premultiplied);
  image = blurredAcross(blurredAcross(image)).convertToFormat(QImage::Format_ARGB32_Premultiplied);
  painter.save();
  painter.setRenderHint(QPainter::SmoothPixmapTransform);
  painter.drawImage(QRectF(area.topLeft(), QSizeF(image.size()) / scale), image);
  painter.restore();
}

}  // namespace orvane
