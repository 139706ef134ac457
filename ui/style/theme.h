#pragma once

#include <QtQml/qqmlregistration.h>
#include <QColor>
#include <QFont>
#include <QObject>
#include <QVariant>

#include <optional>

#include "platform/appearance.h"
#include "ui/style/palette.h"

namespace orvane {

/// Colours and fonts for views, following light and dark live. One a QML engine.
class Theme : public QObject {
  Q_OBJECT
  QML_ELEMENT
  QML_SINGLETON

  Q_PROPERTY(bool dark READ isDark NOTIFY changed)
  Q_PROPERTY(QColor red READ red NOTIFY changed)
  Q_PROPERTY(QColor orange READ orange NOTIFY changed)
  Q_PROPERTY(QColor yellow READ yellow NOTIFY changed)
  Q_PROPERTY(QColor green READ green NOTIFY changed)
  Q_PROPERTY(QColor blue READ blue NOTIFY changed)
  Q_PROPERTY(QColor purple READ purple NOTIFY changed)
  Q_PROPERTY(QColor pink READ pink NOTIFY changed)
  Q_PROPERTY(QColor gray READ gray NOTIFY changed)
  Q_PROPERTY(QColor label READ label NOTIFY changed)
  Q_PROPERTY(QColor secondaryLabel READ secondaryLabel NOTIFY changed)
  Q_PROPERTY(QColor windowBackground READ windowBackground NOTIFY changed)
  Q_PROPERTY(QColor divider READ divider NOTIFY changed)
  Q_PROPERTY(QColor menuBackground READ menuBackground NOTIFY changed)
  Q_PROPERTY(QColor windowOutline READ windowOutline NOTIFY changed)
  Q_PROPERTY(QColor windowGradientStart READ windowGradientStart NOTIFY changed)
  Q_PROPERTY(QColor windowGradientEnd READ windowGradientEnd NOTIFY changed)
  Q_PROPERTY(QColor statCard READ statCard NOTIFY changed)
  Q_PROPERTY(QColor shortcut READ shortcut NOTIFY changed)
  Q_PROPERTY(QColor counterTrack READ counterTrack NOTIFY changed)
  Q_PROPERTY(QColor compressedTrack READ compressedTrack NOTIFY changed)
  Q_PROPERTY(QColor gaugeTrack READ gaugeTrack NOTIFY changed)
  Q_PROPERTY(QColor gaugeShadow READ gaugeShadow NOTIFY changed)
  Q_PROPERTY(QColor detailsBar READ detailsBar NOTIFY changed)
  Q_PROPERTY(QColor processPopover READ processPopover NOTIFY changed)
  Q_PROPERTY(QColor pathBox READ pathBox NOTIFY changed)
  Q_PROPERTY(QColor chartPanel READ chartPanel NOTIFY changed)
  Q_PROPERTY(QColor material READ material NOTIFY changed)
  Q_PROPERTY(QFont title3 READ title3 CONSTANT)
  Q_PROPERTY(QFont headline READ headline CONSTANT)
  Q_PROPERTY(QFont body READ body CONSTANT)
  Q_PROPERTY(QFont subheadline READ subheadline CONSTANT)
  Q_PROPERTY(QFont caption READ caption CONSTANT)
  Q_PROPERTY(QFont caption2 READ caption2 CONSTANT)
  /// Radius of frameless windows: 0 where the desktop can't blend their corners.
  Q_PROPERTY(double windowRadius READ windowRadius NOTIFY changed)

 public:
  Theme();

  /// None = as the application's palette says, now and whenever it changes.
  void setScheme(std::optional<ColorScheme> scheme);
  void setTranslucentWindows(bool translucent);

  [[nodiscard]] ColorScheme scheme() const { return scheme_; }
  [[nodiscard]] bool isDark() const { return scheme_ == ColorScheme::dark; }

  [[nodiscard]] QColor red() const { return colors().red; }
  [[nodiscard]] QColor orange() const { return colors().orange; }
  [[nodiscard]] QColor yellow() const { return colors().yellow; }
  [[nodiscard]] QColor green() const { return colors().green; }
  [[nodiscard]] QColor blue() const { return colors().blue; }
  [[nodiscard]] QColor purple() const { return colors().purple; }
  [[nodiscard]] QColor pink() const { return colors().pink; }
  [[nodiscard]] QColor gray() const { return colors().gray; }
  [[nodiscard]] QColor label() const { return colors().label; }
  [[nodiscard]] QColor secondaryLabel() const { return colors().secondaryLabel; }
  [[nodiscard]] QColor windowBackground() const { return colors().windowBackground; }
  [[nodiscard]] QColor divider() const { return colors().divider; }
  [[nodiscard]] QColor menuBackground() const { return colors().menuBackground; }
  [[nodiscard]] QColor windowOutline() const { return colors().windowOutline; }
  [[nodiscard]] QColor windowGradientStart() const { return shared().windowGradientStart; }
  [[nodiscard]] QColor windowGradientEnd() const { return shared().windowGradientEnd; }
  [[nodiscard]] QColor statCard() const { return shared().statCard; }
  [[nodiscard]] QColor shortcut() const { return shared().shortcut; }
  [[nodiscard]] QColor counterTrack() const { return shared().counterTrack; }
  [[nodiscard]] QColor compressedTrack() const { return shared().compressedTrack; }
  [[nodiscard]] QColor gaugeTrack() const { return shared().gaugeTrack; }
  [[nodiscard]] QColor gaugeShadow() const { return shared().gaugeShadow; }
  [[nodiscard]] QColor detailsBar() const { return shared().detailsBar; }
  [[nodiscard]] QColor processPopover() const { return shared().processPopover; }
  [[nodiscard]] QColor pathBox() const { return shared().pathBox; }
  [[nodiscard]] QColor chartPanel() const { return shared().chartPanel; }
  [[nodiscard]] QColor material() const { return shared().material; }
  [[nodiscard]] double windowRadius() const { return translucentWindows_ ? 10 : 0; }

  [[nodiscard]] QFont title3() const { return systemFont(15); }
  [[nodiscard]] QFont headline() const { return systemFont(13, QFont::DemiBold); }
  [[nodiscard]] QFont body() const { return systemFont(13); }
  [[nodiscard]] QFont subheadline() const { return systemFont(11); }
  [[nodiscard]] QFont caption() const { return systemFont(10); }
  [[nodiscard]] QFont caption2() const { return systemFont(10); }

  /// The desktop's own font, `size` in points (device-independent pixels).
  Q_INVOKABLE [[nodiscard]] QFont systemFont(double size, int weight = QFont::Normal) const;
  /// The desktop's fixed font.
  Q_INVOKABLE [[nodiscard]] QFont monospacedFont(double size, int weight = QFont::Normal) const;
  /// The rounded design, where the desktop has none its own font.
  Q_INVOKABLE [[nodiscard]] QFont roundedFont(double size, int weight = QFont::Normal) const {
    return systemFont(size, weight);
  }

  Q_INVOKABLE [[nodiscard]] QColor withOpacity(const QColor& color, double opacity) const {
    return orvane::withOpacity(color, opacity);
  }

 Q_SIGNALS:
  void changed();

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  [[nodiscard]] const Palette& colors() const { return palette(scheme_); }
  [[nodiscard]] const Surfaces& shared() const { return surfaces(scheme_); }
  void applyScheme();

  std::optional<ColorScheme> wanted_;
  ColorScheme scheme_;
  bool translucentWindows_ = false;
};

/// Easings and springs for animations. One a QML engine.
class Motion : public QObject {
  Q_OBJECT
  QML_ELEMENT
  QML_SINGLETON

  /// For `easing.bezierCurve`: slow at both ends.
  Q_PROPERTY(QVariantList easeInOut READ easeInOut CONSTANT)
  /// For `easing.bezierCurve`: slow at the end.
  Q_PROPERTY(QVariantList easeOut READ easeOut CONSTANT)

 public:
  [[nodiscard]] QVariantList easeInOut() const { return {0.42, 0.0, 0.58, 1.0, 1.0, 1.0}; }
  [[nodiscard]] QVariantList easeOut() const { return {0.0, 0.0, 0.58, 1.0, 1.0, 1.0}; }

  /// For `easing.bezierCurve` of an animation of `springDuration` milliseconds.
  Q_INVOKABLE [[nodiscard]] QVariantList springCurve(double response, double damping) const;
  Q_INVOKABLE [[nodiscard]] int springDuration(double response, double damping) const;
};

}  // namespace orvane
