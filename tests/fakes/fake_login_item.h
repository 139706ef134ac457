#pragma once

#include <string>

#include "platform/login_item.h"

namespace orvane::fakes {

/// A login item in memory; with `failure` set both operations fail with it.
class FakeLoginItem : public LoginItem {
 public:
  [[nodiscard]] Error registerItem() override { return change(true); }
  [[nodiscard]] Error unregisterItem() override {
    if (!failure && !registered) return "No such file or directory";
    return change(false);
  }

  Error failure;
  bool registered = false;

 private:
  Error change(bool value) {
    if (!failure) registered = value;
    return failure;
  }
};

}  // namespace orvane::fakes
