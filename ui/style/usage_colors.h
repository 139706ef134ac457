#pragma once

#include <QtQml/qqmlregistration.h>
#include <QColor>
#include <QList>
#include <QObject>

#include "platform/appearance.h"

namespace orvane {

/// Usage, in percent, above which (not at which) colours turn warm.
inline constexpr double highUsageThreshold = 85.0;

[[nodiscard]] constexpr bool isHighUsage(double usage) {
  return usage > highUsageThreshold;
}

/// The three colours of a usage in percent: red, orange, yellow when it is high, otherwise blue,
/// purple, pink. Who needs two takes the first two.
[[nodiscard]] QList<QColor> usageGradientColors(double usage, ColorScheme scheme);

/// The colours of the popover's ring: red, orange when the usage is high, otherwise blue, purple,
/// pink.
[[nodiscard]] QList<QColor> usageRingColors(double usage, ColorScheme scheme);

/// The colours of one usage for views; bind `dark` to the theme's.
class UsageColors : public QObject {
  Q_OBJECT
  QML_ELEMENT

  Q_PROPERTY(double usage MEMBER usage_ NOTIFY changed)  ///< percent
  Q_PROPERTY(bool dark MEMBER dark_ NOTIFY changed)
  Q_PROPERTY(QList<QColor> gradient READ gradient NOTIFY changed)
  Q_PROPERTY(QList<QColor> ring READ ring NOTIFY changed)
  Q_PROPERTY(QList<QColor> text READ text NOTIFY changed)

 public:
  using QObject::QObject;

  [[nodiscard]] QList<QColor> gradient() const { return usageGradientColors(usage_, scheme()); }
  [[nodiscard]] QList<QColor> ring() const { return usageRingColors(usage_, scheme()); }
  /// The first two of the three.
  [[nodiscard]] QList<QColor> text() const { return gradient().first(2); }

 Q_SIGNALS:
  void changed();

 private:
  [[nodiscard]] ColorScheme scheme() const {
    return dark_ ? ColorScheme::dark : ColorScheme::light;
  }

  double usage_ = 0;
  bool dark_ = false;
};

}  // namespace orvane
