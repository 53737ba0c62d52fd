// The page "Scanning results..." of the module Brasmir.
#pragma once

#include <optional>
#include <vector>

#include "forms/NavigationControls.h"

namespace forms {

// What a scan finds.
enum class ResultCategory { GarbageFiles, ZeroByteFiles, InvalidShortcuts };

// The lines that tell what goes on, by their indexes.
enum ResultsLine { ResultsProgress, LockedFilesLine };

// What has become of files that couldn't be removed.
enum class LockedFiles { None, HandedOver, Stay, NoBin };
const char* TextOf(LockedFiles files);

// Its handlers: scan/ScanningResultsBrasmirPage.h shows and narrows, clean/ScanningResultsBrasmirPage.h
// removes.
struct ScanningResultsBrasmirPage {
  CONTROL(Frame, fraScanningResultsBrasmir);

  CONTROL(ComboBox, cboSelectResultsBrasmir);
  CONTROL(ListView, lvwFilesResultsBrasmir);
  CONTROL(Button, cmdSelectAllResultsBrasmir);
  CONTROL(Button, cmdUnselectAllResultsBrasmir);
  CONTROL(TextBox, txtSortResultsBrasmir);
  CONTROL(Label, lblSortListResultsBrasmir);
  // Says "Delete files", and "Stop" while files are removed.
  CONTROL(Button, cmdDeleteResultsBrasmir);
  CONTROL(ProgressBar, prgProgressResultsBrasmir);
  // Progress and totals; what happened to locked files.
  CONTROL_ARRAY(Label, lblUserInfoResultsBrasmir, ResultsProgress, LockedFilesLine);
  CONTROL(Label, lblStatusBackupResultsBrasmir);
  CONTROL(Label, lblCleaningMethodResultsBrasmir);
  CONTROL(Label, lblBackupSelectedResultsBrasmir);

  ScanningResultsBrasmirPage();

  LockedFiles Locked = LockedFiles::None;
  // Notes it, and says so in its line.
  void TellLocked(LockedFiles files);

  // The categories that cboSelectResultsBrasmir offers, in the order of its items.
  std::vector<ResultCategory> OfferedCategories;
  // The one that is picked there; none while the box shows nothing.
  std::optional<ResultCategory> ShownCategory() const;

  controls::Layout ScanningResultsBrasmirLayout(NavigationControls& shared);
};

}  // namespace forms
