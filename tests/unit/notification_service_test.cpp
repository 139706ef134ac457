#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <QtCore/QVariantMap>
#include <optional>
#include <vector>

#include "platform/linux/bus/session_bus.h"
#include "platform/linux/desktop/linux_notification_service.h"
#include "tests/unit/test_bus.h"

namespace orvane {
namespace {

using namespace Qt::StringLiterals;
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
  /// Adds a notification and gives the answer: "" for success.
  std::string add(const NotificationContent& content) {
    std::optional<std::string> answer;
    service_.add({"id", content}, [&answer](const Error& error) { answer = error.value_or(""); });
    EXPECT_TRUE(waitUntil([&] { return answer.has_value(); }));
    return answer.value_or("none");
  }

  TestBus daemon_;
  SessionBus bus_{nullptr, {std::chrono::milliseconds(20), std::chrono::milliseconds(2000)}};
  LinuxNotificationService service_{bus_, [] { return false; }};
};

TEST_F(NotificationServiceTest, postsWhatWasAskedEvenBeforeTheBusIsThere) {
  NotificationServer server(daemon_);
  bus_.start();
  bool granted = false;
  service_.requestAuthorization({}, [&](bool isGranted, const Error&) { granted = isGranted; });
  EXPECT_EQ(add({"Title", "A & <b>B</b>", true}), "");
  EXPECT_TRUE(granted);
  ASSERT_EQ(server.shown.size(), 1U);
  const Shown& shown = server.shown[0];
  EXPECT_EQ((QStringList{shown.program, shown.icon, shown.title, shown.body}),
            (QStringList{u"Orvane"_s, u"orvane"_s, u"Title"_s, u"A &amp; &lt;b&gt;B&lt;/b&gt;"_s}));
  EXPECT_EQ(shown.hints.value(u"desktop-entry"_s), u"orvane"_s);
  EXPECT_TRUE(shown.hints.contains(u"sound-name"_s));
  EXPECT_EQ(shown.hints.value(u"urgency"_s).userType(), QMetaType::UChar);
}

TEST_F(NotificationServiceTest, aServiceWithoutMarkupGetsPlainWords) {
  NotificationServer server(daemon_);
  server.capabilities.clear();
  bus_.start();
  EXPECT_EQ(add({"Title", "a < b", false}), "");
  ASSERT_EQ(server.shown.size(), 1U);
  EXPECT_EQ(server.shown[0].body, u"a < b"_s);
  EXPECT_TRUE(server.shown[0].actions.isEmpty());
  EXPECT_FALSE(server.shown[0].hints.contains(u"sound-name"_s));
}

TEST_F(NotificationServiceTest, aMissingServiceAndABusThatGoesAwayEndWhatWasAsked) {
  bus_.start();
  EXPECT_EQ(add({"Title", "a", true}), "This desktop has no notification service");
  daemon_.pause();
  std::vector<Error> answers;
  service_.add({"id", {"t", "b", true}}, [&](const Error& error) { answers.push_back(error); });
  daemon_.kill();
  EXPECT_TRUE(waitUntil([&] { return !answers.empty(); }));
  QTest::qWait(50);
  EXPECT_THAT(answers, testing::ElementsAre(testing::Ne(std::nullopt)));
}

}  // namespace
}  // namespace orvane

#include "notification_service_test.moc"
