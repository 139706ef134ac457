#pragma once

#include <memory>
#include <string>

#include "platform/linux/applications/process_command.h"
#include "platform/linux/applications/systemd_unit.h"

namespace orvane {

struct DesktopEntry;

/// How a process came by its desktop entry, the surest way first.
enum class EntrySource { unit, launch, executable, none };

/// What tells to which application a process belongs, apart from its windows and its parents.
struct ProcessEvidence {
  SystemdUnit unit;  ///< empty path: none
  std::shared_ptr<const DesktopEntry> entry;
  EntrySource source = EntrySource::none;
  std::string name;        ///< of the command
  std::string command;     ///< the beginning of the command line
  std::string executable;  ///< path; empty when the kernel hides it
  ProcessRole role = ProcessRole::program;
};

}  // namespace orvane
