#include "platform/linux/applications/linux_applications.h"

#include <unistd.h>

#include <algorithm>
#include <unordered_map>

#include "core/utf8.h"
#include "platform/linux/applications/linux_process_handle.h"
#include "platform/linux/x11/x11_connection.h"
#include "platform/linux/x11/x11_windows.h"

namespace orvane {
namespace {

/// Descriptors that everything else in this program needs.
constexpr std::size_t reservedDescriptors = 256;

/// A third of the rest holds the processes' files, the others the handles of the leaders.
std::size_t heldDescriptors(std::size_t limit) {
  return (limit - std::min(reservedDescriptors, limit / 2)) / 3;
}

/// A name as views can show it; what other programs wrote into it may be anything.
std::optional<std::string> textOrNone(const std::string& text) {
  std::string line = singleLineText(text);
  return line.empty() ? std::nullopt : std::optional(std::move(line));
}

}  // namespace

LinuxApplications::LinuxApplications(Options options, MainQueue& mainQueue,
                                     BackgroundQueue& backgroundQueue)
    : table_({.user = ::getuid(), .heldDescriptors = heldDescriptors(options.descriptorLimit)}),
      entries_(std::move(options.applicationDirectories)),
      reader_(table_, entries_),
      windows_(std::make_unique<X11Windows>(options.x11)),
      mostHandles_(2 * heldDescriptors(options.descriptorLimit)),
      sizes_(mainQueue, backgroundQueue),
      isWatched_(std::move(options.isWatched)) {}

LinuxApplications::~LinuxApplications() = default;

LinuxApplications::Options LinuxApplications::desktopOptions(std::size_t descriptorLimit,
                                                             std::function<bool()> isWatched) {
  return {.x11 = x11Connection(),
          .applicationDirectories = DesktopEntries::standardDirectories(),
          .descriptorLimit = descriptorLimit,
          .isWatched = std::move(isWatched)};
}

std::vector<RunningApplication> LinuxApplications::runningApplications() {
  table_.update();
  sizes_.deliver(table_);
  const bool windowsChanged = windows_->update();
  const bool evidenceChanged = gatherEvidence();
  if (windowsChanged || evidenceChanged || table_.structureChanged() || memoryShifted_) group();
  measure();
  readSizes();
  std::vector<RunningApplication> records;
  records.reserve(applications_.size());
  for (const auto& application : applications_) records.push_back(application.record);
  return records;
}

bool LinuxApplications::gatherEvidence() {
  bool changed = false;
  if (entries_.refresh()) table_.forgetEvidence();
  for (auto& [pid, process] : table_.processes()) {
    if (!process.needsEvidence) continue;
    process.evidence = reader_.read(process);
    process.needsEvidence = false;
    changed = true;
  }
  return changed;
}

void LinuxApplications::group() {
  const auto windows = windows_->windows();
  const auto all = candidates(windows);
  std::vector<GroupedProcess> processes;
  processes.reserve(all.size());
  for (const auto& candidate : all) processes.push_back(groupedProcess(candidate));
  std::map<std::uint64_t, ReadingState> readings;
  for (const auto& application : applications_) {
    readings.emplace(application.rootSerial, application.readings);
  }
  applications_.clear();
  for (const auto& candidate : all) candidate.process->leads = false;
  for (const auto& group : groupApplications(processes)) {
    all[group.leader].process->leads = true;
    applications_.push_back(makeApplication(all, group));
    applications_.back().readings = readings[applications_.back().rootSerial];
  }
  findFamilies();
  keepLeaders();
  tellNamesakesApart();
}

std::vector<LinuxApplications::Candidate> LinuxApplications::candidates(
    const std::vector<X11Window>& windows) {
  std::vector<Candidate> candidates;
  candidates.reserve(table_.processes().size());
  for (auto& [pid, process] : table_.processes()) {
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
  candidate.isDesktopPart = candidate.isDesktopPart || window.isDesktopPart;
  if (candidate.window != nullptr || window.isDesktopPart) return;
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
  const bool isLauncher = candidate.isDesktopPart && evidence.role == ProcessRole::program;
  return {.pid = process.pid,
          .parent = process.parent,
          .processGroup = process.processGroup,
          .session = process.session,
          .startTime = process.startTime,
          .residentSize = process.residentSize,
          .young = process.isYoung(),
          .program = evidence.name,
          .executable = evidence.executable,
          .command = evidence.command,
          .image = process.startStack,
          .leads = process.leads,
          .unit = evidence.unit.path,
          .unitIsApplication = unitIsApplication,
          .claimed = candidate.entry != nullptr || candidate.window != nullptr,
          .application = candidate.entry.get(),
          .visible = candidate.window != nullptr || (candidate.entry && candidate.entry->visible),
          .ownsWindow = candidate.window != nullptr,
          .role = isLauncher ? ProcessRole::launcher : evidence.role};
}

LinuxApplications::Application LinuxApplications::makeApplication(
    const std::vector<Candidate>& candidates, const ApplicationGroup& group) {
  const Candidate& root = candidates[group.root];
  const Candidate& leader = candidates[group.leader];
  const DesktopEntry* entry = root.entry ? root.entry.get() : leader.entry.get();
  Application application;
  application.leader = leader.process;
  application.rootSerial = root.process->serial;
  addMembers(application, candidates, group);
  const bool visible = (entry != nullptr && entry->visible) ||
                       std::any_of(group.members.begin(), group.members.end(),
                                   [&](std::size_t i) { return candidates[i].window != nullptr; });
  RunningApplication& record = application.record;
  record.processIdentifier = leader.process->pid;
  record.executablePath = leader.process->evidence.executable;
  record.activationPolicy = visible ? ActivationPolicy::regular : ActivationPolicy::accessory;
  if (entry != nullptr) {
    application.entryId = entry->id;
    record.localizedName = textOrNone(entry->name);
    if (!entry->icon.empty()) record.icon = ApplicationIcon{entry->icon};
  }
  // A sandbox or a time limit says nothing about what runs in it.
  const bool nameless = root.process->evidence.role == ProcessRole::wrapper;
  const ProcessEvidence& evidence = (nameless ? leader : root).process->evidence;
  if (!record.localizedName) record.localizedName = textOrNone(evidence.unit.id);
  if (!record.localizedName && leader.window != nullptr) {
    record.localizedName = textOrNone(leader.window->className);
  }
  if (!record.localizedName) record.localizedName = textOrNone(evidence.name);
  return application;
}

void LinuxApplications::addMembers(Application& application,
                                   const std::vector<Candidate>& candidates,
                                   const ApplicationGroup& group) {
  for (const std::size_t i : group.members) {
    Process& process = *candidates[i].process;
    const auto parent = std::lower_bound(
        group.members.begin(), group.members.end(), process.parent,
        [&](std::size_t other, std::int32_t pid) { return candidates[other].process->pid < pid; });
    const Process* above = parent == group.members.end() ? nullptr : candidates[*parent].process;
    // Of a process that protects itself only the name is known.
    const bool isFork = above != nullptr && above->pid == process.parent &&
                        (process.startStack == 0 ? above->command == process.command
                                                 : above->startStack == process.startStack);
    process.forkedFrom = isFork ? above : nullptr;
    application.members.push_back(&process);
  }
}

/// Marks the members whose forks all belong to the same application.
void LinuxApplications::findFamilies() {
  std::unordered_map<std::uint64_t, const Application*> owners;
  const auto hidesStack = [](const Process& process) { return process.startStack == 0; };
  for (const auto& application : applications_) {
    for (const Process* member : application.members) {
      if (hidesStack(*member)) continue;
      auto& owner = owners.try_emplace(member->startStack, &application).first->second;
      if (owner != &application) owner = nullptr;
    }
  }
  for (auto& application : applications_) {
    for (Process* member : application.members) {
      member->familyInside = !hidesStack(*member) && owners.at(member->startStack) == &application;
    }
  }
}

/// A handle is kept as long as its process leads an application. Where few descriptors may be open,
/// the applications that come last have none.
void LinuxApplications::keepLeaders() {
  std::map<std::int32_t, KnownLeader> leaders;
  auto handles = static_cast<std::size_t>(
      std::count_if(leaders_.begin(), leaders_.end(),
                    [](const auto& known) { return known.second.handle != nullptr; }));
  for (auto& application : applications_) {
    const Process& leader = *application.leader;
    KnownLeader kept{.serial = leader.serial, .handle = nullptr};
    const auto known = leaders_.find(leader.pid);
    if (known != leaders_.end() && known->second.serial == leader.serial) kept = known->second;
    if (!kept.handle && handles < mostHandles_) {
      auto opened = LinuxProcessHandle::open(leader.pid);
      // The process is there after its pid was opened, so the pid can't have been another's.
      if (table_.isStillThere(leader)) kept.handle = std::move(opened);
      if (kept.handle) ++handles;
    }
    application.record.handle = kept.handle;
    leaders.emplace(leader.pid, std::move(kept));
  }
  leaders_ = std::move(leaders);
}

void LinuxApplications::tellNamesakesApart() {
  std::map<std::string_view, std::vector<Application*>> byName;
  for (auto& application : applications_) {
    if (application.record.localizedName) {
      byName[*application.record.localizedName].push_back(&application);
    }
  }
  for (const auto& [name, namesakes] : byName) {
    if (namesakes.size() < 2) continue;
    for (Application* each : namesakes) {
      const auto copies =
          std::count_if(namesakes.begin(), namesakes.end(),
                        [&](const Application* other) { return other->entryId == each->entryId; });
      const bool byEntry = copies == 1 && !each->entryId.empty();
      each->record.distinction =
          singleLineText(byEntry ? each->entryId : each->leader->evidence.command);
    }
  }
}

void LinuxApplications::measure() {
  memoryShifted_ = false;
  for (auto& application : applications_) {
    const std::uint64_t figure = currentFigure(application.members, application.readings);
    int threads = 0;
    for (const Process* member : application.members) threads += member->threads;
    application.record.figures = {.virtualSize = application.leader->virtualSize,
                                  .residentSize = figure,
                                  .threadCount = threads};
    if (application.members.size() < 2) continue;
    if (!application.groupedFigure) application.groupedFigure = figure;
    const std::uint64_t before = *application.groupedFigure;
    memoryShifted_ =
        memoryShifted_ || std::max(before, figure) - std::min(before, figure) > before / 4;
  }
}

void LinuxApplications::readSizes() {
  if (sizes_.isReading()) return;
  std::vector<ReadingCandidate> candidates;
  candidates.reserve(applications_.size());
  for (auto& application : applications_) {
    candidates.push_back({.members = application.members,
                          .figure = *application.record.figures.residentSize,
                          .state = &application.readings});
  }
  const auto now = std::chrono::steady_clock::now();
  sizes_.read(nextReadings(candidates, ReadingPace::of(isWatched_()), now), now);
}

}  // namespace orvane
