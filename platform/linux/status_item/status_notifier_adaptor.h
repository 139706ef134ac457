#pragma once

#include <QtDBus/QDBusAbstractAdaptor>
#include <QtDBus/QDBusObjectPath>
#include <functional>
#include <optional>
#include <vector>

#include "platform/linux/bus/bus_export.h"
#include "platform/linux/status_item/panel_host.h"
#include "platform/linux/status_item/status_notifier_types.h"
#include "platform/status_bar.h"

namespace orvane {

/// Shows one item on the bus as org.kde.StatusNotifierItem, with the label that some panels draw
/// beside the icon. Signals go out once a turn of the event loop, and only for what changed.
/// Threads: main thread only.
class StatusNotifierAdaptor : public QDBusAbstractAdaptor {
  Q_OBJECT
  Q_CLASSINFO("D-Bus Interface", "org.kde.StatusNotifierItem")
  Q_PROPERTY(QString Category READ category)
  Q_PROPERTY(QString Id READ id)
  Q_PROPERTY(QString Title READ title)
  Q_PROPERTY(QString Status READ status)
  Q_PROPERTY(int WindowId READ windowId)
  Q_PROPERTY(QString IconName READ iconName)
  Q_PROPERTY(QString IconThemePath READ iconName)
  Q_PROPERTY(orvane::StatusNotifierPixmaps IconPixmap READ iconPixmap)
  Q_PROPERTY(QString OverlayIconName READ iconName)
  Q_PROPERTY(QString AttentionIconName READ iconName)
  Q_PROPERTY(orvane::StatusNotifierToolTip ToolTip READ toolTip)
  Q_PROPERTY(bool ItemIsMenu READ itemIsMenu)
  Q_PROPERTY(QDBusObjectPath Menu READ menu)
  Q_PROPERTY(QString XAyatanaLabel READ label)
  Q_PROPERTY(QString XAyatanaLabelGuide READ labelGuide)

 public:
  /// `exported` is the object that is registered on the bus, and this adaptor's parent.
  StatusNotifierAdaptor(BusExport* exported, const QString& menuPath);

  /// A panel that reads everything again at any signal is sent one for all changes. One that shows
  /// a label only when it changes is told of a change once it has read the item.
  void setHost(const PanelHost& host);
  void setLabel(const QString& label);
  void setIcon(const std::vector<orvane::IconPixmap>& icon);
  void setToolTip(const QString& title, const QString& text);
  void setAction(std::function<void(ScreenPoint)> action);

  [[nodiscard]] static QString category();
  [[nodiscard]] static QString id();
  [[nodiscard]] QString title() const;
  [[nodiscard]] static QString status();
  [[nodiscard]] static int windowId() { return 0; }
  [[nodiscard]] static QString iconName() { return {}; }
  [[nodiscard]] StatusNotifierPixmaps iconPixmap() const { return icon_; }
  [[nodiscard]] StatusNotifierToolTip toolTip() const { return toolTip_; }
  [[nodiscard]] static bool itemIsMenu() { return false; }
  [[nodiscard]] QDBusObjectPath menu() const { return menu_; }
  [[nodiscard]] QString label() const { return label_; }
  [[nodiscard]] static QString labelGuide();

 public Q_SLOTS:
  void Activate(int x, int y);
  void SecondaryActivate(int x, int y);
  void ContextMenu(int x, int y);
  void Scroll(int delta, const QString& orientation);
  void ProvideXdgActivationToken(const QString& token);

 Q_SIGNALS:
  void NewTitle();
  void NewIcon();
  void NewToolTip();
  void NewStatus(const QString& status);
  void XAyatanaNewLabel(const QString& label, const QString& guide);

 private:
  struct Changes {
    bool label = false;
    bool icon = false;
    bool toolTip = false;
  };

  void noteChange(bool Changes::*what);
  void announceChanges();
  void announceOtherLabel();

  BusExport& exported_;
  PanelHost host_;
  std::optional<Changes> changes_;  ///< since the last signals

  QDBusObjectPath menu_;
  QString label_;
  StatusNotifierPixmaps icon_;
  StatusNotifierToolTip toolTip_;
  std::function<void(ScreenPoint)> action_;
};

}  // namespace orvane
