#pragma once

#include <sys/resource.h>

#include <string>
#include <vector>

namespace orvane {

/// Starts a program that lives on its own: in a session of its own, without input or output, with
/// default signals and with the soft limit `openFiles` of open files (or the hard limit, when that
/// is lower).
///
/// `command` holds the program's absolute path and its arguments. Returns as soon as the program
/// has been told to start; false when no process could be made. Threads: any.
bool launchDetached(std::vector<std::string> command, rlim_t openFiles);

}  // namespace orvane
