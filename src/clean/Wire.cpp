#include "clean/Wire.h"

#include <string>

#include "clean/CleaningBrasmirPage.h"
#include "clean/ScanningResultsBrasmirPage.h"

namespace clean {

void WireClean(frmMain& form) {
  form.cmdDeleteResultsBrasmir.Click = [&form] { cmdDeleteResultsBrasmir_Click(form); };
  form.MenuClick = [&form](const std::string& menuName, int itemNum, const std::string& itemText) {
    mnuFile_Click(form, menuName, itemNum, itemText);
  };
  form.lblViewLockedFilesCleaningBrasmir.Click = [] { lblViewLockedFilesCleaningBrasmir_Click(); };
  form.lblApplySettingsToLumaroCleaningBrasmir.Click = [&form] {
    lblApplySettingsToLumaroCleaningBrasmir_Click(form);
  };
}

}  // namespace clean
