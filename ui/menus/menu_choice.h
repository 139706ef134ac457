#pragma once

#include <QList>

namespace orvane {

/// The next entry from `current` (-1 = none) in `direction` (1 or -1) that can be chosen, going
/// round at the ends; `current` when none can.
[[nodiscard]] int nextChoice(const QList<bool>& choosable, int current, int direction);

}  // namespace orvane
