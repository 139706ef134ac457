#pragma once

#include <cstdint>
#include <memory>

#include "platform/linux/files/file_descriptor.h"
#include "platform/running_applications.h"

namespace orvane {

/// A process held by a pidfd: it stands for this one process for ever, whoever gets its pid next.
class LinuxProcessHandle : public ProcessHandle {
 public:
  explicit LinuxProcessHandle(FileDescriptor process) : process_(std::move(process)) {}

  /// Opens the process that has `pid` now. The caller makes sure afterwards that it still is the
  /// one that was meant. Null when there is none.
  [[nodiscard]] static std::shared_ptr<const LinuxProcessHandle> open(std::int32_t pid);

  void kill() const override;

 private:
  FileDescriptor process_;
};

}  // namespace orvane
