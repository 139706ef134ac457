#include "platform/linux/memory/cgroup_limits.h"

#include <algorithm>
#include <charconv>

#include "platform/linux/files/held_file.h"
#include "platform/linux/files/text_pieces.h"

namespace orvane {
namespace {

/// A file with one number; none when there is none or it says "max".
std::optional<std::uint64_t> readNumber(const std::string& path) {
  HeldFile file(path);
  const std::string_view text = file.read();
  std::uint64_t number = 0;
  const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
  return error == std::errc() ? std::optional(number) : std::nullopt;
}

void addWithParents(std::vector<std::string>& directories, const std::string& mount,
                    std::string_view path) {
  for (;;) {
    while (path.ends_with('/')) path.remove_suffix(1);
    directories.push_back(mount + std::string(path));
    if (path.empty()) return;
    path = path.substr(0, path.rfind('/'));
  }
}

bool lists(std::string_view controllers, std::string_view name) {
  const auto names = split(controllers, ',');
  return std::find(names.begin(), names.end(), name) != names.end();
}

void addLine(std::vector<std::string>& directories, const std::string& root,
             std::string_view line) {
  const std::size_t first = line.find(':');
  if (first == std::string_view::npos) return;
  const std::size_t second = line.find(':', first + 1);
  if (second == std::string_view::npos) return;
  const std::string_view controllers = line.substr(first + 1, second - first - 1);
  const std::string_view path = line.substr(second + 1);
  if (!path.starts_with('/')) return;
  if (controllers.empty()) {
    addWithParents(directories, root, path);
    addWithParents(directories, root + "/unified", path);
  } else if (lists(controllers, "memory")) {
    addWithParents(directories, root + "/memory", path);
  }
}

}  // namespace

std::vector<std::string> memoryCgroupDirectories(std::string_view cgroupFile,
                                                 const std::string& root) {
  std::vector<std::string> directories;
  for (const std::string_view line : split(cgroupFile, '\n')) addLine(directories, root, line);
  return directories;
}

std::optional<std::uint64_t> memoryHeadroom(const std::vector<std::string>& directories) {
  struct Limit {
    const char* limit;
    const char* usage;
  };
  constexpr Limit limits[] = {{"/memory.max", "/memory.current"},
                              {"/memory.high", "/memory.current"},
                              {"/memory.limit_in_bytes", "/memory.usage_in_bytes"}};
  std::optional<std::uint64_t> headroom;
  for (const std::string& directory : directories) {
    for (const Limit& each : limits) {
      const auto limit = readNumber(directory + each.limit);
      if (!limit) continue;
      const std::uint64_t usage = readNumber(directory + each.usage).value_or(0);
      const std::uint64_t left = *limit - std::min(*limit, usage);
      headroom = std::min(headroom.value_or(left), left);
    }
  }
  return headroom;
}

}  // namespace orvane
