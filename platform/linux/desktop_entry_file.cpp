#include "platform/linux/desktop_entry_file.h"

#include <glib.h>

#include <algorithm>
#include <array>
#include <cstdlib>
#include <filesystem>
#include <span>

#include "platform/linux/regular_file.h"

namespace orvane {
namespace {

constexpr std::size_t largestEntry = std::size_t{1} << 20U;

struct Release {
  void operator()(GKeyFile* file) const { g_key_file_unref(file); }
  void operator()(char* text) const { g_free(text); }
  void operator()(char** texts) const { g_strfreev(texts); }
};
template <typename Type>
using Owned = std::unique_ptr<Type, Release>;

std::string textOf(const char* text) {
  return text == nullptr ? std::string() : text;
}

/// The application's group of a desktop file.
class EntryFile {
 public:
  explicit EntryFile(const std::string& path) : file_(g_key_file_new()) {
    // Not by the path: anybody may have put a pipe there, and reading that would never end.
    const auto content = readRegularFile(path, largestEntry);
    isRead_ = content && g_key_file_load_from_data(file_.get(), content->data(), content->size(),
                                                   G_KEY_FILE_NONE, nullptr) != 0;
  }

  [[nodiscard]] bool isRead() const { return isRead_; }
  [[nodiscard]] std::string text(const char* key) const {
    return textOf(Owned<char>(g_key_file_get_string(file_.get(), group, key, nullptr)).get());
  }
  [[nodiscard]] std::string localeText(const char* key) const {
    return textOf(
        Owned<char>(g_key_file_get_locale_string(file_.get(), group, key, nullptr, nullptr)).get());
  }
  [[nodiscard]] bool isTrue(const char* key) const {
    return g_key_file_get_boolean(file_.get(), group, key, nullptr) != 0;
  }
  [[nodiscard]] bool has(const char* key) const {
    return g_key_file_has_key(file_.get(), group, key, nullptr) != 0;
  }
  [[nodiscard]] bool lists(const char* key, const std::vector<std::string>& desktops) const {
    gsize count = 0;
    const Owned<char*> values(g_key_file_get_string_list(file_.get(), group, key, &count, nullptr));
    const std::span<char*> listed(values.get(), values ? count : 0);
    return std::any_of(listed.begin(), listed.end(), [&](const char* value) {
      return std::find(desktops.begin(), desktops.end(), value) != desktops.end();
    });
  }

 private:
  static constexpr const char* group = G_KEY_FILE_DESKTOP_GROUP;

  Owned<GKeyFile> file_;
  bool isRead_ = false;
};

std::vector<std::string> currentDesktops() {
  const char* const names = std::getenv("XDG_CURRENT_DESKTOP");
  std::vector<std::string> desktops;
  const Owned<char*> parts(g_strsplit(names == nullptr ? "" : names, ":", -1));
  for (char** part = parts.get(); *part != nullptr; ++part) desktops.emplace_back(*part);
  return desktops;
}

bool belongsIntoMenus(const EntryFile& file) {
  if (file.isTrue(G_KEY_FILE_DESKTOP_KEY_NO_DISPLAY)) return false;
  const auto desktops = currentDesktops();
  if (file.lists(G_KEY_FILE_DESKTOP_KEY_ONLY_SHOW_IN, desktops)) return true;
  return !file.has(G_KEY_FILE_DESKTOP_KEY_ONLY_SHOW_IN) &&
         !file.lists(G_KEY_FILE_DESKTOP_KEY_NOT_SHOW_IN, desktops);
}

/// Sessions start panels and window managers in phases of their own.
bool isLauncher(const EntryFile& file) {
  constexpr std::array phases{"DisplayServer", "WindowManager", "Panel", "Desktop"};
  if (file.has("X-GNOME-WMName")) return true;
  return std::any_of(phases.begin(), phases.end(), [&](const char* phase) {
    return file.text("X-GNOME-Autostart-Phase") == phase ||
           file.text("X-MATE-Autostart-Phase") == phase;
  });
}

/// A themed icon's name is written without the ending of a file.
std::string iconName(const EntryFile& file) {
  std::string name = file.localeText(G_KEY_FILE_DESKTOP_KEY_ICON);
  if (name.starts_with('/')) return name;
  for (const char* ending : {".png", ".svg", ".xpm"}) {
    if (name.ends_with(ending)) name.resize(name.size() - 4);
  }
  return name;
}

std::string absoluteProgram(const std::string& program) {
  const Owned<char> found(g_find_program_in_path(program.c_str()));
  return textOf(found.get());
}

std::string resolved(const std::string& path) {
  std::error_code unresolvable;
  return std::filesystem::canonical(path, unresolvable).string();
}

/// False when the program isn't installed.
bool setProgram(DesktopEntry& entry, const std::string& execLine) {
  const auto arguments = parseExecLine(execLine);
  if (!arguments) return execLine.empty();  // started by the bus alone
  const std::string program = absoluteProgram(arguments->front());
  if (program.empty()) return false;
  const ProcessCommand command = processCommand(program, *arguments, "");
  // Launchers start applications by arguments that the program itself never sees.
  const bool launcher = command.role == ProcessRole::wrapper && command.path == program;
  if (launcher || command.name == "snap") return true;
  entry.program = command.path.empty() ? program : absoluteProgram(command.path);
  entry.resolvedProgram = resolved(entry.program);
  if (entry.program == program) {
    entry.arguments.assign(arguments->begin() + 1, arguments->end());
  }
  return true;
}

}  // namespace

DesktopEntries::Entry readDesktopEntry(const std::string& path, std::string id) {
  const EntryFile file(path);
  if (!file.isRead() || file.text(G_KEY_FILE_DESKTOP_KEY_TYPE) != "Application" ||
      file.isTrue(G_KEY_FILE_DESKTOP_KEY_HIDDEN)) {
    return {};
  }
  const std::string required = file.text(G_KEY_FILE_DESKTOP_KEY_TRY_EXEC);
  if (!required.empty() && absoluteProgram(required).empty()) return {};
  auto entry = std::make_shared<DesktopEntry>();
  if (!setProgram(*entry, file.text(G_KEY_FILE_DESKTOP_KEY_EXEC))) return {};
  entry->id = std::move(id);
  entry->name = file.localeText(G_KEY_FILE_DESKTOP_KEY_NAME);
  entry->icon = iconName(file);
  entry->windowClass = file.text(G_KEY_FILE_DESKTOP_KEY_STARTUP_WM_CLASS);
  entry->visible = belongsIntoMenus(file);
  entry->launcher = isLauncher(file);
  return entry;
}

}  // namespace orvane
