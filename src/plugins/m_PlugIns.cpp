#include "plugins/m_PlugIns.h"

#include <algorithm>

#include "core/Boxes.h"
#include "core/ErrorReport.h"
#include "core/OpenForms.h"
#include "core/m_SharedProcedures.h"
#include "forms/frmMain.h"
#include "platform/Guard.h"
#include "platform/LibPath.h"
#include "platform/LibRegistry.h"
#include "platform/Operations.h"
#include "platform/RuntimeError.h"
#include "platform/TextFile.h"
#include "plugins/PlugInRules.h"
#include "plugins/RuleFile.h"
#include "removal/Removing.h"

namespace m_PlugIns {

namespace {

using platform::CountedList;

std::vector<std::string> FileLines(const frmPlugInMaker& form) {
  std::vector<std::string> lines = {"[Plug-In Name]",        form.txtNamePlugIn.Text,        "",
                                    "[Plug-In Description]", form.txtDescriptionPlugIn.Text, "",
                                    "[Plug-In Category]",    form.cboCategoryPlugIn.Text(),  "",
                                    "[File Rules]"};
  auto section = [&lines](const char* head) {
    lines.push_back("");
    lines.push_back(head);
  };
  auto rules = [&lines](const controls::ListView& list, bool pair) {
    for (int row = 1; row <= list.Count(); ++row) {
      std::string line(list.Text(row));
      if (pair) line.append("|").append(list.SubItem(row, 1));
      lines.push_back(std::move(line));
    }
  };
  rules(form.lvwFiles, true);
  section("[Folder Rules]");
  rules(form.lvwFolders, false);
  section("[Registry Key Rules]");
  rules(form.lvwRegistryKeys, false);
  section("[Registry Value Rules]");
  rules(form.lvwRegistryValues, true);
  return lines;
}

bool HoldsLineEnd(const std::string& line) {
  return line.find_first_of("\r\n") != std::string::npos;
}

// Raises a counter, which is a 16-bit number, and shows it.
void Count(std::int16_t& counter, int by, controls::Label& label) {
  if (counter + by > INT16_MAX) throw platform::Overflow();
  counter = static_cast<std::int16_t>(counter + by);
  label.Caption = core::NumberText(counter);
}

// Carries the rules out, and shows what it does.
class Runner : public plugins::RuleTaker {
 public:
  explicit Runner(frmMain& form) : form_(form) {}

  void Section(plugins::RuleSection section) override {
    form_.imgProcessPlugIns[static_cast<int>(section)].Visible = true;
  }
  void File(const std::string& path) override {
    removal::DeleteFile(path);
    Count(gCleaningStatus->PlugInFileCount, 1, form_.lblFilesDeletedPlugIn);
  }
  void FilesOf(const std::string& folder, bool subfolders) override {
    CountedList files;
    plugins::ListFilesOf(folder, subfolders, files);
    for (int i = 0; i < files.UpperBound(); ++i) File(files[i]);
  }
  void Folder(const std::string& folder) override {
    if (plugins::MayClear(folder)) removal::RemoveTree(folder);
    Count(gCleaningStatus->PlugInFolderCount, 1, form_.lblFoldersDeletedPlugIn);
  }
  void Key(const plugins::RuleKey& key) override {
    platform::LibRegistry().DeleteKey(key.root, key.subKey);
    Count(gCleaningStatus->PlugInRegKeyCount, 1, form_.lblKeysDeletedPlugIn);
  }
  void Value(const plugins::RuleKey& key, const std::string& name) override {
    platform::LibRegistry().DeleteValue(key.root, key.subKey, name);
    Count(gCleaningStatus->PlugInRegValueCount, 1, form_.lblValuesDeletedPlugIn);
  }
  void ValuesOf(const plugins::RuleKey& key) override {
    platform::LibRegistry registry;
    CountedList names;
    registry.EnumValues(key.root, key.subKey, names);
    registry.DeleteAllValues(key.root, key.subKey);
    Count(gCleaningStatus->PlugInRegValueCount, names.UpperBound(), form_.lblValuesDeletedPlugIn);
  }

 private:
  frmMain& form_;
};

}  // namespace

bool SavePlugInFile(frmPlugInMaker& form) {
  try {
    std::string folder = plugins::CategoryFolder(form.cboCategoryPlugIn.Text());
    std::string path = plugins::PlugInPath(form.cboCategoryPlugIn.Text(), form.txtNamePlugIn.Text.Get());
    if (folder.empty() || path.empty()) return false;
    // Windows could neither show nor remove such a file again.
    if (platform::IsDeviceName(form.cboCategoryPlugIn.Text()) ||
        platform::IsDeviceName(form.txtNamePlugIn.Text.Get()))
      return false;
    const std::vector<std::string> lines = FileLines(form);
    // A pasted line end would make two rules of one, and the first of them means much more.
    if (std::ranges::any_of(lines, HoldsLineEnd)) return false;
    platform::ops::MakeFolder(folder);
    platform::WriteTextFile(path, lines);
    return true;
  } catch (...) {
    return false;
  }
}

void RunPlugInFile(const std::string& sPlugInCategory, const std::string& sPlugInName) {
  try {
    Runner runner(core::MainForm());
    plugins::ReadRules(plugins::PlugInPath(sPlugInCategory, sPlugInName), runner);
  } catch (...) {
    core::Failure failure = core::CurrentFailure();
    core::Tell(core::BoxIcon::Critical, "Tidorra (Brasmir)...Error",
               {"There has been raised an error: ", "Module: m_PlugIns", "Procedure: RunPlugInFile ",
                "Arguments: sPlugInCategory = Value " + platform::LibPath().AddBackslash(sPlugInCategory),
                "Arguments: sPlugInName = Value " + sPlugInName,
                "Description: Plug-In File not configured correctly",
                "Look over the configuration of the Plug-In File and try again.",
                "Error number: " + std::to_string(failure.number)});
  }
}

}  // namespace m_PlugIns
