#pragma once

#include <QtCore/QObject>
#include <QtQuick/QQuickView>
#include <memory>
#include <optional>

#include "app/windows.h"
#include "ui/views.h"

namespace orvane {

/// The main window: an ordinary window of a fixed size, centred once. Hidden, it keeps its place
/// and its content's state.
class QuickMainWindow : public QObject, public MainWindow {
  Q_OBJECT

 public:
  /// `views` must outlive the window. Of `closures` the window itself answers closing and
  /// minimizing.
  QuickMainWindow(Views& views, MainWindowClosures closures, MainWindowDelegate delegate);

  void makeKeyAndOrderFront() override;
  void orderOut() override;

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  Views& views_;
  MainWindowDelegate delegate_;
  std::unique_ptr<QQuickView> view_;
  std::optional<QPoint> framePlace_;  ///< where it was hidden
};

}  // namespace orvane
