// The loop over gFiles that the two validations share.
#pragma once

#include <cmath>

#include "core/Numbers.h"
#include "core/m_SharedProcedures.h"
#include "forms/frmMain.h"
#include "platform/Desktop.h"
#include "scan/FoundFile.h"
#include "scan/ListAside.h"

namespace scan {

// Calls judge(file) for each entry of gFiles until StopProcess is set; after each one it moves the scan
// page's bar and percentage, and yields. `ahead`, if not null, was told of the entries.
template <class Judge>
void WalkFiles(frmMain& form, platform::SizesAhead* ahead, Judge judge) {
  ListAside aside(gFiles);
  const platform::CountedList& files = aside.List();
  platform::Desktop& desktop = platform::CurrentDesktop();
  const double maximum = form.prgScanComputerProgressBrasmir.Max;
  double shownPercent = -1;
  for (int i = 0; i < files.UpperBound(); ++i) {
    if (gAppRunning->StopProcess) break;
    judge(FoundFile(files, i, ahead));
    form.prgScanComputerProgressBrasmir.Value = i + 1;
    // Taken from i, so that the first file shows 0. Its text is made only when it is another one.
    double percent = std::round(i * 100.0 / maximum);
    if (percent != shownPercent) {
      form.lblScanComputerProcentBrasmir.Caption = core::PercentText(i, maximum);
      shownPercent = percent;
    }
    desktop.DoEvents();
  }
}

}  // namespace scan
