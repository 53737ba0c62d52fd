#include "forms/AdvancedLumaroPage.h"

#include "forms/Page.h"

namespace forms {

using namespace controls;

AdvancedLumaroPage::AdvancedLumaroPage() {
  Design(chkConfirmCleaningAdvancedLumaro, "Confirm deleting file(s)", 'f');
  Design(chkDeleteFilesAdvancedLumaro, "Delete files", 'D');
  Design(chkRecycleBinAdvancedLumaro, "Move files to recycle bin ", 'M');
  Design(chkEraseFilesAdvancedLumaro, "Erase files", 'E');
  spnEraseTimesAdvancedLumaro.AccessibleName = "Erase passes";
  Design(chkDeleteFilesOnWindowsStartupAdvancedLumaro, "Delete locked files on next Windows startup", 'n');
  Design(chkSkipReadOnlyFilesAdvancedLumaro, "Skip read only files", 'S');
  Design(chkCleanOnWindowsStartupAdvancedLumaro, "Clean on Windows startup", 't');
  Design(chkCleanPageFileAdvancedLumaro, "Clean Windows Page File on Shutdown (Improved security)", 'g');
  Design(chkActivateKelvishLog, "Activate Kelvish log (Log created and copied to Desktop)", 'A');
  Link(lblViewLockedFilesAdvancedLumaro, "View files logged", 'V');
  Link(lblApplySettingsToBrasmirAdvancedLumaro, "Apply settings to Brasmir", 'y');
}

Layout AdvancedLumaroPage::AdvancedLumaroLayout(NavigationControls& shared) {
  return Page(fraAdvancedLumaro,
              {"Advanced...", HeadLine("Settings available to set on the directories"),
               &shared.lblHome[home::Advanced]},
              {
                  Group("Available cleaning methods",
                        {
                            chkDeleteFilesAdvancedLumaro,
                            chkRecycleBinAdvancedLumaro,
                            Row({chkEraseFilesAdvancedLumaro, spnEraseTimesAdvancedLumaro}),
                            chkDeleteFilesOnWindowsStartupAdvancedLumaro,
                            chkConfirmCleaningAdvancedLumaro,
                        })
                      .Gap(4),
                  Column({chkSkipReadOnlyFilesAdvancedLumaro, chkCleanOnWindowsStartupAdvancedLumaro,
                          chkCleanPageFileAdvancedLumaro, chkActivateKelvishLog})
                      .Gap(4),

                  Spring(),
                  Row({lblViewLockedFilesAdvancedLumaro, lblApplySettingsToBrasmirAdvancedLumaro}).Gap(24),
              },
              {shared.cmdBack[back::Advanced], Spring()});
}

}  // namespace forms
