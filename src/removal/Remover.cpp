#include "removal/Remover.h"

#include <algorithm>
#include <utility>
#include <vector>

#include "core/Boxes.h"
#include "core/Numbers.h"
#include "core/m_SharedProcedures.h"
#include "platform/Erase.h"
#include "platform/LibDisk.h"
#include "platform/LibPath.h"
#include "platform/Machine.h"
#include "platform/Operations.h"
#include "removal/m_Log.h"

namespace removal {

using settings::CleaningMethod;
using settings::Module;

namespace {

// What the box says of one kind: of one file or folder, and of several.
struct Words {
  const char *one, *several;
};

constexpr Words kWords[] = {
    {"1 file was not removed, because the backup of this run doesn't hold it as it is now:",
     " files were not removed, because the backup of this run doesn't hold them as they are now. The first "
     "is:"},
    {"1 file was not removed, because there is no recycle bin for it:",
     " files were not removed, because there is no recycle bin for them. The first is:"},
    {"1 file was overwritten, but could not be removed:",
     " files were overwritten, but could not be removed. The first is:"},
    {"1 folder was passed over, because it was switched on after the backup of this run:",
     " folders were passed over, because they were switched on after the backup of this run. The first is:"},
    {"1 folder was not cleared, because it is never cleared as a whole:",
     " folders were not cleared, because they are never cleared as a whole. The first is:"},
};

}  // namespace

bool Remover::IsSaved(const std::string& path) const {
  return backup_->promise.Holds(path, platform::CurrentMachine().Files().Look(path));
}

bool Remover::LeavesLocked() const {
  return core::IsOne(module_ == Module::Brasmir ? gRegistry->DeleteOnWindowsStartupBrsm
                                                : gRegistry->DeleteOnWindowsStartupLmro);
}

long Remover::ClusterSize(const std::string& path) {
  auto [place, isNew] = clusterSizes_.try_emplace(platform::LibPath().GetDriveRoot(path), 0);
  if (isNew) place->second = platform::LibDisk().ClusterSize(place->first);
  return place->second;
}

Outcome Remover::Remove(const std::string& path, CleaningMethod method, bool covered) {
  if (backup_ && covered && !IsSaved(path)) {
    Note(Kept::Unsaved, path);
    return Outcome::Unsaved;
  }
  platform::Status status = platform::Status::Failed;
  switch (method) {
    case CleaningMethod::RecycleBin:
      status = platform::ops::MoveToBin(path);
      if (status == platform::Status::Done || platform::CurrentMachine().Bin().IsThereFor(path)) break;
      Note(Kept::NoBin, path);
      return Outcome::NoBin;
    case CleaningMethod::Erase:
      status = platform::ops::Erase(path, settings::ErasePasses(module_), ClusterSize(path));
      if (status == platform::Status::Overwritten) Note(Kept::Overwritten, path);
      break;
    case CleaningMethod::Delete:
      status = platform::ops::Remove(path);
      break;
  }
  return status == platform::Status::Done ? Outcome::Removed : Outcome::Failed;
}

Fate Remover::KeepBooks(const std::string& path, long size, Outcome outcome, bool countsFailed) {
  if (outcome == Outcome::Failed && LeavesLocked()) {
    m_Log::WriteLockedFilesToLog(path);
    return Fate::HandedOver;
  }
  bool counts = outcome == Outcome::Removed || (outcome == Outcome::Failed && countsFailed);
  if (!counts) return Fate::Stays;
  gCleaningStatus->FilesDeleted += 1;
  // A link has no size of its own.
  gCleaningStatus->SizeFreedUp += static_cast<double>(std::max(size, 0L));
  return Fate::Counted;
}

void Remover::Note(Kept kind, const std::string& path) {
  Told& told = kept_[static_cast<std::size_t>(kind)];
  if (told.count++ == 0) told.first = path;
}

void Remover::Tell() {
  std::vector<std::string> lines;
  for (std::size_t kind = 0; kind < kKinds; ++kind) {
    Told told = std::exchange(kept_[kind], {});
    if (told.count == 0) continue;
    lines.push_back(told.count == 1 ? kWords[kind].one : std::to_string(told.count) + kWords[kind].several);
    lines.push_back(told.first);
  }
  if (!lines.empty()) core::Tell(core::BoxIcon::Exclamation, "Not removed...", lines);
}

}  // namespace removal
