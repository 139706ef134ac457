#pragma once

namespace orvane {

/// Whether the system gives the process another thread. Qt waits for ever for one that it wanted
/// and that never started.
[[nodiscard]] bool canStartThread();

/// What keeps the program from running at all, for the user; null when nothing does. Files that
/// grow beyond a limit are an error from here on, where the kernel would end the program.
[[nodiscard]] const char* startObstacle();

}  // namespace orvane
