#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <span>

namespace orvane {

/// A block of memory that is given back to the kernel when the object is destroyed.
class MemoryClaim {
 public:
  virtual ~MemoryClaim() = default;

  /// The block, aligned to a page. The pages are not yet backed by memory: whoever writes them
  /// makes them real.
  [[nodiscard]] virtual std::span<std::uint32_t> words() = 0;
};

/// Hands out large blocks of memory.
/// Threads: any. Ownership: the caller owns the claim; releasing it returns every page at once.
class MemoryClaims {
 public:
  virtual ~MemoryClaims() = default;

  /// A block of `words` 32-bit words, or null when that much can't be had without risk to other
  /// programs (not enough available memory, a cgroup limit, no address space).
  [[nodiscard]] virtual std::unique_ptr<MemoryClaim> claim(std::size_t words) = 0;
};

}  // namespace orvane
