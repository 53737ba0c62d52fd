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

constexpr Fate kLocked{"Still in use, stays in the list", true};
constexpr Fate kDenied{"Not allowed, stays in the list", true};
constexpr Fate kFailed{"Failed, stays in the list", true};
constexpr Fate kGone{"Not there any more"};
constexpr Fate kLink{"Left alone, is a link or lies behind one"};

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

// Nothing for a plain file, which may be acted upon.
std::optional<Fate> WhyNot(const std::string& path, platform::EntryInfo& info) {
  if (!platform::MayActOn(path)) return Fate{"Left alone, is no full path of a file"};
  platform::FileSystem& files = platform::CurrentMachine().Files();
  info = files.Look(path);
  switch (info.kind) {
    case EntryKind::File:
      return {};
    case EntryKind::Missing:
      return kGone;
    case EntryKind::Folder:
      return Fate{"Left alone, is a folder"};
    case EntryKind::FileLink:
    case EntryKind::FolderLink:
      return kLink;
    case EntryKind::Unreadable:
      break;
  }
  // Behind a link, or not to be looked at now, or something that is no file at all.
  Status status = files.TestLock(path);
  return status == Status::Done ? Fate{"Left alone, is no plain file"} : FateOf(status);
}

Fate RemoveLocked(const std::string& path) {
  platform::EntryInfo info;
  if (auto fate = WhyNot(path, info)) return *fate;
  Status status = platform::ops::Remove(path);
  return status == Status::Done ? Fate{"Removed"} : FateOf(status);
}

Fate EmptyIndex(const std::string& path) {
  platform::EntryInfo info;
  if (auto fate = WhyNot(path, info)) return *fate;
  if (info.names > 1) return {"Left alone, has several names"};
  Status status;
  bool overwrite = IsOn(Setting(core::keys::kLumaroInternetFiles, "Erase Index Dat Files on boot"));
  if (overwrite) {
    long clusterSize = platform::LibDisk().ClusterSize(platform::LibPath().GetDriveRoot(path));
    status = platform::ops::Overwrite(path, 1, clusterSize);
  } else {
    status = platform::ops::Empty(path);
  }
  if (status == Status::Done) return {overwrite ? "Overwritten and emptied" : "Emptied"};
  status = platform::CurrentMachine().Files().TestLock(path);
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

bool WorkOffList(WorkList& list, Fate (*act)(const std::string&), const char* heading, Log& log) {
  log.Line("");
  log.Line(heading);
  try {
    WorkList::Lines lines = list.Take();
    for (const std::string& line : lines.unusable) log.Line("Left alone, can't be read: " + line);
    std::vector<std::string> kept;
    for (const std::string& path : lines.paths) {
      Fate fate = act(path);
      log.Line(std::string(fate.told) + ": " + path);
      if (fate.tryAgain) kept.push_back(path);
    }
    list.PutBack(kept);
    log.Line("Lines: " + std::to_string(lines.paths.size()) +
             ", for the next start: " + std::to_string(kept.size()));
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
  WorkList locked(install + kLockedFiles), index(install + kIndexFiles);
  auto nothingLeft = [&] { return locked.Gone() && index.Gone(); };

  {
    platform::Claim lists(kClaim, kPatience);
    if (nothingLeft()) return true;
    LibRegistry().WriteValue(platform::kLocalMachine, core::keys::kRunOnce, kEntry, install + kProgram);
  }
  Log log(install);
  bool good = WorkOffList(locked, RemoveLocked, "Files that were in use:", log);
  good = WorkOffList(index, EmptyIndex, "Index files:", log) && good;
  log.Finish();

  platform::Claim lists(kClaim, kPatience);
  if (lists.Held() && nothingLeft())
    LibRegistry().DeleteValue(platform::kLocalMachine, core::keys::kRunOnce, kEntry);
  return good;
}

}  // namespace kelvish
