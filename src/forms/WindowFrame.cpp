#include "forms/WindowFrame.h"

#include "forms/Page.h"

namespace forms {

using namespace controls;

WindowFrame::WindowFrame() {
  auto strip = [](Label& label) { label.Style = LabelStyle::TopStrip; };
  Design(lblWelcomeScreen, "Welcome", 'W');
  strip(lblWelcomeScreen);
  EnterModule(Module::Home);
  strip(lblUserMap);
  Design(lblOpenHelp, "Help", 'H', "Open help file");
  strip(lblOpenHelp);
  lblOpenHelp.Picture = "ui-help";
  Design(cmdCloseApplication, "", '\0', "Close Tidorra");
  cmdCloseApplication.Picture = "ui-close";

  auto entry = [this](int index, const char* caption, char mnemonic, const char* picture) {
    Label& label = lblMainMenu[index];
    Design(label, caption, mnemonic);
    label.Style = LabelStyle::MenuEntry;
    label.Picture = picture;
    label.ForeColor = Rgb(0, 0, 128);
    label.BackColor = Rgb(249, 249, 249);
  };
  entry(menu::Brasmir, "Brasmir", 'B', "main-0-brasmir");
  entry(menu::Lumaro, "Lumaro", 'L', "main-1-lumaro");
  entry(menu::PlugIns, "Plug-Ins", 'P', "main-2-plugins");
  entry(menu::Schedule, "Schedule", 'c', "main-3-schedule");
  entry(menu::BackupRestore, "Backup/Restore", 'u', "main-4-backup-restore");
  pictMainMenu.AccessibleName = "Main menu";
  imgMainMenu[menu::Lumaro].Image = "main-1-lumaro";
  Hide(imgMainMenu[menu::Lumaro]);
}

void WindowFrame::EnterModule(Module module) {
  CurrentModule = module;
  switch (module) {
    case Module::Home:
      lblUserMap.Caption = "Home...";
      break;
    case Module::Brasmir:
      lblUserMap.Caption = "Brasmir...";
      break;
    case Module::Lumaro:
      lblUserMap.Caption = "Lumaro...";
      break;
    case Module::PlugIns:
      lblUserMap.Caption = "Plug-Ins...";
      break;
    case Module::Schedule:
      lblUserMap.Caption = "Schedule...";
      break;
    case Module::BackupRestore:
      lblUserMap.Caption = "Backup/Restore...";
      break;
  }
}

Layout WindowFrame::HeaderLayout() {
  return Row({lblWelcomeScreen, lblUserMap, Spring(), lblOpenHelp, cmdCloseApplication})
      .Gap(16)
      .Padding(12)
      .Min(0, 56)
      .Skinned();
}

Layout WindowFrame::MenuLayout() {
  std::vector<Layout> entries;
  for (int index : lblMainMenu.Indices()) entries.push_back(Item(lblMainMenu[index]).Expand().Min(0, 40));
  entries.push_back(Spring());
  entries.push_back(imgMainMenu[menu::Lumaro]);
  return Contain(pictMainMenu, Column(std::move(entries)).Gap(0).Stretch()).Expand().Min(176);
}

}  // namespace forms
