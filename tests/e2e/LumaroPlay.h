// Lumaro's pages, worked by real clicks.
#pragma once

#include <string>
#include <utility>
#include <vector>

#include "play/Player.h"

namespace e2e {

class LumaroPlay {
 public:
  explicit LumaroPlay(play::Player& player) : player_(player), form_(player.Form()) {}

  // Each by the main menu.
  void OpenPage();
  void UseBackup();

  // From the scan page to the options and on to the advanced ones, ticking boxes as told, and home again.
  using Choices = std::vector<std::pair<controls::CheckBox*, int>>;
  void Choose(const Choices& options, const Choices& advanced = {});
  void Tick(controls::CheckBox& box, int value);

  // On the scan page; a run must ask nothing.
  void Scan();
  void Clean();
  // For one that has been started.
  void AwaitEndOfCleaning();

 private:
  play::Player& player_;
  frmMain& form_;
};

}  // namespace e2e
