// The window of the file filters whose zero byte files are left alone.
#pragma once

#include "controls/Form.h"

struct frmExcludedZeroByteFilesFileFilters : controls::Form {
  CONTROL(ListView, lvwFileFilters);
  CONTROL(CheckBox, chkApplyListInGlobalScanning);
  CONTROL(Label, lblClose);

  frmExcludedZeroByteFilesFileFilters();
};
