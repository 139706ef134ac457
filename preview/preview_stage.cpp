#include "preview/preview_stage.h"

#include <QQuickItem>
#include <QtGlobal>
#include <cmath>
#include <fstream>
#include <iterator>
#include <optional>
#include <string>
#include <utility>

namespace orvane::preview {

namespace {

/// Scenarios make their files themselves: none of them is a pipe.
std::optional<std::string> readFile(const std::string& path, std::size_t limit) {
  std::ifstream file(path, std::ios::binary);
  std::string bytes{std::istreambuf_iterator<char>(file), {}};
  return file.is_open() && bytes.size() <= limit ? std::optional(std::move(bytes)) : std::nullopt;
}

}  // namespace

PreviewStage::PreviewStage() {
  setMemory({});
}

void PreviewStage::setMemory(const MachineMemory& memory) {
  services_.counters.bytesPerPage = 4096;
  const auto pages = [](double gigabytes) {
    return static_cast<std::uint32_t>(std::llround(gigabytes * gibibyte / 4096));
  };
  services_.counters.counts = PageCounts{.free = pages(memory.free),
                                         .active = pages(memory.active),
                                         .inactive = pages(memory.inactive),
                                         .wired = pages(memory.wired),
                                         .compressed = pages(memory.compressed)};
}

void PreviewStage::setUsage(double percent) {
  constexpr double total = 15.625;  // 4,096,000 pages
  const double used = total * percent / 100;
  setMemory({.free = (total - used) * 0.4,
             .active = used * 0.7,
             .inactive = (total - used) * 0.6,
             .wired = used * 0.3,
             .compressed = 1.2});
}

const std::shared_ptr<MemoryManager>& PreviewStage::manager() {
  if (!manager_) manager_ = MemoryManager::create(services_.services());
  return manager_;
}

WindowController& PreviewStage::windows() {
  if (windows_) return *windows_;
  shell_.onBoost = [this] { startBoost(); };
  windows_ = std::make_unique<WindowController>(
      shell_, manager(),
      DesktopFunctions{
          .drawIcon = [](const IconRequest& request) { return drawIcon(request, readFile); },
          .blendsTranslucentWindows = [this] { return roundWindows_; }},
      ProductFacts{.version = "0.1.0", .builtOn = "Qt 6 and GLib"});
  windows_->setAppearance(appearance_);
  return *windows_;
}

void PreviewStage::startBoost() {
  // The virtual clock stands still, so the background work stays pending.
  manager()->boostMemory();
}

QQuickWindow* PreviewStage::window() const {
  for (const auto kind :
       {WindowKind::popover, WindowKind::main, WindowKind::update, WindowKind::about}) {
    if (QQuickWindow* shown = windows_->window(kind)) return shown;
  }
  qFatal("the scenario shows no window");
}

QQuickItem& PreviewStage::item(const char* name) const {
  auto* found = window()->findChild<QQuickItem*>(QLatin1String(name));
  if (found == nullptr) qFatal("the view has no item named %s", name);
  return *found;
}

}  // namespace orvane::preview
