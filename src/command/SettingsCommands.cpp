// The settings: showing, changing, carrying them to another computer.
#include <algorithm>
#include <filesystem>
#include <fstream>
#include <functional>
#include <iterator>
#include <map>
#include <optional>
#include <set>

#include "command/Commands.h"
#include "core/Keys.h"
#include "core/Text.h"
#include "core/m_SharedProcedures.h"
#include "platform/LibRegistry.h"
#include "platform/Machine.h"
#include "schedule/Calendar.h"
#include "schedule/TimeOfDay.h"
#include "settings/Seed.h"
#include "settings/SettingsTable.h"

namespace command {

namespace {

using settings::Setting;

constexpr std::string_view kFamily = "Software\\Orvane\\Tidorra\\";
constexpr char kFormat[] = "tidorra settings";
constexpr int kVersion = 1;

// The stored lists, each a key below the current user's hive whose values are its rows.
constexpr const char* kLists[] = {
    core::keys::kFileFilters,   core::keys::kSelectedFileFilters, core::keys::kExcludeZeroByteFiles,
    core::keys::kDrives,        core::keys::kSelectedDrives,      core::keys::kExcludedDirectories,
    core::keys::kExcludedFiles, core::keys::kUserDefinedFolders,  core::keys::kSelectedUserDefinedFolders};

// "Brasmir\Cleaning\Use backup": the key without what all have in common, and the name.
std::string NameOf(const Setting& setting) {
  std::string_view key = setting.key;
  key.remove_prefix(std::min(kFamily.size(), key.size()));
  std::string_view name = core::Trim(setting.name);
  return key.empty() ? std::string(name) : std::string(key).append("\\").append(name);
}

// Where things lie isn't a matter of taste, and differs from computer to computer.
bool IsPlace(const Setting& setting) {
  return setting.property == &c_Registry::InstallDirectory ||
         setting.property == &c_Registry::PathProgramFiles;
}

const Setting* Find(const std::string& name) {
  for (const Setting& setting : settings::AllSettings())
    if (!IsPlace(setting) && core::Equals(NameOf(setting), name)) return &setting;
  return nullptr;
}

bool IsOneOf(const std::string& value, const auto& names) {
  return std::ranges::any_of(names, [&](const char* name) { return value == name; });
}

// Why a setting can't have the value; empty if it can.
std::string WhyNot(const Setting& setting, const std::string& value) {
  using R = c_Registry;
  if (setting.property == &R::ErasePassesBrsm || setting.property == &R::ErasePassesLmro) {
    const bool digits = !value.empty() && value.size() <= 2 &&
                        std::ranges::all_of(value, [](char c) { return c >= '0' && c <= '9'; });
    return digits && std::stoi(value) >= 1 && std::stoi(value) <= 35 ? "" : "a number from 1 to 35";
  }
  if (setting.property == &R::DaySch) return IsOneOf(value, schedule::kDays) ? "" : "a day: Monday to Sunday";
  if (setting.property == &R::WeekSch)
    return IsOneOf(value, schedule::kWeeks) ? "" : "one of Every Week, Every second Week and so on";
  if (setting.property == &R::TimeSch) return schedule::ParseTime(value) ? "" : "a time: 14:30";
  return value == "0" || value == "1" ? "" : "0 or 1";
}

// The window would write its own over them when it closes.
bool MayWrite(Context& context) {
  if (!context.machine.GetProcesses().InstanceRuns("Brasmir")) return true;
  NothingDone(context, "Brasmir is open; close it first");
  return false;
}

struct Change {
  std::string key, name, data;
};

// All of them, or none where the store has transactions. The lists that are named are emptied first.
bool Write(const std::vector<Change>& changes, const std::set<std::string>& emptied) {
  platform::LibRegistry registry;
  platform::RegistryTransaction transaction;
  bool good = true;
  for (const std::string& list : emptied)
    good = registry.DeleteAllValues(platform::kCurrentUser, list) == 0 && good;
  for (const Change& change : changes)
    good = registry.WriteValue(platform::kCurrentUser, change.key, change.name, change.data) == 0 && good;
  return transaction.Commit() == 0 && good;
}

Json Export() {
  Json object = {{"format", kFormat}, {"version", kVersion}};
  for (const Setting& setting : settings::AllSettings())
    if (!IsPlace(setting)) object["settings"][NameOf(setting)] = (*gRegistry).*setting.property;
  platform::LibRegistry registry;
  for (const char* key : kLists) {
    platform::CountedList names;
    registry.EnumValues(platform::kCurrentUser, key, names);
    Json rows = Json::array();
    for (int i = 0; i < names.UpperBound(); ++i)
      rows.push_back({names[i], registry.ReadValue(platform::kCurrentUser, key, names[i])});
    object["lists"][std::string(key).substr(kFamily.size())] = rows;
  }
  return object;
}

// What an exported text says; a sentence in `problem` where it says nothing that can be taken over as a
// whole.
std::optional<std::vector<Change>> Parse(const std::string& text, std::set<std::string>& emptied,
                                         std::string& problem) {
  Json object = Json::parse(text, nullptr, false);
  if (object.is_discarded() || !object.is_object() || object.value("format", "") != kFormat ||
      object.value("version", 0) != kVersion) {
    problem = "these are no settings that tidorra settings export has written";
    return std::nullopt;
  }
  std::vector<Change> changes;
  for (const auto& [name, value] : object["settings"].items()) {
    const Setting* setting = Find(name);
    if (!setting || !value.is_string()) {
      problem = "there is no setting " + name;
      return std::nullopt;
    }
    if (std::string why = WhyNot(*setting, value.get<std::string>()); !why.empty()) {
      problem = name + " must be " + why;
      return std::nullopt;
    }
    changes.push_back({setting->key, setting->name, value.get<std::string>()});
  }
  for (const auto& [name, rows] : object["lists"].items()) {
    const std::string key = std::string(kFamily) + name;
    if (std::ranges::find(kLists, key) == std::end(kLists) || !rows.is_array()) {
      problem = "there is no list " + name;
      return std::nullopt;
    }
    emptied.insert(key);
    for (const Json& row : rows) {
      if (!row.is_array() || row.size() != 2 || !row[0].is_string() || !row[1].is_string() ||
          row[0].get<std::string>().empty()) {
        problem = "a row of " + name + " is no pair of texts";
        return std::nullopt;
      }
      changes.push_back({key, row[0].get<std::string>(), row[1].get<std::string>()});
    }
  }
  return changes;
}

std::filesystem::path PathOf(const std::string& file) {
  return std::filesystem::path(std::u8string(file.begin(), file.end()));
}

int Store(Context& context, const std::vector<Change>& changes, const std::set<std::string>& emptied,
          const char* done) {
  if (!Write(changes, emptied)) return NothingDone(context, "the settings can't be written");
  context.output.Summary(done, {{"type", "summary"}, {"done", true}});
  return kAllDone;
}

}  // namespace

int SettingsGet(Context& context) {
  context.output.Table({{"Setting", 56}, {"Value", 0}});
  bool found = false;
  for (const Setting& setting : settings::AllSettings()) {
    const std::string name = NameOf(setting), &value = (*gRegistry).*setting.property;
    if (!context.wishes.name.empty() && !core::Equals(name, context.wishes.name)) continue;
    found = true;
    context.output.Row({name, value}, {{"type", "setting"}, {"name", name}, {"value", value}});
  }
  return found ? kAllDone : UsedWrongly(context, "there is no setting " + context.wishes.name);
}

int SettingsSet(Context& context) {
  const Setting* setting = Find(context.wishes.name);
  if (!setting)
    return UsedWrongly(context, "there is no setting " + context.wishes.name + " that can be set");
  if (std::string why = WhyNot(*setting, context.wishes.value); !why.empty())
    return UsedWrongly(context, context.wishes.name + " must be " + why);
  if (!MayWrite(context)) return kNothingDone;
  return Store(context, {{setting->key, setting->name, context.wishes.value}}, {}, "Set");
}

int SettingsExport(Context& context) {
  const std::string text = Export().dump(2, ' ', false, Json::error_handler_t::replace) + "\n";
  if (context.wishes.file.empty() || context.wishes.file == "-") {
    context.console.out << text;
    return kAllDone;
  }
  std::ofstream file(PathOf(context.wishes.file), std::ios::binary);
  file << text;
  file.close();
  if (!file) return NothingDone(context, "the file " + context.wishes.file + " can't be written");
  return kAllDone;
}

int SettingsImport(Context& context) {
  std::string text;
  if (context.wishes.file == "-") {
    text.assign(std::istreambuf_iterator<char>(context.console.in), {});
  } else {
    std::ifstream file(PathOf(context.wishes.file), std::ios::binary);
    if (!file) return UsedWrongly(context, "the file " + context.wishes.file + " can't be read");
    text.assign(std::istreambuf_iterator<char>(file), {});
  }
  std::set<std::string> emptied;
  std::string problem;
  auto changes = Parse(text, emptied, problem);
  if (!changes) return NothingDone(context, problem);
  if (!MayWrite(context)) return kNothingDone;
  int code;
  if (!context.desktop.Confirm("Put these settings in the place of those there are?", code)) return code;
  return Store(context, *changes, emptied, "Imported");
}

int SettingsReset(Context& context) {
  std::vector<Change> changes;
  std::set<std::string> emptied(std::begin(kLists), std::end(kLists));
  try {
    for (settings::SeedValue& seed :
         settings::ParseSeed(context.firstTimeSettings, gRegistry->InstallDirectory)) {
      const bool isSetting = std::ranges::any_of(settings::AllSettings(), [&](const Setting& setting) {
        return !IsPlace(setting) && seed.key == setting.key && seed.name == setting.name;
      });
      if (isSetting || emptied.contains(seed.key)) changes.push_back({seed.key, seed.name, seed.data});
    }
  } catch (const std::exception&) {
  }
  if (changes.empty()) return NothingDone(context, "the settings of a first start aren't there");
  if (!MayWrite(context)) return kNothingDone;
  int code;
  if (!context.desktop.Confirm("Put the settings and lists of a first start in the place of yours?", code))
    return code;
  return Store(context, changes, emptied, "Reset");
}

}  // namespace command
