#include "plugins/PlugInsPage.h"

#include "core/Boxes.h"
#include "core/ErrorReport.h"
#include "core/Run.h"
#include "core/m_SharedProcedures.h"
#include "platform/Operations.h"
#include "plugins/PlugInMaker.h"
#include "plugins/PlugInRules.h"
#include "plugins/m_PlugIns.h"

using core::Args;
using core::BoxIcon;
using core::Guarded;
using core::Procedure;

namespace {

void Show(controls::Label& label, const std::string& text) {
  label.Caption = text;
  platform::CurrentDesktop().Refresh(label);
}

void ResetCounters(frmMain& form) {
  for (controls::Label* label : {&form.lblFilesDeletedPlugIn, &form.lblFoldersDeletedPlugIn,
                                 &form.lblKeysDeletedPlugIn, &form.lblValuesDeletedPlugIn})
    label->Caption = "0";
  gCleaningStatus->PlugInFileCount = 0;
  gCleaningStatus->PlugInFolderCount = 0;
  gCleaningStatus->PlugInRegKeyCount = 0;
  gCleaningStatus->PlugInRegValueCount = 0;
}

}  // namespace

void cmdRunPlugIns_Click(frmMain& form) {
  if (core::Run::OnStack()) return;
  Guarded(Procedure{"frmMain", "cmdRunPlugIns_Click"}, Args(), [&] {
    controls::ListView& list = form.lvwPlugInLists;
    int rows = list.Count();
    if (!core::Ask(BoxIcon::Information, "Execute Plug-In Files", {"Confirm running selected Plug-Ins: "}))
      return;
    core::Run run(core::Running::PlugIns, nullptr);
    run.Begin();
    core::Hourglass hourglass;
    gAppRunning->AppRunning = true;
    ResetCounters(form);
    form.prgProgressPlugIns.Visible = true;
    form.prgProgressPlugIns.Max = rows;
    for (int row = 1; row <= rows; ++row) {
      if (list.Checked(row)) {
        std::string name(list.Text(row)), category(list.SubItem(row, 2));
        Show(form.lblUserInfoPlugIn, "Running the Plug-In File: " + name);
        Show(form.lblStatusPlugIns, "Executing Plug-In Files...");
        m_PlugIns::RunPlugInFile(category, name);
        list.SetChecked(row, false);
      }
      form.prgProgressPlugIns.Value = row;
    }
    Show(form.lblUserInfoPlugIn, "All selected Plug-Ins was successfully executed");
    gAppRunning->AppRunning = false;
    form.prgProgressPlugIns.Value = 0;
    form.prgProgressPlugIns.Visible = false;
    Show(form.lblStatusPlugIns, "Select Plug-Ins to Execute...");
  });
}

void cmdRemovePlugIn_Click(frmMain& form) {
  Guarded(Procedure{"frmMain", "cmdRemovePlugIn_Click"}, Args(), [&] {
    controls::ListView& list = form.lvwPlugInLists;
    if (list.Count() == 0) return;
    int row = list.SelectedIndex();
    std::string name, category;
    if (row != 0) {
      name = list.Text(row);
      category = list.SubItem(row, 2);
    }
    if (!core::Ask(BoxIcon::Information, "Remove Plug-In File", {"Confirm remove selected Plug-In: " + name}))
      return;
    if (row == 0) return;
    list.RemoveRow(row);
    platform::ops::Remove(plugins::PlugInPath(category, name));
  });
}

void cmdSelectAllPlugIns_Click(frmMain& form) {
  Guarded(Procedure{"frmMain", "cmdSelectAllPlugIns_Click"}, Args(),
          [&] { form.lvwPlugInLists.CheckAll(true); });
}

void cmdUnSelectAllPlugIns_Click(frmMain& form) {
  Guarded(Procedure{"frmMain", "cmdUnSelectAllPlugIns_Click"}, Args(),
          [&] { form.lvwPlugInLists.CheckAll(false); });
}

void lblOpenPlugInMaker_Click() {
  Guarded(Procedure{"frmMain", "lblOpenPlugInMaker_Click"}, Args(), [] { ShowPlugInMaker(); });
}

void WirePlugIns(frmMain& form) {
  form.cmdRunPlugIns.Click = [&form] { cmdRunPlugIns_Click(form); };
  form.cmdRemovePlugIn.Click = [&form] { cmdRemovePlugIn_Click(form); };
  form.cmdSelectAllPlugIns.Click = [&form] { cmdSelectAllPlugIns_Click(form); };
  form.cmdUnSelectAllPlugIns.Click = [&form] { cmdUnSelectAllPlugIns_Click(form); };
  form.lblOpenPlugInMaker.Click = [] { lblOpenPlugInMaker_Click(); };
}
