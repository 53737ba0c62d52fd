#include "ui/Navigation.h"

#include "core/Boxes.h"
#include "core/ErrorReport.h"
#include "core/m_SharedProcedures.h"
#include "platform/LibFile.h"
#include "schedule/m_Schedule.h"
#include "settings/FormSettings.h"

namespace ui {

namespace {

using controls::Rgb;
using core::Args;
using core::BuiltIn;
using core::Guarded;
using core::Value;
using settings::SaveAndReread;

constexpr controls::Color kNavy = Rgb(0, 0, 128);
constexpr controls::Color kUnderThePointer = Rgb(37, 22, 214);
constexpr controls::Color kCurrentEntry = Rgb(255, 255, 255);
constexpr controls::Color kOtherEntry = Rgb(249, 249, 249);

core::Procedure Here(const char* procedure) {
  return {"frmMain", procedure};
}

void Show(frmMain& form, const char* procedure, controls::Frame& page) {
  Guarded(Here(procedure), Args(), [&] { form.ShowPage(page); });
}

}  // namespace

void lblMainMenu_Click(frmMain& form, int Index) {
  Guarded(Here("lblMainMenu_Click"), Args(Value("Index", Index)), [&] {
    form.lblMainMenu[Index].BackColor = kCurrentEntry;
    form.lblMainMenu[Index].Border = true;
    for (int other : form.lblMainMenu.Indices()) {
      if (other == Index) continue;
      form.lblMainMenu[other].BackColor = kOtherEntry;
      form.lblMainMenu[other].Border = false;
    }
    switch (Index) {
      case 0:
        form.lblUserMap.Caption = "Brasmir...";
        SaveAndReread(form);
        form.ShowPage(form.fraScanComputerBrasmir);
        break;
      case 1:
        form.lblUserMap.Caption = "Lumaro...";
        SaveAndReread(form);
        form.ShowPage(form.fraScanComputerLumaro);
        break;
      case 2:
        form.lblUserMap.Caption = "Plug-Ins...";
        form.ShowPage(form.fraPlugIns);
        break;
      case 3:
        SaveAndReread(form);
        m_Schedule::LoadScheduleSettings(form);
        form.ShowPage(form.fraSchedule);
        break;
      case 4:
        form.lblUserMap.Caption = "Backup/Restore...";
        SaveAndReread(form);
        form.ShowPage(form.fraBackupRestore);
        form.cmdRefreshBackupBrasmir.Click();
        break;
    }
  });
}

void lblMainMenu_MouseMove(frmMain& form, int Index) {
  Guarded(Here("lblMainMenu_MouseMove"), Args(BuiltIn{}),
          [&] { form.lblMainMenu[Index].ForeColor = kUnderThePointer; });
}

void pictMainMenu_MouseMove(frmMain& form) {
  Guarded(Here("pictMainMenu_MouseMove"), Args(BuiltIn{}), [&] {
    for (int index : form.lblMainMenu.Indices()) form.lblMainMenu[index].ForeColor = kNavy;
  });
}

void lblWelcomeScreen_Click(frmMain& form) {
  Guarded(Here("lblWelcomeScreen_Click"), Args(), [&] {
    form.lblUserMap.Caption = "Home...";
    form.ShowPage(form.fraWelcome);
  });
}

void lblHome_Click(frmMain& form, int Index) {
  Guarded(Here("lblHome_Click"), Args(Value("Index", Index)), [&] {
    const std::string module = form.lblUserMap.Caption;
    if (module == "Brasmir...") {
      SaveAndReread(form);
      form.ShowPage(form.fraScanComputerBrasmir);
    } else if (module == "Lumaro...") {
      SaveAndReread(form);
      form.ShowPage(form.fraScanComputerLumaro);
    } else if (module == "Schedule...") {
      SaveAndReread(form);
      form.ShowPage(form.fraSchedule);
    } else if (module == "Backup/Restore...") {
      // No scan page belongs to the backups, so home is the window's first page.
      SaveAndReread(form);
      lblWelcomeScreen_Click(form);
    }
  });
}

void cmdNext_Click(frmMain& form, int Index) {
  Guarded(Here("cmdNext_Click"), Args(Value("Index", Index)), [&] {
    switch (Index) {
      case 0:
        return form.ShowPage(form.fraExcludeBrasmir);
      case 1:
        return form.ShowPage(form.fraCleaningBrasmir);
      case 2:
        return form.ShowPage(form.fraDrivesBrasmir);
      case 3:
        return form.ShowPage(form.fraIncludeBrasmir);
    }
  });
}

void cmdBack_Click(frmMain& form, int Index) {
  Guarded(Here("cmdBack_Click"), Args(Value("Index", Index)), [&] {
    // From an options page that was reached from the schedule the way leads back there, and nothing is saved.
    auto back = [&](controls::Frame& scanPage) {
      if (form.lblUserMap.Caption == "Schedule...") return form.ShowPage(form.fraSchedule);
      SaveAndReread(form);
      form.ShowPage(scanPage);
    };
    switch (Index) {
      case 0:
        return form.ShowPage(form.fraDrivesBrasmir);
      case 1:
        return form.ShowPage(form.fraFileFiltersBrasmir);
      case 3:
        SaveAndReread(form);
        return form.ShowPage(form.fraScanComputerBrasmir);
      case 4:
        return form.ShowPage(form.fraExcludeBrasmir);
      case 5:
        return form.ShowPage(form.fraOptionsBrasmir);
      case 6:
        return form.ShowPage(form.fraCleaningBrasmir);
      case 7:
        return form.ShowPage(form.fraOptionsLumaro);
      case 8:
        return back(form.fraScanComputerBrasmir);
      case 9:
        return back(form.fraScanComputerLumaro);
      case 10:
        return form.ShowPage(form.fraScanComputerLumaro);
    }
  });
}

void lblFileFiltersOptionsBrasmir_Click(frmMain& form) {
  Show(form, "lblFileFiltersOptionsBrasmir_Click", form.fraFileFiltersBrasmir);
}

void lblDrivesOptionsBrasmir_Click(frmMain& form) {
  Show(form, "lblDrivesOptionsBrasmir_Click", form.fraDrivesBrasmir);
}

void lblCleaningOptionsBrasmir_Click(frmMain& form) {
  Show(form, "lblCleaningOptionsBrasmir_Click", form.fraCleaningBrasmir);
}

void lblExcludeOptionsBrasmir_Click(frmMain& form) {
  Show(form, "lblExcludeOptionsBrasmir_Click", form.fraExcludeBrasmir);
}

void lblIncludeOptionsBrasmir_Click(frmMain& form) {
  Show(form, "lblIncludeOptionsBrasmir_Click", form.fraIncludeBrasmir);
}

void lblOpenHelp_Click() {
  Guarded(Here("lblOpenHelp_Click"), Args(), [] {
    if (platform::LibFile().ShellOpen(gRegistry->InstallDirectory + "Help\\Tidorra.chm") < 33)
      core::Tell(core::BoxIcon::Critical, "Help file...",
                 {"Open help file failed", "Help file is missing or corrupt"});
  });
}

}  // namespace ui
