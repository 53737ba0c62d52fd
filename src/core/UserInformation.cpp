#include "core/UserInformation.h"

#include "core/ErrorReport.h"
#include "core/Keys.h"
#include "core/OpenForms.h"
#include "core/m_SharedProcedures.h"
#include "platform/LibRegistry.h"

namespace core {

namespace {

FormSlot<frmUserInformation>& Slot() {
  static FormSlot<frmUserInformation> slot(Wire);
  return slot;
}

void Form_Load(frmUserInformation& form) {
  Guarded(Procedure{"frmUserInformation", "Form_Load"}, Args(), [&] {
    form.skn.Picture = gRegistry->InstallDirectory + "Skin\\Zinc-blue2.bmp";
    form.skn.Enabled = true;
  });
}

void Form_Unload(frmUserInformation& form) {
  Guarded(Procedure{"frmUserInformation", "Form_Unload"}, Args(BuiltIn{}), [&] {
    const std::string& key = gAppRunning->UserInformation;
    if (key != kBrokenShortcutsKey && key != kStartScheduleKey) return;
    platform::LibRegistry().WriteValue(gRegistry->HKEY_CURRENT_USER, keys::kUserInformation, key,
                                       NumberText(form.chkDoNotShowThisMessage.Value));
  });
}

void cmdClose_Click(frmUserInformation& form) {
  Guarded(Procedure{"frmUserInformation", "cmdClose_Click"}, Args(), [&] { CloseForm(form); });
}

}  // namespace

frmUserInformation& ShowUserInformation(const std::string& key) {
  gAppRunning->UserInformation = key;
  frmUserInformation& form = Slot().Get();
  form.chkDoNotShowThisMessage.Value = 0;
  ShowForm(form);
  return form;
}

frmUserInformation* LoadedUserInformation() {
  return Slot().Loaded();
}

int UserInformationFlag(const std::string& key) {
  std::string stored =
      platform::LibRegistry().ReadValue(gRegistry->HKEY_CURRENT_USER, keys::kUserInformation, key);
  return ToNumber(stored) == 0 ? 0 : 1;
}

void Wire(frmUserInformation& form) {
  form.Load = [&form] { Form_Load(form); };
  form.Unload = [&form](int&) { Form_Unload(form); };
  form.cmdClose.Click = [&form] { cmdClose_Click(form); };
}

}  // namespace core
