#pragma once

#include <utility>

#include "platform/login_item.h"

namespace orvane::fakes {

/// A login item in memory.
class FakeLoginItem : public LoginItem {
 public:
  [[nodiscard]] Error registerItem() override {
    registered_ = true;
    return {};
  }
  [[nodiscard]] Error unregisterItem() override {
    return std::exchange(registered_, false) ? Error() : "No such file or directory";
  }

 private:
  bool registered_ = false;
};

}  // namespace orvane::fakes
