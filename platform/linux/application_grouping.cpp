#include "platform/linux/application_grouping.h"

#include <algorithm>
#include <map>
#include <optional>

#include "platform/linux/application_leader.h"

namespace orvane {
namespace {

constexpr std::size_t none = static_cast<std::size_t>(-1);
constexpr std::int32_t initPid = 1;

class Grouping {
 public:
  explicit Grouping(std::span<const GroupedProcess> processes)
      : processes_(processes),
        parents_(processes.size(), none),
        keys_(processes.size(), none),
        startsApplications_(processes.size(), false) {
    for (std::size_t i = 0; i < processes_.size(); ++i) parents_[i] = find(processes_[i].parent);
    cutCycles();
    for (std::size_t i = 0; i < processes_.size(); ++i) {
      if (standsForItself(i)) markStarters(i);
    }
    for (std::size_t i = 0; i < processes_.size(); ++i) assignWithAncestors(i);
  }

  [[nodiscard]] std::vector<ApplicationGroup> groups() const {
    std::map<std::size_t, ApplicationGroup> groups;
    for (std::size_t i = 0; i < keys_.size(); ++i) groups[keys_[i]].members.push_back(i);
    std::vector<ApplicationGroup> result;
    for (auto& [key, group] : groups) {
      chooseLeader(processes_, parents_, group);
      result.push_back(std::move(group));
    }
    std::sort(result.begin(), result.end(), [&](const auto& a, const auto& b) {
      return isOlder(processes_[a.leader], processes_[b.leader]);
    });
    return result;
  }

 private:
  [[nodiscard]] std::size_t find(std::int32_t pid) const {
    const auto found = std::lower_bound(
        processes_.begin(), processes_.end(), pid,
        [](const GroupedProcess& process, std::int32_t wanted) { return process.pid < wanted; });
    return found != processes_.end() && found->pid == pid
               ? static_cast<std::size_t>(found - processes_.begin())
               : none;
  }

  /// Parents are read one after the other, so a reused pid can make a child its own ancestor.
  void cutCycles() {
    std::vector<std::size_t> visitedBy(processes_.size(), none);
    for (std::size_t i = 0; i < processes_.size(); ++i) {
      std::size_t at = i;
      while (visitedBy[at] == none) {
        visitedBy[at] = i;
        if (parents_[at] == none) break;
        if (visitedBy[parents_[at]] == i) parents_[at] = none;
        at = parents_[at] == none ? at : parents_[at];
      }
    }
  }

  [[nodiscard]] bool standsForItself(std::size_t i) const {
    return processes_[i].unitIsApplication || processes_[i].claimed;
  }

  void markStarters(std::size_t i) {
    for (std::size_t at = parents_[i]; at != none && !startsApplications_[at]; at = parents_[at]) {
      startsApplications_[at] = true;
    }
  }

  void assignWithAncestors(std::size_t i) {
    std::vector<std::size_t> path;
    for (std::size_t at = i; at != none && keys_[at] == none; at = parents_[at]) {
      path.push_back(at);
    }
    for (; !path.empty(); path.pop_back()) keys_[path.back()] = keyOf(path.back());
  }

  /// The ancestors' keys are known.
  [[nodiscard]] std::size_t keyOf(std::size_t i) {
    const GroupedProcess& process = processes_[i];
    if (process.unitIsApplication) return unitKey(i);
    if (process.claimed) return applicationAbove(i).value_or(i);
    const std::size_t parent = parents_[i];
    if (!process.unit.empty()) {
      const bool sameUnit = parent != none && processes_[parent].unit == process.unit;
      return sameUnit ? keys_[parent] : unitKey(i);
    }
    if (parent == none || !gathersChild(parent, process)) return i;
    return keys_[parent];
  }

  [[nodiscard]] std::size_t unitKey(std::size_t i) {
    return units_.try_emplace(processes_[i].unit, i).first->second;
  }

  [[nodiscard]] std::optional<std::size_t> applicationAbove(std::size_t i) const {
    bool onlyWrappers = true;
    for (std::size_t at = parents_[i]; at != none; at = parents_[at]) {
      const GroupedProcess& ancestor = processes_[at];
      onlyWrappers = onlyWrappers && ancestor.role == ProcessRole::wrapper;
      if (standsForItself(at)) {
        const bool same =
            ancestor.application != nullptr && ancestor.application == processes_[i].application;
        if (same || onlyWrappers) return keys_[at];
        return {};
      }
      if (ancestor.role == ProcessRole::shell) return {};
    }
    return {};
  }

  [[nodiscard]] bool gathersChild(std::size_t parent, const GroupedProcess& child) const {
    const GroupedProcess& process = processes_[parent];
    const GroupedProcess& application = processes_[keys_[parent]];
    if (process.pid == initPid) return false;
    if (application.unitIsApplication || (application.claimed && application.visible)) return true;
    if (process.role == ProcessRole::sessionRoot) return false;
    if (!process.unit.empty() && !process.claimed) return false;
    if (!startsApplications_[parent]) return true;
    if (parents_[parent] == none && !process.claimed) return false;
    return process.processGroup == child.processGroup && process.session == child.session;
  }

  std::span<const GroupedProcess> processes_;
  std::vector<std::size_t> parents_;
  std::vector<std::size_t> keys_;
  std::vector<bool> startsApplications_;
  std::map<std::string_view, std::size_t> units_;
};

}  // namespace

std::vector<ApplicationGroup> groupApplications(std::span<const GroupedProcess> processes) {
  return Grouping(processes).groups();
}

}  // namespace orvane
