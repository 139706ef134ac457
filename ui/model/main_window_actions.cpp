#include "ui/model/main_window_actions.h"

#include <utility>

namespace orvane {

MainWindowActions::MainWindowActions(MainWindowClosures closures, QObject* parent)
    : QObject(parent), closures_(std::move(closures)) {}

void MainWindowActions::revealExecutable(const ProcessRecord& record) const {
  if (!record.isValid() || record.info()->processPath.empty()) return;
  // A copy: the closure may end the window, and this with it.
  if (const auto reveal = closures_.revealFile) reveal(record.info()->processPath);
}

void MainWindowActions::run(const std::function<void()>& closure) {
  if (const auto copy = closure) copy();
}

}  // namespace orvane
