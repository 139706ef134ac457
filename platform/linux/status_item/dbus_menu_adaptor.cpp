#include "platform/linux/status_item/dbus_menu_adaptor.h"

#include <QtDBus/QDBusError>
#include <utility>

namespace orvane {

DbusMenuAdaptor::DbusMenuAdaptor(BusExport* exported)
    : QDBusAbstractAdaptor(exported), exported_(*exported) {
  registerStatusNotifierTypes();
}

void DbusMenuAdaptor::setEntries(std::vector<StatusItemMenuEntry> entries) {
  menu_.setEntries(std::move(entries));
  Q_EMIT LayoutUpdated(++revision_, DbusMenu::rootId);
}

void DbusMenuAdaptor::refreshOpen() {
  if (isOpen_) refresh();
}

QString DbusMenuAdaptor::textDirection() {
  return QStringLiteral("ltr");
}

QString DbusMenuAdaptor::status() {
  return QStringLiteral("normal");
}

QStringList DbusMenuAdaptor::iconThemePath() {
  return {};
}

void DbusMenuAdaptor::refuse(const QString& text) const {
  if (exported_.calledFromDBus()) exported_.sendErrorReply(QDBusError::InvalidArgs, text);
}

uint DbusMenuAdaptor::GetLayout(int parentId, int recursionDepth, const QStringList& propertyNames,
                                orvane::MenuLayoutItem& layout) {
  const auto found = menu_.layout(parentId, recursionDepth, propertyNames);
  if (!found) refuse(QStringLiteral("No such menu entry"));
  layout = found.value_or(MenuLayoutItem{});
  return revision_;
}

QList<orvane::MenuItemProperties> DbusMenuAdaptor::GetGroupProperties(
    const QList<int>& ids, const QStringList& propertyNames) {
  QList<MenuItemProperties> group;
  for (const int id : ids.isEmpty() ? menu_.ids() : ids) {
    if (const auto properties = menu_.properties(id, propertyNames))
      group.append({.id = id, .properties = *properties});
  }
  return group;
}

QDBusVariant DbusMenuAdaptor::GetProperty(int id, const QString& name) {
  const QVariant value = menu_.property(id, name);
  if (!value.isValid()) refuse(QStringLiteral("No such property"));
  return QDBusVariant(value.isValid() ? value : QString());
}

void DbusMenuAdaptor::Event(int id, const QString& eventId, const QDBusVariant& /*data*/,
                            uint /*timestamp*/) {
  if (!handleEvent(id, eventId)) refuse(QStringLiteral("No such menu entry"));
}

QList<int> DbusMenuAdaptor::EventGroup(const QList<orvane::MenuEvent>& events) {
  QList<int> unknown;
  for (const MenuEvent& event : events) {
    if (!handleEvent(event.id, event.type)) unknown.append(event.id);
  }
  return unknown;
}

bool DbusMenuAdaptor::handleEvent(int id, const QString& type) {
  if (!menu_.properties(id, {})) return false;
  if (type == QLatin1String("opened")) isOpen_ = true;
  if (type == QLatin1String("closed")) isOpen_ = false;
  if (type == QLatin1String("clicked")) {
    exported_.runSoon([this, id] {
      menu_.activate(id);
      refresh();
    });
  }
  refresh();
  return true;
}

bool DbusMenuAdaptor::AboutToShow(int id) {
  return id == DbusMenu::rootId && refresh();
}

QList<int> DbusMenuAdaptor::AboutToShowGroup(const QList<int>& ids, QList<int>& idErrors) {
  QList<int> updated;
  for (const int id : ids) {
    if (!menu_.properties(id, {})) idErrors.append(id);
    if (AboutToShow(id)) updated.append(id);
  }
  return updated;
}

bool DbusMenuAdaptor::refresh() {
  const QList<int> changed = menu_.refresh();
  if (changed.isEmpty()) return false;
  ++revision_;
  Q_EMIT ItemsPropertiesUpdated(GetGroupProperties(changed, {}), {});
  return true;
}

}  // namespace orvane
