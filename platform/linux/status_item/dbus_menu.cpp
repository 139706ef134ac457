#include "platform/linux/status_item/dbus_menu.h"

#include <utility>

namespace orvane {
namespace {

QVariantMap only(const QVariantMap& all, const QStringList& names) {
  if (names.isEmpty()) return all;
  QVariantMap chosen;
  for (const QString& name : names) {
    if (const auto found = all.find(name); found != all.end()) chosen.insert(name, *found);
  }
  return chosen;
}

/// What a property is when an entry doesn't give it.
QVariant defaultOf(const QString& name) {
  static const QVariantMap defaults = {
      {QStringLiteral("type"), QStringLiteral("standard")},
      {QStringLiteral("label"), QString()},
      {QStringLiteral("enabled"), true},
      {QStringLiteral("visible"), true},
      {QStringLiteral("icon-name"), QString()},
      {QStringLiteral("toggle-type"), QString()},
      {QStringLiteral("toggle-state"), -1},
      {QStringLiteral("children-display"), QString()},
  };
  return defaults.value(name);
}

}  // namespace

QString menuLabel(const std::string& text) {
  return QString::fromStdString(text).replace(QLatin1Char('_'), QStringLiteral("__"));
}

void DbusMenu::setEntries(std::vector<StatusItemMenuEntry> entries) {
  items_.clear();
  for (StatusItemMenuEntry& entry : entries) {
    QVariantMap properties = describe(entry);
    items_.push_back({.entry = std::move(entry), .properties = std::move(properties)});
  }
}

QList<int> DbusMenu::refresh() {
  QList<int> changed;
  for (std::size_t i = 0; i < items_.size(); ++i) {
    QVariantMap properties = describe(items_[i].entry);
    if (properties == items_[i].properties) continue;
    items_[i].properties = std::move(properties);
    changed.append(static_cast<int>(i) + 1);
  }
  return changed;
}

const DbusMenu::Item* DbusMenu::find(int id) const {
  const bool known = id > rootId && static_cast<std::size_t>(id) <= items_.size();
  return known ? &items_[static_cast<std::size_t>(id - 1)] : nullptr;
}

QVariantMap DbusMenu::describe(const StatusItemMenuEntry& entry) {
  using Kind = StatusItemMenuEntry::Kind;
  if (entry.kind == Kind::divider) return {{QStringLiteral("type"), QStringLiteral("separator")}};
  if (entry.kind == Kind::figure) {
    return {{QStringLiteral("label"), menuLabel(entry.text ? entry.text() : std::string())},
            {QStringLiteral("enabled"), false}};
  }
  QVariantMap properties = {{QStringLiteral("label"), menuLabel(entry.label)}};
  if (entry.kind == Kind::toggle) {
    properties.insert(QStringLiteral("toggle-type"), QStringLiteral("checkmark"));
    properties.insert(QStringLiteral("toggle-state"), entry.isChecked && entry.isChecked() ? 1 : 0);
  }
  return properties;
}

std::optional<QVariantMap> DbusMenu::properties(int id, const QStringList& names) const {
  if (id == rootId) {
    return only({{QStringLiteral("children-display"), QStringLiteral("submenu")}}, names);
  }
  const Item* item = find(id);
  if (item == nullptr) return std::nullopt;
  return only(item->properties, names);
}

QVariant DbusMenu::property(int id, const QString& name) const {
  const auto own = properties(id, {});
  return own ? own->value(name, defaultOf(name)) : QVariant();
}

std::optional<MenuLayoutItem> DbusMenu::layout(int id, int depth, const QStringList& names) const {
  const auto own = properties(id, names);
  if (!own) return std::nullopt;
  MenuLayoutItem item{.id = id, .properties = *own, .children = {}};
  if (id != rootId || depth == 0) return item;
  for (int child = 1; child <= static_cast<int>(items_.size()); ++child)
    item.children.append({.id = child, .properties = *properties(child, names), .children = {}});
  return item;
}

QList<int> DbusMenu::ids() const {
  QList<int> all;
  for (int id = rootId; id <= static_cast<int>(items_.size()); ++id) all.append(id);
  return all;
}

bool DbusMenu::activate(int id) const {
  const Item* item = find(id);
  if (item == nullptr || !item->entry.activate) return false;
  // A copy: the action may replace the menu.
  const auto action = item->entry.activate;
  action();
  return true;
}

}  // namespace orvane
