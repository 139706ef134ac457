#pragma once

#include <string>

#include "platform/login_item.h"

namespace orvane {

/// The desktop entry that starts `program` at login, with it quoted as desktop entries require.
[[nodiscard]] std::string autostartEntry(const std::string& program);

/// A desktop entry in the user's autostart directory.
class LinuxLoginItem : public LoginItem {
 public:
  /// `program` is the absolute path to start; the entry goes to `directory`, made when missing.
  /// Half-written entries there, of a program that was killed, are removed.
  explicit LinuxLoginItem(std::string program, std::string directory = defaultDirectory());

  /// autostart in XDG_CONFIG_HOME or ~/.config.
  [[nodiscard]] static std::string defaultDirectory();

  [[nodiscard]] Error registerItem() override;
  [[nodiscard]] Error unregisterItem() override;

 private:
  std::string program_;
  std::string directory_;
};

}  // namespace orvane
