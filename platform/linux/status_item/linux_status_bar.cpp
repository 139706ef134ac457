#include "platform/linux/status_item/linux_status_bar.h"

#include <QtCore/QObject>
#include <QtDBus/QDBusConnection>
#include <utility>

#include "platform/linux/bus/bus_export.h"
#include "platform/linux/status_item/dbus_menu_adaptor.h"
#include "platform/linux/status_item/status_notifier_adaptor.h"
#include "platform/linux/status_item/status_notifier_registration.h"

namespace orvane {
namespace {

QString itemPath() {
  return QStringLiteral("/StatusNotifierItem");
}

QString menuPath() {
  return QStringLiteral("/MenuBar");
}

/// The item's two objects on the bus and its place in the desktop's list.
class LinuxStatusBarItem : public StatusBarItem {
 public:
  LinuxStatusBarItem(SessionBus& bus, std::shared_ptr<void> token)
      : bus_(bus),
        token_(std::move(token)),
        item_(new StatusNotifierAdaptor(&itemExport_, menuPath())),
        menu_(new DbusMenuAdaptor(&menuExport_)),
        registration_(bus) {
    // Before the registration learns of the connection, so that a panel finds what it is told of.
    QObject::connect(&bus_, &SessionBus::connected, &itemExport_, [this] { exportObjects(); });
    if (bus_.isConnected()) exportObjects();
    QObject::connect(&registration_, &StatusNotifierRegistration::hostChanged, &itemExport_,
                     [this] {
                       item_->setHost(registration_.host());
                       if (hostChanged_) hostChanged_();
                     });
    registration_.start();
  }

  LinuxStatusBarItem(const LinuxStatusBarItem&) = delete;
  LinuxStatusBarItem& operator=(const LinuxStatusBarItem&) = delete;

  ~LinuxStatusBarItem() override {
    if (!bus_.isConnected()) return;
    QDBusConnection connection = bus_.connection();
    connection.unregisterObject(itemPath());
    connection.unregisterObject(menuPath());
  }

  void setTitle(const std::string& title) override {
    item_->setLabel(QString::fromStdString(title));
  }

  void setIcon(std::vector<IconPixmap> icon) override { item_->setIcon(icon); }

  void setToolTip(const std::string& title, const std::string& text) override {
    item_->setToolTip(QString::fromStdString(title), QString::fromStdString(text));
  }

  void setAction(std::function<void(ScreenPoint)> action) override {
    item_->setAction(std::move(action));
  }

  void setMenu(std::vector<StatusItemMenuEntry> entries) override {
    menu_->setEntries(std::move(entries));
  }

  void refreshMenu() override { menu_->refreshOpen(); }

  [[nodiscard]] bool isShown() const override { return registration_.isShown(); }

  [[nodiscard]] bool hostDrawsLabel() const override { return registration_.host().drawsLabels; }

  void setHostChanged(std::function<void()> handler) override { hostChanged_ = std::move(handler); }

 private:
  void exportObjects() {
    QDBusConnection connection = bus_.connection();
    connection.registerObject(itemPath(), &itemExport_, QDBusConnection::ExportAdaptors);
    connection.registerObject(menuPath(), &menuExport_, QDBusConnection::ExportAdaptors);
  }

  SessionBus& bus_;
  std::shared_ptr<void> token_;
  BusExport itemExport_;
  BusExport menuExport_;
  StatusNotifierAdaptor* item_;
  DbusMenuAdaptor* menu_;
  std::function<void()> hostChanged_;
  StatusNotifierRegistration registration_;
};

}  // namespace

LinuxStatusBar::LinuxStatusBar(SessionBus& bus) : bus_(bus) {}

std::unique_ptr<StatusBarItem> LinuxStatusBar::makeItem() {
  if (!current_.expired()) return nullptr;
  auto token = std::make_shared<char>();
  current_ = token;
  return std::make_unique<LinuxStatusBarItem>(bus_, std::move(token));
}

}  // namespace orvane
