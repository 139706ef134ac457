#include "platform/linux/runtime/bounded_process.h"

#include <pthread.h>
#include <sys/prctl.h>
#include <sys/resource.h>
#include <unistd.h>

#include <QtCore/QProcess>
#include <csignal>
#include <fstream>

namespace orvane {
namespace {

constexpr rlim_t mostProcessorSeconds = 1;
constexpr unsigned mostSeconds = 2;
constexpr int patienceMs = 3000;
constexpr rlim_t mostMemory = rlim_t{128} << 20U;

/// What the process holds of its own, in bytes; 0 when the kernel doesn't say.
rlim_t dataSize() {
  constexpr int dataColumn = 6;
  std::ifstream statm("/proc/self/statm");
  rlim_t pages = 0;
  for (int column = 0; column < dataColumn; ++column) statm >> pages;
  return statm ? pages * static_cast<rlim_t>(::sysconf(_SC_PAGESIZE)) : 0;
}

template <typename Resource>
void limit(Resource resource, rlim_t amount) {
  const rlimit both{amount, amount};
  ::setrlimit(resource, &both);
}

}  // namespace

void boundThisProcess() {
  // Whoever started us may have these ignored or blocked.
  std::signal(SIGALRM, SIG_DFL);
  sigset_t none{};
  ::sigemptyset(&none);
  ::pthread_sigmask(SIG_SETMASK, &none, nullptr);
  ::alarm(mostSeconds);
  limit(RLIMIT_CPU, mostProcessorSeconds);
  limit(RLIMIT_DATA, dataSize() + mostMemory);
  ::prctl(PR_SET_DUMPABLE, 0);
}

QByteArray outputOf(const std::string& program, const QStringList& arguments) {
  QProcess process;
  process.setStandardInputFile(QProcess::nullDevice());
  process.setStandardErrorFile(QProcess::nullDevice());
  process.start(QString::fromStdString(program), arguments, QIODevice::ReadOnly);
  const bool isWhole = process.waitForFinished(patienceMs) &&
                       process.exitStatus() == QProcess::NormalExit && process.exitCode() == 0;
  return isWhole ? process.readAllStandardOutput() : QByteArray();
}

}  // namespace orvane
