#include <malloc.h>

#include <QtGui/QGuiApplication>
#include <algorithm>
#include <array>
#include <cstdio>
#include <optional>
#include <string>
#include <variant>

#include "app/command_line.h"
#include "app/memory_monitor_app.h"
#include "app/translation.h"
#include "platform/linux/bus/session_bus.h"
#include "platform/linux/desktop/display_choice.h"
#include "platform/linux/desktop/display_guard.h"
#include "platform/linux/desktop/single_instance.h"
#include "platform/linux/runtime/linux_standard_output.h"
#include "platform/linux/runtime/start_conditions.h"

namespace {

/// One malloc arena serves every thread, and freed memory goes back to the kernel early.
void tuneAllocator() {
  ::mallopt(M_ARENA_MAX, 1);
  ::mallopt(M_TRIM_THRESHOLD, 64 * 1024);
  ::mallopt(M_MMAP_THRESHOLD, 64 * 1024);
}

void prepareQt() {
  // Without SESSION_MANAGER Qt doesn't connect to the session manager, which has nothing to save
  // here.
  qunsetenv("SESSION_MANAGER");
  // Relative folders are to be ignored; Qt takes them for ones of the working directory.
  for (const char* folder : {"XDG_CONFIG_HOME", "XDG_DATA_HOME", "XDG_CACHE_HOME"})
    if (!qgetenv(folder).startsWith('/')) qunsetenv(folder);
  QGuiApplication::setQuitOnLastWindowClosed(false);
  QGuiApplication::setApplicationName(QStringLiteral("orvane"));
  QGuiApplication::setApplicationDisplayName(QStringLiteral("Orvane"));
  QGuiApplication::setDesktopFileName(QStringLiteral("orvane"));
}

int answer(const orvane::CommandLineAnswer& answer) {
  std::fputs(answer.text.c_str(), answer.status == 0 ? stdout : stderr);
  return answer.status;
}

int run(orvane::SingleInstance& instance, orvane::StartWish wish, const char* program) {
  // Not in the environment, which the programs inherit that are started from here.
  std::array<std::string, 3> words = {program, "-platform", "xcb"};
  std::array<char*, 4> arguments = {words[0].data(), words[1].data(), words[2].data(), nullptr};
  int count = orvane::prefersXwayland() ? 3 : 1;
  tuneAllocator();
  if (const char* obstacle = orvane::startObstacle())
    return answer({std::string("orvane: ") + obstacle + "\n", 1});
  prepareQt();
  std::optional<orvane::DisplayGuard> guard(std::in_place);
  // In newer releases of Qt the application's constructor connects to the bus.
  orvane::keepQtOffSilentBus();
  const QGuiApplication application(count, arguments.data());
  guard.reset();
  orvane::loadTranslation();
  orvane::MemoryMonitorApp app(instance);
  return app.run(wish);
}

}  // namespace

int main(int argc, char** argv) {
  using orvane::SingleInstance;
  orvane::fillStandardStreams();
  const auto asked = orvane::parseCommandLine({argv + std::min(argc, 1), argv + argc});
  if (const auto* text = std::get_if<orvane::CommandLineAnswer>(&asked)) return answer(*text);
  const auto wish = std::get<orvane::StartWish>(asked);
  SingleInstance instance(orvane::desktopSessionName());
  switch (instance.handOver(static_cast<char>(wish))) {
    case SingleInstance::Outcome::accepted:
      return 0;
    case SingleInstance::Outcome::silent:
      return answer({instance.problem() + "\n", 1});
    case SingleInstance::Outcome::first:
      break;
  }
  if (wish == orvane::StartWish::quit) return answer({"orvane: it doesn't run\n", 1});
  return run(instance, wish, argc > 0 ? argv[0] : "orvane");
}
