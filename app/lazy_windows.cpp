#include "app/lazy_windows.h"

#include <QtCore/QLibrary>
#include <QtCore/QLoggingCategory>
#include <utility>

#include "app/windows_module.h"
#include "platform/linux/bus/session_bus.h"

namespace orvane {

/// A popover that comes into being when it is first shown.
class LazyWindows::LazyPopover : public Popover {
 public:
  LazyPopover(LazyWindows& windows, std::shared_ptr<MemoryManager> manager)
      : windows_(windows), manager_(std::move(manager)) {}

  [[nodiscard]] bool isShown() const override { return popover_ && popover_->isShown(); }

  void performClose() override {
    if (popover_) popover_->performClose();
  }

  void show(ScreenPoint item, PopoverClosures closures) override {
    if (!popover_) {
      WindowFactory* factory = windows_.loaded();
      if (factory != nullptr) popover_ = factory->makePopover(manager_);
    }
    if (popover_) popover_->show(item, std::move(closures));
  }

 private:
  LazyWindows& windows_;
  std::shared_ptr<MemoryManager> manager_;
  std::unique_ptr<Popover> popover_;
};

LazyWindows::LazyWindows(std::vector<std::string> folders, Appearance& appearance,
                         ProductFacts facts)
    : folders_(std::move(folders)), appearance_(appearance), facts_(std::move(facts)) {}

LazyWindows::~LazyWindows() = default;

WindowFactory* LazyWindows::loaded() {
  if (!loaded_) keepToolkitOffSilentBus();
  QString problem;
  for (auto folder = folders_.begin(); !loaded_ && folder != folders_.end(); ++folder) {
    QLibrary module(QString::fromStdString(*folder + '/' + windowsModuleFile));
    // Its types stay registered with the toolkit for good.
    module.setLoadHints(QLibrary::PreventUnloadHint);
    if (const auto make = reinterpret_cast<MakeWindows>(module.resolve(makeWindowsName))) {
      make(loaded_, appearance_, facts_);
    } else {
      problem = module.errorString();
    }
  }
  if (!loaded_) qWarning("No windows: %s", qUtf8Printable(problem));
  return loaded_.get();
}

std::unique_ptr<Popover> LazyWindows::makePopover(const std::shared_ptr<MemoryManager>& manager) {
  return std::make_unique<LazyPopover>(*this, manager);
}

std::unique_ptr<MainWindow> LazyWindows::makeMainWindow(
    const std::shared_ptr<MemoryManager>& manager, MainWindowClosures closures,
    MainWindowDelegate delegate) {
  WindowFactory* factory = loaded();
  if (factory == nullptr) return nullptr;
  return factory->makeMainWindow(manager, std::move(closures), std::move(delegate));
}

std::unique_ptr<UpdateWindow> LazyWindows::makeUpdateWindow(
    const std::shared_ptr<MemoryManager>& manager, UpdateClosures closures) {
  WindowFactory* factory = loaded();
  if (factory == nullptr) return nullptr;
  return factory->makeUpdateWindow(manager, std::move(closures));
}

std::unique_ptr<SoftwareUpdater> LazyWindows::makeUpdater(UpdateSettings settings) {
  WindowFactory* factory = loaded();
  return factory == nullptr ? nullptr : factory->makeUpdater(std::move(settings));
}

}  // namespace orvane
