#include "forms/UserDefinedFoldersLumaroPage.h"

#include "forms/ImageLists.h"
#include "forms/Page.h"

namespace forms {

using namespace controls;

UserDefinedFoldersLumaroPage::UserDefinedFoldersLumaroPage() {
  lvwUserDefinedFoldersLumaro.Columns = {{"Folders to clear", 300, true}, {"Why clear this folder", 200}};
  lvwUserDefinedFoldersLumaro.CheckBoxes = true;
  lvwUserDefinedFoldersLumaro.SmallIcons = ControlIcons();
  lvwUserDefinedFoldersLumaro.EmptyText = "No folders yet";
  lvwUserDefinedFoldersLumaro.DeletePresses = &cmdRemoveUserDefinedFoldersLumaro;
  lvwUserDefinedFoldersLumaro.AccessibleName = "Folders to clear";

  lblTotalFilesUserDefinedFoldersLumaro[AllTickedFolders].Caption = "Total files: 0";
  lblTotalFoldersUserDefinedFoldersLumaro[AllTickedFolders].Caption = "Total folders: 0";
  lblTotalSpaceUserDefinedFoldersLumaro[AllTickedFolders].Caption = "Total space: 0 KB";
  lblTotalFilesUserDefinedFoldersLumaro[SelectedFolder].Caption = "Files: 0";
  lblTotalFoldersUserDefinedFoldersLumaro[SelectedFolder].Caption = "Folders: 0";
  lblTotalSpaceUserDefinedFoldersLumaro[SelectedFolder].Caption = "Space: 0 KB";

  Design(cmdSelectAllUserDefinedFoldersLumaro, "Select all", 'S');
  Design(cmdUnselectAllUserDefinedFoldersLumaro, "Unselect all", 'n');
  Design(cmdAddUserDefinedFoldersLumaro, "Add", 'A', "Add new folder to list");
  Design(cmdModifyUserDefinedFoldersLumaro, "Modify", 'M', "Modify selected folder");
  Design(cmdRemoveUserDefinedFoldersLumaro, "Remove", 'R', "Remove selected folder from list");

  txtListFoldersUserDefinedFoldersLumaro.AccessibleName = "List these folders";
  txtListFoldersUserDefinedFoldersLumaro.EnterPresses = &cmdListFoldersUserDefinedFoldersLumaro;
  Design(cmdListFoldersUserDefinedFoldersLumaro, "List folders", 'f');
  Design(chkStartListInFolderUserDefinedFoldersLumaro, "Start list in specific folder", 't');
}

Layout UserDefinedFoldersLumaroPage::UserDefinedFoldersLumaroLayout(NavigationControls& shared) {
  auto total = [](Label& label) { return Item(label).Expand(); };
  return Page(
      fraUserDefinedFoldersLumaro,
      {"User defined folders...", HeadLine("Content of Folders in list will be cleared when running Lumaro"),
       &shared.lblHome[home::UserDefinedFolders]},
      {
          Item(lvwUserDefinedFoldersLumaro).Stretch().Min(0, 120),
          Actions({cmdSelectAllUserDefinedFoldersLumaro, cmdUnselectAllUserDefinedFoldersLumaro},
                  {cmdAddUserDefinedFoldersLumaro, cmdModifyUserDefinedFoldersLumaro,
                   cmdRemoveUserDefinedFoldersLumaro}),
          Grid(3, {total(lblTotalFilesUserDefinedFoldersLumaro[SelectedFolder]),
                   total(lblTotalFoldersUserDefinedFoldersLumaro[SelectedFolder]),
                   total(lblTotalSpaceUserDefinedFoldersLumaro[SelectedFolder]),
                   total(lblTotalFilesUserDefinedFoldersLumaro[AllTickedFolders]),
                   total(lblTotalFoldersUserDefinedFoldersLumaro[AllTickedFolders]),
                   total(lblTotalSpaceUserDefinedFoldersLumaro[AllTickedFolders])})
              .Growing({0, 1, 2})
              .Gap(4)
              .Expand(),
          Row({Text("List these folders"), Wide(txtListFoldersUserDefinedFoldersLumaro),
               cmdListFoldersUserDefinedFoldersLumaro})
              .Expand(),
          chkStartListInFolderUserDefinedFoldersLumaro,
          Text("Settings under Lumaro - Options - Advanced will apply", LabelStyle::Quiet),
      },
      {shared.cmdBack[back::UserDefinedFolders], Spring()});
}

}  // namespace forms
