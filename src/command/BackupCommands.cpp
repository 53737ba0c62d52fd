// Backups: what there is, what is in them, and the ways back.
#include <algorithm>
#include <optional>

#include "backup/AbaleZip.h"
#include "backup/ZipControls.h"
#include "backup/m_BackupRestore.h"
#include "command/Commands.h"
#include "core/Keys.h"
#include "core/m_SharedProcedures.h"
#include "jobs/Session.h"
#include "platform/LibPath.h"
#include "platform/LibRegistry.h"
#include "platform/Machine.h"

namespace command {

namespace {

using backup::AbaleZip;

struct Backup {
  std::string name, path, description;
  platform::EntryInfo info;
};

// A name means an archive in the folder of the backups.
Backup BackupOf(const std::string& name, std::string description = {}) {
  Backup backup{.name = name, .path = name, .description = std::move(description), .info = {}};
  if (name.find('\\') == name.npos) backup.path = gRegistry->InstallDirectory + "Backup\\" + name;
  backup.info = platform::CurrentMachine().Files().LookBriefly(backup.path);
  return backup;
}

// Nothing where the catalogue can't be read, which has been said.
std::optional<std::vector<Backup>> Catalogue(Context& context) {
  platform::LibRegistry registry;
  platform::CountedList names;
  if (registry.EnumValues(platform::kCurrentUser, core::keys::kBackupFiles, names) != 0) {
    NothingDone(context, "the list of the backups can't be read");
    return std::nullopt;
  }
  std::vector<Backup> all;
  for (int i = 0; i < names.UpperBound(); ++i)
    all.push_back(
        BackupOf(names[i], registry.ReadValue(platform::kCurrentUser, core::keys::kBackupFiles, names[i])));
  return all;
}

// What the command line names, or else the newest; the code where there is none.
std::optional<Backup> Choose(Context& context, int& code) {
  if (!context.wishes.archive.empty()) {
    Backup backup = BackupOf(context.wishes.archive);
    if (backup.info.kind == platform::EntryKind::File) return backup;
    code = NothingDone(context, "there is no backup " + context.wishes.archive);
    return std::nullopt;
  }
  code = kNothingDone;
  auto all = Catalogue(context);
  if (!all) return std::nullopt;
  std::erase_if(*all, [](const Backup& backup) { return backup.info.kind != platform::EntryKind::File; });
  auto newest = std::ranges::max_element(*all, {}, [](const Backup& backup) { return backup.info.modified; });
  if (newest != all->end()) return *newest;
  code = NothingDone(context, "there is no backup");
  return std::nullopt;
}

std::string MomentText(AbaleZip::Date date) {
  if (!date) return {};
  platform::DateTime at = platform::CurrentMachine().GetClock().ToLocal(*date);
  char text[32];
  std::snprintf(text, sizeof text, "%04d-%02d-%02d %02d:%02d:%02d", at.year, at.month, at.day, at.hour,
                at.minute, at.second);
  return text;
}

void Name(AbaleZip& zip, const Context& context) {
  zip.FilesToProcess = "";
  for (const std::string& file : context.wishes.files) zip.AddFileToProcess(file);
}

// `verb` as in "Restoring".
int Unzip(Context& context, AbaleZip& zip, const std::string& archive, const char* done) {
  zip.ZipFilename = archive;
  Name(zip, context);
  const long result = zip.Unzip();
  if (context.console.interrupted()) return kInterrupted;
  if (result == AbaleZip::kDone) {
    context.output.Summary(done, {{"type", "summary"}, {"archive", archive}, {"done", true}});
    return kAllDone;
  }
  context.output.Error("tidorra: " + zip.ErrorDescription(result));
  return kSomethingStayed;
}

std::string What(const Context& context, const Backup& backup) {
  const std::size_t files = context.wishes.files.size();
  return files == 0 ? "all files of " + backup.name
                    : Counted(static_cast<double>(files), "file", "files") + " of " + backup.name;
}

}  // namespace

int BackupList(Context& context) {
  auto all = Catalogue(context);
  if (!all) return kNothingDone;
  context.output.Table({{"Modified", 19}, {"Bytes", 14, true}, {"Archive", 0}});
  for (const Backup& backup : *all) {
    const bool there = backup.info.kind == platform::EntryKind::File;
    const std::string moment = there ? MomentText(backup.info.modified) : std::string();
    Json object = {
        {"type", "archive"}, {"archive", backup.name}, {"description", backup.description}, {"there", there}};
    object["bytes"] = there ? Json(backup.info.size) : Json();
    object["modified"] = there ? Json(moment) : Json();
    PutPath(object, backup.path);
    context.output.Row({moment, there ? std::to_string(backup.info.size) : "gone", backup.name}, object,
                       backup.path);
  }
  return kAllDone;
}

int BackupShow(Context& context) {
  int code;
  auto backup = Choose(context, code);
  if (!backup) return code;
  context.output.Table({{"Modified", 19}, {"Bytes", 12, true}, {"Packed", 12, true}, {"Path", 0}});
  AbaleZip zip;
  zip.ZipFilename = backup->path;
  zip.AbaZip_ListingFile = [&](const std::string& path, const std::string&, double size, double packed, long,
                               long, std::uint32_t crc, AbaleZip::Date modified, AbaleZip::Date,
                               AbaleZip::Date) {
    const std::string moment = MomentText(modified);
    Json object = {{"type", "entry"}, {"bytes", Whole(size)}, {"packed", Whole(packed)}, {"crc32", crc}};
    object["modified"] = moment.empty() ? Json() : Json(moment);
    PutPath(object, path);
    context.output.Row({moment, std::to_string(static_cast<long long>(size)),
                        std::to_string(static_cast<long long>(packed)), path},
                       object, path);
  };
  const long result = zip.ListContents();
  if (context.console.interrupted()) return kInterrupted;
  return result == AbaleZip::kDone ? kAllDone : NothingDone(context, zip.ErrorDescription(result));
}

int BackupVerify(Context& context) {
  int code;
  auto backup = Choose(context, code);
  if (!backup) return code;
  context.output.Table({{"Outcome", 8}, {"Path", 0}});
  AbaleZip zip;
  zip.ZipFilename = backup->path;
  double good = 0, bad = 0;
  const auto begun = std::chrono::steady_clock::now();
  double all = 0;
  context.progress.text = [&] { return "Checking " + Estimate(good + bad, all, begun); };
  zip.AbaZip_VerifiedFile = [&](const std::string& path, bool isGood, double count) {
    all = count;
    ++(isGood ? good : bad);
    if (isGood) return;
    Json object = {{"type", "entry"}, {"outcome", "damaged"}};
    PutPath(object, path);
    context.output.Row({"damaged", path}, object, path);
  };
  const long result = zip.Verify();
  if (context.console.interrupted()) return kInterrupted;
  if (result != AbaleZip::kDone && bad == 0) return NothingDone(context, zip.ErrorDescription(result));
  context.output.Summary(
      Counted(good, "file", "files") + " of " + backup->name + " good, " + Counted(bad, "file", "files") +
          " damaged",
      {{"type", "summary"}, {"archive", backup->name}, {"good", Whole(good)}, {"damaged", Whole(bad)}});
  return bad > 0 ? kSomethingStayed : kAllDone;
}

int BackupRestore(Context& context) {
  RunRight right;
  if (!MayRun(context, right)) return kNothingDone;
  int code;
  auto backup = Choose(context, code);
  if (!backup) return code;
  if (!context.desktop.Confirm("Restore " + What(context, *backup) + " to where they came from?", code))
    return code;
  jobs::Session session([](frmMain&) {});
  AbaleZip& zip = backup::MainZip();
  zip.KeepPaths = true;
  return Unzip(context, zip, backup->path, "Restored");
}

int BackupExtract(Context& context) {
  RunRight right;
  if (!MayRun(context, right)) return kNothingDone;
  int code;
  auto backup = Choose(context, code);
  if (!backup) return code;
  jobs::Session session([](frmMain&) {});
  AbaleZip zip;
  zip.TargetFolder = context.wishes.folder;
  return Unzip(context, zip, backup->path, "Extracted");
}

int BackupDelete(Context& context) {
  RunRight right;
  if (!MayRun(context, right)) return kNothingDone;
  if (context.wishes.archive.empty() || context.wishes.archive.find('\\') != std::string::npos)
    return UsedWrongly(context, "name the backup to delete, as tidorra backup list shows it");
  int code;
  auto backup = Choose(context, code);
  if (!backup) return code;
  if (!context.desktop.Confirm("Delete the backup " + backup->name + "?", code)) return code;
  jobs::Session session([](frmMain&) {});
  if (m_BackupRestore::DeleteBackup(backup->name) != 0)
    return NothingDone(context, "the list of the backups can't be written");
  if (platform::CurrentMachine().Files().LookBriefly(backup->path).kind != platform::EntryKind::Missing) {
    context.output.Error("tidorra: the file " + backup->path + " could not be deleted");
    return kSomethingStayed;
  }
  context.output.Summary("Deleted " + backup->name,
                         {{"type", "summary"}, {"archive", backup->name}, {"done", true}});
  return kAllDone;
}

}  // namespace command
