#pragma once

#include <mutex>

#include "platform/standard_output.h"

namespace orvane {

/// Opens /dev/null in the place of each standard stream that is closed: what the program opened
/// there would get the lines printed into it. To be called before anything is opened.
void fillStandardStreams();

/// Lines on a descriptor, one write each. A line that can't be taken at once (a reader that stands
/// still) is dropped rather than waited for. A closed reader does no harm: the process ignores
/// SIGPIPE from here on.
class LinuxStandardOutput : public StandardOutput {
 public:
  /// The descriptor stays the caller's.
  explicit LinuxStandardOutput(int descriptor = 1);

  void printLine(std::string_view line) override;

 private:
  std::mutex mutex_;
  int descriptor_;
};

}  // namespace orvane
