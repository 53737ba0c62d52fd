// The part of a desktop that shows tray icons, in a process and on a connection of its own.
#pragma once

#include <string>

namespace e2e {

// Takes the icons of the screen into a small window in the upper left corner, and notes the titles of the
// windows that the window manager is given. Made before the program starts.
class TrayHost {
 public:
  TrayHost();
  ~TrayHost();
  TrayHost(const TrayHost&) = delete;
  TrayHost& operator=(const TrayHost&) = delete;

  // What has been noted so far, a line each: "tray" once icons are taken, "icon" for one that has come,
  // "window TITLE".
  const std::string& Notes();

 private:
  int process_ = -1, pipe_ = -1;
  std::string notes_;
};

}  // namespace e2e
