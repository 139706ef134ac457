#pragma once

#include <dirent.h>
#include <sys/types.h>

#include <chrono>
#include <cstdint>
#include <map>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "platform/linux/applications/process_evidence.h"
#include "platform/linux/applications/process_stat.h"
#include "platform/linux/files/file_descriptor.h"

namespace orvane {

using ReadingTime = std::chrono::steady_clock::time_point;

/// What /proc/PID/smaps_rollup said of a process, and the cheap figures of that moment.
struct ProportionalReading {
  std::optional<std::uint64_t> proportionalSize;  ///< bytes; none when the kernel refused
  std::uint64_t ownSize = 0;                      ///< bytes, as in Process
  std::uint64_t sharedSize = 0;                   ///< bytes, as in Process
  ReadingTime taken;
};

/// One living process of the user.
struct Process {
  std::int32_t pid = 0;
  std::string command;  ///< the kernel's name of it
  std::int32_t parent = 0;
  std::int32_t processGroup = 0;
  std::int32_t session = 0;
  int threads = 0;
  std::uint64_t startTime = 0;     ///< clock ticks; not exact enough to tell a pid's next process
  std::uint64_t serial = 0;        ///< unique to this process for as long as the table lives
  std::uint64_t virtualSize = 0;   ///< bytes
  std::uint64_t residentSize = 0;  ///< bytes
  std::uint64_t sharedSize = 0;    ///< bytes of the resident ones that others may use too
  std::uint64_t startStack = 0;    ///< as in ProcessStat
  bool needsEvidence = true;       ///< new, very young, or running another program than before
  ProcessEvidence evidence;        ///< kept here for whoever gathers it
  bool leads = false;              ///< an application, kept here for the next grouping
  /// The member of its application it was forked from without running another program since; null
  /// for none. Kept here for whoever groups.
  const Process* forkedFrom = nullptr;
  /// All processes that were forked from the same one are members of its application: nobody else
  /// has its own pages. Kept here for whoever groups.
  bool familyInside = false;
  std::optional<ProportionalReading> reading;  ///< the one that counts, for whoever takes it
  std::optional<ProportionalReading> pending;  ///< waits for those of the same application

  /// Seen so few times that it may still change its user, its control group or its program.
  [[nodiscard]] bool isYoung() const;
  /// Bytes that the kernel knows to be no other's. Pages that a fork shares count with everyone.
  [[nodiscard]] std::uint64_t ownSize() const { return residentSize - sharedSize; }

 private:
  friend class ProcessTable;
  ino_t inode_ = 0;
  unsigned updates_ = 0;
  ProcessPages pages_;
  FileDescriptor stat_;
  FileDescriptor statm_;
};

/// The processes of one user, by pid.
///
/// Kernel threads, other users' processes and exited ones are never in it. A process' files stay
/// open: reading the descriptor of a dead process fails even when its pid is in use again, and
/// costs a fifth of opening it anew. Beyond `heldDescriptors` files are opened for each reading.
///
/// The memory of each process is read at every update; what else there is to know of it when it
/// must have changed, and every fourth time. Threads: one at a time. A missing or unreadable
/// directory gives an empty table.
class ProcessTable {
 public:
  struct Options {
    std::string root = "/proc";
    uid_t user = 0;
    std::size_t heldDescriptors = 0;
  };

  explicit ProcessTable(Options options);

  /// Reads everything again: one scan of the directory and little more than one read a process.
  void update();

  /// Processes by pid. Pointers to them stay valid until an `update` removes the process.
  [[nodiscard]] std::map<std::int32_t, Process>& processes() { return processes_; }

  /// True when the latest update added or removed a process or changed what is whose parent.
  [[nodiscard]] bool structureChanged() const { return structureChanged_; }

  /// Asks for every process' evidence again.
  void forgetEvidence();

  /// Whether this process still exists under its pid, be it as a zombie.
  [[nodiscard]] bool isStillThere(const Process& process) const;

  /// Content of a process' file, at most `limit` bytes; empty when it can't be read.
  [[nodiscard]] std::string readFile(std::int32_t pid, std::string_view file,
                                     std::size_t limit) const;

  /// Target of the process' "exe" link without the mark of a deleted file; none when unreadable.
  [[nodiscard]] std::optional<std::string> executablePath(std::int32_t pid) const;

 private:
  struct ListedProcess {
    std::int32_t pid = 0;
    ino_t inode = 0;
  };
  using Processes = std::map<std::int32_t, Process>;
  struct CloseDirectory {
    void operator()(DIR* directory) const { ::closedir(directory); }
  };

  [[nodiscard]] bool scan();
  [[nodiscard]] int directory() const;
  [[nodiscard]] bool isOwn(std::int32_t pid) const;
  [[nodiscard]] bool hasProgram(std::int32_t pid) const;
  void visit(const ListedProcess& listed, Processes::iterator& next);
  void admit(const ListedProcess& listed, Processes::iterator next);
  [[nodiscard]] bool refresh(Process& process);
  [[nodiscard]] bool refreshState(Process& process);
  [[nodiscard]] bool refreshMemory(Process& process) const;
  void refreshOrphans();
  [[nodiscard]] std::optional<ProcessStat> readStat(const Process& process) const;
  static void store(Process& process, const ProcessStat& stat);
  void holdDescriptors(Process& process);
  [[nodiscard]] FileDescriptor open(std::int32_t pid, std::string_view file) const;
  [[nodiscard]] std::string_view read(const FileDescriptor& held, std::int32_t pid,
                                      std::string_view file) const;
  void remove(Processes::iterator& process);

  Options options_;
  std::uint64_t pageSize_;
  std::unique_ptr<DIR, CloseDirectory> directory_;
  Processes processes_;
  std::vector<ListedProcess> listing_;
  std::vector<std::int32_t> removed_;
  unsigned updates_ = 0;
  std::size_t held_ = 0;
  std::uint64_t lastSerial_ = 0;
  bool structureChanged_ = false;
  mutable std::string buffer_;
};

}  // namespace orvane
