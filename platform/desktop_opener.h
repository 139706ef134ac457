#pragma once

#include <string>

namespace orvane {

/// Hands things to other programs of the desktop.
/// Threads: main thread only. Calls return at once and failures are silent.
class DesktopOpener {
 public:
  virtual ~DesktopOpener() = default;

  /// Opens an address with the desktop's handler for it.
  virtual void openUrl(const std::string& url) = 0;

  /// Shows the file (an absolute path) selected in the file manager, or its folder when the file
  /// manager can't select.
  virtual void revealFile(const std::string& path) = 0;
};

}  // namespace orvane
