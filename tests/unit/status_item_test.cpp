#include <gtest/gtest.h>

#include <QtDBus/QDBusConnection>
#include <QtDBus/QDBusContext>
#include <QtDBus/QDBusMessage>
#include <QtDBus/QDBusPendingCall>
#include <QtDBus/QDBusReply>
#include <algorithm>

#include "platform/linux/status_item/linux_status_bar.h"
#include "platform/linux/status_item/status_notifier_types.h"
#include "tests/unit/test_bus.h"

namespace orvane {
namespace {

/// A panel: owns the list of status items and talks to the item that registers. It has a bus
/// connection of its own, which ends with it.
class FakePanel : public QObject, protected QDBusContext {
  Q_OBJECT
  Q_CLASSINFO("D-Bus Interface", "org.kde.StatusNotifierWatcher")

 public:
  explicit FakePanel(const TestBus& bus) : name_(QStringLiteral("panel%1").arg(++count)) {
    connection_.emplace(
        QDBusConnection::connectToBus(QString::fromStdString(bus.address()), name_));
    connection_->registerObject(QStringLiteral("/StatusNotifierWatcher"), this,
                                QDBusConnection::ExportAllSlots);
  }
  ~FakePanel() override {
    connection_.reset();
    QDBusConnection::disconnectFromBus(name_);
  }

  /// As soon as the bus has noticed that the owner before is gone.
  void takeOver() {
    const auto name = QStringLiteral("org.kde.StatusNotifierWatcher");
    EXPECT_TRUE(waitUntil([&] { return connection_->registerService(name); }));
  }

  void listenTo(const char* interface, const char* path, const char* signal) {
    connection_->connect(items.value(0), QString::fromLatin1(path), QString::fromLatin1(interface),
                         QString::fromLatin1(signal), this, SLOT(noteSignal(QDBusMessage)));
  }

  /// Calls the item without stopping the event loop, on which the item itself answers.
  QDBusMessage call(const char* path, const char* interface, const char* method,
                    const QVariantList& arguments = {}) {
    auto message =
        QDBusMessage::createMethodCall(items.last(), QString::fromLatin1(path),
                                       QString::fromLatin1(interface), QString::fromLatin1(method));
    message.setArguments(arguments);
    const QDBusPendingCall pending = connection_->asyncCall(message);
    EXPECT_TRUE(waitUntil([&pending] { return pending.isFinished(); }));
    return pending.reply();
  }

  QVariant property(const char* name) {
    const QDBusMessage reply =
        call("/StatusNotifierItem", "org.freedesktop.DBus.Properties", "Get",
             {QStringLiteral("org.kde.StatusNotifierItem"), QString::fromLatin1(name)});
    return reply.arguments().value(0).value<QDBusVariant>().variant();
  }

  QDBusMessage menu(const char* method, const QVariantList& arguments) {
    return call("/MenuBar", "com.canonical.dbusmenu", method, arguments);
  }

  QStringList items;
  QStringList signalsSeen;
  int refusals = 0;

 public Q_SLOTS:
  void RegisterStatusNotifierItem(const QString& service) {
    if (refusals > 0) {
      --refusals;
      sendErrorReply(QDBusError::Failed, QStringLiteral("not yet"));
      return;
    }
    items.append(service);
  }

  Q_SCRIPTABLE void noteSignal(const QDBusMessage& message) {
    signalsSeen.append(message.member());
  }

 private:
  inline static int count = 0;
  QString name_;
  std::optional<QDBusConnection> connection_;
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

  std::unique_ptr<FakePanel> startPanel() {
    auto panel = std::make_unique<FakePanel>(bus_);
    panel->takeOver();
    return panel;
  }

  static testing::AssertionResult hasItems(const FakePanel& panel, qsizetype count) {
    const bool reached = waitUntil([&] { return panel.items.size() == count; });
    return reached ? testing::AssertionSuccess()
                   : testing::AssertionFailure() << panel.items.size() << " items";
  }

  TestBus bus_;
  ScopedEnvironment address_{"DBUS_SESSION_BUS_ADDRESS", bus_.address()};
  ScopedEnvironment runtime_{"XDG_RUNTIME_DIR", std::nullopt};
  bool checked_ = false;
  std::string figure_ = "20%";
  SessionBus session_;
  LinuxStatusBar statusBar_{session_};
  std::unique_ptr<StatusBarItem> item_;
};

TEST_F(StatusItemTest, ShowsItsStateToThePanelAndTellsItOfClicks) {
  const auto panel = startPanel();
  ASSERT_TRUE(hasItems(*panel, 1));
  EXPECT_EQ(panel->property("Id").toString(), QStringLiteral("orvane"));
  EXPECT_EQ(panel->property("Title").toString(), QStringLiteral("Orvane 57%"));
  EXPECT_EQ(panel->property("XAyatanaLabel").toString(), QStringLiteral(" 57%"));
  EXPECT_FALSE(panel->property("ItemIsMenu").toBool());
  const auto toolTip = qdbus_cast<StatusNotifierToolTip>(panel->property("ToolTip"));
  EXPECT_EQ(toolTip.text, QStringLiteral("Memory usage: 57%"));
  const auto icon = qdbus_cast<StatusNotifierPixmaps>(panel->property("IconPixmap"));
  ASSERT_EQ(icon.size(), 1);
  EXPECT_EQ(icon[0].height, 2);
  EXPECT_EQ(icon[0].bytes.toHex(), QByteArray("80112233ff445566"));
  EXPECT_EQ(statusBar_.makeItem(), nullptr) << "there is one item at a time";
  ScreenPoint clicked;
  item_->setAction([&clicked](ScreenPoint point) { clicked = point; });
  panel->call("/StatusNotifierItem", "org.kde.StatusNotifierItem", "Activate", {1200, 14});
  EXPECT_EQ(clicked.x, 1200);
  EXPECT_EQ(clicked.y, 14);
}

TEST_F(StatusItemTest, RegistersWithLateRestartedAndHesitantPanels) {
  runEventLoopFor(50);
  auto panel = startPanel();
  ASSERT_TRUE(hasItems(*panel, 1));
  FakePanel successor(bus_);
  successor.refusals = 1;
  panel.reset();
  successor.takeOver();
  ASSERT_TRUE(hasItems(successor, 1));
  EXPECT_EQ(successor.property("XAyatanaLabel").toString(), QStringLiteral(" 57%"));
}

TEST_F(StatusItemTest, SaysOnlyWhatChanged) {
  const auto panel = startPanel();
  ASSERT_TRUE(hasItems(*panel, 1));
  for (const char* signal : {"NewTitle", "NewIcon", "NewToolTip", "XAyatanaNewLabel"})
    panel->listenTo("org.kde.StatusNotifierItem", "/StatusNotifierItem", signal);
  item_->setTitle(" 57%");
  item_->setToolTip("Orvane", "Memory usage: 57%");
  EXPECT_EQ(panel->property("Id").toString(), QStringLiteral("orvane"));
  EXPECT_TRUE(panel->signalsSeen.isEmpty());
  item_->setTitle(" 58%");
  item_->setToolTip("Orvane", "Memory usage: 58%");
  EXPECT_EQ(panel->property("XAyatanaLabel").toString(), QStringLiteral(" 58%"));
  ASSERT_TRUE(waitUntil([&] { return panel->signalsSeen.size() == 3; }));
  EXPECT_FALSE(panel->signalsSeen.contains(QStringLiteral("NewIcon")));
}

TEST_F(StatusItemTest, TheMenuFollowsItsTogglesAndFiguresWhileItIsOpen) {
  const auto panel = startPanel();
  ASSERT_TRUE(hasItems(*panel, 1));
  panel->listenTo("com.canonical.dbusmenu", "/MenuBar", "ItemsPropertiesUpdated");
  const auto toggleState = [&] {
    const auto layout = panel->menu("GetLayout", {0, -1, QStringList()});
    const auto root = qdbus_cast<MenuLayoutItem>(layout.arguments().value(1));
    return root.children.value(0).properties.value(QStringLiteral("toggle-state")).toInt();
  };
  EXPECT_EQ(toggleState(), 0);
  panel->menu("Event", {1, QStringLiteral("clicked"), QVariant::fromValue(QDBusVariant(0)), 0U});
  EXPECT_TRUE(checked_);
  EXPECT_EQ(toggleState(), 1);
  EXPECT_TRUE(waitUntil([&] { return panel->signalsSeen.size() == 1; }));

  checked_ = false;
  EXPECT_EQ(panel->menu("AboutToShow", {0}).arguments().value(0), QVariant(true));
  EXPECT_EQ(toggleState(), 0);
  EXPECT_EQ(panel->menu("AboutToShow", {0}).arguments().value(0), QVariant(false));

  const auto figure = [&] {
    item_->refreshMenu();
    const QDBusMessage reply = panel->menu("GetProperty", {3, QStringLiteral("label")});
    return reply.arguments().value(0).value<QDBusVariant>().variant().toString();
  };
  const auto tell = [&](const char* event) {
    panel->menu("Event", {0, QString::fromLatin1(event), QVariant::fromValue(QDBusVariant(0)), 0U});
  };
  tell("opened");
  figure_ = "21%";
  EXPECT_EQ(figure(), QStringLiteral("21%"));
  tell("closed");
  figure_ = "22%";
  EXPECT_EQ(figure(), QStringLiteral("21%")) << "nobody looks";
  EXPECT_EQ(panel->menu("AboutToShow", {0}).arguments().value(0), QVariant(true));
  EXPECT_EQ(figure(), QStringLiteral("22%"));
}

TEST_F(StatusItemTest, TheMenuAnswersGroupsAndRefusesTheUnknown) {
  const auto panel = startPanel();
  ASSERT_TRUE(hasItems(*panel, 1));
  const auto ids = QVariant::fromValue(QList<int>{0, 1, 3, 7});
  const auto group = panel->menu("GetGroupProperties", {ids, QStringList()});
  const auto properties = qdbus_cast<QList<MenuItemProperties>>(group.arguments().value(0));
  ASSERT_EQ(properties.size(), 3);
  EXPECT_EQ(properties[1].properties,
            (QVariantMap{{QStringLiteral("label"), QStringLiteral("Show__Window")},
                         {QStringLiteral("toggle-type"), QStringLiteral("checkmark")},
                         {QStringLiteral("toggle-state"), 0}}));
  EXPECT_EQ(properties[2].properties, (QVariantMap{{QStringLiteral("label"), QStringLiteral("20%")},
                                                   {QStringLiteral("enabled"), false}}));
  const auto shown = panel->menu("AboutToShowGroup", {ids});
  EXPECT_EQ(qdbus_cast<QList<int>>(shown.arguments().value(1)), QList<int>{7});
  QList<MenuEvent> events;
  for (const int id : {1, 9}) {
    events.append(
        {.id = id, .type = QStringLiteral("clicked"), .data = QDBusVariant(0), .timestamp = 0});
  }
  const auto told = panel->menu("EventGroup", {QVariant::fromValue(events)});
  EXPECT_EQ(qdbus_cast<QList<int>>(told.arguments().value(0)), QList<int>{9});
  EXPECT_TRUE(checked_);
  for (const auto& refused : {panel->menu("GetLayout", {42, -1, QStringList()}),
                              panel->menu("GetProperty", {1, QStringLiteral("no-such-thing")})}) {
    EXPECT_EQ(refused.type(), QDBusMessage::ErrorMessage);
  }
}

}  // namespace
}  // namespace orvane

#include "status_item_test.moc"
