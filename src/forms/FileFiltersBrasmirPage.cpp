#include "forms/FileFiltersBrasmirPage.h"

#include "forms/ImageLists.h"
#include "forms/Page.h"

namespace forms {

using namespace controls;

FileFiltersBrasmirPage::FileFiltersBrasmirPage() {
  lvwFileFiltersBrasmir.Columns = {{"File filter", 200}, {"Description", 240, true}};
  lvwFileFiltersBrasmir.CheckBoxes = true;
  lvwFileFiltersBrasmir.SmallIcons = ControlIcons();
  lvwFileFiltersBrasmir.EmptyText = "No file filters yet";
  lvwFileFiltersBrasmir.DeletePresses = &cmdRemoveFileFiltersBrasmir;
  lvwFileFiltersBrasmir.AccessibleName = "File filters";

  Design(cmdSelectAllFileFiltersBrasmir, "Select all", 'S');
  Design(cmdUnSelectAllFileFiltersBrasmir, "Unselect all", 'n');
  Design(cmdAddFileFiltersBrasmir, "Add", 'A', "Add a new file filter");
  Design(cmdModifyFileFiltersBrasmir, "Modify", 'M', "Modify selected file filter");
  Design(cmdRemoveFileFiltersBrasmir, "Remove", 'R', "Remove selected file filter");

  txtFilterFileFiltersBrasmir.AccessibleName = "File filter";
  txtFilterFileFiltersBrasmir.EnterPresses = &cmdAddFileFiltersBrasmir;
  txtDescriptionFileFiltersBrasmir.AccessibleName = "Description";
  txtDescriptionFileFiltersBrasmir.EnterPresses = &cmdAddFileFiltersBrasmir;
  txtFileNameFileFiltersBrasmir.AccessibleName = "File name to test";
  txtFileNameFileFiltersBrasmir.EnterPresses = &lblTestFilterFileFiltersBrasmir;
  Link(lblTestFilterFileFiltersBrasmir, "Test filter", 'T');
  Status(lblUserInfoFileFiltersBrasmir);

  Design(chkExcludeZeroByteFilesFilterFileFiltersBrasmir, "Exclude Zero Byte Files", 'Z');
  Link(lblExcludeZeroByteFilesFileFiltersBrasmir, "Exclude list", 'i',
       "Excluded zero byte files based on selected file filters");
  lblExcludeZeroByteFilesFileFiltersBrasmir.Enabled = false;
}

void FileFiltersBrasmirPage::SetEditsFileFilter(bool edits) {
  EditsFileFilter = edits;
  cmdModifyFileFiltersBrasmir.Caption = edits ? "Save" : "Modify";
}

Layout FileFiltersBrasmirPage::FileFiltersBrasmirLayout(NavigationControls& shared) {
  return Page(
      fraFileFiltersBrasmir,
      {"File filters...", HeadLine("File filters used when scanning computer"),
       &shared.lblHome[home::FileFilters]},
      {
          Item(lvwFileFiltersBrasmir).Stretch().Min(0, 120),
          Actions({cmdSelectAllFileFiltersBrasmir, cmdUnSelectAllFileFiltersBrasmir},
                  {cmdAddFileFiltersBrasmir, cmdModifyFileFiltersBrasmir, cmdRemoveFileFiltersBrasmir}),
          Grid(4, {Text("File filter:"), Item(txtFilterFileFiltersBrasmir).Expand(), Text("Description:"),
                   Item(txtDescriptionFileFiltersBrasmir).Expand(), Text("File name:"),
                   Item(txtFileNameFileFiltersBrasmir).Expand(), lblTestFilterFileFiltersBrasmir})
              .Growing({1, 3})
              .Expand(),
          Item(lblUserInfoFileFiltersBrasmir).Expand(),
          Row({chkExcludeZeroByteFilesFilterFileFiltersBrasmir, lblExcludeZeroByteFilesFileFiltersBrasmir}),
      },
      {shared.cmdBack[back::FileFilters], shared.cmdNext[next::FileFilters], Spring()});
}

}  // namespace forms
