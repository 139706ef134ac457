#pragma once

#include <QtCore/QObject>

#include "platform/appearance.h"

class QDBusMessage;

namespace orvane {

class SessionBus;

/// The desktop's colour scheme from its settings portal, read when the bus connects and followed
/// from then on. Without a portal there is none.
class LinuxAppearance : public QObject, public Appearance {
  Q_OBJECT

 public:
  /// `bus` must outlive the object.
  explicit LinuxAppearance(SessionBus& bus);

  [[nodiscard]] std::optional<ColorScheme> colorScheme() const override { return scheme_; }
  void setChanged(std::function<void()> handler) override { changed_ = std::move(handler); }

 private:
  Q_SLOT void settingChanged(const QDBusMessage& signal);
  Q_SLOT void portalOwnerChanged(const QString& name, const QString& oldOwner,
                                 const QString& newOwner);

  void subscribe();
  void readSetting();
  void setScheme(std::optional<ColorScheme> scheme);

  SessionBus& bus_;
  std::optional<ColorScheme> scheme_;
  std::function<void()> changed_;
};

}  // namespace orvane
