#include <gtest/gtest.h>
#include <sys/prctl.h>

#include <QtDBus/QDBusConnection>
#include <QtDBus/QDBusContext>
#include <QtDBus/QDBusMessage>
#include <QtDBus/QDBusPendingCall>
#include <QtDBus/QDBusReply>
#include <memory>
#include <utility>

#include "platform/linux/status_item/linux_status_bar.h"
#include "platform/linux/status_item/status_notifier_types.h"
#include "tests/unit/test_bus.h"

namespace orvane {
namespace {

using namespace Qt::StringLiterals;

/// A panel: owns the list of status items and talks to the item that registers.
class FakePanel : public QObject, protected QDBusContext {
  Q_OBJECT
  Q_CLASSINFO("D-Bus Interface", "org.kde.StatusNotifierWatcher")
  Q_PROPERTY(bool IsStatusNotifierHostRegistered MEMBER showsItems)

 public:
  explicit FakePanel(const TestBus& bus, int refusals = 0, bool shows = true)
      : showsItems(shows),
        refusals_(refusals),
        service_(bus, "org.kde.StatusNotifierWatcher", "/StatusNotifierWatcher", *this) {
    EXPECT_TRUE(waitUntil([&] { return items.size() == 1; }));
  }

  void listenTo(const char* interface, const char* path, const char* signal) {
    service_.connection().connect(items.value(0), QLatin1String(path), QLatin1String(interface),
                                  QLatin1String(signal), this, SLOT(noteSignal(QDBusMessage)));
  }

  QDBusPendingCall post(const char* path, const char* interface, const char* method,
                        const QVariantList& arguments) {
    auto message = QDBusMessage::createMethodCall(items.value(0), QLatin1String(path),
                                                  QLatin1String(interface), QLatin1String(method));
    message.setArguments(arguments);
    return service_.connection().asyncCall(message);
  }

  /// Calls the item without stopping the event loop, on which the item itself answers.
  QDBusMessage call(const char* path, const char* interface, const char* method,
                    const QVariantList& arguments) {
    const QDBusPendingCall pending = post(path, interface, method, arguments);
    EXPECT_TRUE(waitUntil([&pending] { return pending.isFinished(); }));
    return pending.reply();
  }
  QVariant property(const char* name) {
    const auto reply = call("/StatusNotifierItem", "org.freedesktop.DBus.Properties", "Get",
                            {u"org.kde.StatusNotifierItem"_s, QLatin1String(name)});
    return reply.arguments().value(0).value<QDBusVariant>().variant();
  }
  QDBusMessage menu(const char* method, const QVariantList& arguments) {
    return call("/MenuBar", "com.canonical.dbusmenu", method, arguments);
  }

  QStringList items;
  QStringList signalsSeen;
  bool showsItems;

 public Q_SLOTS:
  void RegisterStatusNotifierItem(const QString& service) {
    if (refusals_-- > 0) return sendErrorReply(QDBusError::Failed, u"not yet"_s);
    items.append(service);
  }

 Q_SIGNALS:
  void StatusNotifierHostRegistered();

 public Q_SLOTS:
  Q_SCRIPTABLE void noteSignal(const QDBusMessage& message) {
    signalsSeen.append(message.member());
  }

 private:
  int refusals_;
  BusService service_;
};

class StatusItemTest : public testing::Test {
 protected:
  StatusItemTest() {
    registerStatusNotifierTypes();
    session_.start();
    item_ = statusBar_.makeItem();
    item_->setTitle(" 57%");
    item_->setIcon({{.width = 1, .height = 2, .pixels = {0x80112233, 0xff445566}}});
    item_->setToolTip("Orvane", "Memory usage: 57%");
    item_->setMenu(
        {{.kind = StatusItemMenuEntry::Kind::toggle,
          .label = "Show_Window",
          .isChecked = [this] { return checked_; },
          .activate = [this] { checked_ = !checked_; }},
         {.kind = StatusItemMenuEntry::Kind::divider},
         {.kind = StatusItemMenuEntry::Kind::figure, .text = [this] { return figure_; }}});
  }

  TestBus bus_;
  ScopedEnvironment runtime_{"XDG_RUNTIME_DIR", std::nullopt};
  bool checked_ = false;
  std::string figure_ = "20%";
  SessionBus session_;
  LinuxStatusBar statusBar_{session_};
  std::unique_ptr<StatusBarItem> item_;
};

TEST_F(StatusItemTest, ShowsItsStateToThePanelAndTellsItOfClicks) {
  FakePanel panel(bus_);
  EXPECT_EQ(panel.property("Id").toString(), u"orvane"_s);
  EXPECT_EQ(panel.property("Title").toString(), u"Orvane 57%"_s);
  EXPECT_EQ(panel.property("XAyatanaLabel").toString(), u" 57%"_s);
  EXPECT_FALSE(panel.property("ItemIsMenu").toBool());
  const auto toolTip = qdbus_cast<StatusNotifierToolTip>(panel.property("ToolTip"));
  EXPECT_EQ(toolTip.text, u"Memory usage: 57%"_s);
  const auto icon = qdbus_cast<StatusNotifierPixmaps>(panel.property("IconPixmap"));
  ASSERT_EQ(icon.size(), 1);
  EXPECT_EQ(icon[0].height, 2);
  EXPECT_EQ(icon[0].bytes.toHex(), "80112233ff445566");
  EXPECT_EQ(statusBar_.makeItem(), nullptr) << "there is one item at a time";
  std::vector<int> clicked;
  item_->setAction([&](ScreenPoint at) { clicked.insert(clicked.end(), {at.x, at.y}); });
  const auto click = [&](int x, int y) {
    panel.post("/StatusNotifierItem", "org.kde.StatusNotifierItem", "Activate", {x, y});
  };
  click(1200, 14);
  click(7, 8);
  EXPECT_TRUE(waitUntil([&] { return clicked == std::vector{1200, 14, 7, 8}; }));
  for (int i = 0; i < 2000; ++i) click(0, 0);
  panel.property("Id");
  QTest::qWait(20);
  EXPECT_LT(clicked.size(), 1000U) << "of a flood most are dropped";
}

TEST_F(StatusItemTest, RegistersWithLateRestartedAndHesitantPanels) {
  QTest::qWait(50);
  auto panel = std::make_unique<FakePanel>(bus_);
  EXPECT_TRUE(waitUntil([&] { return item_->isShown(); }));
  panel.reset();
  FakePanel successor(bus_, 1, false);
  QTest::qWait(100);
  EXPECT_FALSE(item_->isShown()) << "a list that nobody shows";
  successor.showsItems = true;
  Q_EMIT successor.StatusNotifierHostRegistered();
  EXPECT_TRUE(waitUntil([&] { return item_->isShown(); }));
  EXPECT_EQ(successor.property("XAyatanaLabel").toString(), u" 57%"_s);
}

TEST_F(StatusItemTest, SaysOnlyWhatChangedAndThatOnceWhereAllIsReadAgain) {
  int percent = 57;
  const auto show = [&] {
    const std::string figure = std::to_string(percent) + "%";
    item_->setTitle(" " + figure);
    item_->setToolTip("Orvane", "Memory usage: " + figure);
  };
  for (const auto& [host, signals] :
       {std::pair("panel-12-systra", 1), {"panel-3-systray", 1}, {"any", 3}}) {
    prctl(PR_SET_NAME, host);
    FakePanel panel(bus_);
    for (const char* signal : {"NewTitle", "NewIcon", "NewToolTip", "XAyatanaNewLabel"})
      panel.listenTo("org.kde.StatusNotifierItem", "/StatusNotifierItem", signal);
    show();
    EXPECT_EQ(panel.property("Id").toString(), u"orvane"_s);
    EXPECT_TRUE(panel.signalsSeen.isEmpty());
    ++percent;
    show();
    ASSERT_TRUE(waitUntil([&, n = signals] { return panel.signalsSeen.size() >= n; })) << host;
    panel.property("Id");
    EXPECT_EQ(panel.signalsSeen.size(), signals) << host;
    EXPECT_EQ(panel.signalsSeen.contains(u"NewIcon"_s), signals == 1);
  }
  prctl(PR_SET_NAME, "gnome-shell");
  FakePanel panel(bus_);
  panel.listenTo("org.kde.StatusNotifierItem", "/StatusNotifierItem", "XAyatanaNewLabel");
  EXPECT_TRUE(waitUntil([&] { return panel.signalsSeen.size() == 2; })) << "another label";
}

TEST_F(StatusItemTest, TheMenuFollowsItsTogglesAndFiguresWhileItIsOpen) {
  FakePanel panel(bus_);
  panel.listenTo("com.canonical.dbusmenu", "/MenuBar", "ItemsPropertiesUpdated");
  const auto tell = [&](int id, const QString& event) {
    panel.menu("Event", {id, event, QVariant::fromValue(QDBusVariant(0)), 0U});
  };
  const auto toggleState = [&] {
    const auto layout = panel.menu("GetLayout", {0, -1, QStringList()});
    const auto root = qdbus_cast<MenuLayoutItem>(layout.arguments().value(1));
    return root.children.value(0).properties.value(u"toggle-state"_s).toInt();
  };
  EXPECT_EQ(toggleState(), 0);
  tell(1, u"clicked"_s);
  EXPECT_TRUE(waitUntil([&] { return checked_; }));
  EXPECT_EQ(toggleState(), 1);
  EXPECT_TRUE(waitUntil([&] { return panel.signalsSeen.size() == 1; }));

  checked_ = false;
  EXPECT_EQ(panel.menu("AboutToShow", {0}).arguments().value(0), QVariant(true));
  EXPECT_EQ(toggleState(), 0);
  EXPECT_EQ(panel.menu("AboutToShow", {0}).arguments().value(0), QVariant(false));

  const auto figure = [&](const char* now) {
    figure_ = now;
    item_->refreshMenu();
    const QDBusMessage reply = panel.menu("GetProperty", {3, u"label"_s});
    return reply.arguments().value(0).value<QDBusVariant>().variant().toString();
  };
  tell(0, u"opened"_s);
  EXPECT_EQ(figure("21%"), u"21%"_s);
  tell(0, u"closed"_s);
  EXPECT_EQ(figure("22%"), u"21%"_s) << "nobody looks";
  EXPECT_EQ(panel.menu("AboutToShow", {0}).arguments().value(0), QVariant(true));
  EXPECT_EQ(figure("22%"), u"22%"_s);
}

TEST_F(StatusItemTest, TheMenuAnswersGroupsAndRefusesTheUnknown) {
  FakePanel panel(bus_);
  const auto ids = QVariant::fromValue(QList<int>{0, 1, 3, 7});
  const auto group = panel.menu("GetGroupProperties", {ids, QStringList()});
  const auto properties = qdbus_cast<QList<MenuItemProperties>>(group.arguments().value(0));
  ASSERT_EQ(properties.size(), 3);
  EXPECT_EQ(properties[1].properties, (QVariantMap{{u"label"_s, u"Show__Window"_s},
                                                   {u"toggle-type"_s, u"checkmark"_s},
                                                   {u"toggle-state"_s, 0}}));
  EXPECT_EQ(properties[2].properties, (QVariantMap{{u"label"_s, u"20%"_s}, {u"enabled"_s, false}}));
  const auto shown = panel.menu("AboutToShowGroup", {ids});
  EXPECT_EQ(qdbus_cast<QList<int>>(shown.arguments().value(1)), QList<int>{7});
  QList<MenuEvent> events;
  for (const int id : {1, 9}) events.append({id, u"clicked"_s, QDBusVariant(0), 0});
  const auto told = panel.menu("EventGroup", {QVariant::fromValue(events)});
  EXPECT_EQ(qdbus_cast<QList<int>>(told.arguments().value(0)), QList<int>{9});
  EXPECT_TRUE(waitUntil([&] { return checked_; }));
  for (const auto& refused : {panel.menu("GetLayout", {42, -1, QStringList()}),
                              panel.menu("GetProperty", {1, u"no-such-thing"_s})}) {
    EXPECT_EQ(refused.type(), QDBusMessage::ErrorMessage);
  }
}

}  // namespace
}  // namespace orvane

#include "status_item_test.moc"
