#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <span>
#include <string>
#include <vector>

#include "platform/dispatch.h"
#include "platform/linux/applications/process_table.h"

namespace orvane {

/// Reads processes' proportional sizes (/proc/PID/smaps_rollup: Pss) beside the main thread: the
/// kernel takes 12 to 30 ms for each GB and holds the other program's memory map meanwhile.
/// Threads: main thread only; the reading itself is a block on the background queue. Both queues
/// must outlive every block submitted to them.
class ProportionalSizeReader {
 public:
  ProportionalSizeReader(MainQueue& mainQueue, BackgroundQueue& backgroundQueue);

  /// A batch is being read, so that no other may begin.
  [[nodiscard]] bool isReading() const { return batch_->isUnderWay; }

  /// Begins to read these processes; nothing for none.
  void read(std::span<Process* const> processes, ReadingTime now);

  /// Leaves the readings of a batch that has ended with the processes that are still in the table,
  /// as `pending`.
  void deliver(ProcessTable& table);

 private:
  struct Entry {
    std::int32_t pid = 0;
    std::uint64_t serial = 0;  ///< as in Process
    ProportionalReading reading;
  };
  struct Batch {
    bool isUnderWay = false;
    std::vector<Entry> entries;
  };

  MainQueue& mainQueue_;
  BackgroundQueue& backgroundQueue_;
  std::shared_ptr<Batch> batch_ = std::make_shared<Batch>();
};

}  // namespace orvane
