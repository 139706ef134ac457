#pragma once

#include <QList>
#include <QRect>

namespace orvane {

/// At which edge of its anchor a popup lies.
enum class PopupEdge { below, trailing };

/// Where a popup of `size` goes: at `edge` of `anchor`, at the opposite edge when there is more
/// room, and moved to lie inside `screen`. Below, its leading edge follows the anchor's; beside,
/// it is centred on the anchor.
[[nodiscard]] QRect placePopup(const QRect& anchor, QSize size, const QRect& screen,
                               PopupEdge edge);

/// The next entry from `current` (-1 = none) in `direction` (1 or -1) that can be chosen, going
/// round at the ends; `current` when none can.
[[nodiscard]] int nextChoice(const QList<bool>& choosable, int current, int direction);

}  // namespace orvane
