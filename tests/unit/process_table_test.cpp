// The table of processes on a made-up /proc: what no test can have for real at will.
#include "platform/linux/applications/process_table.h"

#include <gtest/gtest.h>
#include <unistd.h>

#include <filesystem>
#include <fstream>
#include <string>

#include "tests/unit/test_files.h"

namespace orvane {
namespace {

namespace fs = std::filesystem;

class ProcessTableTest : public testing::Test {
 protected:
  struct Figures {
    int parent = 1;
    char state = 'S';
    int startTime = 500;
    int virtualSize = 8192;
    int threads = 3;
    std::string command = "prog";
    int resident = 10;
    int size = 2;
    int flags = 4194304;
  };

  void write(int pid, const Figures& figures) const {
    const fs::path folder = root_ / std::to_string(pid);
    fs::create_directories(folder);
    std::error_code there;
    fs::create_symlink("/usr/bin/prog", folder / "exe", there);
    std::ofstream(folder / "stat")
        << pid << " (" << figures.command << ") " << figures.state << ' ' << figures.parent
        << " 1 1 0 -1 " << figures.flags << " 0 0 0 0 0 0 0 0 20 0 " << figures.threads << " 0 "
        << figures.startTime << ' ' << figures.virtualSize << ' ' << figures.resident
        << " 0 4096 0 0\n";
    std::ofstream(folder / "statm") << figures.size << ' ' << figures.resident << " 4 1 0 1 0\n";
  }

  /// As the kernel does it: the folder of a new process is another one.
  void replace(int pid, const Figures& figures) const {
    fs::rename(root_ / std::to_string(pid), root_ / ("old" + std::to_string(pid)));
    write(pid, figures);
  }

  [[nodiscard]] ProcessTable table(std::size_t held = 1000) const {
    return ProcessTable({.root = root_.string(), .user = ::getuid(), .heldDescriptors = held});
  }

  static std::vector<int> pids(ProcessTable& table) {
    std::vector<int> result;
    for (const auto& [pid, process] : table.processes()) result.push_back(pid);
    return result;
  }

  TestDirectory directory_;
  fs::path root_ = directory_.path();
};

using Pids = std::vector<int>;
const auto page = static_cast<std::uint64_t>(::sysconf(_SC_PAGESIZE));

TEST_F(ProcessTableTest, KeepsTheUsersLivingProcessesOnly) {
  write(30, {.parent = 2, .flags = 69238880});  // a kernel thread
  write(40, {});
  write(41, {.state = 'Z'});
  write(42, {.virtualSize = 0});
  write(44, {});
  fs::remove(root_ / "44/exe");
  fs::create_directories(root_ / "43");  // gone between the listing and the reading
  fs::create_directories(root_ / "self");
  std::ofstream(root_ / "meminfo") << "MemTotal: 1 kB\n";
  auto table = this->table();
  table.update();
  ASSERT_EQ(pids(table), Pids{40});
  const Process& process = table.processes().at(40);
  EXPECT_EQ(process.residentSize, 10 * page);
  EXPECT_EQ(process.sharedSize, 4 * page);
  EXPECT_EQ(process.virtualSize, 2 * page);
  EXPECT_EQ(process.threads, 3);
  EXPECT_TRUE(table.structureChanged());
}

TEST_F(ProcessTableTest, AReusedPidIsAnotherProcessAlsoWithoutDescriptorsToSpare) {
  for (const std::size_t held : {1000u, 0u}) {
    write(40, {});
    auto table = this->table(held);
    table.update();
    table.processes().at(40).needsEvidence = false;
    table.processes().at(40).evidence.name = "first";
    replace(40, {.startTime = 900, .resident = 77});
    table.update();
    ASSERT_EQ(pids(table), Pids{40});
    const Process& next = table.processes().at(40);
    EXPECT_EQ(next.residentSize, 77 * page);
    EXPECT_EQ(next.evidence.name, "");
    EXPECT_TRUE(next.needsEvidence && table.structureChanged());
    fs::remove_all(root_ / "40");
    fs::remove_all(root_ / "old40");
    table.update();
    EXPECT_EQ(pids(table), Pids{});
  }
}

TEST_F(ProcessTableTest, AsksForEvidenceWhileYoungAndAfterAnotherProgramStarted) {
  write(40, {});
  auto table = this->table();
  for (int update = 1; update <= 6; ++update) {
    table.update();
    bool& needed = table.processes().at(40).needsEvidence;
    EXPECT_EQ(needed, update <= 3) << update;
    needed = false;
  }
  EXPECT_FALSE(table.structureChanged());
  write(40, {.command = "other", .size = 3});
  table.update();
  EXPECT_TRUE(table.processes().at(40).needsEvidence);
}

TEST_F(ProcessTableTest, ChildrenOfAnEndedProcessHaveAnotherParentAtOnce) {
  write(40, {});
  write(41, {.parent = 40});
  auto table = this->table();
  for (int i = 0; i < 8; ++i) table.update();
  fs::remove_all(root_ / "40");
  write(41, {.parent = 7});
  table.update();
  EXPECT_EQ(table.processes().at(41).parent, 7);
}

}  // namespace
}  // namespace orvane
