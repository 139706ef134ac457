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

  Q_PROPERTY(QString name MEMBER name_ NOTIFY changed)
  Q_PROPERTY(QColor color MEMBER color_ NOTIFY changed)
  Q_PROPERTY(double pointSize MEMBER pointSize_ NOTIFY changed)

 public:
  Symbol();

  /// The drawing of a symbol; empty for a name without one.
  [[nodiscard]] static QString drawing(const QString& name);

 protected:
  void paint(QPainter& painter) const override;
  void inputChanged() override;

 private:
  QString name_;
  QColor color_ = Qt::black;
  double pointSize_ = 13;
};

}  // namespace orvane
