#include "platform/linux/desktop/linux_appearance.h"

#include <QtDBus/QDBusMessage>
#include <QtDBus/QDBusPendingReply>

#include "platform/linux/bus/session_bus.h"

namespace orvane {
namespace {

const auto portalService = QStringLiteral("org.freedesktop.portal.Desktop");
const auto portalPath = QStringLiteral("/org/freedesktop/portal/desktop");
const auto settingsInterface = QStringLiteral("org.freedesktop.portal.Settings");
const auto appearanceGroup = QStringLiteral("org.freedesktop.appearance");
const auto colorSchemeKey = QStringLiteral("color-scheme");

/// The portal's number, however deeply it is wrapped in variants: 1 dark, 2 light, 0 no wish.
std::optional<ColorScheme> schemeFrom(QVariant value) {
  while (value.userType() == qMetaTypeId<QDBusVariant>()) {
    value = value.value<QDBusVariant>().variant();
  }
  bool isNumber = false;
  const uint number = value.toUInt(&isNumber);
  if (isNumber && number == 1) return ColorScheme::dark;
  if (isNumber && number == 2) return ColorScheme::light;
  return std::nullopt;
}

}  // namespace

LinuxAppearance::LinuxAppearance(SessionBus& bus) : bus_(bus) {
  connect(&bus_, &SessionBus::connected, this, &LinuxAppearance::subscribe);
  if (bus_.isConnected()) subscribe();
}

void LinuxAppearance::subscribe() {
  bus_.subscribe(portalPath, settingsInterface, QStringLiteral("SettingChanged"), appearanceGroup,
                 this, SLOT(settingChanged(QDBusMessage)));
  bus_.subscribeToOwner(portalService, this, SLOT(portalOwnerChanged(QString, QString, QString)));
  readSetting();
}

void LinuxAppearance::readSetting() {
  QDBusMessage message = QDBusMessage::createMethodCall(portalService, portalPath,
                                                        settingsInterface, QStringLiteral("Read"));
  message << appearanceGroup << colorSchemeKey;
  bus_.call(message, this, [this](const QDBusPendingReply<QDBusVariant>& reply) {
    if (!reply.isError()) setScheme(schemeFrom(QVariant::fromValue(reply.value())));
  });
}

void LinuxAppearance::settingChanged(const QDBusMessage& signal) {
  const QVariantList arguments = signal.arguments();
  if (arguments.value(0) != appearanceGroup || arguments.value(1) != colorSchemeKey) return;
  setScheme(schemeFrom(arguments.value(2)));
}

void LinuxAppearance::portalOwnerChanged(const QString& name, const QString& /*oldOwner*/,
                                         const QString& newOwner) {
  if (name == portalService && !newOwner.isEmpty()) readSetting();
}

void LinuxAppearance::setScheme(std::optional<ColorScheme> scheme) {
  if (scheme_ == scheme) return;
  scheme_ = scheme;
  if (changed_) changed_();
}

}  // namespace orvane
