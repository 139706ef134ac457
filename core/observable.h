#pragma once

#include <functional>
#include <memory>
#include <utility>
#include <vector>

namespace orvane {

/// An object whose published properties announce every change before it is made.
/// Threads: one, the main thread.
class Observable {
 public:
  using Handler = std::function<void()>;

  /// Ends its observation when destroyed; may outlive the observed object.
  class Subscription {
   public:
    Subscription() = default;
    Subscription(Subscription&&) = default;
    Subscription& operator=(Subscription&& other) noexcept;
    Subscription(const Subscription&) = delete;
    Subscription& operator=(const Subscription&) = delete;
    ~Subscription();

   private:
    friend class Observable;
    explicit Subscription(std::shared_ptr<Handler> handler);
    std::shared_ptr<Handler> handler_;
  };

  Observable() = default;
  Observable(const Observable&) = delete;
  Observable& operator=(const Observable&) = delete;
  virtual ~Observable() = default;

  /// Calls `handler` before each change, until the subscription ends. The handler still reads the
  /// old state: it only learns that a change is coming.
  [[nodiscard]] Subscription observe(Handler handler);

  /// Announces one change that is about to be made.
  void willChange();

 private:
  std::vector<std::weak_ptr<Handler>> handlers_;
};

/// A property that sends its owner's change signal before each assignment or in-place mutation,
/// also when the value stays the same.
template <typename T>
class Published {
 public:
  Published(Observable& owner, T initial) : owner_(owner), value_(std::move(initial)) {}

  [[nodiscard]] const T& get() const { return value_; }

  void set(T value) {
    owner_.willChange();
    value_ = std::move(value);
  }

  template <typename Mutation>
  void mutate(Mutation&& mutation) {
    owner_.willChange();
    std::forward<Mutation>(mutation)(value_);
  }

 private:
  Observable& owner_;
  T value_;
};

}  // namespace orvane
