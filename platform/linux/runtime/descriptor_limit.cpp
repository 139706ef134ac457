#include "platform/linux/runtime/descriptor_limit.h"

#include <algorithm>

namespace orvane {
namespace {

/// Enough for the processes of any desktop.
constexpr rlim_t mostDescriptors = 65536;

}  // namespace

DescriptorLimit::DescriptorLimit() {
  if (::getrlimit(RLIMIT_NOFILE, &original_) != 0) return;
  rlimit raised = original_;
  raised.rlim_cur = std::max(original_.rlim_cur, std::min(original_.rlim_max, mostDescriptors));
  const bool set = ::setrlimit(RLIMIT_NOFILE, &raised) == 0;
  current_ = std::min((set ? raised : original_).rlim_cur, mostDescriptors);
}

DescriptorLimit::~DescriptorLimit() {
  if (original_.rlim_max != 0) ::setrlimit(RLIMIT_NOFILE, &original_);
}

}  // namespace orvane
