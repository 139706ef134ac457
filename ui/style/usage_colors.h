#pragma once

#include <QtQml/qqmlregistration.h>
#include <QColor>
#include <QList>
#include <QObject>

namespace orvane {

/// The colours of a usage for views; bind `dark` to the theme's and `warmth` to `isHigh`, at once
/// or on its way.
class UsageColors : public QObject {
  Q_OBJECT
  QML_ELEMENT

  Q_PROPERTY(double usage MEMBER usage_ NOTIFY changed)  ///< percent
  Q_PROPERTY(bool isHigh READ isHigh NOTIFY changed)     ///< above 85 %, not at it
  Q_PROPERTY(bool dark MEMBER dark_ NOTIFY changed)
  Q_PROPERTY(double warmth MEMBER warmth_ NOTIFY changed)  ///< 0 to 1; beyond is as the nearer end
  /// Blue, purple and pink at warmth 0; red, orange and yellow at 1; between them their mixture.
  Q_PROPERTY(QList<QColor> gradient READ gradient NOTIFY changed)
  /// The first two of the gradient.
  Q_PROPERTY(QList<QColor> text READ text NOTIFY changed)
  /// The popover's ring: the gradient, without yellow.
  Q_PROPERTY(QList<QColor> ring READ ring NOTIFY changed)

 public:
  using QObject::QObject;

  [[nodiscard]] bool isHigh() const { return usage_ > 85; }
  [[nodiscard]] QList<QColor> gradient() const;
  [[nodiscard]] QList<QColor> text() const { return gradient().first(2); }
  [[nodiscard]] QList<QColor> ring() const { return warmth_ < 1 ? gradient() : text(); }

 Q_SIGNALS:
  void changed();

 private:
  double usage_ = 0;
  bool dark_ = false;
  double warmth_ = 0;
};

}  // namespace orvane
