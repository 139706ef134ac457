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
