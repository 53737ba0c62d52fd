// What a control raises, and the one handler that listens to it.
#pragma once

#include <functional>
#include <utility>

namespace controls {

// How deep in handlers the program is, and what to do once it is back at rest: closed forms are destroyed
// then, when no handler of theirs can be on the stack.
class EventDepth {
 public:
  EventDepth() { ++depth_; }
  ~EventDepth() {
    if (--depth_ == 0 && AtRest) AtRest();
  }
  EventDepth(const EventDepth&) = delete;
  EventDepth& operator=(const EventDepth&) = delete;
  static bool Resting() { return depth_ == 0; }

  static inline std::function<void()> AtRest;

 private:
  static inline int depth_ = 0;
};

// Holds at most one handler; raising an event without a handler does nothing. Calling the event is the plain
// call of the handler that one subsystem makes of another's control: it asks neither Visible nor Enabled. A
// user's action goes through Form::UserClick and its like, which do ask.
template <class... Args>
class Event {
 public:
  Event() = default;
  Event(const Event&) = delete;
  Event& operator=(const Event&) = delete;
  Event& operator=(std::function<void(Args...)> handler) {
    handler_ = std::move(handler);
    return *this;
  }

  explicit operator bool() const { return static_cast<bool>(handler_); }

  void operator()(Args... args) const {
    if (!handler_) return;
    // A copy, because a handler may close its own form and so destroy this event.
    auto handler = handler_;
    EventDepth depth;
    handler(std::forward<Args>(args)...);
  }

 private:
  std::function<void(Args...)> handler_;
};

}  // namespace controls
