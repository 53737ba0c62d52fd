// The parts of the main window that stay while the pages change.
#pragma once

#include "controls/Form.h"

namespace forms {

// The module that the user is in. Home and the way back from the options go by it.
enum class Module { Home, Brasmir, Lumaro, PlugIns, Schedule, BackupRestore };

// The entries of the main menu, by their indexes.
namespace menu {
enum { Brasmir, Lumaro, PlugIns, Schedule, BackupRestore };
}

struct WindowFrame {
  // The strip at the top. lblUserMap says which module the user is in.
  CONTROL(Label, lblWelcomeScreen);
  CONTROL(Label, lblUserMap);
  CONTROL(Label, lblOpenHelp);
  CONTROL(Button, cmdCloseApplication);

  // The menu at the left; disabled as a whole during a scan.
  CONTROL(Panel, pictMainMenu);
  CONTROL_ARRAY(Label, lblMainMenu, menu::Brasmir, menu::Lumaro, menu::PlugIns, menu::Schedule,
                menu::BackupRestore);
  // Never shown: its Image is the tray icon's picture. The entries carry their own pictures.
  CONTROL_ARRAY(Picture, imgMainMenu, menu::Lumaro);

  WindowFrame();

  Module CurrentModule = Module::Home;
  // Makes it the current module, and says so in lblUserMap.
  void EnterModule(Module module);

  controls::Layout HeaderLayout();
  controls::Layout MenuLayout();
};

}  // namespace forms
