#include "platform/linux/status_item/status_notifier_types.h"

#include <QtCore/QStringList>
#include <QtCore/QtEndian>
#include <QtDBus/QDBusMetaType>

namespace orvane {

StatusNotifierPixmaps busPixmaps(const std::vector<IconPixmap>& icon) {
  StatusNotifierPixmaps pixmaps;
  for (const IconPixmap& picture : icon) {
    const auto count = static_cast<qsizetype>(picture.pixels.size());
    QByteArray bytes(count * 4, Qt::Uninitialized);
    qToBigEndian<quint32>(picture.pixels.data(), count, bytes.data());
    pixmaps.append({picture.width, picture.height, std::move(bytes)});
  }
  return pixmaps;
}

void registerStatusNotifierTypes() {
  qDBusRegisterMetaType<StatusNotifierPixmap>();
  qDBusRegisterMetaType<StatusNotifierPixmaps>();
  qDBusRegisterMetaType<StatusNotifierToolTip>();
  qDBusRegisterMetaType<MenuLayoutItem>();
  qDBusRegisterMetaType<MenuItemProperties>();
  qDBusRegisterMetaType<QList<MenuItemProperties>>();
  qDBusRegisterMetaType<MenuItemPropertyNames>();
  qDBusRegisterMetaType<QList<MenuItemPropertyNames>>();
  qDBusRegisterMetaType<MenuEvent>();
  qDBusRegisterMetaType<QList<MenuEvent>>();
  qDBusRegisterMetaType<QList<int>>();
}

QDBusArgument& operator<<(QDBusArgument& argument, const MenuLayoutItem& item) {
  argument.beginStructure();
  argument << item.id << item.properties;
  argument.beginArray(QMetaType::fromType<QDBusVariant>());
  for (const MenuLayoutItem& child : item.children)
    argument << QDBusVariant(QVariant::fromValue(child));
  argument.endArray();
  argument.endStructure();
  return argument;
}

const QDBusArgument& operator>>(const QDBusArgument& argument, MenuLayoutItem& item) {
  item.children.clear();
  argument.beginStructure();
  argument >> item.id >> item.properties;
  argument.beginArray();
  while (!argument.atEnd()) {
    QDBusVariant child;
    argument >> child;
    item.children.append(qdbus_cast<MenuLayoutItem>(child.variant()));
  }
  argument.endArray();
  argument.endStructure();
  return argument;
}

}  // namespace orvane
