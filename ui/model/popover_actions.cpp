#include "ui/model/popover_actions.h"

#include <QPointer>

namespace orvane {

PopoverActions::PopoverActions(PopoverClosures closures, QObject* parent)
    : QObject(parent), closures_(std::move(closures)) {}

bool PopoverActions::mainWindowVisible() const {
  return closures_.isMainWindowVisible && closures_.isMainWindowVisible();
}

void PopoverActions::setMainWindowVisible(bool visible) {
  const QPointer<PopoverActions> self(this);  // the popover may close on the way
  if (const auto set = closures_.setMainWindowVisible) set(visible);
  if (self) Q_EMIT changed();
}

bool PopoverActions::launchAtLogin() const {
  return closures_.launchAtLogin && closures_.launchAtLogin();
}

void PopoverActions::setLaunchAtLogin(bool launch) {
  const QPointer<PopoverActions> self(this);  // the popover may close on the way
  if (const auto set = closures_.setLaunchAtLogin) set(launch);
  if (self) Q_EMIT changed();
}

void PopoverActions::boost() const {
  if (const auto run = closures_.onBoost) run();
}

void PopoverActions::checkUpdates() const {
  if (const auto run = closures_.onCheckUpdates) run();
}

void PopoverActions::quit() const {
  if (const auto run = closures_.onQuit) run();
}

}  // namespace orvane
