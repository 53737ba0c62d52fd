// A claim for the length of a scope, waited for while another process has it.
#pragma once

#include <chrono>
#include <string>

namespace platform {

// For the short moments in which two programs of the family must not work on the same files. It doesn't nest:
// within one process a claim of the same name is granted again, and the first to end gives it back.
class Claim {
 public:
  // Waits for at most `patience`.
  Claim(std::string name, std::chrono::milliseconds patience);
  ~Claim();
  Claim(const Claim&) = delete;
  Claim& operator=(const Claim&) = delete;
  bool Held() const { return held_; }

 private:
  std::string name_;
  bool held_ = false;
};

}  // namespace platform
