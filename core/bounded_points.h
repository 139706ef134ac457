#pragma once

#include <cstddef>
#include <utility>
#include <vector>

#include "core/observable.h"

namespace orvane {

/// Appends `point` and then, as a second change, drops the oldest points over `limit`.
template <typename Point>
void appendBounded(Published<std::vector<Point>>& points, Point point, std::size_t limit) {
  points.mutate([&](auto& list) { list.push_back(std::move(point)); });
  const std::size_t count = points.get().size();
  if (count <= limit) return;
  points.mutate([&](auto& list) {
    list.erase(list.begin(), list.begin() + static_cast<std::ptrdiff_t>(count - limit));
  });
}

}  // namespace orvane
