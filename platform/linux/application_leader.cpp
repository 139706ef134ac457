#include "platform/linux/application_leader.h"

#include <algorithm>

namespace orvane {
namespace {

constexpr std::size_t none = static_cast<std::size_t>(-1);
/// A wrapper starts its program within this time (10 s, the kernel counts in 1/100 s); what a
/// longer lived script starts later are its tools.
constexpr std::uint64_t startUpTicks = 1000;

class LeaderChoice {
 public:
  LeaderChoice(std::span<const GroupedProcess> processes, const std::vector<std::size_t>& parents,
               const ApplicationGroup& group)
      : processes_(processes), members_(group.members) {
    for (const std::size_t member : members_) parents_.push_back(positionOf(parents[member]));
    aboveWindow_.resize(members_.size(), false);
    for (std::size_t i = 0; i < members_.size(); ++i) {
      if (!at(i).ownsWindow) continue;
      for (std::size_t up = i; up != none && !aboveWindow_[up]; up = parents_[up]) {
        aboveWindow_[up] = true;
      }
    }
  }

  [[nodiscard]] std::size_t root() const {
    return best([&](std::size_t i) { return parents_[i] == none; },
                [&](std::size_t a, std::size_t b) { return isOlder(at(a), at(b)); });
  }

  [[nodiscard]] std::size_t leader(std::size_t root) const {
    std::size_t leader = root;
    while (at(leader).role == ProcessRole::wrapper) {
      const std::size_t program =
          best([&](std::size_t i) { return isProgramOf(i, leader); },
               [&](std::size_t a, std::size_t b) { return isMoreLikelyProgram(a, b); });
      if (program == none) break;
      leader = program;
    }
    return leader;
  }

 private:
  [[nodiscard]] const GroupedProcess& at(std::size_t i) const { return processes_[members_[i]]; }

  /// Place of a process in the group (members are sorted); none for others.
  [[nodiscard]] std::size_t positionOf(std::size_t process) const {
    const auto found = std::lower_bound(members_.begin(), members_.end(), process);
    return found != members_.end() && *found == process
               ? static_cast<std::size_t>(found - members_.begin())
               : none;
  }

  [[nodiscard]] bool isProgramOf(std::size_t i, std::size_t wrapper) const {
    return parents_[i] == wrapper &&
           (aboveWindow_[i] || at(i).startTime <= at(wrapper).startTime + startUpTicks);
  }

  [[nodiscard]] bool isMoreLikelyProgram(std::size_t a, std::size_t b) const {
    if (at(a).residentSize != at(b).residentSize) return at(a).residentSize > at(b).residentSize;
    return isOlder(at(a), at(b));
  }

  /// The first member by `isBetter` among those that qualify; one above a window comes before.
  template <typename Qualifies, typename IsBetter>
  [[nodiscard]] std::size_t best(Qualifies qualifies, IsBetter isBetter) const {
    std::size_t found = none;
    for (std::size_t i = 0; i < members_.size(); ++i) {
      if (!qualifies(i)) continue;
      const bool better =
          found == none ||
          (aboveWindow_[i] != aboveWindow_[found] ? aboveWindow_[i] : isBetter(i, found));
      if (better) found = i;
    }
    return found;
  }

  std::span<const GroupedProcess> processes_;
  const std::vector<std::size_t>& members_;
  std::vector<std::size_t> parents_;  ///< inside the group
  std::vector<bool> aboveWindow_;     ///< it or something below it owns a window
};

}  // namespace

bool isOlder(const GroupedProcess& a, const GroupedProcess& b) {
  return a.startTime != b.startTime ? a.startTime < b.startTime : a.pid < b.pid;
}

void chooseLeader(std::span<const GroupedProcess> processes,
                  const std::vector<std::size_t>& parents, ApplicationGroup& group) {
  const LeaderChoice choice(processes, parents, group);
  const std::size_t root = choice.root();
  group.root = group.members[root];
  group.leader = group.members[choice.leader(root)];
}

}  // namespace orvane
