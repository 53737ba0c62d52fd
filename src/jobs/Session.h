// A session of the program without windows, for those that nobody watches.
#pragma once

#include <functional>
#include <memory>

#include "forms/frmMain.h"

namespace jobs {

// The session's objects and the main window's data and handlers, which is never shown: what its pages' own
// settings controls do when they are clicked is left out, for nobody clicks them, and nothing of it is saved.
// The cache of the settings must have been filled before. One at a time.
class Session {
 public:
  // `fill` fills the screens that the job needs.
  explicit Session(const std::function<void(frmMain&)>& fill);
  ~Session();
  Session(const Session&) = delete;
  Session& operator=(const Session&) = delete;

  frmMain& Form() { return *form_; }
  // Adds what was removed to the user's statistics.
  void SaveStatistics();

 private:
  Session();
  std::unique_ptr<frmMain> form_;
};

}  // namespace jobs
