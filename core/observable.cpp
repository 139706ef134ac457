#include "core/observable.h"

namespace orvane {

Observable::Subscription::Subscription(std::shared_ptr<Handler> handler)
    : handler_(std::move(handler)) {}

Observable::Subscription& Observable::Subscription::operator=(Subscription&& other) noexcept =
    default;

Observable::Subscription::~Subscription() = default;

Observable::Subscription Observable::observe(Handler handler) {
  auto shared = std::make_shared<Handler>(std::move(handler));
  handlers_.push_back(shared);
  return Subscription(std::move(shared));
}

void Observable::willChange() {
  std::erase_if(handlers_, [](const auto& handler) { return handler.expired(); });
  // On a copy: a handler may add or end observations while it runs.
  const auto handlers = handlers_;
  for (const auto& weak : handlers) {
    if (const auto handler = weak.lock()) (*handler)();
  }
}

}  // namespace orvane
