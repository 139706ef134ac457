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
  class Claim : public MemoryClaim {
   public:
    Claim(FakeMemoryClaims& owner, std::size_t words) : owner_(owner), words_(words, 0xFFFFFFFF) {
      ++owner_.heldClaims;
    }
    ~Claim() override {
      --owner_.heldClaims;
      owner_.released = std::move(words_);
    }
    Claim(const Claim&) = delete;
    Claim& operator=(const Claim&) = delete;
    [[nodiscard]] std::span<std::uint32_t> words() override { return words_; }

   private:
    FakeMemoryClaims& owner_;
    std::vector<std::uint32_t> words_;
  };
};

}  // namespace orvane::fakes
