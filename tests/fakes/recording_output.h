#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "platform/standard_output.h"

namespace orvane::fakes {

/// Keeps the printed lines.
class RecordingOutput : public StandardOutput {
 public:
  void printLine(std::string_view line) override { lines.emplace_back(line); }

  std::vector<std::string> lines;
};

}  // namespace orvane::fakes
