// A computer with the settings of a first start, for the programs that work beside the main one.
#pragma once

#include <gtest/gtest.h>
#include <string>
#include <vector>

#include "core/HandOver.h"
#include "core/Keys.h"
#ifndef _WIN32
#include "platform/host/HostFolders.h"
#endif
#include "settings/Seed.h"
#include "support/Hold.h"
#include "support/Session.h"

namespace test {

class SiblingTest : public testing::Test {
 protected:
  SiblingTest() {
    if (!settings::Seed(PackagedFile("first-time-settings.txt"), TestComputer::InstallDirectory()))
      ADD_FAILURE() << "no settings";
  }

  static std::string Install(const std::string& rest) { return TestComputer::InstallDirectory() + rest; }
  std::string LockedList() const { return computer.ReadFile(Install(core::handover::kLockedFiles)); }
  std::string IndexList() const { return computer.ReadFile(Install(core::handover::kIndexFiles)); }
  void HandLocked(const std::string& text) {
    computer.WriteFile(Install(core::handover::kLockedFiles), text);
  }
  void HandIndex(const std::string& text) { computer.WriteFile(Install(core::handover::kIndexFiles), text); }
  std::string StartEntry() {
    return computer.GetValue(platform::kLocalMachine, core::keys::kRunOnce, "Kelvish");
  }
  // The lists, what was taken of them, and what a kill may have left.
  Strings TempFiles() const { return computer.List(Install("Temp")); }
  void Schedule(const char* name, const std::string& data) {
    computer.SetValue(core::keys::kSchedule, name, data);
  }
  std::string Scheduled(const char* name) { return computer.GetValue(core::keys::kSchedule, name); }

  // The programs that are started for real have the user's own profile.
#ifdef _WIN32
  TestComputer computer;
#else
  TestComputer computer{{.userName = platform::CurrentUserName()}};
#endif
};

}  // namespace test
