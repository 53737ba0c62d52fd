// What scenarios with secondary windows do beside Player's steps: type, pick a place, choose from the menu.
#pragma once

#include <chrono>
#include <filesystem>
#include <string>

#include "play/Driver.h"
#include "play/Player.h"

namespace e2e {

// Clicks the text box (or the editable combo box) and types until `shown` gives the text.
template <class Shown>
void TypeInto(play::Player& player, const std::string& box, const std::string& text, Shown shown) {
  player.Click(box);
  play::driver::Type(text);
  player.Await(("the text " + text).c_str(), [&] { return shown() == text; });
}

// Waits until the control of a secondary form can be clicked, and clicks it.
void ClickIn(play::Player& player, controls::Form& form, controls::Control& control);

// The window of this title stands still and takes the keys.
inline bool Ready(play::driver::Stillness& still, const std::string& title) {
  wxTopLevelWindow* window = play::driver::FindTop(title);
  return still.Reached(window && window->IsActive() ? window : nullptr);
}
inline void AwaitWindow(play::Player& player, const std::string& title) {
  play::driver::Stillness still;
  player.Await(title.c_str(), [&] { return Ready(still, title); });
}

// A row of a list: its check box, or its text.
void Tick(play::Player& player, controls::ListView& list, int row);
void Select(play::Player& player, controls::ListView& list, int row);

// Types a native path into the next system picker of this title ("Select a file", "Select a folder").
void Pick(play::Player& player, const std::string& title, const std::filesystem::path& native);

// Brasmir's steps before a cleaning: files are to be deleted; with a backup.
void DeleteDirectly(play::Player& player);
void UseBackup(play::Player& player);
// Writes a native file, with the folders above it.
void WriteAll(const std::filesystem::path& path, const std::string& content);

// Opens the results' menu on a row by a right click and chooses an entry by its letter.
void ChooseFromMenu(play::Player& player, int row, char letter);

}  // namespace e2e
