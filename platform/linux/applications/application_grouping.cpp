#include "platform/linux/applications/application_grouping.h"

#include <algorithm>
#include <array>
#include <map>
#include <optional>

namespace orvane {
namespace {

using namespace std::string_view_literals;

constexpr std::size_t none = static_cast<std::size_t>(-1);
constexpr std::int32_t initPid = 1;
/// A wrapper starts its program within this time (10 s, the kernel counts in 1/100 s).
constexpr std::uint64_t startUpTicks = 1000;
constexpr std::array helperFolders{"/usr/lib"sv, "/usr/local/lib"sv, "/lib"sv};

bool isWrapper(const GroupedProcess& process) {
  return process.role == ProcessRole::wrapper || process.role == ProcessRole::script;
}

/// Programs below lib and libexec aren't meant to be started by a user.
bool isHelper(std::string_view executable) {
  const std::string_view folder = executable.substr(0, executable.rfind('/'));
  return !folder.ends_with("/bin") &&
         std::any_of(helperFolders.begin(), helperFolders.end(),
                     [&](std::string_view start) { return executable.starts_with(start); });
}

/// Started earlier; among equals the one with the smaller pid.
bool isOlder(const GroupedProcess& a, const GroupedProcess& b) {
  return a.startTime != b.startTime ? a.startTime < b.startTime : a.pid < b.pid;
}

class LeaderChoice {
 public:
  LeaderChoice(std::span<const GroupedProcess> processes, const std::vector<std::size_t>& parents,
               const ApplicationGroup& group)
      : processes_(processes), members_(group.members) {
    for (const std::size_t member : members_) parents_.push_back(positionOf(parents[member]));
    children_.resize(members_.size());
    aboveWindow_.resize(members_.size(), false);
    below_.resize(members_.size(), 0);
    for (std::size_t i = 0; i < members_.size(); ++i) {
      if (parents_[i] != none) children_[parents_[i]].push_back(i);
    }
    sumUp();
  }

  [[nodiscard]] std::size_t root() const {
    std::size_t root = none;
    for (std::size_t i = 0; i < members_.size(); ++i) {
      if (parents_[i] != none) continue;
      if (root == none || comesBefore(i, root, isOlder(at(i), at(root)))) root = i;
    }
    return root;
  }

  [[nodiscard]] std::size_t leader(std::size_t root) const {
    std::size_t leader = root;
    while (true) {
      const std::size_t program = programRunBy(leader);
      if (program == none) return leader;
      leader = program;
    }
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

  /// Counts what is below each member, children before parents.
  void sumUp() {
    std::vector<std::size_t> order;
    for (std::size_t i = 0; i < members_.size(); ++i) {
      if (parents_[i] == none) order.push_back(i);
    }
    for (std::size_t next = 0; next < order.size(); ++next) {
      const auto& children = children_[order[next]];
      order.insert(order.end(), children.begin(), children.end());
    }
    for (auto i = order.rbegin(); i != order.rend(); ++i) {
      below_[*i] += at(*i).residentSize;
      if (at(*i).ownsWindow) aboveWindow_[*i] = true;
      all_ += at(*i).residentSize;
      const std::size_t parent = parents_[*i];
      if (parent == none) continue;
      below_[parent] += below_[*i];
      if (aboveWindow_[*i]) aboveWindow_[parent] = true;
    }
  }

  /// What leads instead of `parent`, with nothing but forks of the same program between them; none
  /// when nothing does. What is below one that leads comes after it, so nobody looks there: the
  /// time for a script that runs itself a thousand times grows with its length only.
  [[nodiscard]] std::size_t programRunBy(std::size_t parent) const {
    std::size_t program = none;
    std::vector<std::size_t> open = children_[parent];
    while (!open.empty()) {
      const std::size_t i = open.back();
      open.pop_back();
      if (leadsInstead(i, parent)) {
        if (program == none || comesBefore(i, program, isMoreLikelyProgram(i, program)))
          program = i;
      } else if (at(i).program == at(parent).program) {
        open.insert(open.end(), children_[i].begin(), children_[i].end());
      }
    }
    return program;
  }

  [[nodiscard]] bool leadsInstead(std::size_t child, std::size_t parent) const {
    const GroupedProcess& process = at(parent);
    const GroupedProcess& program = at(child);
    // A shell that leads no session and gives its child no job of its own reads a script from a
    // pipe.
    const bool isScript = process.role == ProcessRole::shell && process.session != process.pid &&
                          process.processGroup == program.processGroup;
    if (isWrapper(process) || isScript) {
      return aboveWindow_[child] || holdsMost(child) ||
             program.startTime <= process.startTime + startUpTicks;
    }
    // A terminal's shell, and what a program with a window runs, end with it.
    const bool isTerminalShell =
        program.role == ProcessRole::shell && program.session == program.pid;
    if (process.ownsWindow || process.role != ProcessRole::program || isTerminalShell) return false;
    const bool isApplication = process.claimed && process.visible && !aboveWindow_[child];
    if (program.young || !isOtherProgram(program, process)) return false;
    return isApplication ? (all_ - below_[child]) * 10 < all_ : holdsMost(child);
  }

  /// An application may consist of a program that runs itself with other arguments.
  [[nodiscard]] static bool isOtherProgram(const GroupedProcess& a, const GroupedProcess& b) {
    const bool otherImage = a.image != 0 && b.image != 0 && a.image != b.image;
    return a.program != b.program || (otherImage && a.command != b.command && !b.claimed);
  }

  /// The process and what is below it hold more than half of the application's memory. Who leads
  /// goes on leading with more than a third: a figure that swings must not move the application.
  [[nodiscard]] bool holdsMost(std::size_t process) const {
    return at(process).leads ? below_[process] * 3 > all_ : below_[process] * 2 > all_;
  }

  [[nodiscard]] bool isMoreLikelyProgram(std::size_t a, std::size_t b) const {
    return below_[a] != below_[b] ? below_[a] > below_[b] : isOlder(at(a), at(b));
  }

  /// One above a window comes before others.
  [[nodiscard]] bool comesBefore(std::size_t a, std::size_t b, bool otherwise) const {
    return aboveWindow_[a] != aboveWindow_[b] ? aboveWindow_[a] : otherwise;
  }

  std::span<const GroupedProcess> processes_;
  const std::vector<std::size_t>& members_;
  std::vector<std::size_t> parents_;  ///< inside the group
  std::vector<std::vector<std::size_t>> children_;
  std::vector<bool> aboveWindow_;     ///< it or something below it owns a window
  std::vector<std::uint64_t> below_;  ///< bytes of it and of all below it
  std::uint64_t all_ = 0;             ///< bytes of the group
};

class Grouping {
 public:
  explicit Grouping(std::span<const GroupedProcess> processes)
      : processes_(processes), parents_(processes.size(), none), keys_(processes.size(), none) {
    for (std::size_t i = 0; i < processes_.size(); ++i) parents_[i] = find(processes_[i].parent);
    cutCycles();
    for (std::size_t i = 0; i < processes_.size(); ++i) {
      const GroupedProcess& process = processes_[i];
      if (process.role == ProcessRole::launcher && !process.unit.empty()) {
        launchers_.try_emplace(process.unit, i);
      }
    }
    for (std::size_t i = 0; i < processes_.size(); ++i) assignWithAncestors(i);
  }

  [[nodiscard]] std::vector<ApplicationGroup> groups() const {
    std::map<std::size_t, ApplicationGroup> groups;
    for (std::size_t i = 0; i < keys_.size(); ++i) groups[keys_[i]].members.push_back(i);
    std::vector<ApplicationGroup> result;
    for (auto& [key, group] : groups) {
      const LeaderChoice choice(processes_, parents_, group);
      const std::size_t root = choice.root();
      group.root = group.members[root];
      group.leader = group.members[choice.leader(root)];
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
    const std::size_t parent = parents_[i];
    const bool sameUnit =
        parent != none && !process.unit.empty() && processes_[parent].unit == process.unit;
    if (sameUnit ? isLaunched(parent, i) : isLaunchedAside(i)) return i;
    if (process.unitIsApplication) return sameUnit ? keys_[parent] : unitKey(i);
    if (process.claimed) return applicationAbove(i).value_or(i);
    if (!process.unit.empty()) return sameUnit ? keys_[parent] : unitKey(i);
    return parent != none && gathersChild(parent, i) ? keys_[parent] : i;
  }

  [[nodiscard]] std::size_t unitKey(std::size_t i) {
    return units_.try_emplace(processes_[i].unit, i).first->second;
  }

  [[nodiscard]] bool standsForItself(std::size_t i) const {
    return processes_[i].unitIsApplication || processes_[i].claimed;
  }

  [[nodiscard]] std::optional<std::size_t> applicationAbove(std::size_t i) const {
    bool onlyWrappers = true;
    for (std::size_t at = parents_[i]; at != none; at = parents_[at]) {
      const GroupedProcess& ancestor = processes_[at];
      onlyWrappers = onlyWrappers && isWrapper(ancestor);
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

  /// The parent starts other programs, and the child is one.
  [[nodiscard]] bool isLaunched(std::size_t parent, std::size_t child) const {
    const ProcessRole role = processes_[parent].role;
    if (role == ProcessRole::sessionRoot) return true;
    if (role != ProcessRole::launcher) return false;
    const std::string_view executable = processes_[child].executable;
    return executable != processes_[parent].executable && !isHelper(executable);
  }

  /// Started by its unit's launcher, which doesn't keep its children (a double fork).
  [[nodiscard]] bool isLaunchedAside(std::size_t i) const {
    if (processes_[i].unit.empty()) return false;
    const auto launcher = launchers_.find(processes_[i].unit);
    return launcher != launchers_.end() && isLaunched(launcher->second, i);
  }

  [[nodiscard]] bool gathersChild(std::size_t parent, std::size_t child) const {
    const GroupedProcess& process = processes_[parent];
    const GroupedProcess& application = processes_[keys_[parent]];
    const ProcessRole role = processes_[child].role;
    if (process.pid == initPid || isLaunched(parent, child)) return false;
    if (role == ProcessRole::sessionRoot || role == ProcessRole::launcher) return false;
    if (application.unitIsApplication || (application.claimed && application.visible)) return true;
    if (!process.unit.empty() && !process.claimed) return false;
    if (process.role == ProcessRole::wrapper) return true;
    const bool sameJob = process.processGroup == processes_[child].processGroup;
    return process.session == processes_[child].session &&
           (sameJob || process.role != ProcessRole::shell);
  }

  std::span<const GroupedProcess> processes_;
  std::vector<std::size_t> parents_;
  std::vector<std::size_t> keys_;
  std::map<std::string_view, std::size_t> units_;
  std::map<std::string_view, std::size_t> launchers_;  ///< of a unit
};

}  // namespace

std::vector<ApplicationGroup> groupApplications(std::span<const GroupedProcess> processes) {
  return Grouping(processes).groups();
}

}  // namespace orvane
