#pragma once

#include <mutex>

#include "platform/standard_output.h"

namespace orvane {

/// Lines on a descriptor, one write each. A line that can't be taken at once (a reader that stands
/// still) is dropped rather than waited for, and a closed reader does no harm.
class LinuxStandardOutput : public StandardOutput {
 public:
  /// The descriptor stays the caller's.
  explicit LinuxStandardOutput(int descriptor = 1) : descriptor_(descriptor) {}

  void printLine(std::string_view line) override;

 private:
  std::mutex mutex_;
  int descriptor_;
};

}  // namespace orvane
