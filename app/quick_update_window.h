#pragma once

#include <string>

#include "app/dialog_window.h"
#include "app/windows.h"
#include "ui/views.h"

namespace orvane {

/// The window of an update check on Qt Quick.
class QuickUpdateWindow : public UpdateWindow {
 public:
  /// `views` must outlive the window.
  QuickUpdateWindow(Views& views, UpdateClosures closures, std::string runningVersion);

  void showChecking() override;
  void showResult(const UpdateResult& result) override;
  void close() override { window_.close(); }

 private:
  Views& views_;
  UpdateClosures closures_;
  std::string runningVersion_;
  DialogWindow window_;
};

}  // namespace orvane
