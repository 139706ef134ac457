#include "platform/linux/applications/application_memory.h"

#include <unistd.h>

#include <algorithm>
#include <limits>
#include <utility>

namespace orvane {
namespace {

using std::chrono::seconds;

/// Resident bytes of all processes together, which is never less than their proportional size.
constexpr std::uint64_t smallestRead = 100'000'000;
constexpr std::uint64_t smallestDrift = 10'000'000;
/// One reading of more than this can't be cut in pieces and holds the process' memory map for long.
constexpr std::uint64_t hugeProcess = std::uint64_t{4} << 30;

constexpr double underWay = std::numeric_limits<double>::infinity();

bool isRead(const Process& process) {
  return process.reading && process.reading->proportionalSize;
}

std::uint64_t residentSize(std::span<Process* const> members) {
  std::uint64_t sum = 0;
  for (const Process* member : members) sum += member->residentSize;
  return sum;
}

/// Larger processes' readings may be older.
double ageFactor(std::span<Process* const> members) {
  std::uint64_t largest = 0;
  for (const Process* member : members) largest = std::max(largest, member->residentSize);
  return std::max(1.0, static_cast<double>(largest) / static_cast<double>(hugeProcess));
}

std::optional<ReadingTime> oldestReading(std::span<Process* const> members) {
  std::optional<ReadingTime> oldest;
  for (const Process* member : members) {
    const auto& reading = member->reading;
    if (reading) oldest = std::min(oldest.value_or(reading->taken), reading->taken);
  }
  return oldest;
}

/// From 1 on the application is due; 0 when it is too small to be read at all.
double urgency(const ReadingCandidate& candidate, const ReadingPace& pace, ReadingTime now) {
  if (candidate.state->roundStart) return underWay;
  const auto oldest = oldestReading(candidate.members);
  if (!oldest) {
    // Applications that were never read come first, the largest ahead. Small ones are never begun,
    // but one that was read goes on being read: an old reading is worse than none.
    const std::uint64_t resident = residentSize(candidate.members);
    return resident < smallestRead ? 0 : static_cast<double>(resident);
  }
  const double age =
      std::chrono::duration<double>(now - *oldest).count() / ageFactor(candidate.members);
  const double ageUrgency = age / static_cast<double>(pace.maximumAge.count());
  if (age < static_cast<double>(pace.shortestInterval.count())) return ageUrgency;
  const std::uint64_t before = candidate.state->figureAfterRound;
  const std::uint64_t drift =
      std::max(before, candidate.figure) - std::min(before, candidate.figure);
  const std::uint64_t allowedDrift = std::max(candidate.figure / 10, smallestDrift);
  return std::max(ageUrgency, static_cast<double>(drift) / static_cast<double>(allowedDrift));
}

bool isWanted(const Process& process, const ReadingState& state) {
  const bool wasThere = process.serial <= state.lastSerial;
  return wasThere && (!process.pending || process.pending->taken < *state.roundStart);
}

void beginRound(const ReadingCandidate& candidate, ReadingTime now) {
  candidate.state->roundStart = now;
  for (const Process* member : candidate.members) {
    candidate.state->lastSerial = std::max(candidate.state->lastSerial, member->serial);
  }
}

struct Due {
  const ReadingCandidate* candidate = nullptr;
  double urgency = 0;
};

std::vector<Due> dueCandidates(std::span<const ReadingCandidate> candidates,
                               const ReadingPace& pace, ReadingTime now) {
  std::vector<Due> due;
  for (const auto& candidate : candidates) {
    const double value = urgency(candidate, pace, now);
    if (value >= 1) due.push_back({&candidate, value});
  }
  std::stable_sort(due.begin(), due.end(),
                   [](const Due& a, const Due& b) { return a.urgency > b.urgency; });
  return due;
}

}  // namespace

std::uint64_t memoryFigure(std::span<Process* const> members) {
  std::uint64_t read = 0;  // what the read ones hold
  std::uint64_t unread = 0;
  std::uint64_t sharedByRead = 0;
  std::uint64_t sharedWhenRead = 0;
  std::uint64_t sharedByUnread = 0;
  std::uint64_t least = static_cast<std::uint64_t>(std::max(::sysconf(_SC_PAGESIZE), 1L));
  for (const Process* process : members) {
    const std::uint64_t own = process->ownSize();
    if (process->familyInside) least = std::max(least, own);
    if (isRead(*process)) {
      // A process can't have lost more than it had.
      const std::uint64_t now = *process->reading->proportionalSize + own;
      read += now - std::min(now, process->reading->ownSize);
      sharedByRead = std::max(sharedByRead, process->sharedSize);
      sharedWhenRead = std::max(sharedWhenRead, process->reading->sharedSize);
    } else {
      unread +=
          own - std::min(own, process->forkedFrom == nullptr ? 0 : process->forkedFrom->ownSize());
      sharedByUnread = std::max(sharedByUnread, process->sharedSize);
    }
  }
  read += sharedByRead;
  read -= std::min(read, sharedWhenRead);
  // The same shared memory is in the readings already.
  unread += sharedByUnread - std::min(sharedByUnread, read);
  return std::max(read + unread, least);
}

std::uint64_t currentFigure(std::span<Process* const> members, ReadingState& state) {
  const auto wanted = [&](const Process* member) { return isWanted(*member, state); };
  const bool complete = state.roundStart && std::none_of(members.begin(), members.end(), wanted);
  if (!complete) return memoryFigure(members);
  for (Process* member : members) {
    auto& pending = member->pending;
    if (pending) member->reading = std::exchange(pending, std::nullopt);
  }
  state = {.roundStart = {}, .lastSerial = 0, .figureAfterRound = memoryFigure(members)};
  return state.figureAfterRound;
}

ReadingPace ReadingPace::of(bool watched) {
  constexpr std::uint64_t mebibyte = 1 << 20;
  // The age and the ticks, of five seconds each, come to less than a minute and than five minutes.
  if (watched) return {seconds(35), seconds(15), 2048 * mebibyte, 8192 * mebibyte, 4};
  return {seconds(180), seconds(90), 256 * mebibyte, 1024 * mebibyte, 22};
}

std::vector<Process*> nextReadings(std::span<const ReadingCandidate> candidates,
                                   const ReadingPace& pace, ReadingTime now) {
  const auto due = dueCandidates(candidates, pace, now);
  std::uint64_t total = 0;
  for (const auto& each : candidates) total += residentSize(each.members);
  const std::uint64_t budget = std::clamp(total / pace.ticks, pace.budget, pace.mostBudget);
  std::vector<Process*> chosen;
  std::uint64_t spent = 0;
  for (const auto& [candidate, urgency] : due) {
    if (!candidate->state->roundStart) beginRound(*candidate, now);
    for (Process* const process : candidate->members) {
      if (!isWanted(*process, *candidate->state)) continue;
      if (!chosen.empty() && spent + process->residentSize > budget) return chosen;
      chosen.push_back(process);
      spent += process->residentSize;
    }
  }
  return chosen;
}

}  // namespace orvane
