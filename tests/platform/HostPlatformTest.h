// What the tests of the played computer's platform share.
#pragma once

#include "PlatformTest.h"

namespace test {

// Runs in a process without the superuser's rights on the computer's folder; gives what `check` gave there.
bool AsOrdinaryUser(TestComputer& computer, const std::function<bool()>& check);

// Mounts a small file system of its own on a folder while it lives; False where this process may not.
class SmallDisk {
 public:
  SmallDisk(const std::string& nativeFolder, const std::string& size);
  ~SmallDisk();
  SmallDisk(const SmallDisk&) = delete;
  SmallDisk& operator=(const SmallDisk&) = delete;
  explicit operator bool() const { return mounted_; }

 private:
  std::string folder_;
  bool mounted_;
};

}  // namespace test
