#include "lumaro/RowMarks.h"

#include "core/Numbers.h"
#include "core/m_SharedProcedures.h"
#include "platform/Desktop.h"

namespace lumaro {

namespace {

constexpr controls::Color kHighlight = 0xC00000;  // dark blue

}  // namespace

void ResetLists() {
  gFiles.Reset();
  gFolders.Reset();
}

RowHighlight::RowHighlight(frmMain& form, int row) {
  if (row < 0) return;
  label_ = &form.lblDirLumaro[row];
  label_->ForeColor = kHighlight;
  platform::CurrentDesktop().Refresh(*label_);
}

RowHighlight::~RowHighlight() {
  if (!label_) return;
  label_->ForeColor = 0;
  platform::CurrentDesktop().Refresh(*label_);
}

void ShowStep(frmMain& form, int step) {
  form.prgScanComputerProgressLumaro.Value = step;
  form.lblScanComputerProcentLumaro.Caption = core::PercentText(step, form.prgScanComputerProgressLumaro.Max);
  platform::CurrentDesktop().Refresh(form.lblScanComputerProcentLumaro);
}

void ResetProgress(frmMain& form) {
  form.prgScanComputerProgressLumaro.Value = 0;
  form.lblScanComputerProcentLumaro.Caption = "0%";
  platform::CurrentDesktop().Refresh(form.lblScanComputerProcentLumaro);
}

bool TellIfNothingElse(frmMain& form, forms::LumaroNews news) {
  if (form.News != forms::LumaroNews::None) return false;
  form.Tell(news);
  return true;
}

}  // namespace lumaro
