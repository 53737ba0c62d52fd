// What the tests of the platform's operations share.
#pragma once

#include <algorithm>
#include <cstdint>
#include <functional>
#include <gtest/gtest.h>
#include <memory>
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

  static Strings All(const platform::CountedList& list) {
    Strings all;
    for (int i = 0; i < list.UpperBound(); ++i) all.push_back(list[i]);
    return all;
  }
  static Strings Sorted(const platform::CountedList& list) {
    auto all = All(list);
    std::sort(all.begin(), all.end());
    return all;
  }

  TestComputer computer;
};

// The ways to hold a file that the system has; one and the same on Windows.
enum class LockKind { Flock, ForProcess, ForOpenFile };

// Somebody else who holds a file while this object lives.
class LockHolder {
 public:
  LockHolder(const std::string& nativePath, LockKind kind);
  ~LockHolder();
  LockHolder(const LockHolder&) = delete;
  LockHolder& operator=(const LockHolder&) = delete;

 private:
  struct Holder;
  std::unique_ptr<Holder> holder_;
};

}  // namespace test
