#pragma once

#include <QtQml/qqmlregistration.h>
#include <QObject>

#include "ui/views.h"

namespace orvane {

/// The popover's closures as properties and calls for QML.
class PopoverActions : public QObject {
  Q_OBJECT
  QML_ELEMENT
  QML_UNCREATABLE("made with the popover")

  Q_PROPERTY(
      bool mainWindowVisible READ mainWindowVisible WRITE setMainWindowVisible NOTIFY changed)
  Q_PROPERTY(bool launchAtLogin READ launchAtLogin WRITE setLaunchAtLogin NOTIFY changed)

 public:
  explicit PopoverActions(PopoverClosures closures, QObject* parent = nullptr);

  [[nodiscard]] bool mainWindowVisible() const;
  void setMainWindowVisible(bool visible);
  [[nodiscard]] bool launchAtLogin() const;
  void setLaunchAtLogin(bool launch);

  Q_INVOKABLE void boost() const;
  Q_INVOKABLE void checkUpdates() const;
  Q_INVOKABLE void quit() const;
  /// Lets views read the properties again; they change outside too.
  Q_INVOKABLE void reload() { Q_EMIT changed(); }

 Q_SIGNALS:
  void changed();

 private:
  PopoverClosures closures_;
};

}  // namespace orvane
