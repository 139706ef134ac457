#include "platform/linux/files/regular_file.h"

#include <fcntl.h>
#include <sys/stat.h>

#include <QtCore/QFile>

#include "platform/linux/files/file_descriptor.h"

namespace orvane {

std::optional<std::string> readRegularFile(const std::string& path, std::size_t limit) {
  // A path with a NUL would name another file.
  if (path.find('\0') != std::string::npos) return {};
  // Opening a pipe, a terminal or a tape without these flags may wait for it, or take it over.
  const FileDescriptor descriptor(
      ::open(path.c_str(), O_RDONLY | O_CLOEXEC | O_NONBLOCK | O_NOCTTY));
  struct stat status {};
  if (!descriptor.isOpen() || ::fstat(descriptor.get(), &status) != 0) return {};
  if (!S_ISREG(status.st_mode) || status.st_size > static_cast<qint64>(limit)) return {};
  QFile file;
  if (!file.open(descriptor.get(), QIODevice::ReadOnly | QIODevice::Unbuffered)) return {};
  // Files of the kernel have no size, and others may grow meanwhile: only the end is the end.
  const QByteArray content = file.read(static_cast<qint64>(limit) + 1);
  const bool isWhole =
      file.error() == QFile::NoError && content.size() <= static_cast<qint64>(limit);
  return isWhole ? std::optional(content.toStdString()) : std::nullopt;
}

}  // namespace orvane
