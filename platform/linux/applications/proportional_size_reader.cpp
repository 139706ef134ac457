#include "platform/linux/applications/proportional_size_reader.h"

#include <unistd.h>

#include <algorithm>

#include "platform/linux/applications/process_stat.h"
#include "platform/linux/files/regular_file.h"

namespace orvane {
namespace {

/// The content of a process' file; empty when it can't be read.
std::string readText(std::int32_t pid, const char* name) {
  return readRegularFile("/proc/" + std::to_string(pid) + "/" + name, 4096).value_or("");
}

/// The cheap figures are read beside the true one: they may have moved since the latest update.
void take(std::int32_t pid, ProportionalReading& reading) {
  static const auto page = static_cast<std::uint64_t>(std::max(::sysconf(_SC_PAGESIZE), 1L));
  reading.proportionalSize = parseProportionalSize(readText(pid, "smaps_rollup"));
  const auto pages = parseProcessPages(readText(pid, "statm"));
  if (!pages) return;
  reading.sharedSize = std::min(pages->shared, pages->resident) * page;
  reading.ownSize = pages->resident * page - reading.sharedSize;
}

}  // namespace

ProportionalSizeReader::ProportionalSizeReader(MainQueue& mainQueue,
                                               BackgroundQueue& backgroundQueue)
    : mainQueue_(mainQueue), backgroundQueue_(backgroundQueue) {}

void ProportionalSizeReader::read(std::span<Process* const> processes, ReadingTime now) {
  if (processes.empty() || isReading()) return;
  std::vector<Entry> entries;
  entries.reserve(processes.size());
  for (const Process* process : processes) {
    entries.push_back({.pid = process->pid,
                       .serial = process->serial,
                       .reading = {.proportionalSize = {},
                                   .ownSize = process->ownSize(),
                                   .sharedSize = process->sharedSize,
                                   .taken = now}});
  }
  batch_->isUnderWay = true;
  backgroundQueue_.async([weak = std::weak_ptr(batch_), &mainQueue = mainQueue_,
                          entries = std::move(entries)]() mutable {
    for (Entry& entry : entries) {
      if (weak.expired()) return;  // the program ends
      take(entry.pid, entry.reading);
    }
    mainQueue.async([weak, entries = std::move(entries)]() mutable {
      const auto batch = weak.lock();
      if (!batch) return;
      batch->entries = std::move(entries);
      batch->isUnderWay = false;
    });
  });
}

void ProportionalSizeReader::deliver(ProcessTable& table) {
  for (const Entry& entry : batch_->entries) {
    const auto found = table.processes().find(entry.pid);
    if (found == table.processes().end() || found->second.serial != entry.serial) continue;
    found->second.pending = entry.reading;
  }
  batch_->entries.clear();
}

}  // namespace orvane
