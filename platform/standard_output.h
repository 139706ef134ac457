#pragma once

#include <string_view>

namespace orvane {

/// The program's standard output, where the failures it reports appear as one line each.
/// Threads: any; lines never mix. A closed output is ignored.
class StandardOutput {
 public:
  virtual ~StandardOutput() = default;

  virtual void printLine(std::string_view line) = 0;
};

}  // namespace orvane
