#include "platform/linux/runtime/start_conditions.h"

#include <sys/resource.h>

#include <csignal>
#include <system_error>
#include <thread>

namespace orvane {
namespace {

constexpr rlim_t fewestDescriptors = 32;
constexpr rlim_t smallestFile = 65536;

template <typename Resource>
bool allows(Resource resource, rlim_t amount) {
  rlimit limit{};
  return ::getrlimit(resource, &limit) != 0 || limit.rlim_max >= amount;
}

}  // namespace

bool canStartThread() {
  try {
    std::thread([] {}).join();
    return true;
  } catch (const std::system_error&) {
    return false;
  }
}

const char* startObstacle() {
  std::signal(SIGXFSZ, SIG_IGN);
  if (!allows(RLIMIT_NOFILE, fewestDescriptors)) return "too few files may be open at once";
  if (!allows(RLIMIT_FSIZE, smallestFile)) return "files may not be written (limit of their size)";
  return canStartThread() ? nullptr : "the system gives no thread";
}

}  // namespace orvane
