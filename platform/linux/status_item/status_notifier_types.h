#pragma once

#include <QtCore/QByteArray>
#include <QtCore/QList>
#include <QtCore/QMetaType>
#include <QtCore/QString>
#include <QtCore/QVariantMap>
#include <QtDBus/QDBusArgument>
#include <QtDBus/QDBusVariant>
#include <vector>

#include "platform/status_bar.h"

namespace orvane {

/// One picture as the bus carries it, "(iiay)": ARGB, the alpha byte first.
struct StatusNotifierPixmap {
  int width = 0;
  int height = 0;
  QByteArray bytes;

  bool operator==(const StatusNotifierPixmap&) const = default;
};
using StatusNotifierPixmaps = QList<StatusNotifierPixmap>;

/// "(sa(iiay)ss)".
struct StatusNotifierToolTip {
  QString iconName;
  StatusNotifierPixmaps icon;
  QString title;
  QString text;

  bool operator==(const StatusNotifierToolTip& other) const {
    return title == other.title && text == other.text;
  }
};

/// One menu entry with its children, "(ia{sv}av)".
struct MenuLayoutItem {
  int id = 0;
  QVariantMap properties;
  QList<MenuLayoutItem> children;
};

/// Properties of one menu entry, "(ia{sv})".
struct MenuItemProperties {
  int id = 0;
  QVariantMap properties;
};

/// Names of the properties that one menu entry lost, "(ias)".
struct MenuItemPropertyNames {
  int id = 0;
  QStringList names;
};

/// Something that happened to a menu entry, "(isvu)".
struct MenuEvent {
  int id = 0;
  QString type;
  QDBusVariant data;
  uint timestamp = 0;
};

/// The pictures in the byte order of the bus.
[[nodiscard]] StatusNotifierPixmaps busPixmaps(const std::vector<IconPixmap>& icon);

/// Makes the types above known to the bus library; may be called again.
void registerStatusNotifierTypes();

QDBusArgument& operator<<(QDBusArgument& argument, const StatusNotifierPixmap& pixmap);
const QDBusArgument& operator>>(const QDBusArgument& argument, StatusNotifierPixmap& pixmap);
QDBusArgument& operator<<(QDBusArgument& argument, const StatusNotifierToolTip& toolTip);
const QDBusArgument& operator>>(const QDBusArgument& argument, StatusNotifierToolTip& toolTip);
QDBusArgument& operator<<(QDBusArgument& argument, const MenuLayoutItem& item);
const QDBusArgument& operator>>(const QDBusArgument& argument, MenuLayoutItem& item);
QDBusArgument& operator<<(QDBusArgument& argument, const MenuItemProperties& item);
const QDBusArgument& operator>>(const QDBusArgument& argument, MenuItemProperties& item);
QDBusArgument& operator<<(QDBusArgument& argument, const MenuItemPropertyNames& item);
const QDBusArgument& operator>>(const QDBusArgument& argument, MenuItemPropertyNames& item);
QDBusArgument& operator<<(QDBusArgument& argument, const MenuEvent& event);
const QDBusArgument& operator>>(const QDBusArgument& argument, MenuEvent& event);

}  // namespace orvane

Q_DECLARE_METATYPE(orvane::StatusNotifierPixmap)
Q_DECLARE_METATYPE(orvane::StatusNotifierToolTip)
Q_DECLARE_METATYPE(orvane::MenuLayoutItem)
Q_DECLARE_METATYPE(orvane::MenuItemProperties)
Q_DECLARE_METATYPE(orvane::MenuItemPropertyNames)
Q_DECLARE_METATYPE(orvane::MenuEvent)
