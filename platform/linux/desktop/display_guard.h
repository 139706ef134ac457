#pragma once

namespace orvane {

/// While it lives, a toolkit that finds no display ends the program with one line on standard error
/// and the exit status 1, where it would abort; so does a display that doesn't answer in 15 s. The
/// toolkit's own remarks are dropped meanwhile. Main thread only, one at a time.
class DisplayGuard {
 public:
  DisplayGuard();
  DisplayGuard(const DisplayGuard&) = delete;
  DisplayGuard& operator=(const DisplayGuard&) = delete;
  ~DisplayGuard();
};

}  // namespace orvane
