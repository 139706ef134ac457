#include "ui/windows/window_geometry.h"

#include <QtGui/QGuiApplication>
#include <QtGui/QScreen>
#include <algorithm>
#include <array>

#include "ui/style/painted_length.h"

namespace orvane {
namespace {

constexpr int gap = 6;              // around the popover and popups, to panels and screen
constexpr int titleBarHeight = 24;  // about: the window manager decides
constexpr int frameAllowance = 40;  // a title bar and borders, the largest seen
constexpr int unknownPanels = 48;
constexpr int titleBarGrip = 60;    // as much of it can be got hold of
constexpr int panelThickness = 64;  // how far from an edge a panel's items can be
constexpr int itemReach = 16;       // from the pointer to an item's border, where no panel is known

struct EdgeDistance {
  PanelEdge edge;
  int distance;
};

std::array<EdgeDistance, 4> edgeDistances(QPoint point, const QRect& screen) {
  return {{{PanelEdge::top, point.y() - screen.top()},
           {PanelEdge::bottom, screen.bottom() - point.y()},
           {PanelEdge::left, point.x() - screen.left()},
           {PanelEdge::right, screen.right() - point.x()}}};
}

/// How thick the panels at that edge are.
int panelsAt(PanelEdge edge, const ScreenArea& screen) {
  const QRect& all = screen.geometry;
  const QRect& room = screen.available;
  switch (edge) {
    case PanelEdge::top:
      return room.top() - all.top();
    case PanelEdge::bottom:
      return all.bottom() - room.bottom();
    case PanelEdge::left:
      return room.left() - all.left();
    case PanelEdge::right:
      return all.right() - room.right();
  }
  return 0;
}

/// `rectangle` in device-independent pixels of a screen; its corner is told in device pixels.
QRect scaledOn(const ScreenArea& screen, const QRect& rectangle) {
  const QPoint origin = screen.geometry.topLeft();
  return {origin + (rectangle.topLeft() - origin) / screen.pixelRatio,
          rectangle.size() / screen.pixelRatio};
}

bool isNearPanel(QPoint point, const ScreenArea& screen) {
  if (!screen.geometry.contains(point)) return false;
  const auto distances = edgeDistances(point, screen.geometry);
  return !screen.available.contains(point) ||
         std::any_of(distances.begin(), distances.end(),
                     [](const EdgeDistance& edge) { return edge.distance < panelThickness; });
}

QPoint cornerAtPanel(const ScreenArea& screen) {
  const QRect& all = screen.geometry;
  const bool panelAtBottom = all.bottom() - screen.available.bottom() > 0;
  return panelAtBottom ? all.bottomRight() : all.topRight();
}

/// The reported point in device-independent pixels; none where it can't be the item's.
std::optional<QPoint> plausible(ScreenPoint reported, const QList<ScreenArea>& screens) {
  for (const ScreenArea& screen : screens) {
    const QPoint origin = screen.geometry.topLeft();
    const QPoint point = scaledOn(screen, {reported.x, reported.y, 1, 1}).topLeft();
    // Panels that don't know the place report the origin or a point relative to the item.
    const QPoint inside = point - origin;
    if (inside.x() < panelThickness && inside.y() < panelThickness) continue;
    if (isNearPanel(point, screen)) return point;
  }
  return std::nullopt;
}

/// As std::clamp, but a range that is too small begins at its lower end.
int fit(int value, int lowest, int highest) {
  return std::max(lowest, std::min(value, highest));
}

/// `rectangle`, moved to lie inside `room`, or to begin where that begins.
QRect inside(QRect rectangle, const QRect& room) {
  rectangle.moveTo(fit(rectangle.x(), room.left(), room.right() + 1 - rectangle.width()),
                   fit(rectangle.y(), room.top(), room.bottom() + 1 - rectangle.height()));
  return rectangle;
}

/// Start of a span of `length` after [from, to), or before it when there is more room.
int startBeside(int from, int to, int length, int low, int high) {
  const bool fitsAfter = to + length <= high;
  const bool moreRoomBefore = from - low > high - to;
  return fitsAfter || !moreRoomBefore ? to : from - length;
}

}  // namespace

const ScreenArea& screenAt(QPoint point, const QList<ScreenArea>& screens) {
  const auto found = std::find_if(screens.begin(), screens.end(), [point](const ScreenArea& area) {
    return area.geometry.contains(point);
  });
  return found == screens.end() ? screens.first() : *found;
}

QPoint statusItemLocation(std::optional<QPoint> pointer, ScreenPoint reported,
                          const QList<ScreenArea>& screens) {
  if (pointer && isNearPanel(*pointer, screenAt(*pointer, screens))) return *pointer;
  if (const auto point = plausible(reported, screens)) return *point;
  return cornerAtPanel(pointer ? screenAt(*pointer, screens) : screens.first());
}

ScreenArea withoutPanel(ScreenArea screen, const QRect& panel) {
  const QRect& all = screen.geometry;
  const QRect taken = scaledOn(screen, panel) & all;
  if (taken.isEmpty()) return screen;
  QRect& room = screen.available;
  if (taken.width() >= taken.height()) {
    if (taken.top() == all.top()) room.setTop(std::max(room.top(), taken.bottom() + 1));
    if (taken.bottom() == all.bottom()) room.setBottom(std::min(room.bottom(), taken.top() - 1));
  } else {
    if (taken.left() == all.left()) room.setLeft(std::max(room.left(), taken.right() + 1));
    if (taken.right() == all.right()) room.setRight(std::min(room.right(), taken.left() - 1));
  }
  return screen;
}

PanelEdge panelEdgeAt(QPoint item, const ScreenArea& screen) {
  auto distances = edgeDistances(item, screen.geometry);
  std::stable_sort(distances.begin(), distances.end(),
                   [](const auto& a, const auto& b) { return a.distance < b.distance; });
  const auto find = [&](auto matches) {
    return std::find_if(distances.begin(), distances.end(), [&](const EdgeDistance& candidate) {
      const int thickness = panelsAt(candidate.edge, screen);
      return thickness > 0 && matches(candidate.distance, thickness);
    });
  };
  auto found = find([](int distance, int thickness) { return distance < thickness; });
  if (found == distances.end())
    found = find([](int distance, int /*thickness*/) { return distance < panelThickness; });
  return found == distances.end() ? distances.front().edge : found->edge;
}

QRect popoverRectangle(QPoint item, QSize size, const ScreenArea& screen,
                       std::optional<QPoint> before) {
  const QRect room = screen.available.adjusted(gap, gap, -gap, -gap);
  const PanelEdge edge = panelEdgeAt(item, screen);
  const bool hasPanel = panelsAt(edge, screen) > 0;
  QPoint corner = item - QPoint(size.width() / 2, size.height() / 2);
  switch (edge) {
    case PanelEdge::top:
      corner.setY(hasPanel ? room.top() : item.y() + itemReach);
      break;
    case PanelEdge::bottom:
      corner.setY((hasPanel ? room.bottom() + 1 : item.y() - itemReach) - size.height());
      break;
    case PanelEdge::left:
      corner.setX(hasPanel ? room.left() : item.x() + itemReach);
      break;
    case PanelEdge::right:
      corner.setX((hasPanel ? room.right() + 1 : item.x() - itemReach) - size.width());
      break;
  }
  const bool isBeside = edge == PanelEdge::left || edge == PanelEdge::right;
  if (before && isBeside) corner.setY(before->y());
  return inside({corner, size}, room);
}

QRect placePopup(const QRect& anchor, QSize size, const QRect& screen, PopupEdge edge) {
  const QRect room = screen.adjusted(gap, gap, -gap, -gap);
  QPoint corner(anchor.x(), anchor.y() + (anchor.height() - size.height()) / 2);
  if (edge == PopupEdge::below) {
    corner.setY(startBeside(anchor.top(), anchor.bottom() + 1, size.height(), room.top(),
                            room.bottom() + 1));
  } else {
    corner.setX(startBeside(anchor.left(), anchor.right() + 1, size.width(), room.left(),
                            room.right() + 1));
  }
  return inside({corner, size}, room);
}

ScreenArea screenArea(const QScreen& screen) {
  return {screen.geometry(), screen.availableGeometry(), screen.devicePixelRatio()};
}

QList<ScreenArea> screenAreas() {
  QList<ScreenArea> areas;
  const QList<QScreen*> screens = QGuiApplication::screens();
  for (const QScreen* screen : screens) areas.append(screenArea(*screen));
  return areas;
}

int fittingHeight(int wanted, const ScreenArea& screen) {
  // Wayland doesn't tell what panels take.
  const int panels = screen.available == screen.geometry ? unknownPanels : 0;
  const int fitting = std::min(wanted, screen.available.height() - panels - frameAllowance);
  return fitting == paintedLength(fitting, screen.pixelRatio) ? fitting : fitting - 1;
}

QPoint centredPosition(QSize size, const QRect& available) {
  const QPoint corner = available.center() - QPoint(size.width() / 2, size.height() / 2);
  return {std::max(corner.x(), available.left()), std::max(corner.y(), available.top())};
}

QPoint windowPosition(QPoint last, QSize size, const QList<ScreenArea>& screens) {
  const QRect titleBar(last, QSize(size.width(), titleBarHeight));
  for (const ScreenArea& screen : screens) {
    const QRect seen = titleBar.intersected(screen.available);
    if (seen.width() >= titleBarGrip && seen.height() >= titleBarHeight / 2) return last;
  }
  return centredPosition(size, screens.first().available);
}

}  // namespace orvane
