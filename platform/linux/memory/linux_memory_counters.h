#pragma once

#include <string>
#include <vector>

#include "platform/linux/files/held_file.h"
#include "platform/linux/memory/meminfo.h"
#include "platform/memory_counters.h"

namespace orvane {

/// Where the memory counters are read.
struct MemoryCounterPaths {
  std::string meminfo = "/proc/meminfo";
  std::string blockDevices = "/sys/block";  ///< holds zram<n>/mm_stat
  std::string arcstats = "/proc/spl/kstat/zfs/arcstats";
};

/// The counters of /proc/meminfo, of the zram devices and of ZFS.
///
/// Every file is held open. The zram devices are looked for at the start, when one goes away and
/// whenever the amount of swap changes.
class LinuxMemoryCounters : public MemoryCounters {
 public:
  explicit LinuxMemoryCounters(MemoryCounterPaths paths = {});

  [[nodiscard]] std::optional<PageCounts> read() override;

  /// The kernel's page size, or a multiple of it on machines whose pages 32 bits can't count.
  [[nodiscard]] std::uint64_t pageSize() const override { return unit_; }

 private:
  [[nodiscard]] std::optional<Meminfo> readMeminfo();
  [[nodiscard]] std::uint64_t readZram(std::uint64_t swapTotal);
  void findZramDevices();

  MemoryCounterPaths paths_;
  std::uint64_t kernelPageSize_;
  std::uint64_t unit_;
  HeldFile meminfo_;
  HeldFile arcstats_;
  std::vector<HeldFile> zramDevices_;
  std::optional<std::uint64_t> swapTotalOfZram_;  ///< as of the last look for devices
};

}  // namespace orvane
