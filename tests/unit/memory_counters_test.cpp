#include "platform/linux/linux_memory_counters.h"

#include <gtest/gtest.h>
#include <unistd.h>

#include <filesystem>

#include "tests/unit/test_files.h"

namespace orvane {
namespace {

std::string meminfoText(int totalPages, int freePages, int availablePages) {
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

  directory_.write("meminfo", meminfoText(1000, 100, 400));
  ASSERT_TRUE(counters.read());
  EXPECT_EQ(counters.read()->inactive, 300U);

  directory_.write("meminfo", meminfoText(1000, 200, 400));
  ASSERT_TRUE(counters.read());
  EXPECT_EQ(counters.read()->inactive, 200U) << "rewritten in place";

  directory_.write("next", meminfoText(2000, 50, 60));
  std::filesystem::rename(directory_.path("next"), directory_.path("meminfo"));
  ASSERT_TRUE(counters.read());
  EXPECT_EQ(counters.read()->active, 1940U) << "replaced";

  for (const char* broken : {"", "garbage", "MemTotal: 5"}) {
    directory_.write("meminfo", broken);
    EXPECT_FALSE(counters.read()) << broken;
  }
  std::filesystem::remove(directory_.path("meminfo"));
  EXPECT_FALSE(counters.read()) << "removed";

  directory_.write("meminfo", meminfoText(1000, 300, 400));
  ASSERT_TRUE(counters.read());
  EXPECT_EQ(counters.read()->free, 300U) << "right again";
}

TEST_F(MemoryCountersTest, addsUpZramDevicesAndZfs) {
  directory_.write("meminfo", meminfoText(1000, 100, 400) + "SwapTotal: 0 kB\n");
  directory_.write("block/sda/stat", "1 2 3\n");
  directory_.write("block/zram0/mm_stat", "9 9 " + std::to_string(::sysconf(_SC_PAGESIZE) * 5));
  LinuxMemoryCounters counters = makeCounters();
  EXPECT_EQ(counters.read()->compressed, 5U);

  directory_.write("block/zram1/mm_stat", "9 9 " + std::to_string(::sysconf(_SC_PAGESIZE) * 7));
  directory_.write("meminfo", meminfoText(1000, 100, 400) + "SwapTotal: 8 kB\n");
  EXPECT_EQ(counters.read()->compressed, 12U) << "swap was added";

  std::filesystem::remove_all(directory_.path("block/zram0"));
  EXPECT_EQ(counters.read()->compressed, 7U) << "a device went away";

  const auto page = static_cast<std::uint64_t>(::sysconf(_SC_PAGESIZE));
  directory_.write("arcstats", "c_min 4 0\nsize 4 " + std::to_string(page * 50) + "\n");
  EXPECT_EQ(counters.read()->inactive, 350U);
}

}  // namespace
}  // namespace orvane
