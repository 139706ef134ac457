#include "platform/linux/applications/process_table.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <charconv>
#include <cstring>
#include <iterator>

namespace orvane {
namespace {

constexpr std::size_t statLength = 2048;
constexpr std::size_t pieceLength = 4096;
constexpr std::size_t descriptorsPerProcess = 2;
/// A process moves to its control group, its user and its program right after it was forked.
constexpr unsigned youngUpdates = 3;
/// How often a process is read completely.
constexpr unsigned statePeriod = 4;
constexpr std::string_view deletedMark = " (deleted)";

/// "PID" or "PID/FILE" relative to the directory of all processes.
class ProcessPath {
 public:
  explicit ProcessPath(std::int32_t pid, std::string_view file = {}) {
    char* end = std::to_chars(text_.data(), text_.data() + text_.size(), pid).ptr;
    if (!file.empty() && file.size() + 16 < text_.size()) {
      *end++ = '/';
      end = std::copy(file.begin(), file.end(), end);
    }
    *end = '\0';
  }
  [[nodiscard]] const char* text() const { return text_.data(); }

 private:
  std::array<char, 64> text_{};
};

/// Reads from the start until the end of the file or the limit.
std::string readUpTo(int descriptor, std::size_t limit) {
  std::string content;
  std::size_t length = 0;
  while (length < limit) {
    if (length == content.size()) content.resize(std::min(limit, length + pieceLength));
    const ssize_t count = ::pread(descriptor, content.data() + length, content.size() - length,
                                  static_cast<off_t>(length));
    if (count < 0 && errno == EINTR) continue;
    if (count <= 0) break;
    length += static_cast<std::size_t>(count);
  }
  content.resize(length);
  return content;
}

}  // namespace

bool Process::isYoung() const {
  return updates_ < youngUpdates;
}

ProcessTable::ProcessTable(Options options)
    : options_(std::move(options)),
      pageSize_(static_cast<std::uint64_t>(std::max(::sysconf(_SC_PAGESIZE), 1L))),
      buffer_(statLength, '\0') {}

void ProcessTable::update() {
  structureChanged_ = false;
  removed_.clear();
  ++updates_;
  if (!scan()) listing_.clear();
  auto next = processes_.begin();
  for (const ListedProcess& listed : listing_) visit(listed, next);
  while (next != processes_.end()) remove(next);
  if (!removed_.empty()) refreshOrphans();
}

void ProcessTable::forgetEvidence() {
  for (auto& [pid, process] : processes_) process.needsEvidence = true;
}

bool ProcessTable::scan() {
  if (directory_) {
    ::rewinddir(directory_.get());
  } else {
    directory_.reset(::opendir(options_.root.c_str()));
  }
  if (!directory_) return false;
  listing_.clear();
  while (const dirent* entry = ::readdir(directory_.get())) {
    ListedProcess listed{.inode = entry->d_ino};
    const char* end = entry->d_name + std::strlen(entry->d_name);
    const auto [stop, error] = std::from_chars(entry->d_name, end, listed.pid);
    if (error == std::errc{} && stop == end && listed.pid > 0) listing_.push_back(listed);
  }
  const auto byPid = [](const auto& a, const auto& b) { return a.pid < b.pid; };
  if (!std::is_sorted(listing_.begin(), listing_.end(), byPid)) {
    std::sort(listing_.begin(), listing_.end(), byPid);
  }
  return true;
}

int ProcessTable::directory() const {
  return ::dirfd(directory_.get());
}

/// The directory of a process belongs to its effective user, even when its files are protected.
bool ProcessTable::isOwn(std::int32_t pid) const {
  struct stat status {};
  return ::fstatat(directory(), ProcessPath(pid).text(), &status, 0) == 0 &&
         status.st_uid == options_.user;
}

/// False for kernel threads and exited processes, at a tenth of the cost of reading their state.
bool ProcessTable::hasProgram(std::int32_t pid) const {
  std::array<char, 1> start{};
  return ::readlinkat(directory(), ProcessPath(pid, "exe").text(), start.data(), start.size()) >=
             0 ||
         errno != ENOENT;
}

void ProcessTable::visit(const ListedProcess& listed, Processes::iterator& next) {
  while (next != processes_.end() && next->first < listed.pid) remove(next);
  if (next != processes_.end() && next->first == listed.pid) {
    if (next->second.inode_ == listed.inode && refresh(next->second)) {
      ++next;
      return;
    }
    remove(next);
  }
  admit(listed, next);
}

void ProcessTable::admit(const ListedProcess& listed, Processes::iterator next) {
  if (!isOwn(listed.pid) || !hasProgram(listed.pid)) return;
  Process process;
  process.pid = listed.pid;
  process.inode_ = listed.inode;
  holdDescriptors(process);
  const auto stat = readStat(process);
  const bool candidate = stat && stat->pid == listed.pid && !stat->isZombie() &&
                         !stat->isKernelThread() && stat->virtualSize > 0;
  if (candidate) store(process, *stat);
  if (!candidate || !refreshMemory(process)) {
    if (process.stat_.isOpen()) held_ -= descriptorsPerProcess;
    return;
  }
  process.needsEvidence = true;
  process.serial = ++lastSerial_;
  process.updates_ = 1;
  processes_.emplace_hint(next, listed.pid, std::move(process));
  structureChanged_ = true;
}

/// False when the process is gone, has exited or isn't the user's any more.
bool ProcessTable::refresh(Process& process) {
  const ProcessPages before = process.pages_;
  if (!refreshMemory(process)) return false;
  // New threads and programs take address space; exited processes have none.
  const bool changed = process.pages_.size != before.size || process.pages_.text != before.text;
  const bool due = (updates_ + static_cast<unsigned>(process.pid)) % statePeriod == 0;
  return !(changed || due || process.isYoung()) || refreshState(process);
}

bool ProcessTable::refreshState(Process& process) {
  const auto stat = readStat(process);
  if (!stat || stat->startTime != process.startTime || stat->isZombie() || stat->virtualSize == 0) {
    return false;
  }
  const bool otherProgram =
      stat->command != process.command || stat->startStack != process.startStack;
  const bool young = process.isYoung();
  if ((otherProgram || young) && !isOwn(process.pid)) return false;
  if (young) ++process.updates_;
  process.needsEvidence = process.needsEvidence || young || otherProgram;
  structureChanged_ = structureChanged_ || stat->parent != process.parent ||
                      stat->processGroup != process.processGroup ||
                      stat->session != process.session;
  store(process, *stat);
  return true;
}

bool ProcessTable::refreshMemory(Process& process) const {
  const auto pages = parseProcessPages(read(process.statm_, process.pid, "statm"));
  if (!pages) return false;
  process.pages_ = *pages;
  process.virtualSize = pages->size * pageSize_;
  process.residentSize = pages->resident * pageSize_;
  process.sharedSize = std::min(pages->shared, pages->resident) * pageSize_;
  return true;
}

/// Children of a process that ended have another parent now.
void ProcessTable::refreshOrphans() {
  std::sort(removed_.begin(), removed_.end());
  for (auto& [pid, process] : processes_) {
    const bool orphan = std::binary_search(removed_.begin(), removed_.end(), process.parent);
    // One that ended just now is removed by the next update.
    if (orphan && !refreshState(process)) structureChanged_ = true;
  }
}

std::optional<ProcessStat> ProcessTable::readStat(const Process& process) const {
  return parseProcessStat(read(process.stat_, process.pid, "stat"));
}

void ProcessTable::store(Process& process, const ProcessStat& stat) {
  if (process.command != stat.command) process.command = stat.command;
  process.parent = stat.parent;
  process.processGroup = stat.processGroup;
  process.session = stat.session;
  process.threads = stat.threads;
  process.startTime = stat.startTime;
  process.virtualSize = stat.virtualSize;
  process.startStack = stat.startStack;
}

void ProcessTable::holdDescriptors(Process& process) {
  if (held_ + descriptorsPerProcess > options_.heldDescriptors) return;
  process.stat_ = open(process.pid, "stat");
  process.statm_ = open(process.pid, "statm");
  if (process.stat_.isOpen() && process.statm_.isOpen()) {
    held_ += descriptorsPerProcess;
  } else {
    process.stat_ = {};
    process.statm_ = {};
  }
}

FileDescriptor ProcessTable::open(std::int32_t pid, std::string_view file) const {
  return FileDescriptor(
      ::openat(directory(), ProcessPath(pid, file).text(), O_RDONLY | O_CLOEXEC | O_NOCTTY));
}

std::string_view ProcessTable::read(const FileDescriptor& held, std::int32_t pid,
                                    std::string_view file) const {
  const FileDescriptor opened = held.isOpen() ? FileDescriptor() : open(pid, file);
  const int descriptor = held.isOpen() ? held.get() : opened.get();
  ssize_t count = -1;
  do {
    count = ::pread(descriptor, buffer_.data(), statLength, 0);
  } while (count < 0 && errno == EINTR);
  return {buffer_.data(), count > 0 ? static_cast<std::size_t>(count) : 0};
}

void ProcessTable::remove(Processes::iterator& process) {
  if (process->second.stat_.isOpen()) held_ -= descriptorsPerProcess;
  removed_.push_back(process->first);
  process = processes_.erase(process);
  structureChanged_ = true;
}

bool ProcessTable::isStillThere(const Process& process) const {
  if (!directory_) return false;
  const auto stat = readStat(process);
  return stat && stat->startTime == process.startTime;
}

std::string ProcessTable::readFile(std::int32_t pid, std::string_view file,
                                   std::size_t limit) const {
  if (!directory_) return {};
  const FileDescriptor opened = open(pid, file);
  return opened.isOpen() ? readUpTo(opened.get(), limit) : std::string();
}

std::optional<std::string> ProcessTable::executablePath(std::int32_t pid) const {
  if (!directory_) return {};
  std::array<char, 4096> target{};
  const ssize_t length =
      ::readlinkat(directory(), ProcessPath(pid, "exe").text(), target.data(), target.size());
  if (length <= 0) return {};
  std::string_view path(target.data(), static_cast<std::size_t>(length));
  if (path.ends_with(deletedMark)) path.remove_suffix(deletedMark.size());
  return std::string(path);
}

}  // namespace orvane
