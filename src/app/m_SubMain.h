// The process's way up.
#pragma once

#include <functional>
#include <string>

namespace m_SubMain {

// What a first start is given, in place of an installer.
struct Startup {
  // The text of the first-time settings (settings/Seed.h), and the program's folder on this computer.
  std::string firstTimeSettings;
  std::string installDirectory;
  // Brings the program's own files into its folder, which is the one that the settings tell. Called at each
  // start that loads the main window; `firstTime` where the settings have just been written.
  std::function<void(const std::string& installDirectory, bool firstTime)> installFiles;
};

// Makes the session, ends silently beside a running instance, writes the settings of a first start, fills the
// cache from the store and loads the main window, which stays hidden where the program starts in the tray.
// Without settings that can be read it tells so and loads nothing. The caller keeps the process alive while a
// form is loaded. Gives the exit code that the process ends with: not 0 if the program couldn't start, which
// it has told then.
int Main(const Startup& startup);

// Asks, on a screen that is exactly 640 pixels wide, whether to change to 800 by 600.
void CheckScreenResolution();

}  // namespace m_SubMain
