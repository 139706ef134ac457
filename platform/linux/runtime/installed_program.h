#pragma once

#include <string>

namespace orvane {

/// Replaces the running program by the one that lies at its path now, with `argument`, if that is
/// another file: an upgrade put it there. Returns when it is not, or when it can't be started.
void replaceByInstalledProgram(const std::string& argument);

}  // namespace orvane
