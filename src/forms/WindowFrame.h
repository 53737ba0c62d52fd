// The parts of the main window that stay while the pages change.
#pragma once

#include "controls/Form.h"

namespace forms {

struct WindowFrame {
  // The strip at the top. The caption of lblUserMap is also the program's record of the module that the user
  // is in.
  CONTROL(Label, lblWelcomeScreen);
  CONTROL(Label, lblUserMap);
  CONTROL(Label, lblOpenHelp);
  CONTROL(Button, cmdCloseApplication);

  // The menu at the left; disabled as a whole during a scan.
  CONTROL(Panel, pictMainMenu);
  CONTROL_ARRAY(Label, lblMainMenu, 0, 1, 2, 3, 4);
  // Never shown: its Image is the tray icon's picture. The entries carry their own pictures.
  CONTROL_ARRAY(Picture, imgMainMenu, 1);

  WindowFrame();
  controls::Layout HeaderLayout();
  controls::Layout MenuLayout();
};

}  // namespace forms
