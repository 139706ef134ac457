#pragma once

#include <QtQml/qqmlregistration.h>
#include <QColor>
#include <QFont>
#include <QObject>
#include <QVariant>

#include <optional>

#include "platform/appearance.h"
#include "ui/style/painted_length.h"
#include "ui/style/palette.h"

namespace orvane {

#define ORVANE_COLOR_PROPERTY(name, light, dark)   \
  Q_PROPERTY(QColor name READ name NOTIFY changed) \
 public:                                           \
  [[nodiscard]] QColor name() const {              \
    return palette_.name;                          \
  }

/// By how much texts grow where the desktop's font has so many points: not up to 10, and no more
/// beyond 12, which is what the views' places hold.
[[nodiscard]] double textFactor(double points);

/// Colours and fonts for views, following light and dark live. One a QML engine.
class Theme : public QObject {
  Q_OBJECT
  QML_ELEMENT
  QML_SINGLETON

  Q_PROPERTY(bool dark READ isDark NOTIFY changed)
  Q_PROPERTY(QFont headline READ headline CONSTANT)
  Q_PROPERTY(QFont body READ body CONSTANT)
  Q_PROPERTY(QFont subheadline READ subheadline CONSTANT)
  Q_PROPERTY(QFont caption READ caption CONSTANT)
  /// Radius of frameless windows: 0 where the desktop can't blend their corners.
  Q_PROPERTY(double windowRadius READ windowRadius NOTIFY changed)
  /// Points around the popover and menus that their shadow takes: 0 where the desktop can't blend
  /// it, and on Wayland, which would take them for a part of the window.
  Q_PROPERTY(double shadowMargin READ shadowMargin NOTIFY changed)
  /// The main window's background, from its top left to its bottom right.
  Q_PROPERTY(QList<QColor> windowGradient READ windowGradient NOTIFY changed)
  ORVANE_COLORS(ORVANE_COLOR_PROPERTY)

 public:
  Theme();

  /// Without a colour scheme as the application's palette says, now and whenever it changes.
  void setAppearance(const AppearanceSettings& settings);
  void setTranslucentWindows(bool translucent);

  [[nodiscard]] bool isDark() const { return scheme_ == ColorScheme::dark; }
  [[nodiscard]] QList<QColor> windowGradient() const {
    return {palette_.windowGradientStart, palette_.windowGradientEnd};
  }
  [[nodiscard]] double windowRadius() const { return translucentWindows_ ? 10 : 0; }
  [[nodiscard]] double shadowMargin() const;

  [[nodiscard]] QFont headline() const { return systemFont(13, QFont::DemiBold); }
  [[nodiscard]] QFont body() const { return systemFont(13); }
  [[nodiscard]] QFont subheadline() const { return systemFont(11); }
  [[nodiscard]] QFont caption() const { return systemFont(10); }

  /// The desktop's own font, `size` in points (device-independent pixels) times the textFactor.
  Q_INVOKABLE [[nodiscard]] QFont systemFont(double size, int weight = QFont::Normal) const;
  /// The desktop's fixed font.
  Q_INVOKABLE [[nodiscard]] QFont monospacedFont(double size, int weight = QFont::Normal) const;

  Q_INVOKABLE [[nodiscard]] static QColor withOpacity(const QColor& color, double opacity) {
    return orvane::withOpacity(color, opacity);
  }

  /// The height or width of a window that is to have `points`.
  Q_INVOKABLE [[nodiscard]] static int paintedLength(double points, double pixelRatio) {
    return orvane::paintedLength(points, pixelRatio);
  }

 Q_SIGNALS:
  void changed();

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  void apply();
  [[nodiscard]] QFont sized(QFont font, double size, int weight) const;

  AppearanceSettings wanted_;
  ColorScheme scheme_ = ColorScheme::light;
  Palette palette_{ColorScheme::light};
  bool translucentWindows_ = false;
};

/// Easings and springs for animations. One a QML engine.
class Motion : public QObject {
  Q_OBJECT
  QML_ELEMENT
  QML_SINGLETON

  /// The desktop wants nothing to move by itself: what would jumps to its end.
  Q_PROPERTY(bool reduced MEMBER reduced_ NOTIFY changed)
  /// For `easing.bezierCurve`: slow at both ends.
  Q_PROPERTY(QVariantList easeInOut READ easeInOut CONSTANT)
  /// For `easing.bezierCurve`: slow at the end.
  Q_PROPERTY(QVariantList easeOut READ easeOut CONSTANT)

 public:
  void setReduced(bool reduced) { setProperty("reduced", reduced); }

  [[nodiscard]] static QVariantList easeInOut() { return {0.42, 0.0, 0.58, 1.0, 1.0, 1.0}; }
  [[nodiscard]] static QVariantList easeOut() { return {0.0, 0.0, 0.58, 1.0, 1.0, 1.0}; }

  /// For `easing.bezierCurve` of an animation of `springDuration` milliseconds.
  Q_INVOKABLE [[nodiscard]] static QVariantList springCurve(double response, double damping);
  Q_INVOKABLE [[nodiscard]] static int springDuration(double response, double damping);

 Q_SIGNALS:
  void changed();

 private:
  bool reduced_ = false;
};

}  // namespace orvane
