// Measuring and clearing the known places.
#include <algorithm>
#include <optional>

#include "command/Commands.h"
#include "core/Keys.h"
#include "core/m_SharedProcedures.h"
#include "jobs/Jobs.h"
#include "jobs/Session.h"
#include "places/Places.h"
#include "settings/m_Registry.h"
#include "settings/m_RegistryLists.h"

namespace command {

namespace {

using places::Place;
using Chosen = std::vector<const Place*>;

void FillFolders(frmMain& form) {
  form.lvwUserDefinedFoldersLumaro.Clear();
  m_Registry::AssignUserDefinedFolders(form, core::keys::kUserDefinedFolders,
                                       core::keys::kSelectedUserDefinedFolders);
}

void Fill(frmMain& form) {
  m_Registry::AssignOptionSettings(form);
  FillFolders(form);
}

// Those that the command line names, or else those that the settings switch on.
std::optional<Chosen> Choose(Context& context, frmMain& form) {
  Chosen chosen;
  for (const std::string& name : context.wishes.places) {
    auto found = std::ranges::find_if(places::All(), [&](const Place& place) { return place.name == name; });
    if (found == places::All().end()) {
      UsedWrongly(context, "there is no place " + name + "; see tidorra lumaro list");
      return std::nullopt;
    }
    if (std::ranges::find(chosen, &*found) == chosen.end()) chosen.push_back(&*found);
  }
  if (chosen.empty())
    for (const Place& place : places::All())
      if (places::IsOn(place, form)) chosen.push_back(&place);
  return chosen;
}

// These and no others, in this process alone.
void SwitchOn(frmMain& form, const Chosen& chosen) {
  FillFolders(form);
  for (const Place& place : places::All()) {
    const bool on = std::ranges::find(chosen, &place) != chosen.end();
    if (place.setting)
      (*gRegistry).*place.setting = on ? "1" : "0";
    else if (place.box)
      (form.*place.box).Value = on ? 1 : 0;
    else if (places::IsUsersFolders(place) && !on)
      form.lvwUserDefinedFoldersLumaro.CheckAll(false);
  }
}

struct Measured {
  int files = 0;
  double bytes = 0;
};

// Nothing for a place that isn't measured.
std::optional<Measured> Measure(frmMain& form, const Place& place) {
  if (place.row < 0) return std::nullopt;
  SwitchOn(form, {&place});
  jobs::ScanPlaces(form);
  return Measured{form.FoundFiles.at(static_cast<std::size_t>(place.row)), form.FoundBytes};
}

struct Totals {
  double files = 0, bytes = 0;
};

Totals TellPlaces(Context& context, frmMain& form, const Chosen& chosen, const char* when) {
  Totals totals;
  for (const Place* place : chosen) {
    if (context.console.interrupted()) break;
    std::optional<Measured> measured = Measure(form, *place);
    Json object = {{"type", "place"}, {"place", place->name}, {"when", when}};
    object["files"] = measured ? Json(measured->files) : Json();
    object["bytes"] = measured ? Json(Whole(measured->bytes)) : Json();
    context.output.Row({place->name, measured ? std::to_string(measured->files) : "-",
                        measured ? std::to_string(static_cast<long long>(measured->bytes)) : "-"},
                       object);
    if (!measured) continue;
    totals.files += std::max(0, measured->files);
    totals.bytes += measured->bytes;
  }
  return totals;
}

void ApplyMethod(const Wishes& wishes) {
  if (!wishes.method.empty()) {
    gRegistry->DeleteFilesLmro = wishes.method == "delete" ? "1" : "0";
    gRegistry->MoveFilesToRecyclebinLmro = wishes.method == "bin" ? "1" : "0";
    gRegistry->EraseFilesLmro = wishes.method == "erase" ? "1" : "0";
  }
  if (wishes.passes > 0) gRegistry->ErasePassesLmro = std::to_string(wishes.passes);
  if (wishes.backup) gRegistry->UseBackupLmro = "1";
  if (wishes.noBackup) gRegistry->UseBackupLmro = "0";
  gRegistry->ConfirmCleaningLmro = "0";
  gAppRunning->KeptCookieHosts = wishes.keptHosts;
}

int ScanPlaces(Context& context, frmMain& form, const char* verb) {
  std::optional<Chosen> chosen = Choose(context, form);
  if (!chosen) return kUsedWrongly;
  context.output.Table({{"Place", 20}, {"Files", 10, true}, {"Bytes", 14, true}});
  Totals totals = TellPlaces(context, form, *chosen, "now");
  if (context.console.interrupted()) return kInterrupted;
  context.output.Summary(
      Counted(totals.files, "file", "files") + " " + verb + ", " + Bytes(totals.bytes),
      {{"type", "summary"}, {"found", Whole(totals.files)}, {"bytes", Whole(totals.bytes)}});
  return context.desktop.failures > 0 ? kNothingDone : kAllDone;
}

}  // namespace

int LumaroList(Context& context) {
  jobs::Session session(Fill);
  context.output.Table({{"Place", 20}, {"On", 3}, {"Folder", 0}});
  for (const Place& place : places::All()) {
    const bool on = places::IsOn(place, session.Form());
    std::string folder = place.base ? places::Folder(place) : std::string();
    Json object = {{"type", "place"}, {"place", place.name}, {"on", on}};
    object["folder"] = folder.empty() ? Json() : Json(folder);
    context.output.Row({place.name, on ? "yes" : "no", folder}, object, folder);
  }
  return kAllDone;
}

int LumaroScan(Context& context) {
  RunRight right;
  if (!MayRun(context, right)) return kNothingDone;
  jobs::Session session(Fill);
  return ScanPlaces(context, session.Form(), "found");
}

int LumaroClean(Context& context) {
  RunRight right;
  if (!MayRun(context, right)) return kNothingDone;
  jobs::Session session(Fill);
  frmMain& form = session.Form();
  if (context.wishes.dryRun)
    return ScanPlaces(context, form, "would be removed, but for what the settings keep");
  std::optional<Chosen> chosen = Choose(context, form);
  if (!chosen) return kUsedWrongly;
  ApplyMethod(context.wishes);
  std::string names;
  for (const Place* place : *chosen) names.append(names.empty() ? "" : ", ").append(place->name);
  int code = kAllDone;
  if (!context.desktop.Confirm("Clear " + (names.empty() ? "nothing" : names) + "?", code)) return code;
  SwitchOn(form, *chosen);
  context.desktop.confirmed = true;
  context.progress.text = [&form] { return form.lblProcessInfoScanComputerLumaro.Caption.Get(); };
  jobs::CleanPlaces(form);
  const double removed = gCleaningStatus->FilesDeleted, freed = gCleaningStatus->SizeFreedUp;
  const bool interrupted = context.console.interrupted();
  session.SaveStatistics();
  context.output.Table({{"Place", 20}, {"Files left", 10, true}, {"Bytes left", 14, true}});
  Totals left = TellPlaces(context, form, *chosen, "afterwards");
  context.output.Summary(Counted(removed, "file", "files") + " removed, " + Bytes(freed) + "; " +
                             Counted(left.files, "file", "files") + " left",
                         {{"type", "summary"},
                          {"removed", Whole(removed)},
                          {"stayed", Whole(left.files)},
                          {"bytes", Whole(freed)}});
  if (interrupted) return kInterrupted;
  if (removed == 0 && context.desktop.failures > 0) return kNothingDone;
  return left.files > 0 ? kSomethingStayed : kAllDone;
}

}  // namespace command
