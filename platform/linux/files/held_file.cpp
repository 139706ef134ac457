#include "platform/linux/files/held_file.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>

namespace orvane {
namespace {

constexpr std::size_t longestContent = 16384;

}  // namespace

std::string_view HeldFile::read() {
  if (!ensureOpen()) return {};
  return std::string_view(buffer_).substr(0, readPiece(0));
}

std::string_view HeldFile::readToEnd() {
  if (!ensureOpen()) return {};
  std::size_t length = 0;
  while (const std::size_t count = readPiece(length)) length += count;
  return std::string_view(buffer_).substr(0, length);
}

bool HeldFile::ensureOpen() {
  struct stat status {};
  const bool replaced =
      descriptor_.isOpen() && (::fstat(descriptor_.get(), &status) != 0 || status.st_nlink == 0);
  if (replaced) reopen();
  if (!descriptor_.isOpen()) {
    descriptor_ = FileDescriptor(::open(path_.c_str(), O_RDONLY | O_CLOEXEC | O_NONBLOCK));
  }
  if (buffer_.empty()) buffer_.resize(longestContent);
  return descriptor_.isOpen();
}

std::size_t HeldFile::readPiece(std::size_t offset) {
  ssize_t count = -1;
  do {
    count = ::pread(descriptor_.get(), buffer_.data() + offset, buffer_.size() - offset,
                    static_cast<off_t>(offset));
  } while (count < 0 && errno == EINTR);
  if (count < 0) reopen();
  return count > 0 ? static_cast<std::size_t>(count) : 0;
}

}  // namespace orvane
