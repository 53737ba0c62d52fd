#include "settings/Seed.h"

#include <stdexcept>

#include "core/Keys.h"
#include "core/Text.h"
#include "platform/LibPath.h"
#include "platform/LibRegistry.h"
#include "platform/Machine.h"
#include "platform/Operations.h"

namespace settings {

namespace {

constexpr char kRoot[] = "Software\\Orvane\\";
constexpr const char* kOwnFolders[] = {"Temp", "Backup", "Reports", "PlugIns", "Skin", "Help", "Animations"};

class Parser {
 public:
  Parser(std::string_view text, const std::string& installDirectory) : rest_(text) {
    platform::LibPath path;
    // A computer that has just been made may have neither folder yet.
    std::string windows = platform::CurrentMachine().Folder(platform::KnownFolder::Windows);
    std::string systemDrive = windows.empty() ? "C:" : windows.substr(0, 2);
    std::string programFiles = platform::CurrentMachine().Folder(platform::KnownFolder::ProgramFiles);
    if (programFiles.empty()) programFiles = systemDrive + "\\Program Files";
    tokens_ = {{"%InstallDirectory%", path.AddBackslash(installDirectory)},
               {"%ProgramFiles%", programFiles},
               {"%SystemDrive%", systemDrive}};
  }

  std::vector<SeedValue> Parse() {
    while (!rest_.empty()) {
      ++line_;
      std::size_t end = rest_.find('\n');
      std::string_view line = rest_.substr(0, end);
      rest_.remove_prefix(end == std::string_view::npos ? rest_.size() : end + 1);
      if (!line.empty() && line.back() == '\r') line.remove_suffix(1);
      line = core::Trim(line);
      if (line.empty() || line.front() == '#') continue;
      if (line.front() == '[')
        Section(line);
      else
        Row(line);
    }
    return std::move(values_);
  }

 private:
  [[noreturn]] void Fail(const char* what) const {
    throw std::invalid_argument("line " + std::to_string(line_) + ": " + what);
  }

  // [key + Sub one + Sub two]
  void Section(std::string_view line) {
    if (line.back() != ']') Fail("a section without its ]");
    std::string_view names = line.substr(1, line.size() - 2);
    keys_.clear();
    while (!names.empty()) {
      std::size_t plus = names.find(" + ");
      std::string_view name = core::Trim(names.substr(0, plus));
      names.remove_prefix(plus == std::string_view::npos ? names.size() : plus + 3);
      if (name.empty()) Fail("an empty key");
      keys_.push_back(keys_.empty() ? kRoot + std::string(name) : keys_.front() + "\\" + std::string(name));
    }
    if (keys_.empty()) Fail("an empty key");
  }

  // "name" = "data", one data for each key of the section
  void Row(std::string_view line) {
    if (keys_.empty()) Fail("a value before the first key");
    std::string name = Quoted(line);
    if (line.empty() || line.front() != '=') Fail("a name without its =");
    line = core::Trim(line.substr(1));
    for (const std::string& key : keys_) values_.push_back({key, name, Quoted(line)});
    if (!line.empty()) Fail("more data than keys");
  }

  // Takes a quoted text and the blanks behind it off the line.
  std::string Quoted(std::string_view& line) const {
    std::size_t end = line.empty() || line.front() != '"' ? std::string_view::npos : line.find('"', 1);
    if (end == std::string_view::npos) Fail("a text in quotes is missing");
    std::string text(line.substr(1, end - 1));
    line = core::Trim(line.substr(end + 1));
    for (const auto& [token, meaning] : tokens_)
      text = platform::LibPath().ReplaceChars(text, token, meaning);
    return text;
  }

  std::string_view rest_;
  int line_ = 0;
  std::vector<std::pair<std::string, std::string>> tokens_;
  std::vector<std::string> keys_;
  std::vector<SeedValue> values_;
};

}  // namespace

std::vector<SeedValue> ParseSeed(std::string_view text, const std::string& installDirectory) {
  return Parser(text, installDirectory).Parse();
}

bool HasSettings() {
  return platform::CurrentMachine().Registry().KeyExists(platform::kCurrentUser, core::keys::kTidorra);
}

bool Seed(std::string_view text, const std::string& installDirectory) {
  std::vector<SeedValue> values;
  try {
    values = ParseSeed(text, installDirectory);
  } catch (const std::invalid_argument&) {
    return false;
  }
  if (values.empty()) return false;

  platform::LibRegistry registry;
  platform::RegistryTransaction transaction;
  bool written = true;
  for (const SeedValue& value : values) {
    written = registry.WriteValue(platform::kCurrentUser, value.key, value.name, value.data) == 0;
    if (!written) break;
  }
  // The key wasn't there before. Half of the settings would be taken for all of them at the next start.
  if (!written) registry.DeleteKey(platform::kCurrentUser, core::keys::kTidorra);
  if (transaction.Commit() != 0 || !written) return false;

  for (const char* folder : kOwnFolders)
    platform::ops::MakeFolder(platform::LibPath().AddBackslash(installDirectory) + folder);
  return true;
}

}  // namespace settings
