#include "forms/OptionsLumaroPage.h"

#include "forms/Page.h"

namespace forms {

using namespace controls;

OptionsLumaroPage::OptionsLumaroPage() {
  Design(chkTemporaryInternetFilesOptionsLumaro, "Temporary Internet Files", 'T');
  Design(chkHistoryOptionsLumaro, "History", 'i');
  Design(chkCookiesOptionsLumaro, "Cookies", 's');
  Design(chkDownloadedProgramFilesOptionsLumaro, "Downloaded Program Files", 'D');
  Design(chkOfflineFilesOptionsLumaro, "Offline Files", 'n');
  Design(chkClearIndexDatOptionsLumaro, "Clear Index dat files (Faster, Truncated)", 'x');
  Design(chkEraseIndexDatOnRebootOptionsLumaro, "Erase Index dat files (Slower, Overwritten)", 'E');
  chkEraseIndexDatOnRebootOptionsLumaro.Enabled = false;
  Design(chkFireFoxCacheOptionsLumaro, "Firefox Browser Cache/Url's, Cookies, History", 'F');
  Design(chkClearTempFolderOptionsLumaro, "Temp Folder (Directory where applications store temporary files)");
  Design(chkClearRecentFolderOptionsLumaro,
         "Recent Folder (Directory contains shortcuts to all recent opened documents and files)", 'R');
  Design(chkEmptyRecycleBinOptionsLumaro, "Empty the Recycle Bin", 'y');
  Design(chkEmptyXPPrefetchDirOptionsLumaro, "Empty Windows XP Prefetch Directory (Use every two weeks)",
         'v');
  Design(chkLoadOnWindowsStartupOptionsLumaro, "Load Lumaro on Windows startup (System Tray)");
  Design(chkAddToSystemTrayOptionsLumaro, "Add Lumaro to System Tray on Close", 'A');
  Link(lblAdvancedLumaro, "Advanced settings", 'g');
  Link(lblManageCookiesOptionsLumaro, "Manage Cookies", 'M');
}

Layout OptionsLumaroPage::OptionsLumaroLayout(NavigationControls& shared) {
  return Page(fraOptionsLumaro,
              {"Options...", HeadLine("Available Internet settings to set when using Lumaro"),
               &shared.lblHome[home::OptionsLumaro]},
              {
                  Grid(2, {chkTemporaryInternetFilesOptionsLumaro, chkFireFoxCacheOptionsLumaro,
                           chkHistoryOptionsLumaro, chkClearIndexDatOptionsLumaro,  //
                           chkCookiesOptionsLumaro, chkEraseIndexDatOnRebootOptionsLumaro,
                           chkDownloadedProgramFilesOptionsLumaro, chkOfflineFilesOptionsLumaro})
                      .Gap(4),
                  HeadLine("Available directories to set when using Lumaro"),
                  Rule(),
                  Column({chkClearTempFolderOptionsLumaro, chkClearRecentFolderOptionsLumaro,
                          chkEmptyRecycleBinOptionsLumaro, chkEmptyXPPrefetchDirOptionsLumaro})
                      .Gap(4),
                  Rule(),
                  Column({chkLoadOnWindowsStartupOptionsLumaro, chkAddToSystemTrayOptionsLumaro}).Gap(4),
                  Spring(),
              },
              {shared.cmdBack[back::OptionsLumaro], Spring(), lblManageCookiesOptionsLumaro, Space(8),
               lblAdvancedLumaro});
}

}  // namespace forms
