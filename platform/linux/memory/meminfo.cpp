#include "platform/linux/memory/meminfo.h"

#include <algorithm>
#include <charconv>
#include <iterator>
#include <limits>

namespace orvane {
namespace {

constexpr std::uint64_t bytesPerKilobyte = 1024;
constexpr std::uint64_t largestCount = std::numeric_limits<std::uint32_t>::max();

std::string_view skipSpaces(std::string_view text) {
  const std::size_t start = text.find_first_not_of(" \t");
  return start == std::string_view::npos ? std::string_view() : text.substr(start);
}

/// Takes the decimal number at the start of `text` off it.
std::optional<std::uint64_t> takeNumber(std::string_view& text) {
  text = skipSpaces(text);
  std::uint64_t number = 0;
  const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
  if (error != std::errc()) return std::nullopt;
  text.remove_prefix(static_cast<std::size_t>(std::distance(text.data(), end)));
  return number;
}

/// "   123 kB" in bytes. The unit shows that the line wasn't cut within its number.
std::optional<std::uint64_t> kilobytesValue(std::string_view value) {
  const auto number = takeNumber(value);
  if (!number || !value.starts_with(" kB")) return std::nullopt;
  if (*number > std::numeric_limits<std::uint64_t>::max() / bytesPerKilobyte / 16) {
    return std::nullopt;
  }
  return *number * bytesPerKilobyte;
}

/// The lines "name: value" of a text, by name.
class Fields {
 public:
  explicit Fields(std::string_view text) : text_(text) {}

  /// What follows "name:" on its line; none when there is no such line.
  [[nodiscard]] std::optional<std::string_view> value(std::string_view name) const {
    for (std::size_t start = text_.find(name); start != std::string_view::npos;
         start = text_.find(name, start + 1)) {
      const std::size_t colon = start + name.size();
      const bool startsLine = start == 0 || text_[start - 1] == '\n';
      if (!startsLine || colon >= text_.size() || text_[colon] != ':') continue;
      return text_.substr(colon + 1, text_.find('\n', colon) - colon - 1);
    }
    return std::nullopt;
  }

  [[nodiscard]] std::optional<std::uint64_t> bytes(std::string_view name) const {
    const auto text = value(name);
    return text ? kilobytesValue(*text) : std::nullopt;
  }

  [[nodiscard]] std::uint64_t bytesOrNothing(std::string_view name) const {
    return bytes(name).value_or(0);
  }

 private:
  std::string_view text_;
};

/// What kernels before 3.14 leave to their users to estimate.
std::optional<std::uint64_t> estimateAvailable(const Fields& fields, std::uint64_t free) {
  const auto buffers = fields.bytes("Buffers");
  const auto cached = fields.bytes("Cached");
  const auto reclaimable = fields.bytes("SReclaimable");
  const auto shared = fields.bytes("Shmem");
  if (!buffers || !cached || !reclaimable || !shared) return std::nullopt;
  const std::uint64_t sum = free + *buffers + *cached + *reclaimable;
  return sum - std::min(sum, *shared);
}

/// Huge pages set aside, used or not: the kernel can't use them for anything else.
std::uint64_t hugePages(const Fields& fields) {
  if (const auto allSizes = fields.bytes("Hugetlb")) return *allSizes;
  std::string_view countText = fields.value("HugePages_Total").value_or(std::string_view());
  const std::uint64_t count = takeNumber(countText).value_or(0);
  const std::uint64_t size = fields.bytesOrNothing("Hugepagesize");
  const bool isSane = size > 0 && count <= std::numeric_limits<std::uint64_t>::max() / 16 / size;
  return isSane ? count * size : 0;
}

std::uint64_t unreclaimable(const Fields& fields) {
  std::uint64_t sum = hugePages(fields);
  for (const std::string_view name :
       {"Unevictable", "SUnreclaim", "KernelStack", "PageTables", "SecPageTables", "Percpu"}) {
    sum += fields.bytesOrNothing(name);
  }
  return sum;
}

/// The number in "name <type> <number>", the form of ZFS statistics.
std::optional<std::uint64_t> arcValue(std::string_view text, std::string_view name) {
  for (std::size_t start = 0; start < text.size();) {
    const std::size_t end = std::min(text.find('\n', start), text.size());
    std::string_view line = text.substr(start, end - start);
    start = end + 1;
    if (!line.starts_with(name)) continue;
    line.remove_prefix(name.size());
    if (!line.starts_with(' ') && !line.starts_with('\t')) continue;
    const auto type = takeNumber(line);
    return type ? takeNumber(line) : std::nullopt;
  }
  return std::nullopt;
}

}  // namespace

std::optional<Meminfo> parseMeminfo(std::string_view text) {
  const Fields fields(text);
  const auto total = fields.bytes("MemTotal");
  const auto free = fields.bytes("MemFree");
  if (!total || !free || *total == 0 || *free > *total) return std::nullopt;
  const bool saysAvailable = fields.value("MemAvailable").has_value();
  const auto available =
      saysAvailable ? fields.bytes("MemAvailable") : estimateAvailable(fields, *free);
  if (!available) return std::nullopt;
  return Meminfo{.total = *total,
                 .free = *free,
                 .available = std::min(*available, *total),
                 .swapTotal = fields.bytesOrNothing("SwapTotal"),
                 .unreclaimable = unreclaimable(fields),
                 .zswap = fields.bytesOrNothing("Zswap")};
}

std::optional<std::uint64_t> parseZramMemory(std::string_view mmStat) {
  const auto original = takeNumber(mmStat);
  const auto compressed = takeNumber(mmStat);
  const auto used = takeNumber(mmStat);
  return original && compressed ? used : std::nullopt;
}

std::uint64_t parseReclaimableArc(std::string_view arcstats) {
  const auto size = arcValue(arcstats, "size");
  const auto least = arcValue(arcstats, "c_min");
  return size && least && *size > *least ? *size - *least : 0;
}

std::uint64_t countingUnit(std::uint64_t totalBytes, std::uint64_t pageSize) {
  std::uint64_t unit = pageSize;
  while (totalBytes / unit > largestCount) unit *= 2;
  return unit;
}

PageCounts pageCounts(const Meminfo& meminfo, std::uint64_t zramBytes, std::uint64_t reclaimableArc,
                      std::uint64_t unit) {
  const std::uint64_t arc = std::min(reclaimableArc, meminfo.total - meminfo.available);
  const std::uint64_t total = meminfo.total / unit;
  const std::uint64_t available = (meminfo.available + arc) / unit;
  const std::uint64_t free = std::min(meminfo.free / unit, available);
  const std::uint64_t wired = std::min(meminfo.unreclaimable / unit, total - available);
  const std::uint64_t compressedBytes =
      std::min(meminfo.zswap, meminfo.total) + std::min(zramBytes, meminfo.total);
  const std::uint64_t compressed = std::min(compressedBytes / unit, total);
  return {.free = static_cast<std::uint32_t>(free),
          .active = static_cast<std::uint32_t>(total - available - wired),
          .inactive = static_cast<std::uint32_t>(available - free),
          .wired = static_cast<std::uint32_t>(wired),
          .compressed = static_cast<std::uint32_t>(compressed)};
}

}  // namespace orvane
