#pragma once

#include <sys/resource.h>

#include <cstddef>

namespace orvane {

/// Raises the number of descriptors this process may open as far as it is allowed to, and puts it
/// back when destroyed.
///
/// Programs started meanwhile inherit the raised limit unless whoever starts them sets the usual
/// one.
class DescriptorLimit {
 public:
  DescriptorLimit();
  ~DescriptorLimit();
  DescriptorLimit(const DescriptorLimit&) = delete;
  DescriptorLimit& operator=(const DescriptorLimit&) = delete;

  /// How many may be open at once now.
  [[nodiscard]] std::size_t current() const { return current_; }

 private:
  rlimit original_{};
  std::size_t current_ = 0;
};

}  // namespace orvane
