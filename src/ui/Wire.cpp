#include "ui/Wire.h"

#include "ui/DiskSpaceInformation.h"
#include "ui/Navigation.h"
#include "ui/m_Drives.h"

namespace ui {

void WireUi(frmMain& form) {
  for (int index : form.lblMainMenu.Indices()) {
    form.lblMainMenu[index].Click = [&form, index] { lblMainMenu_Click(form, index); };
    form.lblMainMenu[index].MouseMove = [&form, index] { lblMainMenu_MouseMove(form, index); };
  }
  form.pictMainMenu.MouseMove = [&form] { pictMainMenu_MouseMove(form); };
  form.lblWelcomeScreen.Click = [&form] { lblWelcomeScreen_Click(form); };
  for (int index : form.lblHome.Indices())
    form.lblHome[index].Click = [&form, index] { lblHome_Click(form, index); };
  for (int index : form.cmdNext.Indices())
    form.cmdNext[index].Click = [&form, index] { cmdNext_Click(form, index); };
  for (int index : form.cmdBack.Indices())
    form.cmdBack[index].Click = [&form, index] { cmdBack_Click(form, index); };
  form.lblFileFiltersOptionsBrasmir.Click = [&form] { lblFileFiltersOptionsBrasmir_Click(form); };
  form.lblDrivesOptionsBrasmir.Click = [&form] { lblDrivesOptionsBrasmir_Click(form); };
  form.lblCleaningOptionsBrasmir.Click = [&form] { lblCleaningOptionsBrasmir_Click(form); };
  form.lblExcludeOptionsBrasmir.Click = [&form] { lblExcludeOptionsBrasmir_Click(form); };
  form.lblIncludeOptionsBrasmir.Click = [&form] { lblIncludeOptionsBrasmir_Click(form); };
  form.lblOpenHelp.Click = [] { lblOpenHelp_Click(); };

  form.cmdAddDrivesBrasmir.Click = [&form] { m_Drives::cmdAddDrivesBrasmir_Click(form); };
  form.lvwDrivesBrasmir.Click = [&form] { m_Drives::lvwDrivesBrasmir_Click(form); };
  form.lblGraphDiskView.Click = [] { lblGraphDiskView_Click(); };
}

}  // namespace ui
