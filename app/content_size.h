#pragma once

#include <QtQuick/QQuickView>

namespace orvane {

/// Makes the size of the view's content the only one its window can have, now and whenever the
/// content's height changes. Does nothing for a view without content. Main thread only.
void keepContentSize(QQuickView& view);

}  // namespace orvane
