#include "forms/ExcludeBrasmirPage.h"

#include "forms/ImageLists.h"
#include "forms/Page.h"

namespace forms {

using namespace controls;

ExcludeBrasmirPage::ExcludeBrasmirPage() {
  lblInfo[ExcludeHeading].Caption = "Excluded directories";
  lblInfo[ExcludeHeading].Style = LabelStyle::SubHeading;

  lvwExcludedFoldersBrasmir.Columns = {{"Excluded directories", 280, true},
                                       {"Why exclude this directory", 220}};
  lvwExcludedFoldersBrasmir.SmallIcons = ControlIcons();
  lvwExcludedFoldersBrasmir.EmptyText = "No excluded directories yet";
  lvwExcludedFoldersBrasmir.DeletePresses = &cmdRemoveDirectorieExcludeBrasmir;
  lvwExcludedFoldersBrasmir.AccessibleName = "Excluded directories";
  Design(cmdAddDirectorieExcludeBrasmir, "Add", 'A');
  Design(cmdModifyDirectorieExcludeBrasmir, "Modify", 'M');
  Design(cmdRemoveDirectorieExcludeBrasmir, "Remove", 'R');
  Design(cmdExpandDirectoryExcludeBrasmir, "Dir.", 'i');

  lvwExcludedFilesBrasmir.Columns = {{"File", 280, true}, {"Why exclude this file", 220}};
  lvwExcludedFilesBrasmir.SmallIcons = ControlIcons();
  lvwExcludedFilesBrasmir.EmptyText = "No excluded files yet";
  lvwExcludedFilesBrasmir.DeletePresses = &cmdRemoveFileExcludeBrasmir;
  lvwExcludedFilesBrasmir.AccessibleName = "Excluded files";
  Design(cmdAddFileExcludeBrasmir, "Add", 'd');
  Design(cmdModifyFileExcludeBrasmir, "Modify", 'y');
  Design(cmdRemoveFileExcludeBrasmir, "Remove", 'v');
  Design(cmdExpandFileExcludeBrasmir, "Files", 'F');

  Design(chkEnableManualTypingExcludeBrasmir, "Enable manual entries in exclusion lists", 'E');
  Design(chkSkipReadOnlyFilesExcludeBrasmir, "Skip read-only files", 'S');
}

Layout ExcludeBrasmirPage::ExcludeBrasmirLayout(NavigationControls& shared) {
  return Page(
      fraExcludeBrasmir, {"Exclude...", Item(lblInfo[ExcludeHeading]), &shared.lblHome[home::Exclude]},
      {
          Item(lvwExcludedFoldersBrasmir).Stretch().Min(0, 88),
          Actions({cmdAddDirectorieExcludeBrasmir, cmdModifyDirectorieExcludeBrasmir,
                   cmdRemoveDirectorieExcludeBrasmir},
                  {cmdExpandDirectoryExcludeBrasmir}),
          Item(lvwExcludedFilesBrasmir).Stretch().Min(0, 88),
          Actions({cmdAddFileExcludeBrasmir, cmdModifyFileExcludeBrasmir, cmdRemoveFileExcludeBrasmir},
                  {cmdExpandFileExcludeBrasmir}),
          Row({chkEnableManualTypingExcludeBrasmir, chkSkipReadOnlyFilesExcludeBrasmir}).Gap(24),
      },
      {shared.cmdBack[back::Exclude], shared.cmdNext[next::Exclude], Spring()});
}

}  // namespace forms
