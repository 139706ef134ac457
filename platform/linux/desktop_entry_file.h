#pragma once

#include <memory>
#include <string>

#include "platform/linux/desktop_entries.h"

namespace orvane {

/// Reads one desktop file by the desktop's own rules. Null when it isn't an application, is marked
/// as deleted, or its program isn't installed.
[[nodiscard]] DesktopEntries::Entry readDesktopEntry(const std::string& path, std::string id);

}  // namespace orvane
