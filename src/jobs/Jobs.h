// What a run does from its start to its end, as the user would do it at the windows, with the settings of the
// cache and without its own questions.
#pragma once

#include <functional>
#include <string>
#include <vector>

#include "forms/frmMain.h"
#include "platform/CountedList.h"

namespace jobs {

// Once it says True a run ends where the user's stop button would end it.
using Stop = std::function<bool()>;

// Looks for what the module Brasmir finds; the shared lists hold it afterwards.
void Scan(frmMain& form);

// What is told of a cleaning.
struct Cleaning {
  // Before a category of the results is cleaned.
  std::function<void(forms::ResultCategory category, const std::string& name, int files)> begins;
  // For each of its files, in their order, once all have been dealt with.
  std::function<void(const std::string& path, bool removed)> file;
  // Behind the last file, with how many have stayed.
  std::function<void(int left)> ends;
};
// Removes all that the shared lists hold, one category after the other, as far as the settings offer them.
void CleanFound(frmMain& form, const Stop& stop, const Cleaning& told);
// The same for files of one's own, in the place of the garbage files.
void CleanList(frmMain& form, platform::CountedList files, const Cleaning& told);

// Measures the places that the module Lumaro is to clear, and clears them.
void ScanPlaces(frmMain& form);
void CleanPlaces(frmMain& form);

}  // namespace jobs
