#include "ui/model/memory_model.h"

#include <QCoreApplication>
#include <algorithm>
#include <cmath>

#include "ui/style/formats.h"

namespace orvane {

namespace {

constexpr std::size_t topConsumerCount = 3;

}  // namespace

MemoryModel::MemoryModel(std::shared_ptr<MemoryManager> manager) : manager_(std::move(manager)) {
  managerChanges_ = manager_->observe([this] { scheduleRefresh(); });
  historyChanges_ = manager_->memoryHistory()->observe([this] { scheduleRefresh(); });
  processes_.refresh(*manager_);
}

void MemoryModel::scheduleRefresh() {
  if (refreshPending_) return;
  refreshPending_ = true;
  QMetaObject::invokeMethod(
      this,
      [this] {
        if (refreshPending_) refresh();
      },
      Qt::QueuedConnection);
}

void MemoryModel::refresh() {
  refreshPending_ = false;
  processes_.refresh(*manager_);
  Q_EMIT changed();
}

double MemoryModel::usagePercentage() const {
  return sample().totalMemory() == 0 ? 0.0 : sample().usagePercentage();
}

QString MemoryModel::usedOfTotalText() const {
  return Format::bytesInGB(usedBytes(), 1) + QStringLiteral(" / ") +
         Format::bytesInGB(totalBytes(), 1);
}

QString MemoryModel::wholePercentText() const {
  return Format::percent(std::trunc(usagePercentage()), 0);
}

QString MemoryModel::percentText() const {
  return Format::percent(usagePercentage(), 1);
}

QList<double> MemoryModel::usageHistory() const {
  QList<double> usage;
  for (const MemoryDataPoint& point : manager_->memoryHistory()->dataPoints()) {
    usage << point.usedPercentage;
  }
  return usage;
}

ProcessRecord MemoryModel::selection() const {
  return hasSelection() ? ProcessRecord(*manager_->selectedProcess()) : ProcessRecord();
}

void MemoryModel::setSelection(const ProcessRecord& record) {
  manager_->setSelectedProcess(record.isValid() ? std::optional(*record.info()) : std::nullopt);
}

QString MemoryModel::topConsumersText() const {
  const auto& processes = manager_->topProcesses();
  if (processes.empty()) return {};
  const std::size_t count = std::min(topConsumerCount, processes.size());
  double sum = 0;
  for (std::size_t i = 0; i < count; ++i) sum += bytes(processes[i].memoryUsage);
  return QCoreApplication::translate("Views", "Top %1 apps use %2 of memory",
                                     "%1 is a number, %2 a percentage")
      .arg(count)
      .arg(Format::percent(Format::fraction(sum, usedBytes()) * 100, 1));
}

void MemoryModel::killProcess(const ProcessRecord& record) {
  if (record.isValid()) manager_->killProcess(*record.info());
}

ProcessHistory MemoryModel::processHistory(int pid) const {
  const auto& histories = manager_->processMemoryHistories();
  const auto found = histories.find(pid);
  if (found == histories.end()) return {};
  const ProcessMemoryHistory& source = *found->second;
  ProcessHistory history{{}, source.peakMemory(), source.minimumMemory(), source.averageMemory()};
  for (const auto& point : source.dataPoints()) history.values << point.memoryMB;
  return history;
}

}  // namespace orvane
