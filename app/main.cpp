#include <malloc.h>

#include <QtGui/QGuiApplication>

#include "app/memory_monitor_app.h"
#include "platform/linux/desktop/single_instance.h"

namespace {

/// A second arena would cost each of our few threads memory and gain nothing; what is freed goes
/// back to the kernel early.
void tuneAllocator() {
  ::mallopt(M_ARENA_MAX, 1);
  ::mallopt(M_TRIM_THRESHOLD, 64 * 1024);
  ::mallopt(M_MMAP_THRESHOLD, 64 * 1024);
}

void prepareToolkit() {
  // The program keeps nothing that a session manager could save, and starts at login by itself.
  qunsetenv("SESSION_MANAGER");
  QGuiApplication::setQuitOnLastWindowClosed(false);
  QGuiApplication::setApplicationName(QStringLiteral("orvane"));
  QGuiApplication::setApplicationDisplayName(QStringLiteral("Orvane"));
  QGuiApplication::setDesktopFileName(QStringLiteral("orvane"));
}

}  // namespace

int main(int /*argc*/, char** argv) {
  orvane::SingleInstance instance(orvane::desktopSessionName());
  if (instance.handOver()) return 0;
  tuneAllocator();
  prepareToolkit();
  int count = 1;  // the command line is not ours to read, only the program's name
  const QGuiApplication application(count, argv);
  orvane::MemoryMonitorApp app(instance);
  return app.run();
}
