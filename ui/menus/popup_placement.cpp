#include "ui/menus/popup_placement.h"

#include <algorithm>

namespace orvane {

namespace {

/// Start of a span of `length` after [from, to), or before it when there is more room.
int besides(int from, int to, int length, int low, int high) {
  const bool fitsAfter = to + length <= high;
  const bool moreRoomBefore = from - low > high - to;
  return fitsAfter || !moreRoomBefore ? to : from - length;
}

int inside(int start, int length, int low, int high) {
  return std::max(low, std::min(start, high - length));
}

}  // namespace

QRect placePopup(const QRect& anchor, QSize size, const QRect& screen, PopupEdge edge) {
  const int right = screen.x() + screen.width();
  const int bottom = screen.y() + screen.height();
  int x = anchor.x();
  int y = anchor.y() + (anchor.height() - size.height()) / 2;
  if (edge == PopupEdge::below) {
    y = besides(anchor.y(), anchor.y() + anchor.height(), size.height(), screen.y(), bottom);
  } else {
    x = besides(anchor.x(), anchor.x() + anchor.width(), size.width(), screen.x(), right);
  }
  return {QPoint(inside(x, size.width(), screen.x(), right),
                 inside(y, size.height(), screen.y(), bottom)),
          size};
}

int nextChoice(const QList<bool>& choosable, int current, int direction) {
  const auto count = static_cast<int>(choosable.size());
  int next = current < 0 && direction < 0 ? 0 : current;
  for (int i = 0; i < count; ++i) {
    next = (next + direction + count) % count;
    if (choosable[next]) return next;
  }
  return current;
}

}  // namespace orvane
