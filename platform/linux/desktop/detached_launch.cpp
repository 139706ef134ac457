#include "platform/linux/desktop/detached_launch.h"

#include <sys/resource.h>

#include <QtCore/QProcess>

#include "platform/linux/files/held_file.h"

namespace orvane {

InheritedLimits InheritedLimits::current() {
  rlimit files{};
  const bool isLimited = ::getrlimit(RLIMIT_NOFILE, &files) == 0 && files.rlim_cur != RLIM_INFINITY;
  HeldFile adjustment("/proc/self/oom_score_adj");
  return {.openFiles = isLimited ? QString::number(files.rlim_cur) : QStringLiteral("unlimited"),
          .oomScoreAdjustment = QString::fromStdString(std::string(adjustment.read())).trimmed()};
}

void launchDetached(const QStringList& command, const InheritedLimits& inherited) {
  // A shell sets the limits: Qt 6.4 ignores setChildProcessModifier in startDetached.
  const auto script = QStringLiteral(
      "ulimit -S -n \"$1\"; echo \"$2\" > /proc/self/oom_score_adj; shift 2; exec \"$@\"");
  QProcess shell;
  shell.setProgram(QStringLiteral("/bin/sh"));
  shell.setArguments(QStringList{QStringLiteral("-c"), script, QStringLiteral("sh"),
                                 inherited.openFiles, inherited.oomScoreAdjustment} +
                     command);
  shell.setStandardInputFile(QProcess::nullDevice());
  shell.setStandardOutputFile(QProcess::nullDevice());
  shell.setStandardErrorFile(QProcess::nullDevice());
  shell.startDetached();
}

}  // namespace orvane
