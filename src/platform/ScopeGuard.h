// An action for every way out of a scope.
#pragma once

#include <utility>

namespace platform {

// Calls `action` when the scope is left, also by an exception. The action must not raise.
template <class Action>
class [[nodiscard]] ScopeGuard {
 public:
  explicit ScopeGuard(Action action) : action_(std::move(action)) {}
  ~ScopeGuard() { action_(); }
  ScopeGuard(const ScopeGuard&) = delete;
  ScopeGuard& operator=(const ScopeGuard&) = delete;

 private:
  Action action_;
};

}  // namespace platform
