#pragma once

#include <memory>
#include <string>

#include "platform/preferences.h"

class QSettings;

namespace orvane {

/// Preferences in an INI file of the user's configuration directory, replaced as a whole at each
/// change. A change that can't be written within 0.2 s is kept and written with the next one.
///
/// A file that isn't all valid is copied beside itself ("....corrupt") before the first change, and
/// one that can't be copied, or is over 1 MiB, is left alone: then changes last until the program
/// ends.
class LinuxPreferences : public Preferences {
 public:
  /// `path` of the file; it needn't exist.
  explicit LinuxPreferences(const std::string& path = defaultPath());
  ~LinuxPreferences() override;

  /// orvane/orvane.conf in XDG_CONFIG_HOME or ~/.config.
  [[nodiscard]] static std::string defaultPath();

  [[nodiscard]] std::optional<std::string> text(std::string_view key) const override;
  void setText(std::string_view key, std::string_view value) override;

  /// Only "true" and "false" are booleans.
  [[nodiscard]] std::optional<bool> boolean(std::string_view key) const override;
  void setBoolean(std::string_view key, bool value) override;

 private:
  class File;
  std::unique_ptr<File> file_;
};

}  // namespace orvane
