// The computer that a program of the family works on. One file makes it for each system.
#pragma once

#include <functional>
#include <memory>
#include <string>

#include "platform/Machine.h"

namespace computer {

struct Options {
  // The data folder of a played computer; empty for the user's own. Nothing on a real one.
  std::string dataFolder = {};
  // The name of the profile below C:\Users on a played computer; empty for the user's own.
  std::string userName = {};
  // The folder that the build or the installation filled for the program: pictures/, help/, plug-ins/,
  // first-time-settings.txt and the sibling programs' executables in bin/.
  std::string shareFolder = {};
};

// share/ beside the executable, or else in the folder above it.
std::string ShareFolder();

// What a first start writes into the settings; empty where the file isn't there.
std::string FirstTimeSettings(const std::string& shareFolder);

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

// Lets the settings of the current machine tell the folder that the program lies in, if it no longer lies in
// the one that they tell; nothing where the program lies in no folder of the computer.
void FollowMovedFolder(const Computer& computer);

// The first thing that the program does: what it makes from now on is for its user's eyes alone, and what it
// loads is the system's.
void GuardProcess();

}  // namespace computer
