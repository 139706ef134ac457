#pragma once

#include <QtQml/qqmlregistration.h>
#include <QBasicTimer>
#include <QPointer>
#include <QQuickItem>
#include <QQuickWindow>

namespace orvane {

/// Places a transient window at an item and says when it has to close: at a press outside of it
/// and when the window it belongs to is left or hidden.
///
/// Where the window system doesn't do so itself (X11) the popup holds the mouse and the keyboard
/// while it is open; whoever held them before takes them again afterwards. Keys that arrive at the
/// window below all the same are the popup's.
class PopupController : public QObject {
  Q_OBJECT
  QML_ELEMENT

  Q_PROPERTY(QQuickWindow* window READ window WRITE setWindow NOTIFY windowChanged)
  Q_PROPERTY(QQuickItem* anchor READ anchor WRITE setAnchor NOTIFY anchorChanged)
  /// Whether the window takes the mouse and the keyboard; a window that is only looked at doesn't.
  Q_PROPERTY(bool takesInput MEMBER takesInput_)

 public:
  enum Edge { Below, Trailing };
  Q_ENUM(Edge)

  using QObject::QObject;

  [[nodiscard]] QQuickWindow* window() const { return window_; }
  [[nodiscard]] QQuickItem* anchor() const { return anchor_; }
  void setWindow(QQuickWindow* window);
  void setAnchor(QQuickItem* anchor);

  /// Gives the window its size and place, on the screen of the anchor.
  Q_INVOKABLE void place(double width, double height, Edge edge, double gap);
  /// Whether the middle of the anchor can be seen, not scrolled away.
  Q_INVOKABLE [[nodiscard]] bool isAnchorInSight() const;
  /// The entry a key moves to; see nextChoice.
  Q_INVOKABLE [[nodiscard]] int next(const QList<bool>& choosable, int current,
                                     int direction) const;

 Q_SIGNALS:
  void windowChanged();
  void anchorChanged();
  void dismissed();
  /// The pointer is elsewhere on the screen; on Wayland told for the window below alone.
  void pointerMovedOutside(QPointF place);

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;
  void timerEvent(QTimerEvent* event) override;

 private:
  [[nodiscard]] bool isInside(const QMouseEvent& event) const;
  /// Whether the focus is with neither the popup nor the window below.
  [[nodiscard]] bool isLeft() const;
  void hold();
  void watchOwner();
  /// What happens to the window below while the popup is open; true for what is the popup's own.
  bool ownerEvent(QEvent& event);
  bool deliverKey(QEvent& event);

  QPointer<QQuickWindow> window_;
  QPointer<QQuickItem> anchor_;
  QPointer<QWindow> owner_;
  QBasicTimer retry_;
  bool takesInput_ = true;
};

}  // namespace orvane
