#include <fcntl.h>
#include <gtest/gtest.h>
#include <unistd.h>

#include <array>
#include <atomic>
#include <chrono>
#include <filesystem>
#include <iterator>
#include <latch>
#include <string>
#include <thread>
#include <vector>

#include "platform/linux/files/file_descriptor.h"
#include "platform/linux/runtime/linux_background_queue.h"
#include "platform/linux/runtime/linux_dispatch.h"
#include "platform/linux/runtime/linux_standard_output.h"
#include "tests/unit/test_support.h"

namespace orvane {
namespace {

TEST(MainQueue, takesBlocksOfManyThreadsAndRunsThemOnItsOwn) {
  LinuxMainQueue queue;
  const auto mainThread = std::this_thread::get_id();
  int ran = 0;
  std::vector<std::thread> threads;
  for (int i = 0; i < 4; ++i) {
    threads.emplace_back([&] {
      const auto count = [&] { ran += std::this_thread::get_id() == mainThread ? 1 : 1000; };
      for (int j = 0; j < 100; ++j) queue.async(count);
      queue.after(Duration{0.001}, count);
    });
  }
  for (std::thread& thread : threads) thread.join();
  EXPECT_EQ(ran, 0);
  EXPECT_TRUE(waitUntil([&] { return ran == 404; })) << ran;
}

TEST(MainQueue, itsEndDropsWhatIsPending) {
  bool ran = false;
  auto held = std::make_shared<int>(1);
  {
    LinuxMainQueue queue;
    const auto block = [&ran, held] { ran = true; };
    queue.async(block);
    for (const double seconds : {0.001, 600.0}) queue.after(Duration{seconds}, block);
  }
  QTest::qWait(10);
  EXPECT_FALSE(ran);
  EXPECT_EQ(held.use_count(), 1) << "and releases what the blocks held";
}

TEST(BackgroundQueue, runsTwoBlocksAtATimeAndKeepsNoThread) {
  const auto threadCount = [] {
    using Iterator = std::filesystem::directory_iterator;
    return std::distance(Iterator("/proc/self/task"), Iterator());
  };
  std::thread([] {}).join();  // a sanitizer starts one of its own with the first
  const auto before = threadCount();
  LinuxBackgroundQueue queue;
  std::latch meeting(2);
  std::atomic<int> ran = 0;
  for (int i = 0; i < 22; ++i) {
    queue.async([&, i] {
      if (i < 2) meeting.arrive_and_wait();
      ++ran;
    });
  }
  EXPECT_LE(threadCount(), before + 2);
  EXPECT_TRUE(waitUntil([&] { return ran == 22 && threadCount() == before; }));
  queue.async([&] { ++ran; });
  EXPECT_TRUE(waitUntil([&] { return ran == 23; })) << "idle queues still work";
}

TEST(BackgroundQueue, itsEndWakesSleepersWaitsForThemAndDropsTheRest) {
  std::atomic<int> finished = 0;
  const auto start = std::chrono::steady_clock::now();
  {
    LinuxBackgroundQueue queue;
    std::latch asleep(2);
    for (int i = 0; i < 2; ++i) {
      queue.async([&] {
        asleep.count_down();
        queue.sleep(Duration{3600});
        if (queue.isEnding()) ++finished;
      });
    }
    queue.async([&] { finished += 100; });
    asleep.wait();
  }
  EXPECT_EQ(finished, 2);
  EXPECT_LT(std::chrono::steady_clock::now() - start, std::chrono::minutes(1));
}

struct Pipe {
  std::array<int, 2> ends{};
  const int failure = ::pipe2(ends.data(), O_CLOEXEC);
  FileDescriptor reader{ends[0]}, writer{ends[1]};
};

TEST(StandardOutput, printsOneLineAndSurvivesReadersThatLeftOrStandStill) {
  Pipe pipe;
  LinuxStandardOutput(pipe.writer.get()).printLine("two\nlines\r\033\177");
  std::array<char, 100> buffer{};
  const ssize_t count = ::read(pipe.reader.get(), buffer.data(), buffer.size());
  EXPECT_EQ(std::string_view(buffer.data(), static_cast<std::size_t>(count)), "two lines   \n");
  Pipe left;
  left.reader = FileDescriptor();
  LinuxStandardOutput(left.writer.get()).printLine("nobody listens: must not end the program");
  Pipe stuck;
  LinuxStandardOutput full(stuck.writer.get());
  for (int i = 0; i < 2000; ++i) full.printLine(std::string(100, 'x'));  // must not wait
}

}  // namespace
}  // namespace orvane
