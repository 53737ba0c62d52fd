#include "siblings/kelvish/Kelvish.h"

#include <optional>
#include <string>

#include "core/HandOver.h"
#include "core/Keys.h"
#include "platform/Claim.h"
#include "platform/Erase.h"
#include "platform/Guard.h"
#include "platform/LibDisk.h"
#include "platform/LibFolders.h"
#include "platform/LibPath.h"
#include "platform/LibRegistry.h"
#include "platform/Machine.h"
#include "platform/Operations.h"
#include "platform/RuntimeError.h"
#include "siblings/common/NewTextFile.h"
#include "siblings/common/Setting.h"
#include "siblings/kelvish/WorkList.h"

namespace kelvish {

namespace {

using namespace core::handover;
using core::handover::Line;
using platform::EntryKind;
using platform::LibRegistry;
using platform::Status;
using siblings::IsOn;

constexpr char kLog[] = "Kelvish Log.txt";

std::string Setting(const char* key, const char* name) {
  return LibRegistry().ReadValue(platform::kCurrentUser, key, name);
}

// What has become of a line.
struct Fate {
  const char* told;
  bool tryAgain = false;
};

constexpr Fate kLocked{"Still in use (stays in the list)", true};
constexpr Fate kDenied{"Access denied (stays in the list)", true};
constexpr Fate kFailed{"Failed (stays in the list)", true};
constexpr Fate kGone{"No longer there"};
constexpr Fate kLink{"Left alone (a link, or behind a link)"};

Fate FateOf(Status failure) {
  switch (failure) {
    case Status::Missing:
      return kGone;
    case Status::Locked:
      return kLocked;
    case Status::Denied:
      return kDenied;
    case Status::Refused:
      return kLink;
    default:
      return kFailed;
  }
}

// Nothing for a plain file that may be acted upon. `isThat` tells whether it is the one that was handed over.
std::optional<Fate> WhyNot(const Line& line, platform::EntryInfo& info,
                           bool (*isThat)(const Mark& then, const Mark& now)) {
  if (!platform::MayActOn(line.path)) return Fate{"Left alone (not the full path of a file)"};
  platform::FileSystem& files = platform::CurrentMachine().Files();
  info = files.Look(line.path);
  switch (info.kind) {
    case EntryKind::File:
      if (!line.mark) return Fate{"Left alone (was not there when it was handed over)"};
      if (!isThat(*line.mark, *MarkOf(info))) return Fate{"Left alone (another file now, or changed)"};
      return {};
    case EntryKind::Missing:
      return kGone;
    case EntryKind::Folder:
      return Fate{"Left alone (a folder)"};
    case EntryKind::FileLink:
    case EntryKind::FolderLink:
      return kLink;
    case EntryKind::Unreadable:
      break;
  }
  // Behind a link, or not to be looked at now, or something that is no file at all.
  Status status = files.TestLock(line.path);
  return status == Status::Done ? Fate{"Left alone (not a plain file)"} : FateOf(status);
}

Fate RemoveLocked(const Line& line) {
  platform::EntryInfo info;
  // What was written since would be lost: nobody has seen it, and no backup holds it.
  if (auto fate = WhyNot(line, info, [](const Mark& then, const Mark& now) { return then == now; }))
    return *fate;
  Status status = platform::ops::Remove(line.path);
  return status == Status::Done ? Fate{"Removed"} : FateOf(status);
}

Fate EmptyIndex(const Line& line) {
  platform::EntryInfo info;
  // Its browser has gone on writing, and it is to be emptied all the same. Where the file system keeps no
  // time of making, that of the last change stands for it.
  if (auto fate = WhyNot(line, info, [](const Mark& then, const Mark& now) {
        return then.number == now.number && (then.created == now.created || then.created == then.modified);
      }))
    return *fate;
  if (info.names > 1) return {"Left alone (has several names)"};
  Status status;
  bool overwrite = IsOn(Setting(core::keys::kLumaroInternetFiles, "Erase Index Dat Files on boot"));
  if (overwrite) {
    long clusterSize = platform::LibDisk().ClusterSize(platform::LibPath().GetDriveRoot(line.path));
    status = platform::ops::Overwrite(line.path, 1, clusterSize);
  } else {
    status = platform::ops::Empty(line.path);
  }
  if (status == Status::Done) return {overwrite ? "Overwritten and emptied" : "Emptied"};
  status = platform::CurrentMachine().Files().TestLock(line.path);
  return status == Status::Done ? kDenied : FateOf(status);
}

// The log, and its copy on the desktop; nothing where the user wants none.
class Log {
 public:
  explicit Log(const std::string& install) {
    if (!IsOn(Setting(core::keys::kKelvish, "Log actions"))) return;
    log_.emplace(install + "Reports\\" + kLog);
    std::string desktop = platform::LibFolders().UserFolderB();
    if (!desktop.empty()) copy_.emplace(desktop + "\\" + kLog);
    platform::Machine& machine = platform::CurrentMachine();
    platform::DateTime now = machine.GetClock().Now();
    Line("Kelvish log, " + machine.GetLocale().ShortDate(now) + " " + machine.GetLocale().LongTime(now));
  }
  void Line(const std::string& text) {
    if (log_) log_->Line(text);
    if (copy_) copy_->Line(text);
  }
  void Finish() {
    if (log_) log_->Finish();
    if (copy_) copy_->Finish();
  }

 private:
  std::optional<siblings::NewTextFile> log_, copy_;
};

bool WorkOffList(WorkList& list, Fate (*act)(const Line&), const char* heading, Log& log) {
  log.Line("");
  log.Line(heading);
  try {
    const std::vector<Line> lines = list.Take();
    std::size_t kept = 0;
    for (const Line& line : lines) {
      Fate fate = line.path.empty() ? Fate{"Left alone (unreadable)"} : act(line);
      log.Line(std::string(fate.told) + ": " + line.path);
      if (fate.tryAgain)
        ++kept;
      else
        list.Done(line);
    }
    list.Finish();
    log.Line("Lines: " + std::to_string(lines.size()) + ", for the next start: " + std::to_string(kept));
    return true;
  } catch (const platform::RuntimeError& error) {
    log.Line(std::string("The list stays as it is: ") + error.what());
    return false;
  }
}

}  // namespace

bool WorkOff() {
  platform::Claim instance("Kelvish", std::chrono::milliseconds(0));
  if (!instance.Held()) return true;
  platform::LibPath paths;
  std::string install = paths.AddBackslash(Setting(core::keys::kTidorra, "Install Directory"));
  if (install.empty() || !platform::MayActOn(install + "x")) return false;
  WorkList locked(kLockedFiles, install), index(kIndexFiles, install);
  auto nothingLeft = [&] { return locked.IsEmpty() && index.IsEmpty(); };

  {
    platform::Claim lists(kClaim, kPatience);
    if (!lists.Held()) return false;
    if (nothingLeft()) {
      for (const WorkList* list : {&locked, &index}) list->ShowRest();
      return true;
    }
    WriteStartEntry(install);
  }
  Log log(install);
  bool good = WorkOffList(locked, RemoveLocked, "Files that were in use:", log);
  good = WorkOffList(index, EmptyIndex, "Index files:", log) && good;
  log.Finish();

  platform::Claim lists(kClaim, kPatience);
  if (lists.Held() && nothingLeft()) RemoveStartEntry(install);
  return good;
}

}  // namespace kelvish
