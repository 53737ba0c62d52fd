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
  // The reader's copies of the two lists.
  std::string LockedCopy() const { return computer.ReadFile(Install(core::handover::kLockedFiles.file)); }
  std::string IndexCopy() const { return computer.ReadFile(Install(core::handover::kIndexFiles.file)); }
  // What is really handed over.
  static Strings Paths(const core::handover::List& list) {
    Strings paths;
    for (const core::handover::Line& line : core::handover::Lines(list)) paths.push_back(line.path);
    return paths;
  }
  static void Hand(const core::handover::List& list, const Strings& paths) {
    for (const std::string& path : paths) core::handover::Add(list, path);
  }
  static void HandLocked(const Strings& paths) { Hand(core::handover::kLockedFiles, paths); }
  static void HandIndex(const Strings& paths) { Hand(core::handover::kIndexFiles, paths); }
  // The copies, and what a kill may have left of them.
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
