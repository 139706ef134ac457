#pragma once

#include <QtQuick/QQuickView>
#include <functional>
#include <memory>

namespace orvane {

/// A small window, as large as its content, whose content is made when it is shown and given up
/// when it is closed. Threads: main thread only.
class DialogWindow : public QObject {
  Q_OBJECT

 public:
  /// `closed` is called after the user closed the window by its frame; may be empty.
  explicit DialogWindow(std::function<void()> closed = {});
  ~DialogWindow() override;

  /// The open window's content; null while there is none.
  [[nodiscard]] QQuickView* view() const { return view_.get(); }

  /// Shows `view` under `title` in the middle of the screen.
  void show(std::unique_ptr<QQuickView> view, const QString& title);

  /// Brings the open window to the front.
  void raise();

  void close();

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  std::function<void()> closed_;
  std::unique_ptr<QQuickView> view_;
};

}  // namespace orvane
