#pragma once

#include "app/command_line.h"
#include "platform/running_applications.h"

namespace orvane {

/// The running program as the desktop sees it. Threads: main thread only.
class Application {
 public:
  virtual ~Application() = default;

  /// Regular while the main window is shown, accessory otherwise.
  virtual void setActivationPolicy(ActivationPolicy policy) = 0;

  /// Brings the program to the front, whichever is in front now.
  virtual void activate() = 0;

  /// Ends the event loop; returns first.
  virtual void terminate() = 0;

  /// Puts the program that an upgrade installed meanwhile in this one's place, started for `wish`;
  /// returns only where there is none.
  virtual void startAnew(StartWish wish) = 0;
};

}  // namespace orvane
