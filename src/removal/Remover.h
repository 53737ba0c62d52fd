// What removes files for both modules and for the scheduler: one object for each run.
#pragma once

#include <array>
#include <map>
#include <optional>
#include <string>

#include "backup/RunBackup.h"
#include "settings/CleaningMethod.h"

namespace removal {

enum class Outcome {
  Removed,
  Failed,   // it is locked, denied or not there; Tell knows whether it was overwritten before that
  Unsaved,  // it was left alone: the backup of this run doesn't hold it as it lies there
  NoBin,    // it was to go to a recycle bin, and there is none for it
};

// What has become of a file that was to be removed.
enum class Fate {
  Counted,     // in the statistics, as removed
  HandedOver,  // to the boot-time cleaner
  Stays,
};

// Made by the starter of a run and handed to everything that removes files in it. Once the run has taken a
// backup, a file goes only if that backup holds it as it lies there at this moment; what is refused for such
// a reason stays, isn't handed over and isn't counted, and Tell says so. The same holds
// for what was to go to a recycle bin where there is none: the boot-time cleaner would remove it for good.
class Remover {
 public:
  explicit Remover(settings::Module module) : module_(module) {}
  Remover(const Remover&) = delete;
  Remover& operator=(const Remover&) = delete;

  // Begins the backup of the run, which is filled by who takes it. From now on nothing goes that it doesn't
  // hold.
  backup::RunBackup& BeginBackup() { return backup_.emplace(); }
  // Null in a run without a backup.
  const backup::RunBackup* Backup() const { return backup_ ? &*backup_ : nullptr; }

  // The method that the module's settings choose at this moment. Raises for a setting that is no number.
  settings::CleaningMethod Method() const { return settings::ConfiguredMethod(module_); }

  // Removes a file, or a link as a link. `covered` is False for what lies in a place that is never backed up.
  Outcome Remove(const std::string& path, settings::CleaningMethod method, bool covered = true);

  // Enters the outcome: counts what was removed, with `size` bytes as LibFile::GetSize gave them before, and
  // hands over what failed if the settings want that. `countsFailed`: what failed and isn't handed over
  // counts as removed.
  Fate KeepBooks(const std::string& path, long size, Outcome outcome, bool countsFailed = false);

  // Notes a folder that is never cleared as a whole.
  void NoteRefused(const std::string& folder) { Note(Kept::Refused, folder); }
  // Notes a place or folder that the run's backup hasn't saved, because it was switched on later.
  void NotePassedOver(const std::string& folder) { Note(Kept::PassedOver, folder); }

  // Tells at the end of the run, in one box, what stayed and why; nothing where there is nothing to tell.
  void Tell();

 private:
  enum class Kept { Unsaved, NoBin, Overwritten, PassedOver, Refused };
  static constexpr std::size_t kKinds = 5;
  struct Told {
    int count = 0;
    std::string first;
  };

  void Note(Kept kind, const std::string& path);
  bool IsSaved(const std::string& path) const;
  bool LeavesLocked() const;
  // Asked once for each drive.
  long ClusterSize(const std::string& path);

  settings::Module module_;
  std::optional<backup::RunBackup> backup_;
  std::map<std::string, long> clusterSizes_;
  std::array<Told, kKinds> kept_;
};

}  // namespace removal
