// A handle of the system that closes itself.
#pragma once

#include <utility>
#include <windows.h>

namespace platform {

class UniqueHandle {
 public:
  UniqueHandle() = default;
  explicit UniqueHandle(HANDLE handle) : handle_(handle == INVALID_HANDLE_VALUE ? nullptr : handle) {}
  UniqueHandle(UniqueHandle&& other) noexcept : handle_(std::exchange(other.handle_, nullptr)) {}
  UniqueHandle& operator=(UniqueHandle&& other) noexcept {
    std::swap(handle_, other.handle_);
    other.Close();
    return *this;
  }
  ~UniqueHandle() { Close(); }

  HANDLE Get() const { return handle_; }
  explicit operator bool() const { return handle_ != nullptr; }
  void Close() {
    if (handle_) CloseHandle(handle_);
    handle_ = nullptr;
  }

 private:
  HANDLE handle_ = nullptr;
};

}  // namespace platform
