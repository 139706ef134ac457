#pragma once

#include <QtCore/QList>
#include <QtCore/QStringList>
#include <QtCore/QVariantMap>
#include <optional>
#include <vector>

#include "platform/linux/status_item/status_notifier_types.h"
#include "platform/status_bar.h"

namespace orvane {

/// A status item's menu in the terms of com.canonical.dbusmenu: entry n has the id n + 1, the id 0
/// is the menu itself. Check marks and figures are kept as the panel last saw them.
class DbusMenu {
 public:
  static constexpr int rootId = 0;

  void setEntries(std::vector<StatusItemMenuEntry> entries);

  /// Asks every toggle for its state and every figure for its text; the ids of those that changed.
  QList<int> refresh();

  /// The whole menu; `depth` 0 leaves out the children. None for an unknown id.
  [[nodiscard]] std::optional<MenuLayoutItem> layout(int id, int depth,
                                                     const QStringList& names) const;

  /// The named properties that differ from their defaults, all of them when no name is given; none
  /// for an unknown id.
  [[nodiscard]] std::optional<QVariantMap> properties(int id, const QStringList& names) const;

  /// The value of one property, its default included; invalid for unknown ids and names.
  [[nodiscard]] QVariant property(int id, const QString& name) const;

  /// Every id, the menu's own first.
  [[nodiscard]] QList<int> ids() const;

  /// Runs the entry's action; false when there is no such action.
  bool activate(int id) const;

 private:
  struct Item {
    StatusItemMenuEntry entry;
    QVariantMap properties;
  };

  [[nodiscard]] const Item* find(int id) const;
  [[nodiscard]] static QVariantMap describe(const StatusItemMenuEntry& entry);

  std::vector<Item> items_;
};

/// A label in which no character is taken for an access key mark.
[[nodiscard]] QString menuLabel(const std::string& text);

}  // namespace orvane
