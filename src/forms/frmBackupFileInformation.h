// The window that lists one backup file, finds files in it and restores the ticked ones.
#pragma once

#include "controls/Form.h"

struct frmBackupFileInformation : controls::Form {
  // A row's small icon 1 is a file's picture.
  CONTROL(ListView, lvwZipFileInformation);
  CONTROL(TextBox, txtSearchFileName);
  CONTROL(Label, lblSearch);
  CONTROL(Label, lblRestore);
  CONTROL(Label, lblClose);
  CONTROL(Label, lblZipfileName);
  CONTROL(Label, lblSearchFound);

  frmBackupFileInformation();
};
