#include <gtest/gtest.h>

#include <QtDBus/QDBusConnection>
#include <QtDBus/QDBusVariant>

#include "platform/linux/linux_appearance.h"
#include "platform/linux/session_bus.h"
#include "tests/unit/test_bus.h"

namespace orvane {
namespace {

/// A settings portal on a connection of its own.
class SettingsPortal : public QObject {
  Q_OBJECT
  Q_CLASSINFO("D-Bus Interface", "org.freedesktop.portal.Settings")

 public:
  SettingsPortal(const TestBus& bus, uint initial)
      : scheme(initial),
        connection_(QDBusConnection::connectToBus(QString::fromStdString(bus.address()),
                                                  QStringLiteral("portal"))) {
    connection_.registerObject(QStringLiteral("/org/freedesktop/portal/desktop"), this,
                               QDBusConnection::ExportAllSlots | QDBusConnection::ExportAllSignals);
    connection_.registerService(QStringLiteral("org.freedesktop.portal.Desktop"));
  }
  ~SettingsPortal() override { QDBusConnection::disconnectFromBus(QStringLiteral("portal")); }

  uint scheme;

 public Q_SLOTS:
  [[nodiscard]] QDBusVariant Read(const QString& /*group*/, const QString& key) const {  // NOLINT
    const QDBusVariant value(key == QStringLiteral("color-scheme") ? scheme : 99U);
    return QDBusVariant(QVariant::fromValue(value));
  }

 Q_SIGNALS:
  void SettingChanged(const QString& group, const QString& key,  // NOLINT
                      const QDBusVariant& value);

 private:
  QDBusConnection connection_;
};

TEST(Appearance, followsThePortal) {
  TestBus daemon;
  const ScopedEnvironment address("DBUS_SESSION_BUS_ADDRESS", daemon.address());
  SessionBus bus;
  LinuxAppearance appearance(bus);
  int changes = 0;
  appearance.setChanged([&] { ++changes; });
  bus.start();
  ASSERT_TRUE(waitUntil([&] { return bus.isConnected(); }));
  runEventLoopFor(50);
  EXPECT_EQ(appearance.colorScheme(), std::nullopt) << "no portal";

  SettingsPortal portal(daemon, 1);
  ASSERT_TRUE(waitUntil([&] { return changes == 1; }));
  EXPECT_EQ(appearance.colorScheme(), ColorScheme::dark) << "a portal that came late";

  const QString group = QStringLiteral("org.freedesktop.appearance");
  const QString key = QStringLiteral("color-scheme");
  Q_EMIT portal.SettingChanged(group, QStringLiteral("contrast"), QDBusVariant(2U));
  Q_EMIT portal.SettingChanged(QStringLiteral("org.other"), key, QDBusVariant(2U));
  Q_EMIT portal.SettingChanged(group, key, QDBusVariant(2U));
  ASSERT_TRUE(waitUntil([&] { return changes == 2; }));
  EXPECT_EQ(appearance.colorScheme(), ColorScheme::light);

  Q_EMIT portal.SettingChanged(group, key, QDBusVariant(QStringLiteral("nonsense")));
  ASSERT_TRUE(waitUntil([&] { return changes == 3; }));
  EXPECT_EQ(appearance.colorScheme(), std::nullopt);
}

}  // namespace
}  // namespace orvane

#include "appearance_test.moc"
