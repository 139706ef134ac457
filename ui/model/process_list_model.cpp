#include "ui/model/process_list_model.h"

#include <algorithm>

#include "ui/style/formats.h"

namespace orvane {

int ProcessListModel::rowCount(const QModelIndex& parent) const {
  return parent.isValid() ? 0 : count();
}

QVariant ProcessListModel::data(const QModelIndex& index, int role) const {
  if (!checkIndex(index, CheckIndexOption::IndexIsValid)) return {};
  const Row& row = rows_[static_cast<std::size_t>(index.row())];
  switch (role) {
    case recordRole:
      return QVariant::fromValue(row.record);
    case memoryTextRole:
      return Format::figureInMB(row.figure, 0);
    case isLargeRole:
      return row.figure > largeFigure;
    case isSelectedRole:
      return row.selected;
    default:
      return {};
  }
}

QHash<int, QByteArray> ProcessListModel::roleNames() const {
  return {{recordRole, "record"},
          {memoryTextRole, "memoryText"},
          {isLargeRole, "isLarge"},
          {isSelectedRole, "isSelected"}};
}

ProcessRecord ProcessListModel::record(int row) const {
  return row < 0 || row >= count() ? ProcessRecord() : rows_[static_cast<std::size_t>(row)].record;
}

int ProcessListModel::rowOf(const ProcessRecord& record) const {
  const auto found = std::find_if(rows_.begin(), rows_.end(), [&](const Row& row) {
    return record.isValid() && row.record == record;
  });
  return found == rows_.end() ? -1 : static_cast<int>(found - rows_.begin());
}

void ProcessListModel::refresh(const MemoryManager& manager) {
  const int before = count();
  matchOrder(manager.topProcesses());
  const auto& selected = manager.selectedProcess();
  for (std::size_t i = 0; i < rows_.size(); ++i) {
    const ProcessInfo& process = manager.topProcesses()[i];
    if (rows_[i].record.info()->id != process.id) rows_[i].record = ProcessRecord(process);
    rows_[i].figure = manager.sortMetric(process, manager.processSortMode());
    rows_[i].selected = selected && *selected == process;
  }
  if (!rows_.empty()) Q_EMIT dataChanged(index(0), index(count() - 1));
  if (count() != before) Q_EMIT countChanged();
}

void ProcessListModel::matchOrder(const std::vector<ProcessInfo>& processes) {
  for (int row = count() - 1; row >= 0; --row) {
    const int pid = record(row).pid();
    if (std::any_of(processes.begin(), processes.end(),
                    [pid](const ProcessInfo& process) { return process.pid == pid; })) {
      continue;
    }
    beginRemoveRows({}, row, row);
    rows_.erase(rows_.begin() + row);
    endRemoveRows();
  }
  for (std::size_t i = 0; i < processes.size(); ++i) placeRow(static_cast<int>(i), processes[i]);
  // A pid listed twice leaves rows behind.
  if (rows_.size() > processes.size()) {
    beginRemoveRows({}, static_cast<int>(processes.size()), count() - 1);
    rows_.resize(processes.size());
    endRemoveRows();
  }
}

void ProcessListModel::placeRow(int row, const ProcessInfo& process) {
  const auto at = rows_.begin() + row;
  const auto found = std::find_if(
      at, rows_.end(), [&](const Row& other) { return other.record.pid() == process.pid; });
  if (found == rows_.end()) {
    beginInsertRows({}, row, row);
    rows_.insert(at, {ProcessRecord(process)});
    endInsertRows();
  } else if (found != at) {
    const int from = static_cast<int>(found - rows_.begin());
    beginMoveRows({}, from, from, {}, row);
    std::rotate(at, found, found + 1);
    endMoveRows();
  }
}

}  // namespace orvane
