#include "forms/IncludeBrasmirPage.h"

#include "forms/Page.h"

namespace forms {

using namespace controls;

IncludeBrasmirPage::IncludeBrasmirPage() {
  Design(chkZeroByteFilesIncludeBrasmir, "Zero byte files", 'Z');
  Design(chkBrokenShortcutsIncludeBrasmir, "Broken shortcuts (Start menu/Desktop)", 'r');
  Design(chkScanAllUsersProfileIncludeBrasmir, "Broken shortcuts (Scan this user's entire profile)", 'S');
  Design(chkScanEntireDriveBrokenShortcutsIncludeBrasmir,
         "Broken shortcuts (Scan the entire drive and all user profiles)", 'd');
  Design(chkSkipShortcutsPointingToRemovableDrives, "Skip shortcuts pointing to removable drives", 'm');
  Link(lblUserInformationBrokenShortcuts, "Important broken shortcut info", 'I',
       "Read broken shortcut information");
  lblUserInformationBrokenShortcuts.Picture = "ui-info";
}

Layout IncludeBrasmirPage::IncludeBrasmirLayout(NavigationControls& shared) {
  return Page(fraIncludeBrasmir,
              {"Include...", HeadLine("Available options to include"), &shared.lblHome[home::Include]},
              {
                  chkZeroByteFilesIncludeBrasmir,
                  Space(8),
                  chkBrokenShortcutsIncludeBrasmir,
                  chkScanAllUsersProfileIncludeBrasmir,
                  chkScanEntireDriveBrokenShortcutsIncludeBrasmir,
                  chkSkipShortcutsPointingToRemovableDrives,
                  lblUserInformationBrokenShortcuts,
                  Spring(),
              },
              {shared.cmdBack[back::Include], Spring()});
}

}  // namespace forms
