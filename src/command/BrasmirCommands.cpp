// Scanning and cleaning drives.
#include <algorithm>
#include <array>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <unordered_set>

#include "command/Commands.h"
#include "core/Keys.h"
#include "core/Text.h"
#include "core/m_SharedProcedures.h"
#include "jobs/Jobs.h"
#include "jobs/Session.h"
#include "platform/LibPath.h"
#include "platform/LibRegistry.h"
#include "platform/Machine.h"
#include "scan/m_Excluded.h"
#include "settings/CleaningMethod.h"

namespace command {

namespace {

using forms::ResultCategory;
using std::chrono::steady_clock;

constexpr std::array kKinds = {ResultCategory::GarbageFiles, ResultCategory::ZeroByteFiles,
                               ResultCategory::InvalidShortcuts};

const char* NameOf(ResultCategory kind) {
  switch (kind) {
    case ResultCategory::GarbageFiles:
      return "garbage";
    case ResultCategory::ZeroByteFiles:
      return "zero-byte";
    case ResultCategory::InvalidShortcuts:
      break;
  }
  return "shortcut";
}

platform::CountedList& ListOf(ResultCategory kind) {
  return kind == ResultCategory::GarbageFiles    ? gGarbageFiles
         : kind == ResultCategory::ZeroByteFiles ? gZeroByteFiles
                                                 : gInvalidShortcuts;
}

Values StoredValues(const char* key) {
  platform::LibRegistry registry;
  platform::CountedList names;
  Values values;
  if (registry.EnumValues(platform::kCurrentUser, key, names) != 0) return values;
  for (int i = 0; i < names.UpperBound(); ++i)
    values.emplace_back(names[i], registry.ReadValue(platform::kCurrentUser, key, names[i]));
  return values;
}

// The named ones and nothing else, all of them ticked.
void ReplaceList(Context& context, const std::vector<std::string>& names, const char* key,
                 const char* ticks) {
  Values listed, ticked;
  for (const std::string& name : names) {
    listed.emplace_back(name, "");
    ticked.emplace_back(name, "True");
  }
  context.machine.registry.Replace(key, std::move(listed));
  context.machine.registry.Replace(ticks, std::move(ticked));
}

// "c:" is meant as "C:\".
bool ChooseDrives(Context& context) {
  if (context.wishes.drives.empty()) return true;
  std::vector<std::string> roots;
  for (const std::string& wish : context.wishes.drives) {
    std::string root = platform::LibPath().GetDriveRoot(wish.size() == 2 ? wish + "\\" : wish);
    if (!root.empty() && root[0] >= 'a' && root[0] <= 'z') root[0] = static_cast<char>(root[0] - 32);
    const auto drives = context.machine.GetDrives().List();
    bool there = std::ranges::any_of(
        drives, [&](const platform::Drive& drive) { return !root.empty() && drive.letter == root[0]; });
    if (!there || wish.size() > 3) {
      UsedWrongly(context, "there is no drive " + wish);
      return false;
    }
    roots.push_back(root);
  }
  ReplaceList(context, roots, core::keys::kDrives, core::keys::kSelectedDrives);
  return true;
}

void ChooseKinds(const Context& context) {
  const Wishes& wishes = context.wishes;
  if (wishes.filters.empty() && !wishes.zeroByte && !wishes.shortcuts) return;
  gRegistry->IncludeZeroByteFilesBrsm = wishes.zeroByte ? "1" : "0";
  gRegistry->IncludeInvalidShortcutsBrsm = wishes.shortcuts ? "1" : "0";
}

// In the settings of this process alone.
bool ApplyWishes(Context& context) {
  const Wishes& wishes = context.wishes;
  if (!ChooseDrives(context)) return false;
  ChooseKinds(context);
  if (!wishes.filters.empty() || wishes.zeroByte || wishes.shortcuts)
    ReplaceList(context, wishes.filters, core::keys::kFileFilters, core::keys::kSelectedFileFilters);
  if (!wishes.excludes.empty()) {
    Values excluded = StoredValues(core::keys::kExcludedDirectories);
    for (const std::string& text : wishes.excludes) excluded.emplace_back(text, "");
    context.machine.registry.Replace(core::keys::kExcludedDirectories, std::move(excluded));
  }
  if (!wishes.method.empty()) {
    gRegistry->DeleteFilesBrsm = wishes.method == "delete" ? "1" : "0";
    gRegistry->MoveFilesToRecyclebinBrsm = wishes.method == "bin" ? "1" : "0";
    gRegistry->EraseFilesBrsm = wishes.method == "erase" ? "1" : "0";
  }
  if (wishes.passes > 0) gRegistry->ErasePassesBrsm = std::to_string(wishes.passes);
  if (wishes.backup) gRegistry->UseBackupBrsm = "1";
  if (wishes.noBackup) gRegistry->UseBackupBrsm = "0";
  // The command asks for itself.
  gRegistry->ConfirmCleaningBrsm = "0";
  return true;
}

// What was found, with its sizes as of now, in the order of the lists.
struct Found {
  std::array<std::vector<std::uint64_t>, kKinds.size()> sizes;
  double files = 0, bytes = 0;
};

Found Measure() {
  Found found;
  platform::FileSystem& files = platform::CurrentMachine().Files();
  for (std::size_t kind = 0; kind < kKinds.size(); ++kind) {
    const platform::CountedList& list = ListOf(kKinds[kind]);
    std::string path;
    for (int i = 0; i < list.UpperBound(); ++i) {
      list.Get(i, path);
      found.sizes[kind].push_back(files.LookBriefly(path).size);
      found.bytes += static_cast<double>(found.sizes[kind].back());
      ++found.files;
    }
  }
  return found;
}

void Tell(Context& context, ResultCategory kind, const std::string& path, std::uint64_t bytes,
          const char* outcome) {
  Json object = {{"type", "file"}, {"kind", NameOf(kind)}, {"bytes", Whole(bytes)}, {"outcome", outcome}};
  PutPath(object, path);
  std::vector<std::string> cells = {NameOf(kind), std::to_string(bytes), path};
  const bool isScan = std::string_view(outcome) == "found";
  if (!isScan) cells.insert(cells.begin(), outcome);
  context.output.Row(cells, object, path);
}

void TellAll(Context& context, const Found& found, const char* outcome) {
  std::string path;
  for (std::size_t kind = 0; kind < kKinds.size(); ++kind) {
    const platform::CountedList& list = ListOf(kKinds[kind]);
    for (int i = 0; i < list.UpperBound(); ++i) {
      list.Get(i, path);
      Tell(context, kKinds[kind], path, found.sizes[kind][static_cast<std::size_t>(i)], outcome);
    }
  }
}

// The scan itself. Another code than kAllDone: it has come to nothing.
int RunScan(Context& context, frmMain& form) {
  context.progress.text = [&form] {
    return form.lblProcessInfoScanComputerBrasmir.Caption.Get() + " " +
           Counted(gGarbageFiles.UpperBound() + gZeroByteFiles.UpperBound() + gInvalidShortcuts.UpperBound(),
                   "file found", "files found");
  };
  jobs::Scan(form);
  context.progress.Clear();
  if (context.console.interrupted()) return kInterrupted;
  return context.desktop.failures > 0 ? kNothingDone : kAllDone;
}

// The paths of a list, one a line, or behind each a zero byte where there is one.
std::vector<std::string> Paths(const std::string& text) {
  const char end = text.find('\0') != text.npos ? '\0' : '\n';
  std::vector<std::string> paths;
  std::unordered_set<std::string> seen;
  for (std::size_t begin = 0; begin < text.size();) {
    std::size_t last = std::min(text.find(end, begin), text.size());
    std::string path = text.substr(begin, last - begin);
    if (end == '\n' && path.ends_with('\r')) path.pop_back();
    if (!path.empty() && seen.insert(path).second) paths.push_back(std::move(path));
    begin = last + 1;
  }
  return paths;
}

bool ReadList(Context& context, std::vector<std::string>& paths) {
  const std::string& from = context.wishes.from;
  std::string text;
  if (from == "-") {
    text.assign(std::istreambuf_iterator<char>(context.console.in), {});
  } else {
    std::ifstream file(std::filesystem::path(std::u8string(from.begin(), from.end())), std::ios::binary);
    if (!file) return false;
    text.assign(std::istreambuf_iterator<char>(file), {});
  }
  paths = Paths(text);
  return true;
}

// What the exclusions keep of a list stays; what is left is the list of the garbage files. The number kept,
// or -1 where the exclusions can't be read.
double TakeList(Context& context, const std::vector<std::string>& paths) {
  platform::CountedList directories, files;
  if (m_Excluded::ReadExclusions(directories, files) != 0) return -1;
  const scan::Exclusions exclusions(directories, files);
  double kept = 0;
  for (const std::string& path : paths) {
    if (m_Excluded::IsExcludedSettingBrsm(exclusions, scan::FoundFile(path))) {
      Tell(context, ResultCategory::GarbageFiles, path, 0, "excluded");
      ++kept;
    } else {
      gGarbageFiles.Add(path);
    }
  }
  return kept;
}

std::string Question(const Found& found) {
  const char* how = "Delete";
  switch (settings::ConfiguredMethod(settings::Module::Brasmir)) {
    case settings::CleaningMethod::RecycleBin:
      how = "Move to the recycle bin";
      break;
    case settings::CleaningMethod::Erase:
      how = "Overwrite and delete";
      break;
    case settings::CleaningMethod::Delete:
      break;
  }
  return std::string(how) + " " + Counted(found.files, "file", "files") + " of " + Bytes(found.bytes) + "?";
}

struct Outcome {
  double removed = 0, stayed = 0, bytes = 0;
};

jobs::Cleaning Telling(Context& context, const Found& found, Outcome& outcome) {
  auto kind = std::make_shared<ResultCategory>();
  auto index = std::make_shared<std::size_t>(0);
  return {.begins =
              [=](ResultCategory category, const std::string&, int) {
                *kind = category;
                *index = 0;
              },
          .file =
              [=, &context, &found, &outcome](const std::string& path, bool removed) {
                auto place = std::ranges::find(kKinds, *kind) - kKinds.begin();
                const auto& sizes = found.sizes[static_cast<std::size_t>(place)];
                std::uint64_t size = *index < sizes.size() ? sizes[*index] : 0;
                ++*index;
                ++(removed ? outcome.removed : outcome.stayed);
                if (removed) outcome.bytes += static_cast<double>(size);
                Tell(context, *kind, path, size, removed ? "removed" : "stayed");
              },
          .ends = [](int) {}};
}

int CodeOf(const Context& context, const Outcome& outcome) {
  if (context.console.interrupted()) return kInterrupted;
  if (outcome.removed == 0 && context.desktop.failures > 0) return kNothingDone;
  return outcome.stayed > 0 ? kSomethingStayed : kAllDone;
}

int CleanFound(Context& context, jobs::Session& session, const Found& found, double kept) {
  frmMain& form = session.Form();
  const auto begun = steady_clock::now();
  context.desktop.confirmed = true;
  context.progress.text = [&form, begun] {
    const controls::ProgressBar& bar = form.prgProgressResultsBrasmir;
    if (bar.Value.Get() == 0) return form.lblUserInfoResultsBrasmir[forms::ResultsProgress].Caption.Get();
    return "Removing " + Estimate(bar.Value, bar.Max, begun);
  };
  Outcome outcome{.stayed = kept};
  jobs::Cleaning telling = Telling(context, found, outcome);
  if (context.wishes.from.empty())
    jobs::CleanFound(form, context.console.interrupted, telling);
  else
    jobs::CleanList(form, std::move(gGarbageFiles), telling);
  session.SaveStatistics();
  context.output.Summary(Counted(outcome.removed, "file", "files") + " removed, " + Bytes(outcome.bytes) +
                             "; " + Counted(outcome.stayed, "file", "files") + " stayed",
                         {{"type", "summary"},
                          {"removed", Whole(outcome.removed)},
                          {"stayed", Whole(outcome.stayed)},
                          {"bytes", Whole(outcome.bytes)}});
  return CodeOf(context, outcome);
}

}  // namespace

int Scan(Context& context) {
  RunRight right;
  if (!MayRun(context, right)) return kNothingDone;
  if (!ApplyWishes(context)) return kUsedWrongly;
  jobs::Session session([](frmMain&) {});
  if (int code = RunScan(context, session.Form())) return code;
  context.output.Table({{"Kind", 9}, {"Bytes", 12, true}, {"Path", 0}});
  const Found found = Measure();
  TellAll(context, found, "found");
  context.output.Summary(Counted(found.files, "file", "files") + " found, " + Bytes(found.bytes),
                         {{"type", "summary"}, {"found", Whole(found.files)}, {"bytes", Whole(found.bytes)}});
  return kAllDone;
}

int Clean(Context& context) {
  // Whoever writes the list may be in a run until its end.
  std::vector<std::string> paths;
  if (!context.wishes.from.empty() && !ReadList(context, paths))
    return UsedWrongly(context, "the list " + context.wishes.from + " can't be read");
  RunRight right;
  if (!MayRun(context, right)) return kNothingDone;
  if (!ApplyWishes(context)) return kUsedWrongly;
  jobs::Session session([](frmMain&) {});
  context.output.Table({{"Outcome", 16}, {"Kind", 9}, {"Bytes", 12, true}, {"Path", 0}});
  double kept = 0;
  if (!context.wishes.from.empty()) {
    for (ResultCategory kind : kKinds) ListOf(kind).Reset();
    if ((kept = TakeList(context, paths)) < 0) return NothingDone(context, "the exclusions can't be read");
  } else if (int code = RunScan(context, session.Form())) {
    return code;
  }
  const Found found = Measure();
  if (context.wishes.dryRun) {
    TellAll(context, found, "would be removed");
    context.output.Summary(
        Counted(found.files, "file", "files") + " would be removed, " + Bytes(found.bytes),
        {{"type", "summary"}, {"would_be_removed", Whole(found.files)}, {"bytes", Whole(found.bytes)}});
    return kept > 0 ? kSomethingStayed : kAllDone;
  }
  int code = kAllDone;
  if (found.files > 0 && !context.desktop.Confirm(Question(found), code)) return code;
  return CleanFound(context, session, found, kept);
}

}  // namespace command
