#include <fcntl.h>
#include <gtest/gtest.h>
#include <unistd.h>

#include <array>
#include <string>

#include "platform/linux/files/file_descriptor.h"
#include "platform/linux/runtime/linux_standard_output.h"

namespace orvane {
namespace {

struct Pipe {
  Pipe() {
    std::array<int, 2> ends{};
    if (::pipe2(ends.data(), O_CLOEXEC) != 0) return;
    reader = FileDescriptor(ends[0]);
    writer = FileDescriptor(ends[1]);
  }

  FileDescriptor reader, writer;
};

TEST(StandardOutput, printsOneLineAndSurvivesReadersThatLeftOrStandStill) {
  Pipe pipe;
  LinuxStandardOutput(pipe.writer.get()).printLine("two\nlines\r\n");
  std::array<char, 100> buffer{};
  const ssize_t count = ::read(pipe.reader.get(), buffer.data(), buffer.size());
  EXPECT_EQ(std::string_view(buffer.data(), static_cast<std::size_t>(count)), "two lines  \n");
  Pipe left;
  left.reader = FileDescriptor();
  LinuxStandardOutput(left.writer.get()).printLine("nobody listens: must not end the program");
  Pipe stuck;
  LinuxStandardOutput full(stuck.writer.get());
  for (int i = 0; i < 2000; ++i) full.printLine(std::string(100, 'x'));  // must not wait
}

}  // namespace
}  // namespace orvane
