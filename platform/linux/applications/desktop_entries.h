#pragma once

#include <sys/types.h>

#include <ctime>
#include <memory>
#include <set>
#include <string>
#include <string_view>
#include <vector>

#include "platform/linux/applications/process_command.h"

namespace orvane {

/// What a desktop entry says about an application, as far as it matters here.
struct DesktopEntry {
  std::string id;    ///< without ".desktop"
  std::string name;  ///< in the user's language
  std::string icon;  ///< a themed name or an absolute path; empty for none
  std::string windowClass;
  std::string program;          ///< absolute path; empty when it is another program's launcher
  std::string resolvedProgram;  ///< where symbolic links lead from there
  std::vector<std::string> arguments;
  bool visible = false;   ///< belongs into the desktop's menus
  bool launcher = false;  ///< a panel or a window manager, by what sessions look for in its entry
};

/// The desktop entries of this machine, held as a small index.
/// Threads: one at a time. Unreadable files and folders are left out.
class DesktopEntries {
 public:
  using Entry = std::shared_ptr<const DesktopEntry>;

  /// Looks into `directories`, the more important ones first.
  explicit DesktopEntries(std::vector<std::string> directories);

  /// The application folders of this user, of the system and of what it has installed.
  [[nodiscard]] static std::vector<std::string> standardDirectories();

  /// Reads everything when a folder or a file has changed since it was read; true when that was
  /// so. Cheap otherwise, as each call looks at the folders and at `filesPerRefresh` files only,
  /// the next ones at the next call: a file edited in place is noticed when its turn has come.
  bool refresh();
  static constexpr std::size_t filesPerRefresh = 64;

  /// The entry with this id, letter case apart when none fits exactly; null when there is none.
  [[nodiscard]] Entry byId(std::string_view id) const;

  /// The entry a desktop file stands for.
  [[nodiscard]] Entry byFile(std::string_view path) const;

  /// The entry that claims windows of this class (WM_CLASS).
  [[nodiscard]] Entry byWindowClass(std::string_view instance, std::string_view className) const;

  /// The entry that starts this command. Of several entries with the same program the one is
  /// taken that is named after it, else the one whose further arguments are all given.
  [[nodiscard]] Entry byCommand(const ProcessCommand& command,
                                const std::vector<std::string>& arguments) const;

 private:
  struct Folder {
    std::string path;
    timespec modified{};
  };
  struct File {
    std::string path;
    timespec changed{};
    off_t size = 0;
  };

  [[nodiscard]] bool foldersChanged() const;
  [[nodiscard]] bool nextFilesChanged();
  [[nodiscard]] static File fileNow(const std::string& path);
  void readDirectory(const std::string& directory, std::set<std::string>& ids);

  std::vector<std::string> directories_;
  std::vector<Folder> folders_;
  std::vector<File> files_;   ///< those that count, also where they give no entry
  std::size_t nextFile_ = 0;  ///< to be looked at
  std::vector<Entry> entries_;
  bool wasRead_ = false;
};

}  // namespace orvane
