#include "forms/frmExcludedZeroByteFilesFileFilters.h"

#include "forms/Page.h"

using namespace controls;

frmExcludedZeroByteFilesFileFilters::frmExcludedZeroByteFilesFileFilters()
    : Form("frmExcludedZeroByteFilesFileFilters") {
  Caption = "Excluded settings based on file filters.";
  DefaultWidth = 480;
  DefaultHeight = 420;
  MinWidth = 400;
  MinHeight = 280;

  lvwFileFilters.Columns = {{"File filter", 320, true}};
  lvwFileFilters.CheckBoxes = true;
  lvwFileFilters.SmallIcons = {"control-02-file-filter"};
  lvwFileFilters.EmptyText = "No file filters yet";
  lvwFileFilters.AccessibleName = "File filters";
  forms::Design(chkApplyListInGlobalScanning, "Apply this list in global scanning for zero byte files", 'A');
  forms::Link(lblClose, "Close", 'C');

  SetLayout(forms::Window(
      Text("Zero Byte Files will be excluded from selected File Filters", LabelStyle::TopStrip)
          .Wrap()
          .Stretch(),
      {Item(lvwFileFilters).Stretch().Min(0, 120), chkApplyListInGlobalScanning}, {Spring(), lblClose}));
}
