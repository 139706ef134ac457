#pragma once

#include <optional>
#include <vector>

#include "platform/appearance.h"
#include "platform/status_bar.h"

namespace orvane {

/// The pictures of the status item, each in the sizes that panels use, for a light or dark `panel`
/// or one that isn't known.
class StatusIcons {
 public:
  virtual ~StatusIcons() = default;

  /// The program's own icon; empty when its drawing is missing.
  [[nodiscard]] virtual std::vector<IconPixmap> normal(std::optional<ColorScheme> panel) const = 0;

  /// A bolt, while a boost runs.
  [[nodiscard]] virtual std::vector<IconPixmap> boosting(
      std::optional<ColorScheme> panel) const = 0;

  /// The usage in percent (0 to 100), for panels that draw no label beside the icon.
  [[nodiscard]] virtual std::vector<IconPixmap> percentage(
      int percent, std::optional<ColorScheme> panel) const = 0;
};

/// Draws the pictures: on a dark panel a light badge, on a light one a dark one, in two colours as
/// the panel's own items are. For a panel that isn't known the badge is dark with a light hairline
/// around it, and stands out on both.
class StatusIconPainter : public StatusIcons {
 public:
  [[nodiscard]] std::vector<IconPixmap> normal(std::optional<ColorScheme> panel) const override;
  [[nodiscard]] std::vector<IconPixmap> boosting(std::optional<ColorScheme> panel) const override;
  [[nodiscard]] std::vector<IconPixmap> percentage(int percent,
                                                   std::optional<ColorScheme> panel) const override;
};

}  // namespace orvane
