#pragma once

#include <string>
#include <string_view>
#include <utility>

#include "platform/linux/files/file_descriptor.h"

namespace orvane {

/// A small file of the kernel that is read again and again through one open descriptor.
/// Threads: one at a time.
class HeldFile {
 public:
  explicit HeldFile(std::string path) : path_(std::move(path)) {}

  /// The content from the start, as much as one read gives (at most 16 KiB): all of it for files
  /// that the kernel writes in one piece. Empty when the file can't be read. A file that was
  /// removed or replaced since is opened anew. The view is valid until the next call.
  [[nodiscard]] std::string_view read();

  /// The same for files that the kernel gives piece by piece: reads on until the end.
  [[nodiscard]] std::string_view readToEnd();

  /// Opens the path anew at the next read.
  void reopen() { descriptor_ = FileDescriptor(); }

 private:
  [[nodiscard]] bool ensureOpen();
  [[nodiscard]] std::size_t readPiece(std::size_t offset);

  std::string path_;
  FileDescriptor descriptor_;
  std::string buffer_;
};

}  // namespace orvane
