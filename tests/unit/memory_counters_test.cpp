#include "platform/linux/linux_memory_counters.h"

#include <gtest/gtest.h>
#include <unistd.h>

#include <filesystem>

#include "tests/unit/test_files.h"

namespace orvane {
namespace {

std::string meminfoText(long totalPages, long freePages, long availablePages) {
  const long kilobytes = ::sysconf(_SC_PAGESIZE) / 1024;
  return "MemTotal: " + std::to_string(totalPages * kilobytes) +
         " kB\nMemFree: " + std::to_string(freePages * kilobytes) +
         " kB\nMemAvailable: " + std::to_string(availablePages * kilobytes) + " kB\n";
}

class MemoryCountersTest : public testing::Test {
 protected:
  [[nodiscard]] LinuxMemoryCounters makeCounters() const {
    return LinuxMemoryCounters({.meminfo = directory_.path("meminfo"),
                                .blockDevices = directory_.path("block"),
                                .arcstats = directory_.path("arcstats")});
  }

  TestDirectory directory_;
};

TEST_F(MemoryCountersTest, readsThisMachine) {
  LinuxMemoryCounters counters;
  const auto counts = counters.read();
  ASSERT_TRUE(counts);
  const auto meminfo = parseMeminfo(readFile("/proc/meminfo"));
  ASSERT_TRUE(meminfo);
  const std::uint64_t total =
      std::uint64_t{counts->free} + counts->active + counts->inactive + counts->wired;
  EXPECT_EQ(total * counters.pageSize(), meminfo->total);
  EXPECT_GT(counts->active + counts->wired, 0U);
}

TEST_F(MemoryCountersTest, followsTheFileThroughEveryChange) {
  LinuxMemoryCounters counters = makeCounters();
  EXPECT_FALSE(counters.read()) << "no file yet";
  for (const std::uint32_t free : {100U, 200U}) {
    directory_.write("meminfo", meminfoText(1000, free, 400));
    EXPECT_EQ(counters.read().value_or(PageCounts{}).inactive, 400U - free) << "rewritten in place";
  }
  directory_.write("next", meminfoText(2000, 50, 60));
  std::filesystem::rename(directory_.path("next"), directory_.path("meminfo"));
  EXPECT_EQ(counters.read().value_or(PageCounts{}).active, 1940U) << "replaced";
  for (const char* broken : {"", "garbage", "MemTotal: 5"}) {
    directory_.write("meminfo", broken);
    EXPECT_FALSE(counters.read()) << broken;
  }
  std::filesystem::remove(directory_.path("meminfo"));
  EXPECT_FALSE(counters.read()) << "removed";
  directory_.write("meminfo", meminfoText(1000, 300, 400));
  EXPECT_EQ(counters.read().value_or(PageCounts{}).free, 300U) << "right again";
}

TEST_F(MemoryCountersTest, addsUpZramDevicesAndZfs) {
  const auto page = static_cast<std::uint64_t>(::sysconf(_SC_PAGESIZE));
  const auto addDevice = [&](const char* name, std::uint64_t pages) {
    directory_.write(std::string("block/") + name + "/mm_stat",
                     "9 9 " + std::to_string(page * pages));
  };
  directory_.write("meminfo", meminfoText(1000, 100, 400) + "SwapTotal: 0 kB\n");
  directory_.write("block/sda/stat", "1 2 3\n");
  addDevice("zram0", 5);
  LinuxMemoryCounters counters = makeCounters();
  EXPECT_EQ(counters.read()->compressed, 5U);
  addDevice("zram1", 7);
  directory_.write("meminfo", meminfoText(1000, 100, 400) + "SwapTotal: 8 kB\n");
  EXPECT_EQ(counters.read()->compressed, 12U) << "swap was added";
  std::filesystem::remove_all(directory_.path("block/zram0"));
  EXPECT_EQ(counters.read()->compressed, 7U) << "a device went away";
  directory_.write("arcstats", "c_min 4 0\nsize 4 " + std::to_string(page * 50) + "\n");
  EXPECT_EQ(counters.read()->inactive, 350U);
}

}  // namespace
}  // namespace orvane
