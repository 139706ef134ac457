#pragma once

#include <chrono>
#include <cstdint>
#include <optional>
#include <span>
#include <vector>

#include "platform/linux/applications/process_table.h"

namespace orvane {

/// Bytes that an application holds.
///
/// Where its processes were read it is the sum of their proportional sizes, moved by what the cheap
/// figures have changed since; elsewhere the estimate: what each process has for itself and the
/// largest shared part once. A forked process that wasn't read has for itself what it has more than
/// its parent, because most of its pages are still the parent's. It is never less than what one
/// process has for itself, however many forks took part in that when it was read. At least a page.
[[nodiscard]] std::uint64_t memoryFigure(std::span<Process* const> members);

/// How the proportional sizes of one application are kept up to date: in rounds that read all of
/// its processes and count when they are complete, because a part of the processes tells nothing.
struct ReadingState {
  std::optional<ReadingTime> roundStart;  ///< of the round under way
  std::uint64_t lastSerial = 0;           ///< of the processes that were there then
  std::uint64_t figureAfterRound = 0;     ///< bytes; 0 before the first one has ended
};

/// The memoryFigure after a round was ended that is complete. Makes its readings count.
[[nodiscard]] std::uint64_t currentFigure(std::span<Process* const> members, ReadingState& state);

/// How much reading is allowed.
struct ReadingPace {
  std::chrono::seconds maximumAge;        ///< of a reading
  std::chrono::seconds shortestInterval;  ///< between two readings of a figure that moves
  std::uint64_t budget = 0;               ///< bytes of resident memory that a tick may read anyway
  std::uint64_t mostBudget = 0;           ///< and at most
  std::uint64_t ticks = 1;                ///< that it may take to read everything

  /// While somebody looks at the figures, or while nobody does.
  [[nodiscard]] static ReadingPace of(bool watched);
};

/// An application as the choice of the next readings sees it.
struct ReadingCandidate {
  std::span<Process* const> members;
  std::uint64_t figure = 0;  ///< bytes, its currentFigure
  ReadingState* state = nullptr;
};

/// The processes whose proportional size is read next, the most urgent application's first: those
/// of 100 MB or more that were never read, whose figure has moved by more than a tenth, or whose
/// readings are old. At least one process, however large, as long as there is something to read.
/// Updates the applications' states.
[[nodiscard]] std::vector<Process*> nextReadings(std::span<const ReadingCandidate> candidates,
                                                 const ReadingPace& pace, ReadingTime now);

}  // namespace orvane
