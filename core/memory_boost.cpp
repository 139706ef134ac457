#include "core/memory_boost.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <span>

#include "core/number_format.h"

namespace orvane {
namespace {

constexpr std::size_t wordsPerPage = 1024;  // 4,096 bytes
constexpr std::size_t wordsPerPiece = 256 * wordsPerPage;

// Identical pages could be merged or compressed away: one random word makes each page its own.
void fill(std::span<std::uint32_t> words, RandomSource& random, BackgroundQueue& queue) {
  while (!words.empty() && !queue.isEnding()) {
    const auto piece = words.first(std::min(words.size(), wordsPerPiece));
    std::fill(piece.begin(), piece.end(), 0U);
    for (std::size_t index = 0; index < piece.size(); index += wordsPerPage) {
      piece[index] = static_cast<std::uint32_t>(random.next());
    }
    words = words.subspan(piece.size());
  }
}

}  // namespace

std::size_t boostClaimWords(const MemoryStats& initial) {
  const std::uint64_t amount = initial.inactive + initial.free / 2;
  return std::min(amount, boostClaimCeiling) / sizeof(std::uint32_t);
}

void claimAndRelease(const MemoryStats& initial, MemoryClaims& claims, RandomSource& random,
                     BackgroundQueue& queue) {
  std::unique_ptr<MemoryClaim> claim;
  if (const std::size_t words = boostClaimWords(initial); words > 0) claim = claims.claim(words);
  if (claim) fill(claim->words(), random, queue);
  queue.sleep(boostHoldTime);
  claim.reset();
  queue.sleep(boostReleasePause);
}

double freedMegabytes(const MemoryStats& initial, const MemoryStats& current) {
  return megabytes(current.free) - megabytes(initial.free);
}

std::optional<double> significantGainAtCheck(const MemoryStats& initial,
                                             const MemoryStats& current) {
  const double freed = freedMegabytes(initial, current);
  const double share = freed / megabytes(initial.totalMemory()) * 100.0;
  if (freed > 50.0 || std::abs(share) > 2.0) return std::abs(freed);
  return std::nullopt;
}

std::optional<double> significantGainAtEnd(const MemoryStats& initial, const MemoryStats& current) {
  const double freed = freedMegabytes(initial, current);
  return freed > 10.0 ? std::optional(freed) : std::nullopt;
}

std::string boostNotificationBody(double freedMB, const Translate& translate) {
  return filled(translate("Freed %1 MB of memory", "notification; %1 is a number"),
                {fixedText(freedMB, 0)});
}

}  // namespace orvane
