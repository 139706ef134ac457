#pragma once

#include "platform/linux/applications/desktop_entries.h"
#include "platform/linux/applications/process_table.h"

namespace orvane {

/// Reads from a process' files what tells to which application it belongs. Files that can't be
/// read (protected programs) are no evidence.
/// Threads: one at a time. The table and the entries must outlive it.
class EvidenceReader {
 public:
  EvidenceReader(const ProcessTable& table, const DesktopEntries& entries)
      : table_(table), entries_(entries) {}

  [[nodiscard]] ProcessEvidence read(const Process& process) const;

 private:
  void findEntry(const Process& process, const ProcessCommand& command,
                 const std::vector<std::string>& arguments, ProcessEvidence& evidence) const;

  const ProcessTable& table_;
  const DesktopEntries& entries_;
};

}  // namespace orvane
