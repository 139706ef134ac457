#pragma once

#include <QtCore/QStringList>
#include <QtDBus/QDBusAbstractAdaptor>
#include <QtDBus/QDBusVariant>
#include <vector>

#include "platform/linux/bus/bus_export.h"
#include "platform/linux/status_item/dbus_menu.h"
#include "platform/linux/status_item/status_notifier_types.h"

namespace orvane {

/// Shows a `DbusMenu` on the bus as com.canonical.dbusmenu. Threads: main thread only.
class DbusMenuAdaptor : public QDBusAbstractAdaptor {
  Q_OBJECT
  Q_CLASSINFO("D-Bus Interface", "com.canonical.dbusmenu")
  Q_PROPERTY(uint Version READ version)
  Q_PROPERTY(QString TextDirection READ textDirection)
  Q_PROPERTY(QString Status READ status)
  Q_PROPERTY(QStringList IconThemePath READ iconThemePath)

 public:
  /// `exported` is the object that is registered on the bus, and this adaptor's parent.
  explicit DbusMenuAdaptor(BusExport* exported);

  void setEntries(std::vector<StatusItemMenuEntry> entries);
  /// Brings an open menu up to date.
  void refreshOpen();

  [[nodiscard]] static uint version() { return 3; }
  [[nodiscard]] static QString textDirection();
  [[nodiscard]] static QString status();
  [[nodiscard]] static QStringList iconThemePath();

 public Q_SLOTS:
  uint GetLayout(int parentId, int recursionDepth, const QStringList& propertyNames,
                 orvane::MenuLayoutItem& layout);
  QList<orvane::MenuItemProperties> GetGroupProperties(const QList<int>& ids,
                                                       const QStringList& propertyNames);
  QDBusVariant GetProperty(int id, const QString& name);
  void Event(int id, const QString& eventId, const QDBusVariant& data, uint timestamp);
  QList<int> EventGroup(const QList<orvane::MenuEvent>& events);
  bool AboutToShow(int id);
  QList<int> AboutToShowGroup(const QList<int>& ids, QList<int>& idErrors);

 Q_SIGNALS:
  void ItemsPropertiesUpdated(const QList<orvane::MenuItemProperties>& updatedProps,
                              const QList<orvane::MenuItemPropertyNames>& removedProps);
  void LayoutUpdated(uint revision, int parent);
  void ItemActivationRequested(int id, uint timestamp);

 private:
  bool handleEvent(int id, const QString& type);
  /// Brings check marks and figures up to date and tells the panel; false when nothing changed.
  bool refresh();

  void refuse(const QString& text) const;

  BusExport& exported_;
  DbusMenu menu_;
  uint revision_ = 1;
  bool isOpen_ = false;
};

}  // namespace orvane
