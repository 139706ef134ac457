#include "platform/linux/cgroup_limits.h"

#include <gtest/gtest.h>

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
  EXPECT_EQ(memoryHeadroom(directories), std::nullopt);

  root.write("a/b/memory.max", "max\n");
  root.write("a/b/memory.current", "700\n");
  EXPECT_EQ(memoryHeadroom(directories), std::nullopt);

  root.write("a/memory.max", "1000\n");
  root.write("a/memory.current", "800\n");
  EXPECT_EQ(memoryHeadroom(directories), 200U);

  root.write("a/memory.high", "900\n");
  EXPECT_EQ(memoryHeadroom(directories), 100U);

  root.write("v1/memory.limit_in_bytes", "50\n");
  root.write("v1/memory.usage_in_bytes", "60\n");
  EXPECT_EQ(memoryHeadroom(directories), 0U);
}

}  // namespace
}  // namespace orvane
