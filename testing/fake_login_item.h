#pragma once

#include "platform/login_item.h"

namespace orvane::fakes {

/// A login item that takes whatever is asked.
class FakeLoginItem : public LoginItem {
 public:
  [[nodiscard]] Error registerItem() override { return {}; }
  [[nodiscard]] Error unregisterItem() override { return {}; }
};

}  // namespace orvane::fakes
