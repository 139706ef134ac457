#pragma once

#include <cstdint>
#include <optional>
#include <string_view>

#include "platform/memory_counters.h"

namespace orvane {

/// What /proc/meminfo says, in bytes. Lesser values that a kernel doesn't give are 0.
struct Meminfo {
  std::uint64_t total = 0;          ///< MemTotal
  std::uint64_t free = 0;           ///< MemFree
  std::uint64_t available = 0;      ///< MemAvailable, or its estimate; at most `total`
  std::uint64_t swapTotal = 0;      ///< SwapTotal
  std::uint64_t unreclaimable = 0;  ///< Unevictable + SUnreclaim + KernelStack + PageTables +
                                    ///< SecPageTables + Percpu + the huge pages set aside
  std::uint64_t zswap = 0;          ///< Zswap: memory that holds compressed pages

  bool operator==(const Meminfo&) const = default;
};

/// Reads the text of /proc/meminfo; none when it is empty, cut short before the figures that
/// matter, or makes no sense.
[[nodiscard]] std::optional<Meminfo> parseMeminfo(std::string_view text);

/// Memory a zram device takes, in bytes: mem_used_total, the third figure of its mm_stat; none
/// when the text isn't one.
[[nodiscard]] std::optional<std::uint64_t> parseZramMemory(std::string_view mmStat);

/// Bytes that ZFS gives back when memory runs short: size - c_min of its arcstats; 0 when the text
/// doesn't say.
[[nodiscard]] std::uint64_t parseReclaimableArc(std::string_view arcstats);

/// The unit in which all of `totalBytes` can be counted in 32 bits: `pageSize`, doubled as often
/// as it takes (above 16 TiB with pages of 4 KiB).
[[nodiscard]] std::uint64_t countingUnit(std::uint64_t totalBytes, std::uint64_t pageSize);

/// The page counts in units of `unit` bytes (see `countingUnit`); free + active + inactive + wired
/// is exactly all memory, active + wired what the kernel and ZFS can't hand out.
[[nodiscard]] PageCounts pageCounts(const Meminfo& meminfo, std::uint64_t zramBytes,
                                    std::uint64_t reclaimableArc, std::uint64_t unit);

}  // namespace orvane
