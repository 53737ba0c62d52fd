#include "forms/PlugInsPage.h"

#include "forms/ImageLists.h"
#include "forms/Page.h"

namespace forms {

using namespace controls;

PlugInsPage::PlugInsPage() {
  lvwPlugInLists.Columns = {
      {"Plug-In Name", 160}, {"Plug-In Description", 220, true}, {"Plug-In Category", 136}};
  lvwPlugInLists.CheckBoxes = true;
  lvwPlugInLists.SmallIcons = ControlIcons();
  lvwPlugInLists.EmptyText = "No plug-ins yet";
  lvwPlugInLists.DeletePresses = &cmdRemovePlugIn;
  lvwPlugInLists.AccessibleName = "Plug-ins";

  Design(cmdSelectAllPlugIns, "Select all", 'S');
  Design(cmdUnSelectAllPlugIns, "Unselect all", 'n');
  Design(cmdRemovePlugIn, "Remove PlugIn", 'm', "Remove selected plug-in file");
  Design(cmdRunPlugIns, "Run PlugIns", 'R', "Run all selected plug-in files");
  cmdRunPlugIns.Primary = true;
  Link(lblOpenPlugInMaker, "Open Plug-In Maker", 'O', "Design your own Plug-In Files");

  for (Label* label :
       {&lblFilesDeletedPlugIn, &lblFoldersDeletedPlugIn, &lblKeysDeletedPlugIn, &lblValuesDeletedPlugIn})
    Value(*label, "0");
  for (int index : imgProcessPlugIns.Indices()) {
    imgProcessPlugIns[index].Image = "mark-plugin";
    Hide(imgProcessPlugIns[index]);
  }
  Hide(prgProgressPlugIns);
  prgProgressPlugIns.AccessibleName = "Plug-in progress";
  Status(lblStatusPlugIns, "Select Plug-Ins to Execute");
  Status(lblUserInfoPlugIn);
}

Layout PlugInsPage::PlugInsLayout() {
  auto mark = [this](int index) { return Item(imgProcessPlugIns[index]).Reserve(); };
  auto value = [](Label& label) { return Item(label).Min(56); };
  return Page(
      fraPlugIns,
      {"Plug-Ins (Your own disk cleaning rules)", HeadLine("Cleaning status of selected Plug-In Files")},
      {
          Item(lvwPlugInLists).Stretch().Min(0, 120),
          Actions({cmdSelectAllPlugIns, cmdUnSelectAllPlugIns}, {cmdRemovePlugIn}),
          Grid(6, {mark(FileRulesMark), Text("Files deleted:"), value(lblFilesDeletedPlugIn),
                   mark(KeyRulesMark), Text("Registry keys deleted:"), value(lblKeysDeletedPlugIn),
                   mark(FolderRulesMark), Text("Folders deleted:"), value(lblFoldersDeletedPlugIn),
                   mark(ValueRulesMark), Text("Registry values deleted:"), value(lblValuesDeletedPlugIn)}),
          Item(lblUserInfoPlugIn).Expand(),
          Item(lblStatusPlugIns).Expand(),
          Item(prgProgressPlugIns).Expand().Reserve(),
      },
      {lblOpenPlugInMaker, Spring(), cmdRunPlugIns});
}

}  // namespace forms
