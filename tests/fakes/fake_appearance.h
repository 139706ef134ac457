#pragma once

#include <functional>
#include <optional>
#include <utility>

#include "platform/appearance.h"

namespace orvane::fakes {

/// A desktop whose preference a test switches.
class FakeAppearance : public Appearance {
 public:
  [[nodiscard]] std::optional<ColorScheme> colorScheme() const override { return scheme_; }
  void setChanged(std::function<void()> handler) override { changed_ = std::move(handler); }

  void switchTo(std::optional<ColorScheme> scheme) {
    scheme_ = scheme;
    if (changed_) changed_();
  }

 private:
  std::optional<ColorScheme> scheme_;
  std::function<void()> changed_;
};

}  // namespace orvane::fakes
