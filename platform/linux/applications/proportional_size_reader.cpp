#include "platform/linux/applications/proportional_size_reader.h"

#include <fcntl.h>
#include <unistd.h>

#include <array>
#include <cerrno>

#include "platform/linux/applications/process_stat.h"
#include "platform/linux/files/file_descriptor.h"

namespace orvane {
namespace {

std::optional<std::uint64_t> proportionalSize(std::int32_t pid) {
  const std::string path = "/proc/" + std::to_string(pid) + "/smaps_rollup";
  const FileDescriptor file(::open(path.c_str(), O_RDONLY | O_CLOEXEC | O_NOCTTY));
  if (!file.isOpen()) return {};
  std::array<char, 2048> text{};
  ssize_t length = -1;
  do {
    length = ::read(file.get(), text.data(), text.size());
  } while (length < 0 && errno == EINTR);
  if (length <= 0) return {};
  return parseProportionalSize({text.data(), static_cast<std::size_t>(length)});
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
    readAll(entries);
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

void ProportionalSizeReader::readAll(std::vector<Entry>& entries) {
  for (Entry& entry : entries) entry.reading.proportionalSize = proportionalSize(entry.pid);
}

}  // namespace orvane
