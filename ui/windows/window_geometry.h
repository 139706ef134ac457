#pragma once

#include <QtCore/QList>
#include <QtCore/QPoint>
#include <QtCore/QRect>
#include <optional>

#include "platform/status_bar.h"

class QScreen;

namespace orvane {

/// One screen in device-independent pixels.
struct ScreenArea {
  QRect geometry;         ///< all of it
  QRect available;        ///< what panels leave
  double pixelRatio = 1;  ///< device pixels in one
};

[[nodiscard]] ScreenArea screenArea(const QScreen& screen);

/// The desktop's screens now, the first one first.
[[nodiscard]] QList<ScreenArea> screenAreas();

/// The screen with the room that is left beside a panel at one of its edges; `panel` in device
/// pixels. A panel of another screen changes nothing.
[[nodiscard]] ScreenArea withoutPanel(ScreenArea screen, const QRect& panel);

/// Which edge of its screen the panel with the status item lies at.
enum class PanelEdge { top, bottom, left, right };

/// Where the status item is. Panels report a point that some of them get wrong (`reported`, in
/// device pixels), and the pointer is known on some window systems only: the pointer counts where
/// it is known and near a panel, the reported point where it is plausible, else the corner at the
/// panel of the pointer's screen, or of the first. `screens` must not be empty.
[[nodiscard]] QPoint statusItemLocation(std::optional<QPoint> pointer, ScreenPoint reported,
                                        const QList<ScreenArea>& screens);

/// The screen the point lies on, or the first one.
[[nodiscard]] const ScreenArea& screenAt(QPoint point, const QList<ScreenArea>& screens);

/// The edge whose panel holds the point: where the screen's panels leave the point out, else one
/// nearby with a panel, else the nearest edge.
[[nodiscard]] PanelEdge panelEdgeAt(QPoint item, const ScreenArea& screen);

/// Where a popover of `size` goes: beside the panel, toward the middle of the screen, centred on
/// the item, and always inside of what panels leave. One that is at `before` already, beside a
/// panel on the left or right, keeps its top.
[[nodiscard]] QRect popoverRectangle(QPoint item, QSize size, const ScreenArea& screen,
                                     std::optional<QPoint> before = std::nullopt);

/// At which edge of its anchor a popup lies.
enum class PopupEdge { below, trailing };

/// Where a popup of `size` goes: at `edge` of `anchor`, at the opposite edge when there is more
/// room, and moved to lie inside `screen`, with the popover's distance to its edges. Below, its
/// leading edge follows the anchor's; beside, it is centred on the anchor.
[[nodiscard]] QRect placePopup(const QRect& anchor, QSize size, const QRect& screen,
                               PopupEdge edge);

/// How high a window's content can be of the height it wants, so that its frame and panels have
/// room on the screen too; one point less where its last row would stay unpainted.
[[nodiscard]] int fittingHeight(int wanted, const ScreenArea& screen);

/// Where a window of `size` lies in the middle of what panels leave of the screen, its upper left
/// corner inside in any case.
[[nodiscard]] QPoint centredPosition(QSize size, const QRect& available);

/// Where the frame of a window of `size` goes that was at `last` when it was hidden: there again,
/// or to the middle of the first screen when too little of its title bar would be on any screen.
/// `screens` must not be empty.
[[nodiscard]] QPoint windowPosition(QPoint last, QSize size, const QList<ScreenArea>& screens);

}  // namespace orvane
