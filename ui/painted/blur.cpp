#include "ui/painted/blur.h"

#include <QImage>
#include <QPainter>
#include <algorithm>
#include <array>
#include <cmath>
#include <vector>

namespace orvane {

namespace {

// A blurred picture holds no detail smaller than this many of its pixels, so it is worked out at
// that resolution and enlarged.
constexpr double deviationInPixels = 3;
constexpr int reachInPixels = 9;

using Channels = std::array<float, 4>;
using Plane = std::vector<Channels>;

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
Plane blurredAcross(const Plane& plane, int width, int height) {
  static const auto kernel = halfKernel();
  Plane result(plane.size());
  for (int y = 0; y < height; ++y) {
    for (int x = 0; x < width; ++x) {
      Channels sum{};
      const int first = std::max(0, x - reachInPixels);
      const int last = std::min(width - 1, x + reachInPixels);
      for (int i = first; i <= last; ++i) {
        const float weight = kernel[static_cast<std::size_t>(std::abs(i - x))];
        const Channels& source = plane[static_cast<std::size_t>(y * width + i)];
        for (std::size_t c = 0; c < sum.size(); ++c) sum[c] += weight * source[c];
      }
      result[static_cast<std::size_t>(x * height + y)] = sum;
    }
  }
  return result;
}

Plane planeOf(const QImage& image) {
  Plane plane;
  plane.reserve(static_cast<std::size_t>(image.width()) * static_cast<std::size_t>(image.height()));
  for (int y = 0; y < image.height(); ++y) {
    for (int x = 0; x < image.width(); ++x) {
      const QRgb pixel = reinterpret_cast<const QRgb*>(image.constScanLine(y))[x];
      plane.push_back({static_cast<float>(qAlpha(pixel)), static_cast<float>(qRed(pixel)),
                       static_cast<float>(qGreen(pixel)), static_cast<float>(qBlue(pixel))});
    }
  }
  return plane;
}

void store(const Plane& plane, QImage& image) {
  const auto level = [](float value) { return static_cast<int>(std::lround(value)); };
  for (int y = 0; y < image.height(); ++y) {
    auto* line = reinterpret_cast<QRgb*>(image.scanLine(y));
    for (int x = 0; x < image.width(); ++x) {
      const Channels& value = plane[static_cast<std::size_t>(y * image.width() + x)];
      line[x] = qRgba(level(value[1]), level(value[2]), level(value[3]), level(value[0]));
    }
  }
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
  const Plane across = blurredAcross(planeOf(image), image.width(), image.height());
  store(blurredAcross(across, image.height(), image.width()), image);
  painter.save();
  painter.setRenderHint(QPainter::SmoothPixmapTransform);
  painter.drawImage(QRectF(area.topLeft(), QSizeF(image.size()) / scale), image);
  painter.restore();
}

}  // namespace orvane
