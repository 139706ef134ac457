#include "ui/menus/menu_choice.h"

namespace orvane {

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
