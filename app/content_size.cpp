#include "app/content_size.h"

#include <QtQuick/QQuickItem>

namespace orvane {

void keepContentSize(QQuickView& view) {
  const QQuickItem* root = view.rootObject();
  if (root == nullptr) return;
  const auto fix = [&view, root] {
    const QSize size = root->size().toSize();
    view.setMinimumSize(size);
    view.setMaximumSize(size);
    view.resize(size);
  };
  fix();
  QObject::connect(root, &QQuickItem::heightChanged, &view, fix);
}

}  // namespace orvane
