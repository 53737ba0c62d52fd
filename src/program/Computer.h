// The computer that the program works on. One file makes it for each system.
#pragma once

#include <functional>
#include <memory>
#include <string>

#include "platform/Machine.h"
#include "program/Program.h"

namespace program {

struct Computer {
  std::unique_ptr<platform::Machine> machine;
  // Between its paths and those that the window system knows; see view::Surroundings.
  std::function<std::string(const std::string&)> toNative, fromNative;
  // Where pickers begin, a native path; empty where the system knows better.
  std::string browseRoot;
  // What a first start writes as the program's folder, with its trailing backslash.
  std::string installDirectory;
  // The program itself lies there, so that the settings follow it where its folder has been moved.
  bool liesInstalled = false;
  // See m_SubMain::Startup; empty where an installer has done it.
  std::function<void(const std::string& installDirectory, bool firstTime)> installFiles;
};

Computer MakeComputer(const Options& options);

// The first thing that the program does: what it makes from now on is for its user's eyes alone, and what it
// loads is the system's.
void GuardProcess();

}  // namespace program
