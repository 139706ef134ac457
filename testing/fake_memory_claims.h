#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <span>
#include <vector>

#include "platform/memory_claims.h"

namespace orvane::fakes {

/// Records what is claimed and hands out blocks of the test's own memory, or none at all.
class FakeMemoryClaims : public MemoryClaims {
 public:
  std::unique_ptr<MemoryClaim> claim(std::size_t words) override {
    claimedWords.push_back(words);
    if (refuses) return nullptr;
    return std::make_unique<Claim>(*this, words);
  }

  bool refuses = false;
  std::vector<std::size_t> claimedWords;
  std::vector<std::uint32_t> released;  ///< content of the last block at its release
  int heldClaims = 0;

 private:
  struct Claim : MemoryClaim {
    Claim(FakeMemoryClaims& of, std::size_t size) : owner(of), content(size, 0xFFFFFFFF) {
      ++owner.heldClaims;
    }
    ~Claim() override {
      --owner.heldClaims;
      owner.released = std::move(content);
    }
    Claim(const Claim&) = delete;
    Claim& operator=(const Claim&) = delete;
    [[nodiscard]] std::span<std::uint32_t> words() override { return content; }

    FakeMemoryClaims& owner;
    std::vector<std::uint32_t> content;
  };
};

}  // namespace orvane::fakes
