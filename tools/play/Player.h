// Plays on the running program as a person does: real clicks on real controls, waiting for states and never
// for a time. For the guided demo and for the tests of the whole program.
#pragma once

#include <functional>
#include <string>

#include "forms/frmMain.h"

namespace play {

// To be used from program::Options::started. A step that can't be done, a state that doesn't come within a
// minute, or a play of more than four, ends the process with exit code 3 and a line that says which.
class Player {
 public:
  Player();

  frmMain& Form() { return form_; }

  // Waits until the control can be clicked, and clicks it.
  void Click(const std::string& control);
  // A row of a list, from 1: its check box.
  void Tick(const std::string& list, int row);
  void Await(const char* what, const std::function<bool()>& state);
  void AwaitPage(controls::Frame& page);
  // Does `action` once the state comes, while this or a run of the program waits or pumps.
  void When(std::function<bool()> state, std::function<void()> action);
  // Presses this button of the next box: "Yes", "No" or "OK".
  void Answer(const std::string& button);
  // Waits until no run is on the stack.
  void AwaitRest();

  // A picture of the main window, numbered; nothing without a folder for pictures.
  void SetPictures(const std::string& folder) { pictures_ = folder; }
  void Shoot(const std::string& name);

  // From a main menu entry to an options page and back.
  void OpenScanPage();
  void SetOption(controls::Label& hubEntry, controls::Frame& page, controls::CheckBox& box, int homeIndex);
  void Scan();
  void OpenResults();
  // Ticks all rows, starts the cleaning and answers its question with Yes.
  void CleanAll();
  // Closes the program by its button.
  void Close();

 private:
  frmMain& form_;
  std::string pictures_;
  int shots_ = 0;
};

}  // namespace play
