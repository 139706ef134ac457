#include <gtest/gtest.h>

#include <QtCore/QVariantMap>
#include <vector>

#include "platform/linux/bus/session_bus.h"
#include "platform/linux/desktop/linux_notification_service.h"
#include "tests/unit/test_bus.h"

namespace orvane {
namespace {

using Error = NotificationService::Error;

struct Shown {
  QString program, icon, title, body;
  QStringList actions;
  QVariantMap hints;
};

class NotificationServer : public QObject {
  Q_OBJECT
  Q_CLASSINFO("D-Bus Interface", "org.freedesktop.Notifications")

 public:
  explicit NotificationServer(const TestBus& bus)
      : service_(bus, "org.freedesktop.Notifications", "/org/freedesktop/Notifications", *this) {}

  QStringList capabilities{QStringLiteral("actions"), QStringLiteral("body-markup")};
  std::vector<Shown> shown;

 public Q_SLOTS:
  [[nodiscard]] QStringList GetCapabilities() const { return capabilities; }   // NOLINT
  uint Notify(const QString& program, uint /*replaces*/, const QString& icon,  // NOLINT
              const QString& title, const QString& body, const QStringList& actions,
              const QVariantMap& hints, int /*timeout*/) {
    shown.push_back({program, icon, title, body, actions, hints});
    return static_cast<uint>(shown.size());
  }

 private:
  BusService service_;
};

class NotificationServiceTest : public testing::Test {
 protected:
  /// Adds a notification and gives the answer: "" for success, "pending" when none came.
  std::string add(const NotificationContent& content) {
    std::string answer = "pending";
    service_.add({"id", content}, [&answer](const Error& error) { answer = error.value_or(""); });
    EXPECT_TRUE(waitUntil([&] { return answer != "pending"; }));
    return answer;
  }
  std::string authorize() {
    std::string answer = "pending";
    service_.requestAuthorization({}, [&answer](bool granted, const Error& error) {
      answer = granted ? "granted" : error.value_or("");
    });
    EXPECT_TRUE(waitUntil([&] { return answer != "pending"; }));
    return answer;
  }

  TestBus daemon_;
  ScopedEnvironment address_{"DBUS_SESSION_BUS_ADDRESS", daemon_.address()};
  SessionBus bus_{nullptr, {std::chrono::milliseconds(20), std::chrono::milliseconds(2000)}};
  LinuxNotificationService service_{bus_, [] { return false; }};
};

TEST_F(NotificationServiceTest, postsWhatWasAskedEvenBeforeTheBusIsThere) {
  NotificationServer server(daemon_);
  bus_.start();
  EXPECT_EQ(authorize(), "granted");
  EXPECT_EQ(add({"Title", "A & <b>B</b>", true}), "");
  ASSERT_EQ(server.shown.size(), 1U);
  const Shown& shown = server.shown[0];
  EXPECT_EQ(shown.program, QStringLiteral("Orvane"));
  EXPECT_EQ(shown.icon, QStringLiteral("orvane"));
  EXPECT_EQ(shown.title, QStringLiteral("Title"));
  EXPECT_EQ(shown.body, QStringLiteral("A &amp; &lt;b&gt;B&lt;/b&gt;"));
  EXPECT_EQ(shown.hints.value(QStringLiteral("desktop-entry")), QStringLiteral("orvane"));
  EXPECT_TRUE(shown.hints.contains(QStringLiteral("sound-name")));
  EXPECT_EQ(shown.hints.value(QStringLiteral("urgency")).userType(), QMetaType::UChar);
}

TEST_F(NotificationServiceTest, aServiceWithoutMarkupGetsPlainWords) {
  NotificationServer server(daemon_);
  server.capabilities.clear();
  bus_.start();
  EXPECT_EQ(add({"Title", "a < b", false}), "");
  ASSERT_EQ(server.shown.size(), 1U);
  EXPECT_EQ(server.shown[0].body, QStringLiteral("a < b"));
  EXPECT_TRUE(server.shown[0].actions.isEmpty());
  EXPECT_FALSE(server.shown[0].hints.contains(QStringLiteral("sound-name")));
}

TEST_F(NotificationServiceTest, aBusThatGoesAwayEndsWhatWasAsked) {
  NotificationServer server(daemon_);
  bus_.start();
  ASSERT_TRUE(waitUntil([&] { return bus_.isConnected(); }));
  daemon_.pause();
  int answers = 0;
  service_.add({"id", {"t", "b", true}}, [&](const Error& error) {
    ++answers;
    EXPECT_TRUE(error);
  });
  daemon_.kill();
  EXPECT_TRUE(waitUntil([&] { return answers > 0; }));
  runEventLoopFor(50);
  EXPECT_EQ(answers, 1);
}

}  // namespace
}  // namespace orvane

#include "notification_service_test.moc"
