#pragma once

#include <QtCore/QByteArray>
#include <QtCore/QObject>

#include <string>

#include "platform/desktop_opener.h"
#include "platform/linux/desktop/detached_launch.h"

namespace orvane {

class SessionBus;

/// The file: address of an absolute path, whatever bytes the path holds.
[[nodiscard]] QByteArray fileAddress(const std::string& path);

/// Opens addresses with the desktop's own command for it (xdg-open, else gio open) and reveals
/// files through the file manager's service on the session bus.
///
/// The commands run on their own, without output, and with the limits this process had when the
/// opener was made: make it before anything changes them.
class LinuxDesktopOpener : public DesktopOpener {
 public:
  explicit LinuxDesktopOpener(SessionBus& bus);

  void openUrl(const std::string& url) override;
  void revealFile(const std::string& path) override;

 private:
  void openFolderOf(const std::string& path) const;
  void launchOpener(const QByteArray& address) const;

  SessionBus& bus_;
  InheritedLimits inherited_;
  QObject answers_;  // receives the bus's answers; none arrives after the opener's end
};

}  // namespace orvane
