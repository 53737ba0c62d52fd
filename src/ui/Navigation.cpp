#include "ui/Navigation.h"

#include "core/Boxes.h"
#include "core/ErrorReport.h"
#include "core/m_SharedProcedures.h"
#include "platform/Operations.h"
#include "schedule/m_Schedule.h"
#include "settings/FormSettings.h"

namespace ui {

namespace {

using controls::Rgb;
using core::Args;
using core::BuiltIn;
using core::Guarded;
using core::Value;
using forms::Module;
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
      case forms::menu::Brasmir:
        form.EnterModule(Module::Brasmir);
        SaveAndReread(form);
        form.ShowPage(form.fraScanComputerBrasmir);
        break;
      case forms::menu::Lumaro:
        form.EnterModule(Module::Lumaro);
        SaveAndReread(form);
        form.ShowPage(form.fraScanComputerLumaro);
        break;
      case forms::menu::PlugIns:
        form.EnterModule(Module::PlugIns);
        form.ShowPage(form.fraPlugIns);
        break;
      case forms::menu::Schedule:
        SaveAndReread(form);
        m_Schedule::LoadScheduleSettings(form);
        form.ShowPage(form.fraSchedule);
        break;
      case forms::menu::BackupRestore:
        form.EnterModule(Module::BackupRestore);
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
    form.EnterModule(Module::Home);
    form.ShowPage(form.fraWelcome);
  });
}

void lblHome_Click(frmMain& form, int Index) {
  Guarded(Here("lblHome_Click"), Args(Value("Index", Index)), [&] {
    switch (form.CurrentModule) {
      case Module::Brasmir:
        SaveAndReread(form);
        return form.ShowPage(form.fraScanComputerBrasmir);
      case Module::Lumaro:
        SaveAndReread(form);
        return form.ShowPage(form.fraScanComputerLumaro);
      case Module::Schedule:
        SaveAndReread(form);
        return form.ShowPage(form.fraSchedule);
      case Module::BackupRestore:
        // No scan page belongs to the backups, so home is the window's first page.
        SaveAndReread(form);
        return lblWelcomeScreen_Click(form);
      case Module::Home:
      case Module::PlugIns:
        break;
    }
  });
}

void cmdNext_Click(frmMain& form, int Index) {
  Guarded(Here("cmdNext_Click"), Args(Value("Index", Index)), [&] {
    switch (Index) {
      case forms::next::Cleaning:
        return form.ShowPage(form.fraExcludeBrasmir);
      case forms::next::Drives:
        return form.ShowPage(form.fraCleaningBrasmir);
      case forms::next::FileFilters:
        return form.ShowPage(form.fraDrivesBrasmir);
      case forms::next::Exclude:
        return form.ShowPage(form.fraIncludeBrasmir);
    }
  });
}

void cmdBack_Click(frmMain& form, int Index) {
  Guarded(Here("cmdBack_Click"), Args(Value("Index", Index)), [&] {
    // From an options page that was reached from the schedule the way leads back there, and nothing is saved.
    auto back = [&](controls::Frame& scanPage) {
      if (form.CurrentModule == Module::Schedule) return form.ShowPage(form.fraSchedule);
      SaveAndReread(form);
      form.ShowPage(scanPage);
    };
    switch (Index) {
      case forms::back::Cleaning:
        return form.ShowPage(form.fraDrivesBrasmir);
      case forms::back::Drives:
        return form.ShowPage(form.fraFileFiltersBrasmir);
      case forms::back::Results:
        SaveAndReread(form);
        return form.ShowPage(form.fraScanComputerBrasmir);
      case forms::back::Include:
        return form.ShowPage(form.fraExcludeBrasmir);
      case forms::back::FileFilters:
        return form.ShowPage(form.fraOptionsBrasmir);
      case forms::back::Exclude:
        return form.ShowPage(form.fraCleaningBrasmir);
      case forms::back::Advanced:
        return form.ShowPage(form.fraOptionsLumaro);
      case forms::back::OptionsBrasmir:
        return back(form.fraScanComputerBrasmir);
      case forms::back::OptionsLumaro:
        return back(form.fraScanComputerLumaro);
      case forms::back::UserDefinedFolders:
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
    if (platform::ops::OpenDocument(gRegistry->InstallDirectory + "Help\\Tidorra.chm") !=
        platform::Status::Done)
      core::Tell(core::BoxIcon::Critical, "Help file...",
                 {"Open help file failed", "Help file is missing or corrupt"});
  });
}

}  // namespace ui
