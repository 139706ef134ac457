#include "platform/linux/memory/linux_memory_claims.h"

#include <gtest/gtest.h>
#include <sys/mman.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <optional>
#include <string>
#include <vector>

#include "platform/linux/memory/cgroup_limits.h"
#include "tests/unit/test_files.h"

namespace orvane {
namespace {

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
    directory_.write("meminfo", "MemTotal: 40960 kB\nMemFree: 4096 kB\nMemAvailable: 8192 kB\n");
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
  for (const std::size_t words : {8 * wordsPerMebibyte + 1, std::size_t{0}, ~std::size_t{0}}) {
    EXPECT_FALSE(claims(words)) << words;
  }
  directory_.write("cgroups/memory.max", "5242880\n");
  directory_.write("cgroups/memory.current", "1048576\n");
  EXPECT_TRUE(claims(4 * wordsPerMebibyte));
  EXPECT_FALSE(claims(4 * wordsPerMebibyte + 1));
  directory_.write("meminfo", "garbage");
  EXPECT_FALSE(claims(1));
}

TEST_F(MemoryClaimsTest, offersItselfToTheKernelWhileHeld) {
  const auto score = [this] { return readFile(directory_.path("oom_score_adj")); };
  directory_.write("meminfo",
                   "MemTotal: 99999999999 kB\nMemFree: 1 kB\nMemAvailable: 99999999999 kB\n");
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
