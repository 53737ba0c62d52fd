#include "plugins/m_PlugIns.h"

#include "core/Boxes.h"
#include "core/ErrorReport.h"
#include "core/OpenForms.h"
#include "core/m_SharedProcedures.h"
#include "forms/frmMain.h"
#include "platform/Guard.h"
#include "platform/LibFolders.h"
#include "platform/LibPath.h"
#include "platform/LibRegistry.h"
#include "platform/Listings.h"
#include "platform/Operations.h"
#include "platform/RuntimeError.h"
#include "platform/TextFile.h"
#include "plugins/PlugInRules.h"
#include "removal/Removing.h"
#include "settings/m_RegistryLists.h"

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

// Raises a counter, which is a 16-bit number, and shows it.
void Count(std::int16_t& counter, int by, controls::Label& label) {
  if (counter + by > INT16_MAX) throw platform::Overflow();
  counter = static_cast<std::int16_t>(counter + by);
  label.Caption = core::NumberText(counter);
}

// The rules of one open file, read by position: ten lines, then four sections that an empty line ends.
class Runner {
 public:
  Runner(const std::string& path, frmMain& form) : file_(path, m_Registry::kLargestPlugIn), form_(form) {
    platform::LibFolders folders;
    platform::LibPath paths;
    tokens_ = {paths.AddBackslash(folders.System()), paths.AddBackslash(folders.Windows()),
               gRegistry->PathProgramFiles};
  }

  void Run() {
    for (int line = 0; line < 10; ++line) file_.ReadLine();
    Section(forms::FileRulesMark, &Runner::FileRule);
    file_.ReadLine();
    Section(forms::FolderRulesMark, &Runner::FolderRule);
    file_.ReadLine();
    Section(forms::KeyRulesMark, &Runner::KeyRule);
    // The last section alone ends at an empty line in its head's place too, and at the file's end.
    std::string line = file_.ReadLine();
    while (!file_.AtEnd() && !line.empty()) {
      form_.imgProcessPlugIns[forms::ValueRulesMark].Visible = true;
      line = file_.ReadLine();
      if (!line.empty()) ValueRule(line);
    }
  }

 private:
  void Section(int mark, void (Runner::*rule)(const std::string&)) {
    for (;;) {
      form_.imgProcessPlugIns[mark].Visible = true;
      std::string line = file_.ReadLine();
      if (line.empty()) return;
      (this->*rule)(line);
    }
  }

  void DeleteFile(const std::string& path) {
    removal::DeleteFile(path);
    Count(gCleaningStatus->PlugInFileCount, 1, form_.lblFilesDeletedPlugIn);
  }

  // Whoever made a rule file doesn't know what a user keeps in folders of their own.
  static bool MayClear(const std::string& path) {
    return platform::MayClear(path).clearing == platform::Clearing::Allowed;
  }

  void FileRule(const std::string& line) {
    std::string_view rest = line;
    std::string_view kind = plugins::TakeField(rest);
    std::string path = plugins::ExpandTokens(std::string(rest), tokens_);
    CountedList files, folders;
    if (kind == plugins::kSingleFile) {
      DeleteFile(path);
      return;
    }
    if (!MayClear(path)) return;
    if (kind == plugins::kAllFiles)
      platform::ops::ListFolder(path, files);
    else if (kind == plugins::kAllFilesSub)
      platform::ops::ListTree(path, files, folders);
    for (int i = 0; i < files.UpperBound(); ++i) DeleteFile(files[i]);
  }

  void FolderRule(const std::string& line) {
    std::string folder = plugins::ExpandTokens(line, tokens_);
    if (MayClear(folder)) removal::RemoveTree(folder);
    Count(gCleaningStatus->PlugInFolderCount, 1, form_.lblFoldersDeletedPlugIn);
  }

  void KeyRule(const std::string& line) {
    std::string_view subKey = line;
    auto root = plugins::RootKey(plugins::TakeField(subKey));
    if (!root) return;
    platform::LibRegistry().DeleteKey(*root, subKey);
    Count(gCleaningStatus->PlugInRegKeyCount, 1, form_.lblKeysDeletedPlugIn);
  }

  void ValueRule(const std::string& line) {
    std::string_view rest = line;
    std::string_view kind = plugins::TakeField(rest);
    auto root = plugins::RootKey(plugins::TakeField(rest));
    platform::LibRegistry registry;
    if (kind == plugins::kSingleValue) {
      std::string_view subKey = plugins::TakeField(rest);
      if (!root) return;
      registry.DeleteValue(*root, subKey, rest);
      Count(gCleaningStatus->PlugInRegValueCount, 1, form_.lblValuesDeletedPlugIn);
    } else if (kind == plugins::kAllValues && root) {
      CountedList names;
      registry.EnumValues(*root, rest, names);
      registry.DeleteAllValues(*root, rest);
      Count(gCleaningStatus->PlugInRegValueCount, names.UpperBound(), form_.lblValuesDeletedPlugIn);
    }
  }

  platform::TextReader file_;
  frmMain& form_;
  plugins::TokenFolders tokens_;
};

}  // namespace

bool SavePlugInFile(frmPlugInMaker& form) {
  try {
    std::string folder = plugins::CategoryFolder(form.cboCategoryPlugIn.Text());
    std::string path = plugins::PlugInPath(form.cboCategoryPlugIn.Text(), form.txtNamePlugIn.Text.Get());
    if (folder.empty() || path.empty()) return false;
    if (form.txtDescriptionPlugIn.Text.Get().find_first_of("\r\n") != std::string::npos) return false;
    platform::ops::MakeFolder(folder);
    platform::WriteTextFile(path, FileLines(form));
    return true;
  } catch (...) {
    return false;
  }
}

void RunPlugInFile(const std::string& sPlugInCategory, const std::string& sPlugInName) {
  try {
    Runner(plugins::PlugInPath(sPlugInCategory, sPlugInName), core::MainForm()).Run();
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
