#pragma once

#include <QtQml/qqmlregistration.h>
#include <QColor>
#include <QList>
#include <QQmlListProperty>
#include <QVariant>

#include "ui/painted/painted_item.h"

namespace orvane {

/// The shadow that several items cast together, as one picture: each frame blends it once.
class DropShadow : public orvane::PaintedItem {
  Q_OBJECT
  QML_ELEMENT

  /// What casts it, a translucent one first: items within `source`, which has this item's size.
  Q_PROPERTY(QQmlListProperty<orvane::PaintedItem> casters READ casters)
  Q_PROPERTY(QQuickItem* source MEMBER source_ NOTIFY changed)
  Q_PROPERTY(QColor color MEMBER color_ NOTIFY changed)
  /// A value that changes with the casters' shapes.
  Q_PROPERTY(QVariant shapes MEMBER shapes_ NOTIFY changed)
  /// Points by which a caster has moved along its path.
  Q_PROPERTY(double moved READ moved WRITE setMoved NOTIFY movedChanged)
  /// Points by which the casters' drawings may exceed the item.
  Q_PROPERTY(double margin MEMBER margin_ NOTIFY changed)

 public:
  [[nodiscard]] QQmlListProperty<PaintedItem> casters() { return {this, &casters_}; }
  [[nodiscard]] double moved() const { return moved_; }

  /// Paints again only for a movement that can be seen.
  void setMoved(double points) {
    if (assignStep(moved_, points, 1)) Q_EMIT movedChanged();
  }

 Q_SIGNALS:
  void movedChanged();

 protected:
  void paint(QPainter& painter) const override;
  [[nodiscard]] QBrush blurredFill() const override { return color_; }
  [[nodiscard]] double overhang() const override { return margin_; }

 private:
  QList<PaintedItem*> casters_;
  QQuickItem* source_ = nullptr;
  QColor color_;
  QVariant shapes_;
  double moved_ = 0;
  double margin_ = 0;
};

}  // namespace orvane
