// What the backup of one run has saved.
#pragma once

#include <string>
#include <unordered_set>

#include "backup/BackupPromise.h"
#include "places/Places.h"

namespace backup {

struct RunBackup {
  // The files, as they were stored.
  BackupPromise promise;
  // In the module Lumaro: the places that were stored as a whole, and of the user's own folders those that
  // were, by the very text of their paths.
  std::unordered_set<const places::Place*> places;
  std::unordered_set<std::string> folders;
};

}  // namespace backup
