#include "pages/m_Controls.h"

#include "core/ErrorReport.h"
#include "places/Places.h"
#include "platform/Desktop.h"

namespace m_Controls {

namespace {

using core::Args;
using core::Guarded;
using core::Object;

core::Procedure Here(const char* procedure) {
  return {"m_Controls", procedure};
}

// A status line that is painted at once.
void Show(controls::Label& label, const char* text) {
  label.Caption = text;
  platform::CurrentDesktop().Refresh(label);
}

}  // namespace

bool IsAlreadyAddedToListView(std::string_view Item, const controls::ListView& List) {
  return Guarded(Here("IsAlreadyAddedToListView"), Args(core::Value("Item", Item), Object{"ListView"}),
                 [&] { return List.FindText(Item) != 0; });
}

void SetFlatHeaders(controls::ListView& list) {
  Guarded(Here("SetFlatHeaders"), Args(Object{"ListView"}), [&] { list.FlatHeaders = true; });
}

void LoadMouseMenus(frmMain& form, controls::PopupMenu& menu) {
  Guarded(Here("LoadMouseMenus"), Args(Object{"frmMain"}, Object{"XPMenu"}), [&] {
    menu.Name = "FileMenu";
    menu.Entries.clear();
    // Pictures count from 1.
    auto entry = [&](const char* caption, char mnemonic, std::size_t picture) {
      menu.Entries.push_back({caption, form.ilsMenuIcons.at(picture - 1), mnemonic});
    };
    auto separator = [&] { menu.Entries.emplace_back(); };
    entry("Open", 'O', 1);
    entry("View content", 'V', 2);
    separator();
    entry("Open container", 'c', 3);
    separator();
    entry("Delete", 'D', 5);
    entry("Move to recycle bin", 'M', 6);
    entry("Erase", 'E', 7);
    separator();
    entry("Delete on windows startup", 'w', 8);
    separator();
    entry("Properties", 'P', 4);
    separator();
    entry("Exclude file", 'f', 9);
    entry("Exclude directory", 'y', 10);
  });
}

void SetControlsBeforeScanningBrsm(frmMain& form) {
  Guarded(Here("SetControlsBeforeScanningBrsm"), Args(Object{"frmMain"}), [&] {
    form.pictMainMenu.Enabled = false;
    for (int mark : form.ImgProcessBrasmir.Indices()) form.ImgProcessBrasmir[mark].Visible = false;
    form.prgScanComputerProgressBrasmir.Visible = true;
    form.lblScanComputerProcentBrasmir.Visible = true;
    form.lblGarbageFilesScanComputerBrasmir.Caption = "0";
    form.lblZeroByteFilesScanComputerBrasmir.Caption = "0";
    form.lblBrokenShortcutsScanComputerBrasmir.Caption = "0";
    form.lblTotalSizeScanComputerBrasmir.Caption = "0";
    form.cmdScanComputerBrasmir.Caption = "Stop scanning";
    form.cmdViewResultsScanComputerBrasmir.Enabled = false;
    form.lvwFilesResultsBrasmir.Clear();
  });
}

void SetControlsAfterScanningBrsm(frmMain& form) {
  Guarded(Here("SetControlsAfterScanningBrsm"), Args(Object{"frmMain"}), [&] {
    form.pictMainMenu.Enabled = true;
    form.prgScanComputerProgressBrasmir.Visible = false;
    form.lblScanComputerProcentBrasmir.Visible = false;
    form.prgScanComputerProgressBrasmir.Value = 0;
    form.lblScanComputerProcentBrasmir.Caption = "0%";
    form.cmdViewResultsScanComputerBrasmir.Enabled = true;
    form.cmdScanComputerBrasmir.Caption = "Scan computer";
  });
}

void SetControlsBeforeCleaningBrsm(frmMain& form) {
  Guarded(Here("SetControlsBeforeCleaningBrsm"), Args(Object{"frmMain"}), [&] {
    form.prgProgressResultsBrasmir.Visible = true;
    form.cmdDeleteResultsBrasmir.Caption = "Stop";
    form.lblStatusBackupResultsBrasmir.Caption = "Status: Working...";
  });
}

void SetControlsAfterCleaningBrsm(frmMain& form) {
  Guarded(Here("SetControlsAfterCleaningBrsm"), Args(Object{"frmMain"}), [&] {
    form.prgProgressResultsBrasmir.Visible = false;
    form.cmdDeleteResultsBrasmir.Caption = "Delete files";
    form.lblUserInfoResultsBrasmir[forms::ResultsProgress].Caption = "Finished";
    form.lblStatusBackupResultsBrasmir.Caption = "Status: Ready";
  });
}

void SetControlsBeforeScanningLumaro(frmMain& form) {
  Guarded(Here("SetControlsBeforeScanningLumaro"), Args(Object{"frmMain"}), [&] {
    form.pictMainMenu.Enabled = false;
    for (int mark : form.ImgProcessLumaro.Indices()) form.ImgProcessLumaro[mark].Visible = false;
    form.prgScanComputerProgressLumaro.Visible = true;
    form.lblScanComputerProcentLumaro.Visible = true;
    // The user's own folders are counted in any case.
    for (const places::Place* place : places::Rows())
      if (!places::IsUsersFolders(*place)) places::ShowFound(form, *place, 0);
    form.lblTotalSizeScanComputerLumaro.Caption = "0";
    form.cmdCleanUpScanComputerLumaro.Enabled = false;
    Show(form.lblProcessInfoScanComputerLumaro, "Process: Scanning computer...");
  });
}

void SetControlsAfterScanningLumaro(frmMain& form) {
  Guarded(Here("SetControlsAfterScanningLumaro"), Args(Object{"frmMain"}), [&] {
    form.pictMainMenu.Enabled = true;
    form.prgScanComputerProgressLumaro.Visible = false;
    form.lblScanComputerProcentLumaro.Visible = false;
    form.cmdCleanUpScanComputerLumaro.Enabled = true;
    form.cmdScanComputerLumaro.Caption = "Scan computer";
    Show(form.lblProcessInfoScanComputerLumaro, "Process: Finished scanning computer");
  });
}

void SetControlsBeforeCleaningLumaro(frmMain& form) {
  Guarded(Here("SetControlsBeforeCleaningLumaro"), Args(Object{"frmMain"}), [&] {
    form.prgScanComputerProgressLumaro.Visible = true;
    form.lblScanComputerProcentLumaro.Visible = true;
    form.cmdCleanUpScanComputerLumaro.Caption = "Stop";
    Show(form.lblProcessInfoScanComputerLumaro, "Process: Cleaning computer...");
  });
}

void SetControlsAfterCleaningLumaro(frmMain& form) {
  Guarded(Here("SetControlsAfterCleaningLumaro"), Args(Object{"frmMain"}), [&] {
    form.prgScanComputerProgressLumaro.Visible = false;
    form.lblScanComputerProcentLumaro.Visible = false;
    form.cmdCleanUpScanComputerLumaro.Caption = "Clean up";
    Show(form.lblProcessInfoScanComputerLumaro, "Process: Finished cleaning computer");
  });
}

}  // namespace m_Controls
