#pragma once

#include <QtQml/qqmlregistration.h>
#include <QColor>
#include <QList>
#include <QQuickItem>

namespace orvane {

/// A gradient from the item's top left to its bottom right, painted anew wherever something on it
/// changes: a picture of it would take the memory of a whole window. For the ground of a window
/// that the software renderer draws; its corners are the device pixels nearest to the item's.
class GradientBackground : public QQuickItem {
  Q_OBJECT
  QML_ELEMENT

  Q_PROPERTY(QList<QColor> colors MEMBER colors_ NOTIFY changed)

 public:
  explicit GradientBackground(QQuickItem* parent = nullptr);

 Q_SIGNALS:
  void changed();

 protected:
  QSGNode* updatePaintNode(QSGNode* node, UpdatePaintNodeData* data) override;

 private:
  QList<QColor> colors_;
};

}  // namespace orvane
