#include "forms/ScanningResultsBrasmirPage.h"

#include "forms/ImageLists.h"
#include "forms/Page.h"

namespace forms {

using namespace controls;

ScanningResultsBrasmirPage::ScanningResultsBrasmirPage() {
  cboSelectResultsBrasmir.AccessibleName = "Results to show";
  lvwFilesResultsBrasmir.Columns = {{"File", 180}, {"Path", 240, true}, {"Size", 96, false, Align::Right}};
  lvwFilesResultsBrasmir.CheckBoxes = true;
  lvwFilesResultsBrasmir.SmallIcons = ControlIcons();
  lvwFilesResultsBrasmir.EmptyText = "No files";
  lvwFilesResultsBrasmir.AccessibleName = "Files found";

  Design(cmdSelectAllResultsBrasmir, "Select all", 'S');
  Design(cmdUnselectAllResultsBrasmir, "Unselect all", 'n');
  txtSortResultsBrasmir.ToolTip = "Empty = All files";
  txtSortResultsBrasmir.AccessibleName = "Sorting (File-ext or Dir)";
  txtSortResultsBrasmir.EnterPresses = &lblSortListResultsBrasmir;
  Link(lblSortListResultsBrasmir, "Sort list", 't', "Sort list on File Extension or Directory");

  Design(cmdDeleteResultsBrasmir, "Delete files", 'D', "Delete all selected files");
  cmdDeleteResultsBrasmir.Primary = true;
  cmdDeleteResultsBrasmir.Picture = "ui-clean";
  Hide(prgProgressResultsBrasmir);
  prgProgressResultsBrasmir.AccessibleName = "Cleaning progress";
  Status(lblUserInfoResultsBrasmir[ResultsProgress]);
  Status(lblUserInfoResultsBrasmir[LockedFilesLine]);
  Status(lblStatusBackupResultsBrasmir, "Status: Ready");
  lblCleaningMethodResultsBrasmir.Caption = "Cleaning method: Move to recycle bin";
}

const char* TextOf(LockedFiles files) {
  switch (files) {
    case LockedFiles::None:
      break;
    case LockedFiles::HandedOver:
      return "Locked files will be deleted on next Windows boot.";
    case LockedFiles::NoBin:
      return "Files stay, because there is no recycle bin for them.";
    case LockedFiles::Stay:
      return "Files are locked and can't be deleted.";
  }
  return "";
}

void ScanningResultsBrasmirPage::TellLocked(LockedFiles files) {
  Locked = files;
  lblUserInfoResultsBrasmir[LockedFilesLine].Caption = TextOf(files);
}

std::optional<ResultCategory> ScanningResultsBrasmirPage::ShownCategory() const {
  int item = cboSelectResultsBrasmir.ListIndex();
  if (item < 0) return std::nullopt;
  return OfferedCategories.at(static_cast<std::size_t>(item));
}

Layout ScanningResultsBrasmirPage::ScanningResultsBrasmirLayout(NavigationControls& shared) {
  auto status = [](Label& label) { return Item(label).Expand(); };
  return Page(
      fraScanningResultsBrasmir, {"Scanning results...", HeadLine("View results")},
      {
          Row({Item(cboSelectResultsBrasmir).Min(144), Spring(), Text("Sorting (File-ext or Dir)"),
               Item(txtSortResultsBrasmir).Min(96), lblSortListResultsBrasmir})
              .Expand(),
          Item(lvwFilesResultsBrasmir).Stretch().Min(0, 120),
          Actions({cmdSelectAllResultsBrasmir, cmdUnselectAllResultsBrasmir}),
          Grid(2, {status(lblCleaningMethodResultsBrasmir), status(lblBackupSelectedResultsBrasmir),
                   status(lblUserInfoResultsBrasmir[ResultsProgress]), status(lblStatusBackupResultsBrasmir)})
              .Growing({0, 1})
              .Expand(),
          status(lblUserInfoResultsBrasmir[LockedFilesLine]),
          Item(prgProgressResultsBrasmir).Expand().Reserve(),
      },
      {shared.cmdBack[back::Results], Spring(), Item(cmdDeleteResultsBrasmir).Min(128)});
}

}  // namespace forms
