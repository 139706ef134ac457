#pragma once

#include <string>
#include <vector>

#include "platform/desktop_opener.h"

namespace orvane::fakes {

/// Records what was opened.
class RecordingDesktopOpener : public DesktopOpener {
 public:
  void openUrl(const std::string& url) override { urls.push_back(url); }
  void revealFile(const std::string& path) override { revealed.push_back(path); }

  std::vector<std::string> urls;
  std::vector<std::string> revealed;
};

}  // namespace orvane::fakes
