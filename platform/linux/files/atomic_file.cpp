#include "platform/linux/files/atomic_file.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <cstdio>
#include <cstdlib>
#include <system_error>

#include "platform/linux/files/file_descriptor.h"

namespace orvane {
namespace {

bool writeAll(int descriptor, std::string_view content) {
  while (!content.empty()) {
    const ssize_t count = ::write(descriptor, content.data(), content.size());
    if (count < 0 && errno == EINTR) continue;
    if (count < 0) return false;
    content.remove_prefix(static_cast<std::size_t>(count));
  }
  return true;
}

std::string lastError() {
  return std::generic_category().message(errno);
}

}  // namespace

std::optional<std::string> writeFileAtomically(const std::string& path, std::string_view content) {
  constexpr mode_t readableByAll = 0644;
  std::string temporary = path + ".XXXXXX";
  const FileDescriptor file(::mkostemp(temporary.data(), O_CLOEXEC));
  if (!file.isOpen()) return lastError();
  const bool done = writeAll(file.get(), content) && ::fchmod(file.get(), readableByAll) == 0 &&
                    ::fsync(file.get()) == 0 && std::rename(temporary.c_str(), path.c_str()) == 0;
  if (done) return std::nullopt;
  const std::string error = lastError();
  ::unlink(temporary.c_str());
  return error;
}

}  // namespace orvane
