#include "platform/linux/applications/desktop_entries.h"

#include <glib.h>
#include <malloc.h>
#include <sys/stat.h>

#include <algorithm>
#include <array>
#include <cstdlib>
#include <filesystem>
#include <set>
#include <span>

#include "platform/linux/files/regular_file.h"

namespace orvane {
namespace {

namespace fs = std::filesystem;

constexpr std::string_view fileEnding = ".desktop";

timespec modificationTime(const std::string& path) {
  struct stat status {};
  return ::stat(path.c_str(), &status) == 0 ? status.st_mtim : timespec{};
}

bool isSameTime(const timespec& a, const timespec& b) {
  return a.tv_sec == b.tv_sec && a.tv_nsec == b.tv_nsec;
}

bool equalApartFromCase(std::string_view a, std::string_view b) {
  // The same in every language: in Turkish I isn't the capital of i.
  return a.size() == b.size() && g_ascii_strncasecmp(a.data(), b.data(), a.size()) == 0;
}

/// "org.example.Editor" is called Editor for short.
std::string_view shortId(std::string_view id) {
  return id.substr(id.rfind('.') + 1);
}

/// The id of a file in a sub-folder has a dash for each slash.
std::string idOf(std::string relativePath) {
  relativePath.resize(relativePath.size() - fileEnding.size());
  std::replace(relativePath.begin(), relativePath.end(), '/', '-');
  return relativePath;
}

bool isNamedAfter(const DesktopEntry& entry, std::string_view program) {
  return equalApartFromCase(entry.id, program) || equalApartFromCase(shortId(entry.id), program) ||
         equalApartFromCase(entry.windowClass, program);
}

/// How well an entry fits a program at `path` with these arguments; 0 for not at all.
int fit(const DesktopEntry& entry, std::string_view path,
        const std::vector<std::string>& arguments) {
  if (path.empty() || entry.program.empty()) return 0;
  const bool samePath = path == entry.program || path == entry.resolvedProgram;
  const bool sameName = fileName(path) == fileName(entry.program);
  const bool named = isNamedAfter(entry, fileName(path)) && (samePath || sameName);
  const bool argumentsGiven =
      std::all_of(entry.arguments.begin(), entry.arguments.end(), [&](const std::string& argument) {
        return std::find(arguments.begin(), arguments.end(), argument) != arguments.end();
      });
  if (!named && !(samePath && argumentsGiven)) return 0;
  const int given =
      argumentsGiven ? static_cast<int>(std::min<std::size_t>(entry.arguments.size(), 7)) : 0;
  return (named ? 64 : 0) + given * 4 + (samePath ? 2 : 0) + (entry.visible ? 1 : 0) + 1;
}

/// The entry that `score` likes best; null when all are 0.
template <typename Score>
DesktopEntries::Entry best(const std::vector<DesktopEntries::Entry>& entries, Score score) {
  DesktopEntries::Entry found;
  int highest = 0;
  for (const auto& entry : entries) {
    const int value = score(*entry);
    if (value > highest) {
      highest = value;
      found = entry;
    }
  }
  return found;
}

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
    // Not g_key_file_load_from_file: it would wait for ever for a pipe's writer.
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

/// Reads one desktop file by the desktop's own rules. Null when it isn't an application, is marked
/// as deleted, or its program isn't installed.
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

}  // namespace

DesktopEntries::DesktopEntries(std::vector<std::string> directories)
    : directories_(std::move(directories)) {}

std::vector<std::string> DesktopEntries::standardDirectories() {
  std::vector<std::string> directories{std::string(g_get_user_data_dir()) + "/applications"};
  for (const char* const* data = g_get_system_data_dirs(); *data != nullptr; ++data) {
    directories.push_back(std::string(*data) + "/applications");
  }
  return directories;
}

bool DesktopEntries::refresh() {
  if (wasRead_ && !foldersChanged() && !nextFilesChanged()) return false;
  wasRead_ = true;
  entries_.clear();
  folders_.clear();
  files_.clear();
  // An entry of a more important folder hides its namesakes, even when it only says "deleted".
  std::set<std::string> ids;
  for (const auto& directory : directories_) readDirectory(directory, ids);
  // Reading takes far more memory than the index keeps.
  ::malloc_trim(0);
  return true;
}

bool DesktopEntries::foldersChanged() const {
  return std::any_of(folders_.begin(), folders_.end(), [](const Folder& folder) {
    return !isSameTime(modificationTime(folder.path), folder.modified);
  });
}

bool DesktopEntries::nextFilesChanged() {
  const std::size_t count = std::min(files_.size(), filesPerRefresh);
  for (std::size_t i = 0; i < count; ++i) {
    nextFile_ = nextFile_ + 1 < files_.size() ? nextFile_ + 1 : 0;
    const File& known = files_[nextFile_];
    const File now = fileNow(known.path);
    if (!isSameTime(now.changed, known.changed) || now.size != known.size) return true;
  }
  return false;
}

DesktopEntries::File DesktopEntries::fileNow(const std::string& path) {
  struct stat status {};
  if (::stat(path.c_str(), &status) != 0) return {.path = path};
  // Not st_mtim, which tools that copy a file set back.
  return {.path = path, .changed = status.st_ctim, .size = status.st_size};
}

void DesktopEntries::readDirectory(const std::string& directory, std::set<std::string>& ids) {
  folders_.push_back({directory, modificationTime(directory)});
  std::error_code error;
  auto file = fs::recursive_directory_iterator(directory,
                                               fs::directory_options::follow_directory_symlink |
                                                   fs::directory_options::skip_permission_denied,
                                               error);
  for (; !error && file != fs::recursive_directory_iterator(); file.increment(error)) {
    const std::string path = file->path().string();
    std::error_code unknown;
    if (file->is_directory(unknown)) {
      // A link may lead to the whole file system.
      const bool isBelowLink = file.depth() > 0 && fs::is_symlink(file->path().parent_path());
      if (file.depth() > 4 || isBelowLink) {
        file.disable_recursion_pending();
      } else {
        folders_.push_back({path, modificationTime(path)});
      }
    } else if (path.ends_with(fileEnding)) {
      const std::string id = idOf(path.substr(directory.size() + 1));
      if (!ids.insert(id).second) continue;
      files_.push_back(fileNow(path));  // before it is read: later changes show
      if (auto entry = readDesktopEntry(path, id)) entries_.push_back(std::move(entry));
    }
  }
}

DesktopEntries::Entry DesktopEntries::byId(std::string_view id) const {
  if (id.empty()) return {};
  return best(entries_, [&](const DesktopEntry& entry) {
    return entry.id == id ? 2 : equalApartFromCase(entry.id, id) ? 1 : 0;
  });
}

DesktopEntries::Entry DesktopEntries::byFile(std::string_view path) const {
  constexpr std::string_view folder = "/applications/";
  if (!path.ends_with(fileEnding)) return {};
  const std::size_t start = path.rfind(folder);
  const std::string_view relative =
      start == std::string_view::npos ? fileName(path) : path.substr(start + folder.size());
  return byId(idOf(std::string(relative)));
}

DesktopEntries::Entry DesktopEntries::byWindowClass(std::string_view instance,
                                                    std::string_view className) const {
  return best(entries_, [&](const DesktopEntry& entry) {
    const int visible = entry.visible ? 1 : 0;
    const auto fits = [&](std::string_view text) {
      if (text.empty()) return 0;
      return equalApartFromCase(text, className) ? 2 : equalApartFromCase(text, instance) ? 1 : 0;
    };
    if (const int byClass = fits(entry.windowClass)) return 40 + byClass * 2 + visible;
    if (const int byWholeId = fits(entry.id)) return 20 + byWholeId * 2 + visible;
    const int byShortId = fits(shortId(entry.id));
    return byShortId == 0 ? 0 : byShortId * 2 + visible;
  });
}

DesktopEntries::Entry DesktopEntries::byCommand(const ProcessCommand& command,
                                                const std::vector<std::string>& arguments) const {
  // A start script may hand its own name on to the program.
  const std::string_view invoked = command.role == ProcessRole::program && !command.path.empty() &&
                                           !arguments.empty() &&
                                           arguments.front().find('/') != std::string::npos
                                       ? std::string_view(arguments.front())
                                       : std::string_view{};
  return best(entries_, [&](const DesktopEntry& entry) {
    return std::max(fit(entry, command.path, arguments), fit(entry, invoked, arguments));
  });
}

}  // namespace orvane
