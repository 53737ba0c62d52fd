#include "LumaroPlay.h"

#include "core/Run.h"

namespace e2e {

void LumaroPlay::OpenPage() {
  player_.Click("lblMainMenu(1)");
  player_.AwaitPage(form_.fraScanComputerLumaro);
}

void LumaroPlay::UseBackup() {
  player_.Click("lblMainMenu(4)");
  player_.AwaitPage(form_.fraBackupRestore);
  Tick(form_.chkUseBackupAdvancedLumaro, 1);
  OpenPage();
}

void LumaroPlay::Tick(controls::CheckBox& box, int value) {
  if (box.Value == value) return;
  player_.Click(box.Name());
  player_.Await("the tick", [&] { return box.Value == value; });
}

void LumaroPlay::Choose(const Choices& options, const Choices& advanced) {
  player_.Click("cmdOptionsLumaro");
  player_.AwaitPage(form_.fraOptionsLumaro);
  for (auto [box, value] : options) Tick(*box, value);
  if (advanced.empty()) {
    player_.Click("lblHome(3)");
  } else {
    player_.Click("lblAdvancedLumaro");
    player_.AwaitPage(form_.fraAdvancedLumaro);
    for (auto [box, value] : advanced) Tick(*box, value);
    player_.Click("lblHome(2)");
  }
  player_.AwaitPage(form_.fraScanComputerLumaro);
}

void LumaroPlay::Scan() {
  form_.lblProcessInfoScanComputerLumaro.Caption = "";
  player_.Click("cmdScanComputerLumaro");
  player_.Await("the end of the scan", [this] {
    return form_.lblProcessInfoScanComputerLumaro.Caption == "Process: Finished scanning computer" &&
           !core::Run::OnStack();
  });
}

void LumaroPlay::Clean() {
  form_.lblProcessInfoScanComputerLumaro.Caption = "";
  player_.Click("cmdCleanUpScanComputerLumaro");
  AwaitEndOfCleaning();
}

void LumaroPlay::AwaitEndOfCleaning() {
  player_.Await("the end of the cleaning", [this] {
    return form_.lblProcessInfoScanComputerLumaro.Caption == "Process: Finished cleaning computer" &&
           !core::Run::OnStack();
  });
}

}  // namespace e2e
