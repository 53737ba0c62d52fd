// A computer with a running session on it: the global objects, the first-time settings in the store and in
// the cache, and a main window that isn't loaded.
#pragma once

#include <filesystem>
#include <fstream>
#include <gtest/gtest.h>
#include <iterator>
#include <memory>
#include <string>

#include "core/Keys.h"
#include "core/OpenForms.h"
#include "core/m_SharedProcedures.h"
#include "forms/frmMain.h"
#include "support/TestComputer.h"

namespace test {

// The content of a file of the folder packaging/.
std::string PackagedFile(const std::string& name);

// The uniform report as the desktop records it.
inline std::string Report(const std::string& module, const std::string& procedure,
                          const std::string& arguments, const std::string& description, int number) {
  return "critical|Tidorra (Brasmir)...Error|There has been raised an error: \r\nModule: " + module +
         "\r\nProcedure: " + procedure + " \r\n" + arguments + "\r\nDescription: " + description +
         "\r\nError number: " + std::to_string(number);
}

// The three global objects for the length of a scope.
struct SessionObjects {
  SessionObjects() {
    gAppRunning = std::make_unique<c_AppRunning>();
    gRegistry = std::make_unique<c_Registry>();
    gCleaningStatus = std::make_unique<c_CleaningStatus>();
  }
  ~SessionObjects() { End(); }
  // Whoever made them.
  static void End() {
    core::DropAllForms();
    core::SetMainForm(nullptr);
    gCleaningStatus.reset();
    gAppRunning.reset();
    gRegistry.reset();
  }
};

}  // namespace test
