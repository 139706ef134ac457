#include "platform/linux/linux_applications.h"

#include <unistd.h>

#include <algorithm>
#include <cstdlib>

#include "platform/linux/linux_process_signals.h"

namespace orvane {
namespace {

/// Descriptors that everything else in this program needs.
constexpr std::size_t reservedDescriptors = 256;

/// Two thirds of the rest hold the processes' files, one third the handles of the leaders.
std::size_t heldDescriptors(std::size_t limit) {
  return limit > reservedDescriptors ? (limit - reservedDescriptors) / 3 * 2 : 0;
}

std::optional<std::string> textOrNone(const std::string& text) {
  return text.empty() ? std::nullopt : std::optional(text);
}

}  // namespace

LinuxApplications::LinuxApplications(Options options)
    : table_({.user = ::getuid(), .heldDescriptors = heldDescriptors(options.descriptorLimit)}),
      entries_(std::move(options.applicationDirectories)),
      reader_(table_, entries_),
      windows_(std::move(options.display)) {}

LinuxApplications::Options LinuxApplications::desktopOptions(std::size_t descriptorLimit) {
  const char* display = std::getenv("DISPLAY");
  return {.display = display == nullptr ? "" : display,
          .applicationDirectories = DesktopEntries::standardDirectories(),
          .descriptorLimit = descriptorLimit};
}

std::vector<RunningApplication> LinuxApplications::runningApplications() {
  table_.update();
  const bool windowsChanged = windows_.update();
  const bool evidenceChanged = gatherEvidence();
  if (windowsChanged || evidenceChanged || table_.structureChanged()) group();
  std::vector<RunningApplication> records;
  records.reserve(applications_.size());
  for (const auto& application : applications_) records.push_back(application.record);
  return records;
}

bool LinuxApplications::gatherEvidence() {
  auto& processes = table_.processes();
  const auto needsEvidence = [](const auto& process) { return process.second.needsEvidence; };
  if (std::none_of(processes.begin(), processes.end(), needsEvidence)) return false;
  if (entries_.refresh()) table_.forgetEvidence();
  for (auto& [pid, process] : processes) {
    if (!process.needsEvidence) continue;
    process.evidence = reader_.read(process);
    process.needsEvidence = false;
  }
  return true;
}

void LinuxApplications::group() {
  const auto windows = windows_.windows();
  const auto all = candidates(windows);
  std::vector<GroupedProcess> processes;
  processes.reserve(all.size());
  for (const auto& candidate : all) processes.push_back(groupedProcess(candidate));
  applications_.clear();
  byLeader_.clear();
  for (const auto& group : groupApplications(processes)) {
    byLeader_[processes[group.leader].pid] = applications_.size();
    applications_.push_back(makeApplication(all, group));
  }
  for (auto& [pid, process] : table_.processes()) table_.setLeads(process, byLeader_.contains(pid));
  openHandles();
}

std::vector<LinuxApplications::Candidate> LinuxApplications::candidates(
    const std::vector<X11Window>& windows) {
  std::vector<Candidate> candidates;
  candidates.reserve(table_.processes().size());
  for (const auto& [pid, process] : table_.processes()) {
    candidates.push_back(
        {.process = &process, .entry = process.evidence.entry, .source = process.evidence.source});
  }
  for (const auto& window : windows) {
    const auto owner = std::lower_bound(
        candidates.begin(), candidates.end(), window.pid,
        [](const Candidate& candidate, std::int32_t pid) { return candidate.process->pid < pid; });
    if (owner != candidates.end() && owner->process->pid == window.pid) useWindow(*owner, window);
  }
  return candidates;
}

/// Windows are surer evidence than the executable, and less sure than a unit or a launch.
void LinuxApplications::useWindow(Candidate& candidate, const X11Window& window) const {
  if (candidate.window != nullptr) return;
  candidate.window = &window;
  if (candidate.entry && candidate.source < EntrySource::executable) return;
  auto entry = entries_.byId(window.applicationId);
  if (!entry) entry = entries_.byWindowClass(window.instance, window.className);
  if (entry) candidate.entry = std::move(entry);
}

GroupedProcess LinuxApplications::groupedProcess(const Candidate& candidate) {
  const Process& process = *candidate.process;
  const ProcessEvidence& evidence = process.evidence;
  const bool unitIsApplication =
      evidence.unit.application ||
      (!evidence.unit.path.empty() && candidate.source == EntrySource::unit);
  return {.pid = process.pid,
          .parent = process.parent,
          .processGroup = process.processGroup,
          .session = process.session,
          .startTime = process.startTime,
          .residentSize = process.residentSize,
          .unit = evidence.unit.path,
          .unitIsApplication = unitIsApplication,
          .claimed = candidate.entry != nullptr || candidate.window != nullptr,
          .application = candidate.entry.get(),
          .visible = candidate.window != nullptr || (candidate.entry && candidate.entry->visible),
          .ownsWindow = candidate.window != nullptr,
          .role = evidence.role};
}

LinuxApplications::Application LinuxApplications::makeApplication(
    const std::vector<Candidate>& candidates, const ApplicationGroup& group) {
  const Candidate& root = candidates[group.root];
  const Candidate& leader = candidates[group.leader];
  const DesktopEntry* entry = root.entry ? root.entry.get() : leader.entry.get();
  Application application;
  application.leader = leader.process;
  bool visible = entry != nullptr && entry->visible;
  for (const std::size_t member : group.members) {
    visible = visible || candidates[member].window != nullptr;
    if (member != group.leader) application.others.push_back(candidates[member].process);
  }
  RunningApplication& record = application.record;
  record.processIdentifier = leader.process->pid;
  record.activationPolicy = visible ? ActivationPolicy::regular : ActivationPolicy::accessory;
  if (entry != nullptr) {
    record.localizedName = textOrNone(entry->name);
    if (!entry->icon.empty()) record.icon = ApplicationIcon{entry->icon};
  }
  const ProcessEvidence& evidence = root.process->evidence;
  if (!record.localizedName) record.localizedName = textOrNone(evidence.unit.id);
  if (!record.localizedName && leader.window != nullptr) {
    record.localizedName = textOrNone(leader.window->className);
  }
  if (!record.localizedName) record.localizedName = textOrNone(evidence.name);
  return application;
}

/// A handle is kept as long as its process leads an application.
void LinuxApplications::openHandles() {
  std::map<std::int32_t, KnownHandle> handles;
  for (auto& application : applications_) {
    const Process& leader = *application.leader;
    KnownHandle handle{.serial = leader.serial, .handle = nullptr};
    const auto known = handles_.find(leader.pid);
    if (known != handles_.end() && known->second.serial == leader.serial && known->second.handle) {
      handle = known->second;
    } else if (auto opened = LinuxProcessHandle::open(leader.pid); table_.isStillThere(leader)) {
      // The process was there after its pid was opened, so the pid can't have been another's.
      handle.handle = std::move(opened);
    }
    application.record.handle = handle.handle;
    handles.emplace(leader.pid, std::move(handle));
  }
  handles_ = std::move(handles);
}

std::optional<TaskFigures> LinuxApplications::taskFigures(std::int32_t pid) {
  const auto found = byLeader_.find(pid);
  if (found == byLeader_.end()) return {};
  const Application& application = applications_[found->second];
  const Process& leader = *application.leader;
  TaskFigures figures{.virtualSize = leader.virtualSize,
                      .residentSize = leader.residentSize,
                      .threadCount = leader.threads};
  for (const Process* process : application.others) {
    figures.residentSize += process->residentSize - process->sharedSize;
    figures.threadCount += process->threads;
  }
  return figures;
}

std::optional<std::string> LinuxApplications::executablePath(std::int32_t pid) {
  const auto found = byLeader_.find(pid);
  if (found == byLeader_.end()) return table_.executablePath(pid);
  return textOrNone(applications_[found->second].leader->evidence.executable);
}

}  // namespace orvane
