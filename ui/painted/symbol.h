#pragma once

#include <QtQml/qqmlregistration.h>
#include <QColor>

#include "ui/painted/painted_item.h"

namespace orvane {

/// A symbol by name ("bolt.fill"), in one colour, sized as text of `pointSize` is. A name without
/// drawing shows nothing.
class Symbol : public orvane::PaintedItem {
  Q_OBJECT
  QML_ELEMENT

  Q_PROPERTY(QString name READ name WRITE setName NOTIFY changed)
  Q_PROPERTY(QColor color READ color WRITE setColor NOTIFY changed)
  Q_PROPERTY(double pointSize READ pointSize WRITE setPointSize NOTIFY changed)

 public:
  Symbol();

  [[nodiscard]] QString name() const { return name_; }
  [[nodiscard]] QColor color() const { return color_; }
  [[nodiscard]] double pointSize() const { return pointSize_; }

  void setName(const QString& value) { announce(assign(name_, value)); }
  void setColor(const QColor& value) { announce(assign(color_, value)); }
  void setPointSize(double value);

  /// The drawing of a symbol; empty for a name without one.
  [[nodiscard]] static QString drawing(const QString& name);

 Q_SIGNALS:
  void changed();

 protected:
  void paint(QPainter& painter) const override;

 private:
  void announce(bool isNew) {
    if (isNew) Q_EMIT changed();
  }

  QString name_;
  QColor color_ = Qt::black;
  double pointSize_ = 13;
};

}  // namespace orvane
