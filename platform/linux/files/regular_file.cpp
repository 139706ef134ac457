#include "platform/linux/files/regular_file.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>

#include "platform/linux/files/file_descriptor.h"

namespace orvane {
namespace {

constexpr std::size_t smallestPiece = 4096;

/// Opening a pipe, a terminal or a tape without these flags may wait for it, or take it over.
FileDescriptor openWithoutWaiting(const std::string& path) {
  int descriptor = -1;
  do {
    descriptor = ::open(path.c_str(), O_RDONLY | O_CLOEXEC | O_NONBLOCK | O_NOCTTY);
  } while (descriptor < 0 && errno == EINTR);
  return FileDescriptor(descriptor);
}

/// At most `size` bytes into `buffer`; none on failure.
std::optional<std::size_t> readPiece(int descriptor, char* buffer, std::size_t size) {
  ssize_t count = -1;
  do {
    count = ::read(descriptor, buffer, size);
  } while (count < 0 && errno == EINTR);
  return count < 0 ? std::nullopt : std::optional(static_cast<std::size_t>(count));
}

}  // namespace

std::optional<std::string> readRegularFile(const std::string& path, std::size_t limit) {
  // A path with a NUL would name another file.
  if (path.find('\0') != std::string::npos) return {};
  const FileDescriptor file = openWithoutWaiting(path);
  struct stat status {};
  if (!file.isOpen() || ::fstat(file.get(), &status) != 0 || !S_ISREG(status.st_mode)) return {};
  const auto size = static_cast<std::size_t>(std::max<off_t>(status.st_size, 0));
  if (size > limit) return {};
  // Files of the kernel have no size, and others may grow meanwhile: only the end is the end.
  std::string content(std::max(size + 1, smallestPiece), '\0');
  std::size_t length = 0;
  while (const auto count =
             readPiece(file.get(), content.data() + length, content.size() - length)) {
    length += *count;
    if (length > limit) return {};
    if (*count == 0) {
      content.resize(length);
      return content;
    }
    if (length == content.size()) content.resize(std::min(length * 2, limit + 1));
  }
  return {};
}

}  // namespace orvane
