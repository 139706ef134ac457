#include "platform/linux/runtime/installed_program.h"

#include <sys/stat.h>
#include <unistd.h>

#include <array>
#include <filesystem>
#include <string_view>
#include <system_error>

namespace orvane {

void replaceByInstalledProgram(const std::string& argument) {
  constexpr const char* self = "/proc/self/exe";
  constexpr std::string_view deleted = " (deleted)";
  std::error_code error;
  std::string path = std::filesystem::read_symlink(self, error).string();
  if (error) return;
  if (path.ends_with(deleted)) path.resize(path.size() - deleted.size());
  struct stat running {};
  struct stat installed {};
  if (::stat(self, &running) != 0 || ::stat(path.c_str(), &installed) != 0) return;
  if (running.st_dev == installed.st_dev && running.st_ino == installed.st_ino) return;
  std::string option = argument;
  const std::array<char*, 3> arguments = {path.data(), option.data(), nullptr};
  ::execv(path.c_str(), arguments.data());
}

}  // namespace orvane
