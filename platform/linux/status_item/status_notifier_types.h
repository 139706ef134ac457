#pragma once

#include <QtCore/QByteArray>
#include <QtCore/QList>
#include <QtCore/QString>
#include <QtCore/QVariantMap>
#include <QtDBus/QDBusArgument>
#include <QtDBus/QDBusVariant>
#include <tuple>
#include <vector>

#include "platform/status_bar.h"

namespace orvane {

/// One picture as the bus carries it, "(iiay)": ARGB, the alpha byte first.
struct StatusNotifierPixmap {
  int width = 0;
  int height = 0;
  QByteArray bytes;

  static constexpr std::tuple fields{&StatusNotifierPixmap::width, &StatusNotifierPixmap::height,
                                     &StatusNotifierPixmap::bytes};

  bool operator==(const StatusNotifierPixmap&) const = default;
};
using StatusNotifierPixmaps = QList<StatusNotifierPixmap>;

/// "(sa(iiay)ss)".
struct StatusNotifierToolTip {
  QString iconName;
  StatusNotifierPixmaps icon;
  QString title;
  QString text;

  static constexpr std::tuple fields{&StatusNotifierToolTip::iconName, &StatusNotifierToolTip::icon,
                                     &StatusNotifierToolTip::title, &StatusNotifierToolTip::text};

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

  static constexpr std::tuple fields{&MenuItemProperties::id, &MenuItemProperties::properties};
};

/// Names of the properties that one menu entry lost, "(ias)".
struct MenuItemPropertyNames {
  int id = 0;
  QStringList names;

  static constexpr std::tuple fields{&MenuItemPropertyNames::id, &MenuItemPropertyNames::names};
};

/// Something that happened to a menu entry, "(isvu)".
struct MenuEvent {
  int id = 0;
  QString type;
  QDBusVariant data;
  uint timestamp = 0;

  static constexpr std::tuple fields{&MenuEvent::id, &MenuEvent::type, &MenuEvent::data,
                                     &MenuEvent::timestamp};
};

/// The pictures in the byte order of the bus.
[[nodiscard]] StatusNotifierPixmaps busPixmaps(const std::vector<IconPixmap>& icon);

/// Makes the types above known to the bus library; may be called again.
void registerStatusNotifierTypes();

/// A type whose `fields` are those of one structure on the bus, in their order.
template <typename T>
concept BusStructure = requires {
  T::fields;
};

template <BusStructure T>
QDBusArgument& operator<<(QDBusArgument& argument, const T& structure) {
  argument.beginStructure();
  std::apply([&](auto... field) { (argument << ... << (structure.*field)); }, T::fields);
  argument.endStructure();
  return argument;
}

template <BusStructure T>
const QDBusArgument& operator>>(const QDBusArgument& argument, T& structure) {
  argument.beginStructure();
  std::apply([&](auto... field) { (argument >> ... >> (structure.*field)); }, T::fields);
  argument.endStructure();
  return argument;
}

QDBusArgument& operator<<(QDBusArgument& argument, const MenuLayoutItem& item);
const QDBusArgument& operator>>(const QDBusArgument& argument, MenuLayoutItem& item);

}  // namespace orvane
