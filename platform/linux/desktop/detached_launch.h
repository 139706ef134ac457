#pragma once

#include <QtCore/QString>
#include <QtCore/QStringList>

namespace orvane {

/// What a program gets from whoever starts it, and what this process changes for itself.
struct InheritedLimits {
  QString openFiles;           ///< soft limit, as the shell's ulimit writes it
  QString oomScoreAdjustment;  ///< text of /proc/self/oom_score_adj; empty: as it is now

  /// Those of this process at the moment.
  [[nodiscard]] static InheritedLimits current();
};

/// Starts a program that lives on its own: in a session of its own, without input or output, and
/// with what `inherited` says.
///
/// `command` holds the program's absolute path and its arguments. Returns as soon as the program
/// has been told to start. A failure is silent.
void launchDetached(const QStringList& command, const InheritedLimits& inherited);

}  // namespace orvane
