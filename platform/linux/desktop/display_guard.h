#pragma once

namespace orvane {

/// While it lives, a QGuiApplication that finds no display ends the program with one line on
/// standard error and the exit status 1, where it would abort; so does a display that doesn't
/// answer in 15 s. What Qt prints itself is dropped meanwhile. Main thread only, one at a time.
class DisplayGuard {
 public:
  DisplayGuard();
  DisplayGuard(const DisplayGuard&) = delete;
  DisplayGuard& operator=(const DisplayGuard&) = delete;
  ~DisplayGuard();
};

}  // namespace orvane
