// The places that the module Lumaro clears: all that is known of each, in one table.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "core/c_Registry.h"
#include "forms/frmMain.h"

namespace places {

// How a place is cleared.
enum class Way {
  Files,         // one after the other, each judged and removed by the configured method
  CacheEntries,  // the browser's entries, and then the folders of its cache
  History,       // every "index.dat" is emptied
  IndexDat,      // the same in several folders, with what is locked left to the boot-time cleaner
  Firefox,       // the caches, cookies and history of all profiles
  RecycleBin,    // emptied
};

// What is asked of a file before it may go.
enum class Filter { Settings, PrefetchAndSettings, Cookies };

// What follows a removal that failed while locked files aren't left to the boot-time cleaner. A removal that
// worked is counted in any case.
enum class Failed { Told, Silent, CountedAsRemoved };

struct Place {
  // The procedure that clears it, which is unique.
  const char* cleaner;
  // What the command line calls it.
  const char* name;

  // What switches it on: a setting or a check box of the page; with neither it is always on.
  std::string c_Registry::*setting = nullptr;
  controls::CheckBox frmMain::*box = nullptr;

  // Where it lies: a folder of the system, which is empty where it can't be found, and what follows below it.
  // Null for the user's own folders and for what lies in no one folder.
  std::string (*base)() = nullptr;
  const char* below = "";

  // Its row on the scan page, from 0, and on it the number of what lies there. A place without a row isn't
  // measured.
  int row = -1;
  controls::Label frmMain::*count = nullptr;
  int countOffset = 0;  // what the page shows beyond the number of files
  const char* scanError = "";
  const char* report = "";  // what the report of a scheduled run calls it

  // In a run. A step of 0 leaves the progress as it is.
  int step = 0;
  Way way = Way::Files;
  const char* cleanError = "";
  const char* consequence = "";
  Filter filter = Filter::Settings;
  Failed failed = Failed::Silent;
  bool pollsStop = true;
  bool removesFolders = true;

  // The step of the backup that covers it; 0: it is never backed up.
  int backupStep = 0;
  const char* backupError = "";

  // Its line in the box "Selected settings...", from 1; 0 for none.
  int shownAt = 0;
  const char* shown = "";
};

// In the order in which a run clears them.
const std::vector<Place>& All();
// Those with a row on the scan page, by their rows.
const std::vector<const Place*>& Rows();
// Those with a line in the box of the settings, by their lines.
const std::vector<const Place*>& Shown();
// The place of this procedure; raises std::logic_error where there is none.
const Place& ClearedBy(std::string_view cleaner);

// Raises for a setting that is no number.
bool IsOn(const Place& place, frmMain& form);
inline bool IsUsersFolders(const Place& place) {
  return place.row >= 0 && !place.base;
}

// The folder without a backslash at its end; empty where the system doesn't know it.
std::string Folder(const Place& place);
// The same put together without that question, as it is opened and named to the user.
std::string FolderText(const Place& place);

// Shows so many files on the place's row; nothing for a place without one.
void ShowFound(frmMain& form, const Place& place, int files);

// Appends the user's folders that are to be cleared: those that are ticked in the store and that the page
// doesn't show unticked. The store's error code where the folders can't be read, else 0; raises where a tick
// can't.
long TickedFolders(const frmMain& form, std::vector<std::string>& folders);

}  // namespace places
