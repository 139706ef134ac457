#pragma once

#include <QtCore/QMap>
#include <QtCore/QObject>
#include <QtCore/QVariant>
#include <utility>

#include "platform/appearance.h"

class QDBusMessage;

namespace orvane {

class SessionBus;

/// The desktop's settings portal, read when the bus connects and followed from then on. What newer
/// portals say themselves, older ones say as GNOME's own settings. Without a portal: the defaults.
class LinuxAppearance : public QObject, public Appearance {
  Q_OBJECT

 public:
  /// `bus` must outlive the object.
  explicit LinuxAppearance(SessionBus& bus);

  [[nodiscard]] const AppearanceSettings& settings() const override { return settings_; }
  void setChanged(std::function<void()> handler) override { changed_ = std::move(handler); }

 private:
  Q_SLOT void settingChanged(const QDBusMessage& signal);
  Q_SLOT void portalOwnerChanged(const QString& name, const QString& oldOwner,
                                 const QString& newOwner);

  void subscribe();
  void readSettings();
  void note(const QString& group, const QString& key, QVariant value);
  void apply();
  [[nodiscard]] QVariant value(const QString& group, const char* key) const {
    return values_.value({group, QLatin1String(key)});
  }

  SessionBus& bus_;
  QMap<std::pair<QString, QString>, QVariant> values_;  ///< by group and key
  AppearanceSettings settings_;
  std::function<void()> changed_;
};

}  // namespace orvane
