#pragma once

#include <functional>
#include <utility>

#include "platform/software_updater.h"

namespace orvane::fakes {

/// Holds a check open until a test answers it.
class FakeSoftwareUpdater : public SoftwareUpdater {
 public:
  void checkForUpdates(std::function<void(const UpdateResult&)> handler) override {
    handler_ = std::move(handler);
  }
  void cancel() override { handler_ = nullptr; }

  /// Ends the running check; false when there is none.
  bool answer(const UpdateResult& result) {
    if (!handler_) return false;
    std::exchange(handler_, nullptr)(result);
    return true;
  }

 private:
  std::function<void(const UpdateResult&)> handler_;
};

}  // namespace orvane::fakes
