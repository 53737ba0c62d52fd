// The state of the running session.
#pragma once

#include <string>
#include <vector>

// One instance, gAppRunning: made at the start of the process, released when the main window has closed.
class c_AppRunning {
 public:
  bool AppIsLoaded = false;  // the main window has been active at least once; never cleared
  bool AppLoading = false;   // the start sequence is running
  // Key of the open information box; names the registry value that takes its check box.
  std::string UserInformation;
  std::string SelectedBackupFile;      // the archive whose content is shown
  bool AppRunning = false;             // a long run is in progress: a close request is refused
  std::string CurrBackupFileNameBrsm;  // the archive that this session's backups go to; empty after a failure
  std::string CurrBackupFileNameLmro;
  bool NewSession = false;   // the next backup of the main module starts a new archive
  bool StopProcess = false;  // the user has asked the run to stop
  // Cookies that hold one of these in their names stay in this session, beside those of "Cookies.txt".
  std::vector<std::string> KeptCookieHosts;

  // Adds to the running total of bytes; does not replace it.
  void AddToTotalFileSize(double bytes) { totalFileSize_ += bytes; }
  // The running total in whole kilobytes.
  double TotalFileSize() const;
  // Sets the running total to 0.
  void Zeroproperties() { totalFileSize_ = 0; }

 private:
  double totalFileSize_ = 0;
};
