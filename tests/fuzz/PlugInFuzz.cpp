// Plug-in files that anybody may have written: carried out without a fault, and nothing goes that no rule
// names.
#include <algorithm>
#include <memory>
#include <set>

#include "core/OpenForms.h"
#include "core/m_SharedProcedures.h"
#include "forms/frmMain.h"
#include "fuzz/MemoryMachine.h"
#include "platform/Guard.h"
#include "plugins/m_PlugIns.h"

namespace fuzz {

namespace {

// Remembers what it is told to remove; holds one value everywhere.
class NotedRegistry : public platform::RegistryStore {
 public:
  std::set<std::string> removed;
  platform::RegistryValue Read(std::uint32_t, std::string_view, std::string_view) override { return {}; }
  long Write(std::uint32_t, std::string_view, std::string_view, const platform::RegistryValue&) override {
    Fail("a plug-in wrote to the registry");
  }
  long RemoveValue(std::uint32_t, std::string_view key, std::string_view) override { return Note(key); }
  long RemoveKey(std::uint32_t, std::string_view key) override { return Note(key); }
  long RemoveAllValues(std::uint32_t, std::string_view key) override { return Note(key); }
  long Names(std::uint32_t, std::string_view, std::vector<std::string>& names) override {
    names.push_back("value");
    return 0;
  }
  bool KeyExists(std::uint32_t, std::string_view) override { return true; }
  void Begin() override {}
  long End() override { return 0; }

 private:
  long Note(std::string_view key) {
    removed.insert(Folded(key));
    return 0;
  }
};

class PlugInMachine : public MemoryMachine {
 public:
  NotedRegistry registry;
  platform::RegistryStore& Registry() override { return registry; }
};

constexpr const char* kFiles[] = {
    "C:\\Windows\\oldview.ini",
    "C:\\Windows\\System32\\kernel.dll",
    "C:\\Windows\\Old Viewer\\Logs\\a.log",
    "C:\\Program Files\\Old Viewer\\Cache\\a.tmp",
    "C:\\Old Viewer\\Thumbs\\a.tmp",
    "C:\\Old Viewer\\Thumbs\\deep\\b.tmp",
    "C:\\Users\\User\\Documents\\letter.txt",
    "C:\\boot.ini",
};

// True if a line of the file ends in the path or in a folder of it, or in what stands behind a token's
// folder: a token takes off what stands before it, and the character behind it, whatever that is.
bool IsNamed(const std::vector<std::string>& lines, const std::string& path) {
  for (const std::string& line : lines) {
    for (std::size_t from = 0; from < line.size(); ++from) {
      std::string_view rest = std::string_view(line).substr(from);
      while (rest.ends_with('\\')) rest.remove_suffix(1);
      if (rest.empty()) continue;
      for (const char* before : {"", "c:\\windows\\", "c:\\program files\\"}) {
        if (*before && line.find('%') == line.npos) continue;
        std::string named = before + std::string(rest);
        if (named.size() > 3 && (path == named || path.starts_with(named + "\\"))) return true;
      }
    }
  }
  return false;
}

struct Session {
  Session() {
    gAppRunning = std::make_unique<c_AppRunning>();
    gRegistry = std::make_unique<c_Registry>();
    gCleaningStatus = std::make_unique<c_CleaningStatus>();
    gRegistry->InstallDirectory = "C:\\Program Files\\Tidorra\\";
    gRegistry->PathProgramFiles = "C:\\Program Files\\";
    platform::SetInstallFolder("C:\\Program Files\\Tidorra");
    core::SetMainForm(&form);
  }
  frmMain form;
};

}  // namespace

void Try(std::span<const std::uint8_t> bytes) {
  static Session session;
  *gCleaningStatus = {};
  PlugInMachine machine;
  for (const char* path : kFiles) machine.Put(path, "x");
  machine.PutLink("C:\\Old Viewer\\Thumbs\\link");
  std::string text(bytes.begin(), bytes.end());
  machine.Put("C:\\Program Files\\Tidorra\\PlugIns\\Viewers\\Old Viewer.plg", text);

  m_PlugIns::RunPlugInFile("Viewers", "Old Viewer");

  std::vector<std::string> lines(1);
  for (char c : Folded(text))
    if (c == '\r' || c == '\n')
      lines.emplace_back();
    else
      lines.back() += c;
  for (const char* path : kFiles)
    if (!machine.Nodes().count(Folded(path)) && !IsNamed(lines, Folded(path)))
      Fail(std::string(path) + " is gone");
  for (const char* kept : {"c:\\windows\\system32", "c:\\users\\user", "c:\\program files", "c:\\windows"})
    if (!machine.Nodes().count(kept) && !IsNamed(lines, kept)) Fail(std::string(kept) + " is gone");
  for (const std::string& key : machine.registry.removed)
    if (std::none_of(lines.begin(), lines.end(),
                     [&](const std::string& line) { return line.find(key) != line.npos; }))
      Fail("a key that no rule names: " + key);
}

std::vector<std::string> Seeds() {
  std::string head =
      "[Plug-In Name]\r\nOld Viewer\r\n\r\n[Plug-In Description]\r\nd\r\n\r\n[Plug-In Category]\r\n"
      "Viewers\r\n\r\n[File Rules]\r\n";
  return {
      head +
          "Single File|%windir%\\oldview.ini\r\nAll Files|C:\\Old Viewer\\Thumbs\r\n"
          "All Files/Sub|%ProgramFiles%\\Old Viewer\\Cache\r\n\r\n[Folder Rules]\r\n%SystemRoot%\\Old "
          "Viewer\\Logs\r\n"
          "\r\n[Registry Key Rules]\r\nHKEY_CURRENT_USER|Software\\Old Viewer\\Recent\r\n\r\n"
          "[Registry Value Rules]\r\nSingle Value|HKEY_CURRENT_USER|Software\\Old Viewer|LastFile\r\n"
          "All Values|HKEY_LOCAL_MACHINE|Software\\Old Viewer\\Settings\r\n",
      head +
          "All Files/Sub|C:\\\r\nAll Files|%windir%\r\nSingle File|C:\\Old Viewer\\Thumbs\\link\\x\r\n\r\n"
          "[Folder Rules]\r\nC:\\Windows\r\nC:\\Old Viewer\r\n..\\x\r\n\r\n[k]\r\n\r\n[v]\r\n",
      // The file itself lies in what it names.
      head + "All Files/Sub|C:\\Program Files\\Tidorra\\PlugIns\r\nSingle File|C:\\boot.ini\r\n\r\n[k]\r\n",
      head + "\r\n[Folder Rules]\r\n\r\n[Registry Key Rules]\r\n\r\n[Registry Value Rules]\r\n"};
}

}  // namespace fuzz
