#pragma once

#include <cstdint>
#include <optional>
#include <string>

#include "core/memory_stats.h"
#include "core/texts.h"
#include "platform/dispatch.h"
#include "platform/memory_claims.h"
#include "platform/random_source.h"

namespace orvane {

inline constexpr std::uint64_t boostClaimCeiling = 2147483648;  ///< bytes
inline constexpr Duration boostHoldTime{1.0};
inline constexpr Duration boostReleasePause{0.5};
inline constexpr Duration boostCheckInterval{1.0};
inline constexpr int boostCheckCount = 10;
inline constexpr const char* boostCompletedName = "BoostCompleted";
inline constexpr const char* boostNotificationTitle = "Boost Complete!";

/// What a boost that starts at `initial` claims, in 32-bit words: inactive and half of the free
/// memory, at most 2 GiB; 0 when that is less than one word.
[[nodiscard]] std::size_t boostClaimWords(const MemoryStats& initial);

/// Claims, fills, holds for a second, releases and pauses. Blocks; background threads only.
/// When the memory can't be had the times pass all the same; when the queue ends, it stops there.
void claimAndRelease(const MemoryStats& initial, MemoryClaims& claims, RandomSource& random,
                     BackgroundQueue& queue);

/// MB of free memory gained (or lost, negative) since `initial`.
[[nodiscard]] double freedMegabytes(const MemoryStats& initial, const MemoryStats& current);

/// The amount to report at a check, in MB; none when the change is not significant. A fall of free
/// memory by more than 2 % of the total counts, with its size.
[[nodiscard]] std::optional<double> significantGainAtCheck(const MemoryStats& initial,
                                                           const MemoryStats& current);

/// The amount to report when no check found a gain, in MB; none at 10 MB or less.
[[nodiscard]] std::optional<double> significantGainAtEnd(const MemoryStats& initial,
                                                         const MemoryStats& current);

/// "Freed 60 MB of memory"
[[nodiscard]] std::string boostNotificationBody(double freedMB,
                                                const Translate& translate = inEnglish);

}  // namespace orvane
