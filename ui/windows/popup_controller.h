#pragma once

#include <QtQml/qqmlregistration.h>
#include <QBasicTimer>
#include <QPointer>
#include <QQuickItem>
#include <QQuickWindow>

#include <optional>

#include "ui/windows/window_geometry.h"

namespace orvane {

/// Places a transient window and says when it has to close: at a press outside of it, when the
/// focus goes elsewhere, and when what it lies at is gone.
///
/// A popup lies at an item of another window. The popover lies at the status item, and keeps its
/// place while its height changes. Where the window system doesn't do so itself (X11) the window
/// holds the mouse, and a popup the keyboard too, while it is open; the window that held them
/// before takes them again afterwards. Keys that still arrive at the window below go to the popup.
class PopupController : public QObject {
  Q_OBJECT
  QML_ELEMENT

  Q_PROPERTY(QQuickWindow* window READ window WRITE setWindow NOTIFY windowChanged)
  /// What a popup lies at; none for the popover.
  Q_PROPERTY(QQuickItem* anchor READ anchor WRITE setAnchor NOTIFY anchorChanged)
  /// Whether the window takes the mouse and the keyboard; a tool tip doesn't.
  Q_PROPERTY(bool takesInput MEMBER takesInput_)
  /// Points of the window around its content: its shadow's, where a press is outside.
  Q_PROPERTY(double margin MEMBER margin_)
  /// A menu of this window is open, which has the mouse and the focus until it closes.
  Q_PROPERTY(bool hasMenuOpen READ hasMenuOpen WRITE setHasMenuOpen NOTIFY hasMenuOpenChanged)

 public:
  enum Edge { Below, Trailing };
  Q_ENUM(Edge)

  using QObject::QObject;

  [[nodiscard]] QQuickWindow* window() const { return window_; }
  [[nodiscard]] QQuickItem* anchor() const { return anchor_; }
  [[nodiscard]] bool hasMenuOpen() const { return hasMenuOpen_; }
  void setWindow(QQuickWindow* window);
  void setAnchor(QQuickItem* anchor);
  void setHasMenuOpen(bool isOpen);

  /// Gives the window a content of that size, and its place, on the screen of the anchor, and,
  /// before it is shown, the flags of a popup.
  Q_INVOKABLE void place(double width, double height, Edge edge, double gap);
  /// Makes the window the popover: puts it beside the status item, on its screen, now and whenever
  /// its height changes; `reported` is where the panel says the item is, in device pixels.
  /// So are `panels`, rectangles that panels take.
  Q_INVOKABLE void placeAtStatusItem(QPoint reported, const QVariantList& panels);
  /// Whether the middle of the anchor can be seen, not scrolled away.
  Q_INVOKABLE [[nodiscard]] bool isAnchorInSight() const;
  /// The entry a key moves to; see nextChoice.
  Q_INVOKABLE [[nodiscard]] int next(const QList<bool>& choosable, int current,
                                     int direction) const;

 Q_SIGNALS:
  void windowChanged();
  void anchorChanged();
  void hasMenuOpenChanged();
  /// `left`: the focus went elsewhere, perhaps by a click on the status item.
  void dismissed(bool left);
  /// The pointer is elsewhere on the screen; on Wayland told for the window below alone.
  void pointerMovedOutside(QPointF place);
  /// The pointer moves, and lets go far enough from there, with a button that went down before the
  /// popup opened; on the screen.
  void dragged(QPointF place);
  void dropped(QPointF place);

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;
  void timerEvent(QTimerEvent* event) override;

 private:
  [[nodiscard]] bool isPopup() const { return takesInput_ && !isPopover_; }
  [[nodiscard]] QMargins margins() const;
  [[nodiscard]] bool isInside(const QMouseEvent& event) const;
  /// Whether the focus is with neither the popup nor the window below.
  [[nodiscard]] bool isLeft() const;
  void hold();
  void checkFocus();
  void watchOwner();
  /// What happens to the window below while the popup is open; true for what is the popup's own.
  bool ownerEvent(QEvent& event);
  /// The keys and the focus of a popup; true for a key that is delivered.
  bool popupEvent(QEvent& event);
  bool deliverKey(QEvent& event);
  void followDrag(const QMouseEvent& event);
  /// A press outside closes; true for events that belong to one.
  bool closesOutside(const QMouseEvent& event);

  QPointer<QQuickWindow> window_;
  QPointer<QQuickItem> anchor_;
  QPointer<QWindow> owner_;
  std::optional<QPointF> dragFrom_;
  bool isDragOver_ = false;  ///< a button was pressed or released since the popup opened
  QPoint statusItem_;
  ScreenArea screen_;
  QBasicTimer retry_;
  QBasicTimer focusCheck_;
  double margin_ = 0;
  bool takesInput_ = true;
  bool isPopover_ = false;
  bool hasMenuOpen_ = false;
  bool wasActive_ = false;
  bool pressedOutside_ = false;
};

}  // namespace orvane
