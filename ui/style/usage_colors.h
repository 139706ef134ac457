#pragma once

#include <QtQml/qqmlregistration.h>
#include <QColor>
#include <QList>
#include <QObject>

namespace orvane {

/// The colours of a usage for views; bind `dark` to the theme's.
class UsageColors : public QObject {
  Q_OBJECT
  QML_ELEMENT

  Q_PROPERTY(double usage MEMBER usage_ NOTIFY changed)  ///< percent
  Q_PROPERTY(bool dark MEMBER dark_ NOTIFY changed)
  /// Red, orange and yellow above 85 % (not at it), otherwise blue, purple and pink.
  Q_PROPERTY(QList<QColor> gradient READ gradient NOTIFY changed)
  /// The first two of the gradient.
  Q_PROPERTY(QList<QColor> text READ text NOTIFY changed)
  /// The popover's ring: the gradient, without yellow.
  Q_PROPERTY(QList<QColor> ring READ ring NOTIFY changed)

 public:
  using QObject::QObject;

  [[nodiscard]] QList<QColor> gradient() const;
  [[nodiscard]] QList<QColor> text() const { return gradient().first(2); }
  [[nodiscard]] QList<QColor> ring() const { return isHigh() ? text() : gradient(); }

 Q_SIGNALS:
  void changed();

 private:
  [[nodiscard]] bool isHigh() const { return usage_ > 85; }

  double usage_ = 0;
  bool dark_ = false;
};

}  // namespace orvane
