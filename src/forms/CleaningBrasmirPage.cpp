#include "forms/CleaningBrasmirPage.h"

#include "forms/Page.h"

namespace forms {

using namespace controls;

CleaningBrasmirPage::CleaningBrasmirPage() {
  Design(chkDeleteFilesCleaningBrasmir, "Delete files", 'D');
  Design(chkRecycleBinCleaningBrasmir, "Move files to recycle bin ", 'M');
  Design(chkEraseFilesCleaningBrasmir, "Erase files", 'E');
  spnEraseTimesCleaningBrasmir.AccessibleName = "Erase passes";
  Design(chkDeleteFilesOnWindowsStartupCleaningBrasmir, "Delete locked files on next Windows startup", 's');
  Design(chkConfirmCleaningCleaningBrasmir, "Confirm deleting file(s)", 'f');
  Link(lblViewLockedFilesCleaningBrasmir, "View files logged", 'V');
  Link(lblApplySettingsToLumaroCleaningBrasmir, "Apply settings to Lumaro", 'A');
}

Layout CleaningBrasmirPage::CleaningBrasmirLayout(NavigationControls& shared) {
  return Page(fraCleaningBrasmir,
              {"Cleaning...", HeadLine("Available cleaning methods"), &shared.lblHome[home::Cleaning]},
              {
                  chkDeleteFilesCleaningBrasmir,
                  chkRecycleBinCleaningBrasmir,
                  Row({chkEraseFilesCleaningBrasmir, spnEraseTimesCleaningBrasmir}),
                  Space(8),
                  chkDeleteFilesOnWindowsStartupCleaningBrasmir,
                  chkConfirmCleaningCleaningBrasmir,
                  Spring(),
                  Row({lblViewLockedFilesCleaningBrasmir, lblApplySettingsToLumaroCleaningBrasmir}).Gap(24),
              },
              {shared.cmdBack[back::Cleaning], shared.cmdNext[next::Cleaning], Spring()});
}

}  // namespace forms
