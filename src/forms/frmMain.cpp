#include "forms/frmMain.h"

using namespace controls;

frmMain::frmMain() : Form("frmMain") {
  Caption = "Brasmir.";
  DefaultWidth = 960;
  DefaultHeight = 660;
  MinWidth = 760;
  MinHeight = 560;
  mnuFile.Name = "FileMenu";

  Layout pages = Stack({
      WelcomeLayout(*this),
      ScanComputerBrasmirLayout(),
      OptionsBrasmirLayout(*this),
      FileFiltersBrasmirLayout(*this),
      DrivesBrasmirLayout(*this),
      CleaningBrasmirLayout(*this),
      ExcludeBrasmirLayout(*this),
      IncludeBrasmirLayout(*this),
      ScanningResultsBrasmirLayout(*this),
      ScanComputerLumaroLayout(*this, *this),
      OptionsLumaroLayout(*this, *this),
      AdvancedLumaroLayout(*this),
      UserDefinedFoldersLumaroLayout(*this),
      PlugInsLayout(),
      ScheduleLayout(),
      BackupRestoreLayout(*this),
  });
  SetLayout(
      Column({HeaderLayout(), Row({MenuLayout(), std::move(pages).Stretch()}).Gap(0).Stretch()}).Gap(0));
}
