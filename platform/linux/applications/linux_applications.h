#pragma once

#include <cstdint>
#include <functional>
#include <map>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "platform/linux/applications/application_grouping.h"
#include "platform/linux/applications/application_memory.h"
#include "platform/linux/applications/desktop_entries.h"
#include "platform/linux/applications/evidence_reader.h"
#include "platform/linux/applications/process_table.h"
#include "platform/linux/applications/proportional_size_reader.h"
#include "platform/running_applications.h"

struct xcb_connection_t;

namespace orvane {

class X11Windows;
struct X11Window;

/// The user's running applications, each a group of processes, and what they use.
///
/// Everything is read at the first list and only what changed after that; in between each process
/// costs little more than one read. An application's resident size is the memoryFigure of its
/// processes (/proc/PID/statm: resident, shared; /proc/PID/smaps_rollup: Pss); threads
/// (/proc/PID/stat: num_threads) are summed; the virtual size (/proc/PID/statm: size) is the
/// leader's.
class LinuxApplications : public RunningApplications {
 public:
  struct Options {
    xcb_connection_t* x11 = nullptr;                  ///< where windows are; null for none
    std::vector<std::string> applicationDirectories;  ///< folders of desktop entries
    std::size_t descriptorLimit = 0;                  ///< how many this process may have open
    std::function<bool()> isWatched;                  ///< somebody looks at the figures
  };

  /// The queues must outlive every block submitted to them.
  LinuxApplications(Options options, MainQueue& mainQueue, BackgroundQueue& backgroundQueue);
  LinuxApplications(const LinuxApplications&) = delete;
  LinuxApplications& operator=(const LinuxApplications&) = delete;
  ~LinuxApplications() override;

  /// What a desktop session has: Qt's X11 connection, if any, and the standard folders.
  [[nodiscard]] static Options desktopOptions(std::size_t descriptorLimit,
                                              std::function<bool()> isWatched);

  [[nodiscard]] std::vector<RunningApplication> runningApplications() override;

 private:
  struct Application {
    RunningApplication record;
    std::string entryId;
    const Process* leader = nullptr;
    std::vector<Process*> members;
    std::uint64_t rootSerial = 0;  ///< of the process it began with, as in Process
    ReadingState readings;
    std::optional<std::uint64_t> groupedFigure;  ///< bytes when its leader was chosen
  };
  /// A process' own evidence together with its window's.
  struct Candidate {
    Process* process = nullptr;
    const X11Window* window = nullptr;
    DesktopEntries::Entry entry;
    EntrySource source = EntrySource::none;
    bool isDesktopPart = false;  ///< owns a panel or the desktop's background
  };
  /// What is kept of a process as long as it leads.
  struct KnownLeader {
    std::uint64_t serial = 0;  ///< of the process
    std::shared_ptr<const ProcessHandle> handle;
  };

  bool gatherEvidence();
  void group();
  [[nodiscard]] std::vector<Candidate> candidates(const std::vector<X11Window>& windows);
  void useWindow(Candidate& candidate, const X11Window& window) const;
  [[nodiscard]] static GroupedProcess groupedProcess(const Candidate& candidate);
  [[nodiscard]] static Application makeApplication(const std::vector<Candidate>& candidates,
                                                   const ApplicationGroup& group);
  static void addMembers(Application& application, const std::vector<Candidate>& candidates,
                         const ApplicationGroup& group);
  void findFamilies();
  void keepLeaders();
  void tellNamesakesApart();
  void measure();
  void readSizes();

  ProcessTable table_;
  DesktopEntries entries_;
  EvidenceReader reader_;
  std::unique_ptr<X11Windows> windows_;
  std::vector<Application> applications_;
  std::map<std::int32_t, KnownLeader> leaders_;
  std::size_t mostHandles_;
  ProportionalSizeReader sizes_;
  std::function<bool()> isWatched_;
  bool memoryShifted_ = false;  ///< so much that another process may lead
};

}  // namespace orvane
