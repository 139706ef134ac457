#include <gtest/gtest.h>
#include <sys/mman.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <filesystem>
#include <optional>
#include <string>
#include <tuple>
#include <vector>

#include "platform/linux/memory/cgroup_limits.h"
#include "platform/linux/memory/linux_memory_claims.h"
#include "platform/linux/memory/linux_memory_counters.h"
#include "tests/unit/test_support.h"

namespace orvane {
namespace {

constexpr std::uint64_t pageSize = 4096;

std::array<std::uint32_t, 5> fields(const PageCounts& of) {
  return {of.free, of.active, of.inactive, of.wired, of.compressed};
}

// The expected counts were worked out by hand from the files.
TEST(Meminfo, countsOfRealisticMachines) {
  const std::uint64_t zram = parseZramMemory(testData("meminfo/zram_mm_stat")).value_or(0);
  const std::uint64_t arc = parseReclaimableArc(testData("meminfo/arcstats"));
  const struct {
    std::string file;
    std::uint64_t zram, arc;
    PageCounts counts;
  } machines[] = {{"laptop", zram, 0, {300862, 2388598, 1229384, 102634, 99732}},
                  {"zfs_server", 0, arc, {1050528, 6556332, 7055502, 1789223, 0}},
                  {"old_kernel", 0, 0, {100525, 563633, 289110, 23097, 0}},
                  {"container", 0, 0, {471040, 26624, 26624, 0, 0}}};
  for (const auto& machine : machines) {
    const auto meminfo = parseMeminfo(testData("meminfo/" + machine.file)).value_or(Meminfo{});
    const PageCounts counts = pageCounts(meminfo, machine.zram, machine.arc, pageSize);
    EXPECT_EQ(fields(counts), fields(machine.counts)) << machine.file;
  }
}

TEST(Meminfo, whatMakesNoSenseIsNone) {
  const std::string cases[] = {
      "",
      std::string("\0\xff\x7f", 3),
      "MemTotal: 100 kB\nMemFree: 10 kB\n",
      "MemTotal: 0 kB\nMemFree: 0 kB\nMemAvailable: 0 kB\n",
      "MemTotal: 99999999999999999999 kB\nMemFree: 1 kB\nMemAvailable: 1 kB\n",
      "MemTotal: 99999999999999999 kB\nMemFree: 1 kB\nMemAvailable: 1 kB\n",
      "MemTotal: -5 kB\nMemFree: 1 kB\nMemAvailable: 1 kB\n",
      "MemTotal: 100 kB\nMemFree: x kB\nMemAvailable: 1 kB\n",
      "NotMemTotal: 100 kB\nMemFree: 10 kB\nMemAvailable: 50 kB\n",
      "MemTotal: 100 kB\nMemFree: 200 kB\nMemAvailable: 50 kB\n"};
  for (const std::string& text : cases) EXPECT_FALSE(parseMeminfo(text)) << text;
}

// However early the text ends, no figure is made of half a number.
TEST(Meminfo, aTextCutShortIsNoneOrWhole) {
  const std::string text = testData("meminfo/laptop");
  const auto whole = parseMeminfo(text);
  ASSERT_TRUE(whole);
  for (std::size_t length = 0; length < text.size(); ++length) {
    const auto cut = parseMeminfo(text.substr(0, length)).value_or(*whole);
    EXPECT_EQ(std::tie(cut.total, cut.free, cut.available),
              std::tie(whole->total, whole->free, whole->available));
    EXPECT_LE(cut.unreclaimable, whole->unreclaimable) << length;
  }
  const std::string old = testData("meminfo/old_kernel");
  EXPECT_FALSE(parseMeminfo(old.substr(0, old.find("Shmem"))));
}

// Everything beyond bounds is cut so that the four counts still are all of the memory.
TEST(Meminfo, countsAlwaysAddUpToAllMemory) {
  const Meminfo extremes[] = {
      {.total = 1 << 20, .free = 1 << 20, .available = 0, .unreclaimable = 0},
      {.total = 1 << 20, .free = 4096, .available = 1 << 20, .unreclaimable = 1 << 30},
      {.total = 1 << 20, .free = 0, .available = 8192, .unreclaimable = 1 << 30, .zswap = 1 << 30},
      {.total = (1 << 20) + 1023, .free = 5000, .available = 9000, .unreclaimable = 4095}};
  for (const Meminfo& meminfo : extremes) {
    for (const std::uint64_t arc : {std::uint64_t{0}, ~std::uint64_t{0}}) {
      const PageCounts counts = pageCounts(meminfo, ~std::uint64_t{0}, arc, pageSize);
      EXPECT_EQ(counts.free + counts.active + counts.inactive + counts.wired, 256U);
      EXPECT_EQ(counts.compressed, 256U);
    }
  }
}

TEST(Meminfo, hugeMachinesAreCountedInLargerUnits) {
  constexpr std::uint64_t tebibyte = std::uint64_t{1} << 40;
  EXPECT_EQ(countingUnit(16 * tebibyte - 4096, 4096), 4096U);
  EXPECT_EQ(countingUnit(16 * tebibyte, 4096), 8192U);
  EXPECT_EQ(countingUnit(100 * tebibyte, 4096), 32768U);
  const Meminfo meminfo{.total = 24 * tebibyte, .free = tebibyte, .available = 2 * tebibyte};
  const PageCounts counts = pageCounts(meminfo, 0, 0, countingUnit(meminfo.total, 4096));
  EXPECT_EQ(counts.free * std::uint64_t{8192}, tebibyte);
  EXPECT_EQ(counts.active * std::uint64_t{8192}, 22 * tebibyte);
}

TEST(Meminfo, statisticsOfCompressionAndZfs) {
  EXPECT_EQ(parseZramMemory("0 0 4096 0 4096 0 0 0\n"), 4096U);
  EXPECT_EQ(parseZramMemory("12 34"), std::nullopt);
  EXPECT_EQ(parseReclaimableArc("c_min 4 100\nsize 4 350\n"), 250U);
  EXPECT_EQ(parseReclaimableArc("c_min 4 100\nsize 4 50\n"), 0U);
  EXPECT_EQ(parseReclaimableArc("size 4 350\n"), 0U);
  EXPECT_EQ(parseReclaimableArc("compressed_size 4 9\nc_min 4 1\nsize 4 x\n"), 0U);
}

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

TEST_F(MemoryCountersTest, followsTheFileThroughEveryChange) {
  LinuxMemoryCounters counters = makeCounters();
  EXPECT_FALSE(counters.read()) << "no file yet";
  const auto inactive = [&] { return counters.read().value_or(PageCounts{}).inactive; };
  for (const std::uint32_t free : {100U, 200U}) {
    directory_.write("meminfo", meminfoText(1000, free, 400));
    EXPECT_EQ(inactive(), 400U - free) << "rewritten in place";
  }
  directory_.write("next", meminfoText(2000, 50, 60));
  std::filesystem::rename(directory_.path("next"), directory_.path("meminfo"));
  EXPECT_EQ(inactive(), 10U) << "replaced";
  for (const char* broken : {"", "garbage", "MemTotal: 5"}) {
    directory_.write("meminfo", broken);
    EXPECT_FALSE(counters.read()) << broken;
  }
  std::filesystem::remove(directory_.path("meminfo"));
  EXPECT_FALSE(counters.read()) << "removed";
  directory_.write("meminfo", meminfoText(1000, 300, 400));
  EXPECT_EQ(inactive(), 100U) << "right again";
}

TEST_F(MemoryCountersTest, addsUpZramDevicesAndZfs) {
  const auto page = static_cast<std::uint64_t>(::sysconf(_SC_PAGESIZE));
  const auto addDevice = [&](const std::string& name, std::uint64_t pages) {
    directory_.write("block/" + name + "/mm_stat", "9 9 " + std::to_string(page * pages));
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

TEST(CgroupLimits, directoriesOfEveryHierarchy) {
  using Directories = std::vector<std::string>;
  EXPECT_EQ(memoryCgroupDirectories("0::/a/b\n", "/R"),
            (Directories{"/R/a/b", "/R/a", "/R", "/R/unified/a/b", "/R/unified/a", "/R/unified"}));
  EXPECT_EQ(memoryCgroupDirectories("5:cpu,memory:/x\n4:memoryish:/y\n", "/R"),
            (Directories{"/R/memory/x", "/R/memory"}));
  EXPECT_EQ(memoryCgroupDirectories("garbage\n3:memory\n2:memory:relative\n", "/R"), Directories());
}

TEST(CgroupLimits, theTightestLimitOnTheWayUpCounts) {
  const TestDirectory root;
  const std::vector<std::string> directories{root.path("a/b"), root.path("a"), root.path("v1")};
  const struct {
    std::string folder, limit, limitFile, used, usedFile;
    std::optional<std::uint64_t> headroom;
  } steps[] = {{"none", "1", "memory.max", "0", "memory.current", {}},
               {"a/b", "max\n", "memory.max", "700\n", "memory.current", {}},
               {"a", "1000\n", "memory.max", "800\n", "memory.current", 200},
               {"a", "900\n", "memory.high", "800\n", "memory.current", 100},
               {"v1", "50\n", "memory.limit_in_bytes", "60\n", "memory.usage_in_bytes", 0}};
  for (const auto& [folder, limit, limitFile, used, usedFile, headroom] : steps) {
    root.write(folder + "/" + limitFile, limit);
    root.write(folder + "/" + usedFile, used);
    EXPECT_EQ(memoryHeadroom(directories), headroom) << folder << "/" << limitFile;
  }
}

constexpr std::size_t wordsPerMebibyte = 262144;

/// Resident bytes of this process.
std::uint64_t residentBytes() {
  const std::string statm = readFile("/proc/self/statm");
  const auto pages = std::stoull(statm.substr(statm.find(' ')));
  return pages * static_cast<std::uint64_t>(::sysconf(_SC_PAGESIZE));
}

class MemoryClaimsTest : public testing::Test {
 protected:
  MemoryClaimsTest() {
    directory_.write("meminfo", meminfoText(10240, 1024, 2048));
    directory_.write("cgroup", "0::/app\n");
    directory_.write("oom_score_adj", "200\n");
  }

  TestDirectory directory_;
  LinuxMemoryClaims claims_{{.meminfo = directory_.path("meminfo"),
                             .cgroup = directory_.path("cgroup"),
                             .cgroupRoot = directory_.path("cgroups"),
                             .oomScoreAdjustment = directory_.path("oom_score_adj")}};
};

TEST_F(MemoryClaimsTest, neverMoreThanIsAvailableAndItsControlGroupAllows) {
  const auto claims = [this](std::size_t words) { return claims_.claim(words) != nullptr; };
  EXPECT_TRUE(claims(8 * wordsPerMebibyte));
  for (auto words : {8 * wordsPerMebibyte + 1, std::size_t{0}, ~std::size_t{0}})
    EXPECT_FALSE(claims(words)) << words;
  directory_.write("cgroups/memory.max", "5242880\n");
  directory_.write("cgroups/memory.current", "1048576\n");
  EXPECT_TRUE(claims(4 * wordsPerMebibyte));
  EXPECT_FALSE(claims(4 * wordsPerMebibyte + 1));
  directory_.write("meminfo", "garbage");
  EXPECT_FALSE(claims(1));
}

TEST_F(MemoryClaimsTest, offersItselfToTheKernelWhileHeld) {
  const auto score = [this] { return readFile(directory_.path("oom_score_adj")); };
  directory_.write("meminfo", meminfoText(1L << 35, 1, 1L << 35));
  EXPECT_FALSE(claims_.claim(std::size_t{16} << 40)) << "64 TiB of address space";
  EXPECT_EQ(score(), "200\n");
  auto first = claims_.claim(1024);
  EXPECT_EQ(score(), "1000");
  auto second = claims_.claim(1024);
  first.reset();
  EXPECT_EQ(score(), "1000");
  second.reset();
  EXPECT_EQ(score(), "200\n");
}

TEST(MemoryClaims, theRealOnesGiveEverythingBack) {
  const std::string score = readFile("/proc/self/oom_score_adj");
  LinuxMemoryClaims claims;
  const std::uint64_t before = residentBytes();
  auto claim = claims.claim(64 * wordsPerMebibyte + 1);
  ASSERT_TRUE(claim);
  std::fill(claim->words().begin(), claim->words().end(), 7U);
  EXPECT_GT(residentBytes(), before + 60'000'000);
  EXPECT_EQ(readFile("/proc/self/oom_score_adj"), "1000\n");
  void* const address = claim->words().data();
  const std::size_t size = claim->words().size_bytes();
  EXPECT_EQ(size, (std::size_t{64} << 20) + 4);
  claim.reset();
  std::vector<unsigned char> residency(size / 4096 + 1);
  EXPECT_EQ(::mincore(address, size, residency.data()), -1) << "nothing is mapped there any more";
  EXPECT_EQ(errno, ENOMEM);
  EXPECT_EQ(readFile("/proc/self/oom_score_adj"), score);
}

}  // namespace
}  // namespace orvane
