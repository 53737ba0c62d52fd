#include "forms/frmBackupFileInformation.h"

#include "forms/Page.h"

using namespace controls;

frmBackupFileInformation::frmBackupFileInformation() : Form("frmBackupFileInformation") {
  Caption = "List backup file.";
  DefaultWidth = 960;
  DefaultHeight = 560;
  MinWidth = 560;
  MinHeight = 360;

  lvwZipFileInformation.Columns = {{"File name", 240, true},
                                   {"Size", 88, false, Align::Right},
                                   {"CompressedSize", 112, false, Align::Right},
                                   {"CompressionRatio", 120, false, Align::Right},
                                   {"LastModified", 128},
                                   {"LastAccessed", 128},
                                   {"Created", 128}};
  lvwZipFileInformation.CheckBoxes = true;
  lvwZipFileInformation.SmallIcons = {"file"};
  lvwZipFileInformation.EmptyText = "No files";
  lvwZipFileInformation.AccessibleName = "Files in the backup";

  txtSearchFileName.AccessibleName = "Filename...";
  txtSearchFileName.EnterPresses = &lblSearch;
  forms::Link(lblSearch, "Search Backup", 'S', "Search for typed in file in backup list");
  forms::Link(lblRestore, "Restore Selected", 'R');
  forms::Link(lblClose, "Close", 'C');
  forms::Design(lblZipfileName, "Name Backup File:");
  forms::Status(lblSearchFound, "Found:");

  SetLayout(forms::Window(
      Text("Search Backup File For Specific Files To Restore", LabelStyle::TopStrip),
      {Row({Text("Filename..."), forms::Wide(txtSearchFileName), lblSearch, Item(lblSearchFound).Min(120)})
           .Expand(),
       forms::HeadLine("Backup File Content"), Item(lblZipfileName).Expand(),
       Item(lvwZipFileInformation).Stretch().Min(0, 120)},
      {lblRestore, Spring(), lblClose}));
}
