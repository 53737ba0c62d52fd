// What each command does. Each gives the code that the process ends with; what went wrong has been said.
#pragma once

#include <optional>
#include <string>

#include "command/CommandDesktop.h"
#include "command/OverlaidMachine.h"
#include "core/Run.h"

namespace command {

// The settings have been read into the cache, which may be changed: it is this process's own.
struct Context {
  Console& console;
  const Wishes& wishes;
  Output& output;
  Progress& progress;
  CommandDesktop& desktop;
  OverlaidMachine& machine;
  // The settings of a first start, as a text (see settings::Seed).
  std::string firstTimeSettings;
};

int Scan(Context& context);
int Clean(Context& context);
int LumaroList(Context& context);
int LumaroScan(Context& context);
int LumaroClean(Context& context);
int BackupList(Context& context);
int BackupVerify(Context& context);
int BackupShow(Context& context);
int BackupRestore(Context& context);
int BackupExtract(Context& context);
int BackupDelete(Context& context);
int PlugInList(Context& context);
int PlugInCheck(Context& context);
int PlugInShow(Context& context);
int PlugInRun(Context& context);
int ScheduleShow(Context& context);
int ScheduleSet(Context& context);
int ScheduleOff(Context& context);
int SettingsGet(Context& context);
int SettingsSet(Context& context);
int SettingsExport(Context& context);
int SettingsImport(Context& context);
int SettingsReset(Context& context);
int Disk(Context& context);

// Only one run at a time, of whatever program of the family. False where another one is on, which has been
// said; one that is just about to end is waited for.
using RunRight = std::optional<core::RunClaim>;
bool MayRun(Context& context, RunRight& right);
// A wrong word on the command line; says so.
int UsedWrongly(Context& context, const std::string& sentence);
int NothingDone(Context& context, const std::string& sentence);

// "1 file", "2 files".
std::string Counted(double count, const std::string& one, const std::string& many);
std::string Bytes(double bytes);

}  // namespace command
