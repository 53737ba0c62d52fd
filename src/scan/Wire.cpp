#include "scan/Wire.h"

#include "scan/ExcludeBrasmirPage.h"
#include "scan/FileFiltersBrasmirPage.h"
#include "scan/ScanComputerBrasmirPage.h"
#include "scan/ScanningResultsBrasmirPage.h"

namespace scan {

void WireScan(frmMain& form) {
  auto on = [&form](controls::Event<>& event, void (*handler)(frmMain&)) {
    event = [&form, handler] { handler(form); };
  };

  on(form.cmdScanComputerBrasmir.Click, cmdScanComputerBrasmir_Click);
  on(form.cmdOptionsBrasmir.Click, cmdOptionsBrasmir_Click);
  on(form.lblViewSettingsScanComputerBrasmir.Click, lblViewSettingsScanComputerBrasmir_Click);

  on(form.cmdViewResultsScanComputerBrasmir.Click, cmdViewResultsScanComputerBrasmir_Click);
  for (int index : form.lblViewResultsScanComputer.Indices())
    form.lblViewResultsScanComputer[index].Click = [&form, index] {
      lblViewResultsScanComputer_Click(form, index);
    };
  on(form.cboSelectResultsBrasmir.Click, cboSelectResultsBrasmir_Click);
  on(form.cmdSelectAllResultsBrasmir.Click, cmdSelectAllResultsBrasmir_Click);
  on(form.cmdUnselectAllResultsBrasmir.Click, cmdUnSelectAllResultsBrasmir_Click);
  on(form.lblSortListResultsBrasmir.Click, lblSortListResultsBrasmir_Click);
  form.lvwFilesResultsBrasmir.MouseDown = [&form](controls::MouseButton button) {
    lvwFilesResultsBrasmir_MouseDown(form, button);
  };

  on(form.cmdAddFileFiltersBrasmir.Click, cmdAddFileFiltersBrasmir_Click);
  on(form.cmdModifyFileFiltersBrasmir.Click, cmdModifyFileFiltersBrasmir_Click);
  on(form.cmdRemoveFileFiltersBrasmir.Click, cmdRemoveFileFiltersBrasmir_Click);
  on(form.cmdSelectAllFileFiltersBrasmir.Click, cmdSelectAllFileFiltersBrasmir_Click);
  on(form.cmdUnSelectAllFileFiltersBrasmir.Click, cmdUnSelectAllFileFiltersBrasmir_Click);
  on(form.lblTestFilterFileFiltersBrasmir.Click, lblTestFilterFileFiltersBrasmir_Click);
  on(form.lvwFileFiltersBrasmir.Click, lvwFileFiltersBrasmir_Click);
  form.lblExcludeZeroByteFilesFileFiltersBrasmir.Click = [] {
    lblExcludeZeroByteFilesFileFiltersBrasmir_Click();
  };

  on(form.cmdAddDirectorieExcludeBrasmir.Click, cmdAddDirectorieExcludeBrasmir_Click);
  on(form.cmdRemoveDirectorieExcludeBrasmir.Click, cmdRemoveDirectorieExcludeBrasmir_Click);
  on(form.cmdModifyDirectorieExcludeBrasmir.Click, cmdModifyDirectorieExcludeBrasmir_Click);
  on(form.cmdAddFileExcludeBrasmir.Click, cmdAddFileExcludeBrasmir_Click);
  on(form.cmdRemoveFileExcludeBrasmir.Click, cmdRemoveFileExcludeBrasmir_Click);
  on(form.cmdModifyFileExcludeBrasmir.Click, cmdModifyFileExcludeBrasmir_Click);
  on(form.cmdExpandDirectoryExcludeBrasmir.Click, cmdExpandDirectoryExcludeBrasmir_Click);
  on(form.cmdExpandFileExcludeBrasmir.Click, cmdExpandFileExcludeBrasmir_Click);
}

}  // namespace scan
