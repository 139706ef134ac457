#include "ui/painted/blur.h"

#include <QImage>
#include <QPainter>
#include <algorithm>
#include <array>
#include <cmath>
#include <vector>

#include "ui/painted/unit_gradient.h"

namespace orvane {

namespace {

// A blurred shape holds no detail smaller than this many of its pixels, so it is worked out at that
// resolution and enlarged.
constexpr double deviationInPixels = 3;
constexpr std::size_t reachInPixels = 9;

// The processor works on so many pixels at once.
constexpr std::size_t block = 8;

/// How much of each pixel a shape covers, 0 to 255, row after row.
struct Coverage {
  std::size_t width;
  std::size_t height;
  std::vector<float> pixels = std::vector<float>(width * height);
};

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
Coverage blurredAcross(const Coverage& shape) {
  static const auto kernel = halfKernel();
  Coverage result{shape.height, shape.width};
  // A row with what is empty on both sides of it.
  std::vector<float> row(shape.width + 2 * reachInPixels + block);
  for (std::size_t y = 0; y < shape.height; ++y) {
    std::copy_n(&shape.pixels[y * shape.width], shape.width, &row[reachInPixels]);
    for (std::size_t x = 0; x < shape.width; x += block) {
      const float* const middle = &row[x + reachInPixels];
      std::array<float, block> sums{};
      for (std::size_t i = 0; i <= reachInPixels; ++i) {
        const float weight = i == 0 ? kernel[0] / 2 : kernel[i];
        for (std::size_t k = 0; k < block; ++k) {
          sums[k] += weight * ((middle - i)[k] + (middle + i)[k]);
        }
      }
      const std::size_t count = std::min(block, shape.width - x);
      for (std::size_t k = 0; k < count; ++k) result.pixels[(x + k) * shape.height + y] = sums[k];
    }
  }
  return result;
}

Coverage coverageOf(const QImage& picture) {
  Coverage shape{static_cast<std::size_t>(picture.width()),
                 static_cast<std::size_t>(picture.height())};
  for (std::size_t y = 0; y < shape.height; ++y) {
    const auto* row = reinterpret_cast<const QRgb*>(picture.constScanLine(static_cast<int>(y)));
    std::transform(row, row + shape.width, &shape.pixels[y * shape.width],
                   [](QRgb pixel) { return static_cast<float>(qAlpha(pixel)); });
  }
  return shape;
}

/// Writes `shape` over `picture`, in black.
void setCoverage(QImage& picture, const Coverage& shape) {
  for (std::size_t y = 0; y < shape.height; ++y) {
    auto* row = reinterpret_cast<QRgb*>(picture.scanLine(static_cast<int>(y)));
    const float* const from = &shape.pixels[y * shape.width];
    std::transform(from, from + shape.width, row, [](float alpha) {
      return qRgba(0, 0, 0, static_cast<int>(std::lround(alpha)));
    });
  }
}

}  // namespace

void paintBlurred(QPainter& painter, const QRectF& bounds, double radius, const QBrush& fill,
                  const std::function<void(QPainter&)>& shape) {
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
    shape(small);
    setCoverage(image, blurredAcross(blurredAcross(coverageOf(image))));
    tint(small, fill);
  }
  painter.save();
  painter.setRenderHint(QPainter::SmoothPixmapTransform);
  painter.drawImage(QRectF(area.topLeft(), QSizeF(image.size()) / scale), image);
  painter.restore();
}

}  // namespace orvane
