#include "plugins/PlugInMaker.h"

#include "core/Boxes.h"
#include "core/ErrorReport.h"
#include "core/OpenForms.h"
#include "core/m_SharedProcedures.h"
#include "forms/frmMain.h"
#include "pages/m_Controls.h"
#include "platform/LibFile.h"
#include "platform/LibPath.h"
#include "platform/LibShell.h"
#include "platform/Listings.h"
#include "platform/Operations.h"
#include "plugins/PlugInRules.h"
#include "plugins/m_PlugIns.h"
#include "settings/m_Registry.h"
#include "settings/m_RegistryLists.h"

using core::Args;
using core::BoxIcon;
using core::Guarded;
using core::Value;

namespace {

constexpr core::Procedure In(const char* procedure) {
  return {"frmPlugInMaker", procedure};
}

core::FormSlot<frmPlugInMaker>& Slot() {
  static core::FormSlot<frmPlugInMaker> slot(Wire);
  return slot;
}

// The skin stays off while a dialog is open, which the main window owns: the wizard takes the focus back.
template <class Dialog>
std::string AskWithoutSkin(frmPlugInMaker& form, Dialog dialog) {
  form.skn.Enabled = false;
  std::string answer = dialog();
  platform::CurrentDesktop().Activate(form);
  form.skn.Enabled = true;
  return answer;
}

void Form_Load(frmPlugInMaker& form) {
  Guarded(In("Form_Load"), Args(), [&] {
    form.Caption = "Plug-In Maker.";
    form.skn.Picture = gRegistry->InstallDirectory + "Skin\\Zinc-blue2.bmp";
    form.skn.Enabled = true;
    for (controls::ListView* list :
         {&form.lvwFiles, &form.lvwFolders, &form.lvwRegistryKeys, &form.lvwRegistryValues})
      m_Controls::SetFlatHeaders(*list);
    SetControlValues(form);
    SetPlugInCategories(form);
    form.ShowPage(form.fraWelcome);
  });
}

// True when the first page may be left.
bool NameIsSound(frmPlugInMaker& form) {
  const std::string &name = form.txtNamePlugIn.Text, &category = form.cboCategoryPlugIn.Text();
  if (name.empty() || form.txtDescriptionPlugIn.Text.Get().empty() || category.empty()) {
    core::Tell(BoxIcon::Exclamation, "Plug-In Name", {"Name, Description and Category Required On Plug-In"});
    return false;
  }
  if (platform::ops::IsFile(plugins::PlugInPath(category, name))) {
    core::Tell(BoxIcon::Exclamation, "Name Exist", {"Name Exist On Plug-In"});
    return false;
  }
  return true;
}

void ShowSummary(frmPlugInMaker& form) {
  form.lblNamePlugIn.Caption = "New Plug-In Name: " + form.txtNamePlugIn.Text;
  form.lblFileRulesConfigured.Caption = core::NumberText(form.lvwFiles.Count());
  form.lblFolderRulesConfigured.Caption = core::NumberText(form.lvwFolders.Count());
  form.lblRegKeyRulesConfigured.Caption = core::NumberText(form.lvwRegistryKeys.Count());
  form.lblRegistryValuesConfigured.Caption = core::NumberText(form.lvwRegistryValues.Count());
}

void cmdNext_Click(frmPlugInMaker& form, int Index) {
  Guarded(In("cmdNext_Click"), Args(Value("Index", Index)), [&] {
    if (Index == 0 && !NameIsSound(form)) return;
    controls::Frame* const next[] = {&form.fraFiles, &form.fraFolders, &form.fraRegistryKeys,
                                     &form.fraRegistryValues, &form.FraFinished};
    form.ShowPage(*next[Index]);
    if (Index == 4) ShowSummary(form);
  });
}

void cmdBack_Click(frmPlugInMaker& form, int Index) {
  Guarded(In("cmdBack_Click"), Args(Value("Index", Index)), [&] {
    controls::Frame* const back[] = {&form.fraWelcome, &form.fraFiles, &form.fraFolders,
                                     &form.fraRegistryKeys, &form.fraRegistryValues};
    form.ShowPage(*back[Index]);
  });
}

void lblAddNewFile_Click(frmPlugInMaker& form) {
  Guarded(In("lblAddNewFile_Click"), Args(), [&] {
    std::string_view kind = plugins::kSingleFile;
    std::string path;
    if (form.chkAllFilesInFolder.Value == 0) {
      path = AskWithoutSkin(form, [] { return platform::LibFile().BrowseForFile(); });
    } else {
      path = AskWithoutSkin(form, [] { return platform::LibShell().BrowseForFolder(); });
      kind = form.chkAllFilesInFolderSubFolders.Value == 0 ? plugins::kAllFiles : plugins::kAllFilesSub;
    }
    if (path.empty()) return;
    int row = form.lvwFiles.AddRow(kind, 1);
    form.lvwFiles.SetSubItem(row, 1, path);
  });
}

void chkAllFilesInFolder_Click(frmPlugInMaker& form) {
  Guarded(In("chkAllFilesInFolder_Click"), Args(),
          [&] { form.chkAllFilesInFolderSubFolders.Enabled = form.chkAllFilesInFolder.Value != 0; });
}

void lblAddNewFolder_Click(frmPlugInMaker& form) {
  Guarded(In("lblAddNewFolder_Click"), Args(), [&] {
    std::string folder = AskWithoutSkin(form, [] { return platform::LibShell().BrowseForFolder(); });
    if (!folder.empty()) form.lvwFolders.AddRow(folder, 1);
  });
}

void lblAddNewKey_Click(frmPlugInMaker& form) {
  Guarded(In("lblAddNewKey_Click"), Args(), [&] {
    const std::string &root = form.cboRootKeys.Text(), &subKey = form.txtSubKeyKeys.Text;
    if (!root.empty() && !subKey.empty()) form.lvwRegistryKeys.AddRow(root + "|" + subKey, 1);
  });
}

void lblAddNewRegistryValue_Click(frmPlugInMaker& form) {
  Guarded(In("lblAddNewRegistryValue_Click"), Args(), [&] {
    const std::string &root = form.cboRootKeysValues.Text(), &subKey = form.txtSubKeyValues.Text,
                      &name = form.txtNameValue.Text;
    if (root.empty() || subKey.empty()) return;
    int row = form.lvwRegistryValues.AddRow(name.empty() ? plugins::kAllValues : plugins::kSingleValue, 1);
    form.lvwRegistryValues.SetSubItem(row, 1, root + "|" + subKey + (name.empty() ? "" : "|" + name));
  });
}

void chkDeleteAllValues_Click(frmPlugInMaker& form) {
  Guarded(In("chkDeleteAllValues_Click"), Args(), [&] {
    bool all = form.chkDeleteAllValues.Value != 0;
    if (all) form.txtNameValue.Text = "";
    form.txtNameValue.Enabled = !all;
  });
}

// A list of rules with its removing and its clearing label.
struct RuleList {
  controls::ListView& list;
  controls::Label &remove, &clear;
  const char* removeProcedure;
  const char* removeTitle;
  int shownColumn;  // what stands behind "Confirm remove: "
  const char* clearProcedure;
  const char* clearTitle;
  const char* clearText;
};

std::vector<RuleList> RuleLists(frmPlugInMaker& form) {
  return {
      {form.lvwFiles, form.lblRemoveFile, form.lblClearFileList, "lblRemoveFile_Click", "Remove File Rule", 1,
       "lblClearFileList_Click", "Clear File List", "Confirm clear file list: "},
      {form.lvwFolders, form.lblRemoveFolder, form.lblClearFolderList, "lblRemoveFolder_Click",
       "Remove Folder Rule", 0, "lblClearFolderList_Click", "Clear Folder List",
       "Confirm clear folder list: "},
      {form.lvwRegistryKeys, form.lblRemoveRegistryKey, form.lblClearRegistryKeyList,
       "lblRemoveRegistryKey_Click", "Remove Key Rule", 0, "lblClearRegistryKeyList_Click", "Clear Key List",
       "Confirm clear registry key list: "},
      {form.lvwRegistryValues, form.lblRemoveRegistryValue, form.lblClearRegistryValueList,
       "lblRemoveRegistryValue_Click", "Remove Value Rule", 1, "lblClearRegistryValueList_Click",
       "Clear Value List", "Confirm clear registry value list: "},
  };
}

void RemoveRule(const RuleList& rules) {
  Guarded(In(rules.removeProcedure), Args(), [&] {
    int row = rules.list.SelectedIndex();
    if (rules.list.Count() == 0 || row == 0) return;
    std::string shown(rules.list.SubItem(row, rules.shownColumn));
    if (core::Ask(BoxIcon::Information, rules.removeTitle, {"Confirm remove: " + shown}))
      rules.list.RemoveRow(row);
  });
}

void ClearRules(const RuleList& rules) {
  Guarded(In(rules.clearProcedure), Args(), [&] {
    if (rules.list.Count() == 0) return;
    if (core::Ask(BoxIcon::Exclamation, rules.clearTitle, {rules.clearText})) rules.list.Clear();
  });
}

void lblDeletePlugInCategory_Click(frmPlugInMaker& form) {
  Guarded(In("lblDeletePlugInCategory_Click"), Args(), [&] {
    std::string category = form.cboCategoryPlugIn.Text();
    if (category.empty()) return;
    if (!core::Ask(BoxIcon::Critical, "Delete Category",
                   {"Confirm delete the category: " + category,
                    "All configured Plug-Ins under this category will be removed"}))
      return;
    core::Hourglass hourglass;
    platform::ops::RemoveTree(plugins::CategoryFolder(category));
    m_Registry::AssignPlugIns(core::MainForm());
    SetPlugInCategories(form);
  });
}

void cmdSavePlugIn_Click(frmPlugInMaker& form) {
  Guarded(In("cmdSavePlugIn_Click"), Args(), [&] {
    if (!m_PlugIns::SavePlugInFile(form)) {
      core::Tell(BoxIcon::Information, "Plug-In",
                 {"Error saving Plug-In", "Look over the settings (Change Name) and try again"});
      return;
    }
    core::Tell(BoxIcon::Information, "Plug-In",
               {"Plug-In successfully saved", "Plug-In list will now reload"});
    core::Hourglass hourglass;
    m_Registry::AssignPlugIns(core::MainForm());
    form.ShowPage(form.fraWelcome);
    form.txtNamePlugIn.Text = "";
    form.txtDescriptionPlugIn.Text = "";
    for (const RuleList& rules : RuleLists(form)) rules.list.Clear();
  });
}

}  // namespace

void SetControlValues(frmPlugInMaker& form) {
  Guarded(In("SetControlValues"), Args(), [&] {
    for (controls::ComboBox* box : {&form.cboRootKeys, &form.cboRootKeysValues})
      for (const char* root : {"HKEY_CLASSES_ROOT", "HKEY_CURRENT_USER", "HKEY_LOCAL_MACHINE", "HKEY_USERS",
                               "HKEY_CURRENT_CONFIG", "HKEY_PERFORMANCE_DATA", "HKEY_DYN_DATA"})
        box->AddItem(root);
  });
}

void SetPlugInCategories(frmPlugInMaker& form) {
  Guarded(In("SetPlugInCategories"), Args(), [&] {
    form.cboCategoryPlugIn.Clear();
    platform::CountedList files, folders;
    platform::ops::ListTree(plugins::PlugInsFolder(), files, folders);
    for (int i = 0; i < folders.UpperBound(); ++i)
      form.cboCategoryPlugIn.AddItem(platform::LibPath().GetBaseName(folders[i]));
  });
}

void ShowPlugInMaker() {
  core::ShowForm(Slot().Get());
}
frmPlugInMaker* LoadedPlugInMaker() {
  return Slot().Loaded();
}

void Wire(frmPlugInMaker& form) {
  form.Load = [&form] { Form_Load(form); };
  form.cmdClose.Click = [&form] { Guarded(In("cmdClose_Click"), Args(), [&] { core::CloseForm(form); }); };
  for (int i = 0; i < 5; ++i) {
    form.cmdNext[i].Click = [&form, i] { cmdNext_Click(form, i); };
    form.cmdBack[i].Click = [&form, i] { cmdBack_Click(form, i); };
  }
  form.lblAddNewFile.Click = [&form] { lblAddNewFile_Click(form); };
  form.chkAllFilesInFolder.Click = [&form] { chkAllFilesInFolder_Click(form); };
  form.lblAddNewFolder.Click = [&form] { lblAddNewFolder_Click(form); };
  form.lblAddNewKey.Click = [&form] { lblAddNewKey_Click(form); };
  form.lblAddNewRegistryValue.Click = [&form] { lblAddNewRegistryValue_Click(form); };
  form.chkDeleteAllValues.Click = [&form] { chkDeleteAllValues_Click(form); };
  for (const RuleList& rules : RuleLists(form)) {
    rules.remove.Click = [rules] { RemoveRule(rules); };
    rules.clear.Click = [rules] { ClearRules(rules); };
  }
  form.lblDeletePlugInCategory.Click = [&form] { lblDeletePlugInCategory_Click(form); };
  form.cmdSavePlugIn.Click = [&form] { cmdSavePlugIn_Click(form); };
}
