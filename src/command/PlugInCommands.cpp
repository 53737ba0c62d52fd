// Plug-ins: what there is, what they would do, and doing it.
#include <algorithm>
#include <cstdint>
#include <optional>

#include "command/Commands.h"
#include "core/ErrorReport.h"
#include "core/Text.h"
#include "core/m_SharedProcedures.h"
#include "jobs/Session.h"
#include "platform/LibPath.h"
#include "platform/LibRegistry.h"
#include "platform/Listings.h"
#include "platform/Machine.h"
#include "platform/RuntimeError.h"
#include "platform/TextFile.h"
#include "plugins/PlugInRules.h"
#include "plugins/RuleFile.h"
#include "plugins/m_PlugIns.h"
#include "settings/m_RegistryLists.h"

namespace command {

namespace {

struct PlugIn {
  std::string category, name, description, path;
  std::string problem;  // empty for one that can be read
};

// One file that is broken hides no other.
PlugIn Read(const std::string& path) {
  PlugIn plugIn{.category = {}, .name = {}, .description = {}, .path = path, .problem = {}};
  try {
    platform::TextReader reader(path, m_Registry::kLargestPlugIn);
    std::string lines[8];
    for (std::string& line : lines) line = reader.ReadLine();
    plugIn.name = lines[1];
    plugIn.description = lines[4];
    plugIn.category = lines[7];
  } catch (const platform::RuntimeError& error) {
    plugIn.name = platform::LibPath().GetFileName(path);
    plugIn.problem = error.what();
  }
  return plugIn;
}

std::vector<PlugIn> All() {
  platform::CountedList files, folders;
  platform::ops::ListTree(gRegistry->InstallDirectory + "PlugIns", files, folders);
  std::vector<PlugIn> all;
  for (int i = 0; i < files.UpperBound(); ++i)
    if (core::Equals(platform::LibPath().GetExtension(files[i]), "plg")) all.push_back(Read(files[i]));
  return all;
}

std::string Full(const PlugIn& plugIn) {
  return plugIn.category + "\\" + plugIn.name;
}

// Those that are named, by name or by category and name; all of them where none is.
std::optional<std::vector<PlugIn>> Choose(Context& context) {
  std::vector<PlugIn> all = All(), chosen;
  if (context.wishes.plugIns.empty()) return all;
  for (const std::string& name : context.wishes.plugIns) {
    bool found = false;
    for (const PlugIn& plugIn : all)
      if (core::Equals(plugIn.name, name) || core::Equals(Full(plugIn), name)) {
        chosen.push_back(plugIn);
        found = true;
      }
    if (found) continue;
    UsedWrongly(context, "there is no plug-in " + name + "; see tidorra plugin list");
    return std::nullopt;
  }
  return chosen;
}

// What is there now of what the rules mean.
class Preview : public plugins::RuleTaker {
 public:
  Preview(Context& context, const PlugIn& plugIn) : context_(context), plugIn_(plugIn) {}

  void File(const std::string& path) override {
    platform::EntryInfo info = platform::CurrentMachine().Files().LookBriefly(path);
    if (info.kind != platform::EntryKind::Missing) Tell("file", path, info.size);
  }
  void FilesOf(const std::string& folder, bool subfolders) override {
    if (Keeps(folder)) return;
    platform::CountedList files;
    plugins::ListFilesOf(folder, subfolders, files);
    for (int i = 0; i < files.UpperBound(); ++i) File(files[i]);
  }
  void Folder(const std::string& folder) override {
    if (platform::CurrentMachine().Files().LookBriefly(folder).kind == platform::EntryKind::Missing) return;
    if (Keeps(folder)) return;
    FilesOf(folder, true);
    Tell("folder", folder, 0);
  }
  void Key(const plugins::RuleKey& key) override {
    if (platform::CurrentMachine().Registry().KeyExists(key.root, key.subKey)) Tell("key", Path(key), 0);
  }
  void Value(const plugins::RuleKey& key, const std::string& name) override {
    if (platform::CurrentMachine().Registry().Read(key.root, key.subKey, name).type !=
        platform::ValueType::Absent)
      Tell("value", Path(key) + "\\" + name, 0);
  }
  void ValuesOf(const plugins::RuleKey& key) override {
    platform::CountedList names;
    platform::LibRegistry().EnumValues(key.root, key.subKey, names);
    for (int i = 0; i < names.UpperBound(); ++i) Tell("value", Path(key) + "\\" + names[i], 0);
  }

  double things = 0, bytes = 0;

 private:
  static std::string Path(const plugins::RuleKey& key) { return key.rootName + "\\" + key.subKey; }

  bool Keeps(const std::string& folder) {
    if (plugins::MayClear(folder)) return false;
    Row("kept", "folder", folder, 0);
    return true;
  }
  void Tell(const char* kind, const std::string& path, std::uint64_t size) {
    ++things;
    bytes += static_cast<double>(size);
    Row("would be removed", kind, path, size);
  }
  void Row(const char* outcome, const char* kind, const std::string& path, std::uint64_t size) {
    Json object = {{"type", "rule"},
                   {"plug_in", Full(plugIn_)},
                   {"outcome", outcome},
                   {"kind", kind},
                   {"bytes", Whole(size)}};
    PutPath(object, path);
    const bool onDisk = kind[0] == 'f';
    context_.output.Row({outcome, kind, std::to_string(size), path}, object, onDisk ? path : "");
  }

  Context& context_;
  const PlugIn& plugIn_;
};

// False for a file that can't be read to its end, which is said.
bool ShowRules(Context& context, const PlugIn& plugIn, plugins::RuleTaker& taker) {
  if (!plugIn.problem.empty()) {
    context.output.Error(plugIn.path + ": " + plugIn.problem);
    return false;
  }
  try {
    plugins::ReadRules(plugIn.path, taker);
    return true;
  } catch (const std::exception&) {
    context.output.Error(plugIn.path + ": " + core::CurrentFailure().description);
    return false;
  }
}

int ShowWhatWouldGo(Context& context, const std::vector<PlugIn>& chosen) {
  context.output.Table({{"Outcome", 16}, {"Kind", 6}, {"Bytes", 12, true}, {"Path", 0}});
  bool allRead = true;
  double things = 0, bytes = 0;
  for (const PlugIn& plugIn : chosen) {
    Preview preview(context, plugIn);
    allRead = ShowRules(context, plugIn, preview) && allRead;
    things += preview.things;
    bytes += preview.bytes;
  }
  context.output.Summary(Counted(things, "thing", "things") + " would be removed, " + Bytes(bytes),
                         {{"type", "summary"}, {"would_be_removed", Whole(things)}, {"bytes", Whole(bytes)}});
  return allRead ? kAllDone : kSomethingStayed;
}

// Reads the rules and does nothing.
class Nobody : public plugins::RuleTaker {
 public:
  void File(const std::string&) override {}
  void FilesOf(const std::string& folder, bool) override { Note(folder); }
  void Folder(const std::string& folder) override { Note(folder); }
  void Key(const plugins::RuleKey&) override {}
  void Value(const plugins::RuleKey&, const std::string&) override {}
  void ValuesOf(const plugins::RuleKey&) override {}
  std::vector<std::string> kept;

 private:
  void Note(const std::string& folder) {
    if (!plugins::MayClear(folder)) kept.push_back(folder);
  }
};

}  // namespace

int PlugInList(Context& context) {
  context.output.Table({{"Category", 16}, {"Name", 28}, {"Description", 0}});
  for (const PlugIn& plugIn : All()) {
    Json object = {{"type", "plug-in"}, {"category", plugIn.category}, {"name", plugIn.name}};
    object["description"] = plugIn.description;
    object["problem"] = plugIn.problem.empty() ? Json() : Json(plugIn.problem);
    PutPath(object, plugIn.path);
    context.output.Row(
        {plugIn.category, plugIn.name, plugIn.problem.empty() ? plugIn.description : plugIn.problem}, object,
        plugIn.path);
  }
  return kAllDone;
}

int PlugInCheck(Context& context) {
  auto chosen = Choose(context);
  if (!chosen) return kUsedWrongly;
  context.output.Table({{"Outcome", 8}, {"Plug-in", 0}});
  bool allGood = true;
  for (const PlugIn& plugIn : *chosen) {
    Nobody rules;
    bool good = ShowRules(context, plugIn, rules);
    for (const std::string& folder : rules.kept) {
      context.output.Error(Full(plugIn) + ": the folder " + folder + " is never cleared");
      good = false;
    }
    Json object = {{"type", "plug-in"}, {"category", plugIn.category}, {"name", plugIn.name}, {"good", good}};
    context.output.Row({good ? "good" : "bad", Full(plugIn)}, object, plugIn.path);
    allGood = allGood && good;
  }
  return allGood ? kAllDone : kSomethingStayed;
}

int PlugInShow(Context& context) {
  auto chosen = Choose(context);
  return chosen ? ShowWhatWouldGo(context, *chosen) : kUsedWrongly;
}

int PlugInRun(Context& context) {
  RunRight right;
  if (!MayRun(context, right)) return kNothingDone;
  if (context.wishes.plugIns.empty()) return UsedWrongly(context, "name the plug-ins to run");
  auto chosen = Choose(context);
  if (!chosen) return kUsedWrongly;
  if (context.wishes.dryRun) return ShowWhatWouldGo(context, *chosen);
  std::string names;
  for (const PlugIn& plugIn : *chosen) names += (names.empty() ? "" : ", ") + Full(plugIn);
  int code = kAllDone;
  if (!context.desktop.Confirm("Run " + names + "?", code)) return code;
  jobs::Session session([](frmMain&) {});
  bool all = true;
  core::Run run(core::Running::PlugIns, nullptr);
  run.Begin();
  for (const PlugIn& plugIn : *chosen) {
    if (context.console.interrupted()) return kInterrupted;
    const int before = context.desktop.failures;
    m_PlugIns::RunPlugInFile(plugIn.category, plugIn.name);
    all = all && context.desktop.failures == before;
  }
  const c_CleaningStatus& status = *gCleaningStatus;
  context.output.Summary(std::to_string(status.PlugInFileCount) + " files, " +
                             std::to_string(status.PlugInFolderCount) + " folders, " +
                             std::to_string(status.PlugInRegKeyCount) + " keys, " +
                             std::to_string(status.PlugInRegValueCount) + " values dealt with",
                         {{"type", "summary"},
                          {"files", status.PlugInFileCount},
                          {"folders", status.PlugInFolderCount},
                          {"keys", status.PlugInRegKeyCount},
                          {"values", status.PlugInRegValueCount}});
  return all ? kAllDone : kSomethingStayed;
}

}  // namespace command
