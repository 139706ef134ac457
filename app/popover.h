#pragma once

#include <QtCore/QElapsedTimer>
#include <QtCore/QObject>
#include <QtCore/QTimer>
#include <QtGui/QMouseEvent>
#include <QtQuick/QQuickView>
#include <memory>

#include "app/windows.h"
#include "ui/views.h"
#include "ui/windows/window_geometry.h"

namespace orvane {

/// The popover as a frameless window beside the panel.
///
/// It closes when it loses the focus and, on X11, where a panel may never take the focus, at a
/// press outside, for which it holds the mouse. Wayland decides itself where the window goes.
class StatusPopover : public QObject, public Popover {
  Q_OBJECT

 public:
  /// `views` must outlive the popover.
  explicit StatusPopover(Views& views);
  ~StatusPopover() override;

  [[nodiscard]] bool isShown() const override;
  void performClose() override;
  void show(ScreenPoint item, PopoverClosures closures) override;

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;

 private Q_SLOTS:
  void close();
  void menuChanged();

 private:
  void connectView();
  void place();
  void holdMouse();
  void focusChanged();
  /// Closes because the user turned to something else.
  void dismiss();
  /// A click outside closes; true for events that belong to one.
  bool closesOutside(const QMouseEvent& event);
  [[nodiscard]] bool menuIsOpen() const;

  Views& views_;
  std::unique_ptr<QQuickView> view_;
  std::unique_ptr<QQuickView> closed_;
  QTimer cleanUp_;
  QTimer grabRetry_;
  QTimer focusCheck_;
  QElapsedTimer sinceDismissal_;
  QPoint item_;
  ScreenArea screen_;
  bool wasActive_ = false;
  bool pressedOutside_ = false;
};

}  // namespace orvane
