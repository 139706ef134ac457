#include "platform/linux/applications/systemd_unit.h"

#include <glib.h>

#include <algorithm>
#include <optional>
#include <vector>

#include "platform/linux/files/text_pieces.h"

namespace orvane {
namespace {

constexpr std::size_t uuidLength = 36;

/// Undoes the escapes of unit names: "\x2d" is a dash.
std::string unescape(std::string_view text) {
  std::string plain;
  for (std::size_t i = 0; i < text.size(); ++i) {
    const bool isEscape = text.substr(i).starts_with("\\x") && i + 3 < text.size() &&
                          g_ascii_isxdigit(text[i + 2]) && g_ascii_isxdigit(text[i + 3]);
    plain += isEscape ? static_cast<char>(g_ascii_xdigit_value(text[i + 2]) * 16 +
                                          g_ascii_xdigit_value(text[i + 3]))
                      : text[i];
    if (isEscape) i += 3;
  }
  return plain;
}

bool removeSuffix(std::string_view& text, std::string_view suffix) {
  if (!text.ends_with(suffix)) return false;
  text.remove_suffix(suffix.size());
  return true;
}

/// The id in "app[-LAUNCHER]-ID[-RANDOM]" once "app-" is gone; dashes inside the id are escaped.
std::string applicationId(std::string_view name, bool endsWithRandom) {
  const std::size_t instance = name.find('@');
  if (instance != std::string_view::npos) {
    name = name.substr(0, instance);
    endsWithRandom = false;
  }
  if (endsWithRandom) name = name.substr(0, name.rfind('-'));
  const std::size_t launcher = name.find('-');
  return unescape(launcher == std::string_view::npos ? name : name.substr(launcher + 1));
}

/// "snap.NAME.APP[-.]UUID" once "snap." is gone; snaps' desktop entries are called NAME_APP.
std::string snapId(std::string_view name) {
  const std::size_t suffix = uuidLength + 1;
  if (name.size() > suffix && std::count(name.end() - uuidLength, name.end(), '-') == 4) {
    name.remove_suffix(suffix);
  }
  std::string id = unescape(name);
  std::replace(id.begin(), id.end(), '.', '_');
  return id;
}

std::optional<std::string> idOfScopeOrSlice(std::string_view name) {
  const bool scope = removeSuffix(name, ".scope");
  if (!scope && !removeSuffix(name, ".slice")) return {};
  if (name.starts_with("app-")) return applicationId(name.substr(4), scope);
  if (scope && name.starts_with("snap.")) return snapId(name.substr(5));
  return {};
}

/// "dbus-:1.2-NAME@0" is a service that the bus started; its name follows the bus' own.
std::string serviceName(std::string_view name) {
  name = name.substr(0, name.find('@'));
  if (name.starts_with("dbus-:")) {
    const std::size_t dash = name.find('-', 6);
    if (dash != std::string_view::npos) name.remove_prefix(dash + 1);
  }
  return unescape(name);
}

std::optional<SystemdUnit> unitAt(const std::vector<std::string_view>& parts, std::size_t index) {
  std::string_view name = parts[index];
  if (!name.ends_with(".slice")) {
    if (auto id = idOfScopeOrSlice(name))
      return SystemdUnit{.path = {}, .id = *id, .application = true};
  }
  if (!removeSuffix(name, ".service") || name.starts_with("user@")) return {};
  if (name.starts_with("app-")) {
    return SystemdUnit{.path = {}, .id = applicationId(name.substr(4), false), .application = true};
  }
  if (name.starts_with("snap.")) return SystemdUnit{.path = {}, .id = snapId(name.substr(5))};
  // A service in a slice of its application's name works for that application.
  const auto slice = index > 0 ? idOfScopeOrSlice(parts[index - 1]) : std::nullopt;
  if (slice) return SystemdUnit{.path = {}, .id = *slice, .application = true};
  return SystemdUnit{.path = {}, .id = serviceName(name)};
}

std::optional<SystemdUnit> unitInPath(std::string_view path) {
  const auto parts = split(path, '/');
  for (std::size_t i = parts.size(); i-- > 0;) {
    auto unit = unitAt(parts, i);
    if (!unit || unit->id.empty()) continue;
    const char* end = parts[i].data() + parts[i].size();
    unit->path = path.substr(0, static_cast<std::size_t>(end - path.data()));
    return unit;
  }
  return {};
}

}  // namespace

std::optional<SystemdUnit> parseControlGroup(std::string_view text) {
  std::optional<SystemdUnit> legacy;
  for (const std::string_view line : split(text, '\n')) {
    const std::size_t first = line.find(':');
    const std::size_t second = line.find(':', first + 1);
    if (first == std::string_view::npos || second == std::string_view::npos) continue;
    const std::string_view controllers = line.substr(first + 1, second - first - 1);
    if (controllers.empty()) {
      if (auto unit = unitInPath(line.substr(second + 1))) return unit;
    } else if (controllers == "name=systemd") {
      legacy = unitInPath(line.substr(second + 1));
    }
  }
  return legacy;
}

}  // namespace orvane
