#include "ui/painted/drop_shadow.h"

#include <QPainter>

namespace orvane {

void DropShadow::paint(QPainter& painter) const {
  if (source_ == nullptr) return;
  for (const PaintedItem* caster : casters_) {
    painter.save();
    painter.translate(caster->mapToItem(source_, {0, 0}));
    caster->draw(painter);
    painter.restore();
  }
}

}  // namespace orvane
