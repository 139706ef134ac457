#pragma once

#include <QtQml/qqmlregistration.h>
#include <QObject>
#include <QPointer>
#include <QQuickWindow>

namespace orvane {

/// Tells when Alt was pressed and released in a window with no other key or button between.
class AltKeyWatcher : public QObject {
  Q_OBJECT
  QML_ELEMENT

  Q_PROPERTY(QQuickWindow* window READ window WRITE setWindow NOTIFY windowChanged)

 public:
  using QObject::QObject;

  [[nodiscard]] QQuickWindow* window() const { return window_; }
  void setWindow(QQuickWindow* window);

 Q_SIGNALS:
  void windowChanged();
  void pressedAlone();

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  QPointer<QQuickWindow> window_;
  bool isAlone_ = false;
};

}  // namespace orvane
