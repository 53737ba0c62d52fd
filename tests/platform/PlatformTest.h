// What the tests of the platform's operations share.
#pragma once

#include <algorithm>
#include <cstdint>
#include <functional>
#include <gtest/gtest.h>
#include <string>
#include <vector>

#include "platform/CountedList.h"
#include "platform/Guard.h"
#include "support/TestComputer.h"

namespace test {

class PlatformTest : public testing::Test {
 protected:
  PlatformTest() { platform::SetInstallFolder(TestComputer::InstallDirectory()); }
  ~PlatformTest() override { platform::SetInstallFolder(""); }

  static std::vector<std::string> All(const platform::CountedList& list) {
    std::vector<std::string> all;
    for (int i = 0; i < list.UpperBound(); ++i) all.push_back(list[i]);
    return all;
  }
  static std::vector<std::string> Sorted(const platform::CountedList& list) {
    auto all = All(list);
    std::sort(all.begin(), all.end());
    return all;
  }

  TestComputer computer;
};

enum class LockKind { Flock, ForProcess, ForOpenFile };

// Another process that holds a lock on a file while this object lives.
class LockHolder {
 public:
  LockHolder(const std::string& nativePath, LockKind kind);
  ~LockHolder();
  LockHolder(const LockHolder&) = delete;
  LockHolder& operator=(const LockHolder&) = delete;

 private:
  int process_ = -1, pipe_ = -1;
};

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
