#include "platform/linux/desktop/linux_appearance.h"

#include <QtDBus/QDBusMessage>
#include <QtDBus/QDBusMetaType>
#include <QtDBus/QDBusPendingReply>

#include "platform/linux/bus/session_bus.h"

namespace orvane {
namespace {

const auto portalService = QStringLiteral("org.freedesktop.portal.Desktop");
const auto portalPath = QStringLiteral("/org/freedesktop/portal/desktop");
const auto settingsInterface = QStringLiteral("org.freedesktop.portal.Settings");
const auto appearanceGroup = QStringLiteral("org.freedesktop.appearance");
const auto interfaceGroup = QStringLiteral("org.gnome.desktop.interface");
const auto accessGroup = QStringLiteral("org.gnome.desktop.a11y.interface");

using Groups = QMap<QString, QVariantMap>;

QStringList groups() {
  return {appearanceGroup, interfaceGroup, accessGroup};
}

}  // namespace

LinuxAppearance::LinuxAppearance(SessionBus& bus) : bus_(bus) {
  qDBusRegisterMetaType<Groups>();
  connect(&bus_, &SessionBus::connected, this, &LinuxAppearance::subscribe);
  if (bus_.isConnected()) subscribe();
}

void LinuxAppearance::subscribe() {
  for (const QString& group : groups()) {
    bus_.subscribe(portalPath, settingsInterface, QStringLiteral("SettingChanged"), group, this,
                   SLOT(settingChanged(QDBusMessage)));
  }
  bus_.subscribeToOwner(portalService, this, SLOT(portalOwnerChanged(QString, QString, QString)));
  readSettings();
}

void LinuxAppearance::readSettings() {
  QDBusMessage message = QDBusMessage::createMethodCall(
      portalService, portalPath, settingsInterface, QStringLiteral("ReadAll"));
  message << groups();
  bus_.call(message, this, [this](const QDBusPendingReply<Groups>& reply) {
    if (reply.isError()) return;
    const Groups all = reply.value();
    for (auto group = all.begin(); group != all.end(); ++group) {
      for (auto entry = group->begin(); entry != group->end(); ++entry)
        note(group.key(), entry.key(), entry.value());
    }
    apply();
  });
}

void LinuxAppearance::settingChanged(const QDBusMessage& signal) {
  const QVariantList arguments = signal.arguments();
  note(arguments.value(0).toString(), arguments.value(1).toString(), arguments.value(2));
  apply();
}

void LinuxAppearance::portalOwnerChanged(const QString& name, const QString& /*oldOwner*/,
                                         const QString& newOwner) {
  if (name == portalService && !newOwner.isEmpty()) readSettings();
}

/// However deeply the value is wrapped in variants.
void LinuxAppearance::note(const QString& group, const QString& key, QVariant value) {
  static const QStringList kept{
      QStringLiteral("color-scheme"),      QStringLiteral("contrast"),
      QStringLiteral("reduced-motion"),    QStringLiteral("high-contrast"),
      QStringLiteral("enable-animations"), QStringLiteral("text-scaling-factor")};
  while (value.userType() == qMetaTypeId<QDBusVariant>()) {
    value = value.value<QDBusVariant>().variant();
  }
  if (kept.contains(key)) values_[{group, key}] = value;
}

void LinuxAppearance::apply() {
  const uint scheme = value(appearanceGroup, "color-scheme").toUInt();
  const double scale = value(interfaceGroup, "text-scaling-factor").toDouble();
  AppearanceSettings wanted;
  if (scheme == 1) wanted.colorScheme = ColorScheme::dark;
  if (scheme == 2) wanted.colorScheme = ColorScheme::light;
  wanted.highContrast = value(appearanceGroup, "contrast").toUInt() == 1 ||
                        value(accessGroup, "high-contrast").toBool();
  wanted.reducedMotion = value(appearanceGroup, "reduced-motion").toUInt() == 1 ||
                         value(interfaceGroup, "enable-animations") == QVariant(false);
  if (scale > 0) wanted.textScale = scale;
  if (settings_ == wanted) return;
  settings_ = wanted;
  if (changed_) changed_();
}

}  // namespace orvane
