#include "platform/linux/status_item/status_menu_adaptor.h"

#include <QtDBus/QDBusError>
#include <utility>

namespace orvane {

StatusMenuAdaptor::StatusMenuAdaptor(BusExport* exported)
    : QDBusAbstractAdaptor(exported), exported_(*exported) {
  registerStatusNotifierTypes();
}

void StatusMenuAdaptor::setEntries(std::vector<StatusMenuEntry> entries) {
  menu_.setEntries(std::move(entries));
  Q_EMIT LayoutUpdated(++revision_, StatusMenu::rootId);
}

void StatusMenuAdaptor::refreshOpen() {
  if (isOpen_) refresh();
}

QString StatusMenuAdaptor::textDirection() {
  return QStringLiteral("ltr");
}

QString StatusMenuAdaptor::status() {
  return QStringLiteral("normal");
}

QStringList StatusMenuAdaptor::iconThemePath() {
  return {};
}

void StatusMenuAdaptor::refuse(const QString& text) const {
  if (exported_.calledFromDBus()) exported_.sendErrorReply(QDBusError::InvalidArgs, text);
}

uint StatusMenuAdaptor::GetLayout(int parentId, int recursionDepth,
                                  const QStringList& propertyNames,
                                  orvane::MenuLayoutItem& layout) {
  const auto found = menu_.layout(parentId, recursionDepth, propertyNames);
  if (!found) refuse(QStringLiteral("No such menu entry"));
  layout = found.value_or(MenuLayoutItem{});
  return revision_;
}

QList<orvane::MenuItemProperties> StatusMenuAdaptor::GetGroupProperties(
    const QList<int>& ids, const QStringList& propertyNames) {
  QList<MenuItemProperties> group;
  for (const int id : ids.isEmpty() ? menu_.ids() : ids) {
    if (const auto properties = menu_.properties(id, propertyNames))
      group.append({.id = id, .properties = *properties});
  }
  return group;
}

QDBusVariant StatusMenuAdaptor::GetProperty(int id, const QString& name) {
  const QVariant value = menu_.property(id, name);
  if (!value.isValid()) refuse(QStringLiteral("No such property"));
  return QDBusVariant(value.isValid() ? value : QString());
}

void StatusMenuAdaptor::Event(int id, const QString& eventId, const QDBusVariant& /*data*/,
                              uint /*timestamp*/) {
  if (!handleEvent(id, eventId)) refuse(QStringLiteral("No such menu entry"));
}

QList<int> StatusMenuAdaptor::EventGroup(const QList<orvane::MenuEvent>& events) {
  QList<int> unknown;
  for (const MenuEvent& event : events) {
    if (!handleEvent(event.id, event.type)) unknown.append(event.id);
  }
  return unknown;
}

bool StatusMenuAdaptor::handleEvent(int id, const QString& type) {
  if (!menu_.properties(id, {})) return false;
  if (type == QLatin1String("opened")) isOpen_ = true;
  if (type == QLatin1String("closed")) isOpen_ = false;
  if (type == QLatin1String("clicked")) menu_.activate(id);
  refresh();
  return true;
}

bool StatusMenuAdaptor::AboutToShow(int id) {
  return id == StatusMenu::rootId && refresh();
}

QList<int> StatusMenuAdaptor::AboutToShowGroup(const QList<int>& ids, QList<int>& idErrors) {
  QList<int> updated;
  for (const int id : ids) {
    if (!menu_.properties(id, {})) idErrors.append(id);
    if (AboutToShow(id)) updated.append(id);
  }
  return updated;
}

bool StatusMenuAdaptor::refresh() {
  const QList<int> changed = menu_.refresh();
  if (changed.isEmpty()) return false;
  ++revision_;
  Q_EMIT ItemsPropertiesUpdated(GetGroupProperties(changed, {}), {});
  return true;
}

}  // namespace orvane
