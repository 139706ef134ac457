#include "platform/linux/memory/linux_memory_counters.h"

#include <unistd.h>

#include <filesystem>
#include <system_error>

namespace orvane {
namespace {

std::uint64_t kernelPageSize() {
  const long size = ::sysconf(_SC_PAGESIZE);
  return size > 0 ? static_cast<std::uint64_t>(size) : 4096;
}

}  // namespace

LinuxMemoryCounters::LinuxMemoryCounters(MemoryCounterPaths paths)
    : paths_(std::move(paths)),
      kernelPageSize_(kernelPageSize()),
      unit_(kernelPageSize_),
      meminfo_(paths_.meminfo),
      arcstats_(paths_.arcstats) {}

std::optional<PageCounts> LinuxMemoryCounters::read() {
  const auto meminfo = readMeminfo();
  if (!meminfo) return std::nullopt;
  unit_ = countingUnit(meminfo->total, kernelPageSize_);
  return pageCounts(*meminfo, readZram(meminfo->swapTotal),
                    parseReclaimableArc(arcstats_.readToEnd()), unit_);
}

std::optional<Meminfo> LinuxMemoryCounters::readMeminfo() {
  if (auto meminfo = parseMeminfo(meminfo_.read())) return meminfo;
  meminfo_.reopen();
  return parseMeminfo(meminfo_.read());
}

std::uint64_t LinuxMemoryCounters::readZram(std::uint64_t swapTotal) {
  if (swapTotalOfZram_ != swapTotal) findZramDevices();
  swapTotalOfZram_ = swapTotal;
  std::uint64_t sum = 0;
  for (HeldFile& device : zramDevices_) {
    const auto memory = parseZramMemory(device.read());
    if (!memory) swapTotalOfZram_.reset();
    sum += memory.value_or(0);
  }
  return sum;
}

void LinuxMemoryCounters::findZramDevices() {
  zramDevices_.clear();
  std::error_code error;
  for (std::filesystem::directory_iterator entry(paths_.blockDevices, error), end;
       !error && entry != end; entry.increment(error)) {
    if (!entry->path().filename().string().starts_with("zram")) continue;
    zramDevices_.emplace_back((entry->path() / "mm_stat").string());
  }
}

}  // namespace orvane
