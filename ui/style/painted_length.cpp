#include "ui/style/painted_length.h"

#include <cmath>

namespace orvane {

int paintedLength(double points, double pixelRatio) {
  const int wanted = static_cast<int>(std::ceil(points));
  for (int length = wanted; length <= wanted + 3; ++length) {
    if (std::floor(std::round(length * pixelRatio) / pixelRatio) >= length) return length;
  }
  return wanted;
}

}  // namespace orvane
