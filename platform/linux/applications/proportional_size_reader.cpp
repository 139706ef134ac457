#include "platform/linux/applications/proportional_size_reader.h"

#include <fcntl.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <string_view>

#include "platform/linux/applications/process_stat.h"
#include "platform/linux/files/file_descriptor.h"

namespace orvane {
namespace {

using Text = std::array<char, 2048>;

/// The content of a process' file; empty when it can't be read.
std::string_view readText(std::int32_t pid, const char* name, Text& text) {
  const std::string path = "/proc/" + std::to_string(pid) + "/" + name;
  const FileDescriptor file(::open(path.c_str(), O_RDONLY | O_CLOEXEC | O_NOCTTY));
  if (!file.isOpen()) return {};
  ssize_t length = -1;
  do {
    length = ::read(file.get(), text.data(), text.size());
  } while (length < 0 && errno == EINTR);
  return {text.data(), length > 0 ? static_cast<std::size_t>(length) : 0};
}

/// The cheap figures are read beside the true one: they may have moved since the latest update.
void take(std::int32_t pid, ProportionalReading& reading) {
  static const auto page = static_cast<std::uint64_t>(std::max(::sysconf(_SC_PAGESIZE), 1L));
  Text text{};
  reading.proportionalSize = parseProportionalSize(readText(pid, "smaps_rollup", text));
  const auto pages = parseProcessPages(readText(pid, "statm", text));
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
