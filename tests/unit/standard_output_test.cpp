#include <fcntl.h>
#include <gtest/gtest.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <string>
#include <thread>
#include <vector>

#include "platform/linux/file_descriptor.h"
#include "platform/linux/linux_standard_output.h"

namespace orvane {
namespace {

struct Pipe {
  Pipe() {
    std::array<int, 2> ends{};
    if (::pipe2(ends.data(), O_CLOEXEC) != 0) return;
    reader = FileDescriptor(ends[0]);
    writer = FileDescriptor(ends[1]);
  }

  std::string readAll() {
    writer = [] { return FileDescriptor(); }();
    std::string text;
    std::array<char, 4096> buffer{};
    ssize_t count = 0;
    while ((count = ::read(reader.get(), buffer.data(), buffer.size())) > 0) {
      text.append(buffer.data(), static_cast<std::size_t>(count));
    }
    return text;
  }

  FileDescriptor reader;
  FileDescriptor writer;
};

TEST(StandardOutput, linesOfManyThreadsNeverMix) {
  Pipe pipe;
  LinuxStandardOutput output(pipe.writer.get());
  std::vector<std::thread> threads;
  for (const char letter : {'a', 'b', 'c', 'd'}) {
    threads.emplace_back([&output, letter] {
      for (int i = 0; i < 50; ++i) output.printLine(std::string(100, letter));
    });
  }
  for (std::thread& thread : threads) thread.join();
  const std::string text = pipe.readAll();
  ASSERT_EQ(text.size(), 4U * 50 * 101);
  for (std::size_t start = 0; start < text.size(); start += 101) {
    EXPECT_EQ(text.substr(start, 101), std::string(100, text[start]) + "\n");
  }
}

TEST(StandardOutput, alwaysOneLine) {
  Pipe pipe;
  LinuxStandardOutput(pipe.writer.get()).printLine("two\nlines\r\n");
  EXPECT_EQ(pipe.readAll(), "two lines  \n");
}

TEST(StandardOutput, survivesReadersThatLeftOrStandStill) {
  Pipe left;
  left.reader = FileDescriptor();
  LinuxStandardOutput(left.writer.get()).printLine("nobody listens");

  Pipe stuck;
  LinuxStandardOutput full(stuck.writer.get());
  for (int i = 0; i < 2000; ++i) full.printLine(std::string(100, 'x'));

  LinuxStandardOutput(-1).printLine("closed");
  SUCCEED() << "neither ended the program nor held it up";
}

}  // namespace
}  // namespace orvane
