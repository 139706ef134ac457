#pragma once

#include <vector>

#include "platform/status_bar.h"

namespace orvane {

/// The pictures of the status item, each in the sizes that panels use.
class StatusIcons {
 public:
  virtual ~StatusIcons() = default;

  /// The program's own icon; empty when its drawing is missing.
  [[nodiscard]] virtual std::vector<IconPixmap> normal() const = 0;

  /// A bolt, while a boost runs.
  [[nodiscard]] virtual std::vector<IconPixmap> boosting() const = 0;

  /// The usage in percent (0 to 100), for panels that draw no label beside the icon.
  [[nodiscard]] virtual std::vector<IconPixmap> percentage(int percent) const = 0;
};

/// Draws the pictures. Panels are light or dark and don't say which, so every picture is light on a
/// dark badge with a hairline around it, and stands out on both.
class StatusIconPainter : public StatusIcons {
 public:
  [[nodiscard]] std::vector<IconPixmap> normal() const override;
  [[nodiscard]] std::vector<IconPixmap> boosting() const override;
  [[nodiscard]] std::vector<IconPixmap> percentage(int percent) const override;
};

}  // namespace orvane
