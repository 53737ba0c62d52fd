#include "forms/ImageLists.h"

namespace forms {

const std::vector<std::string>& ControlIcons() {
  static const std::vector<std::string> icons = {
      "control-01-drive",         "control-02-file-filter",  "control-03-excluded-directory",
      "control-04-backup",        "control-05-description",  "control-06-mru1",
      "control-07-excluded-file", "control-08-clear-folder", "control-09-plugin",
      "control-10-tools",         "control-11-finish",
  };
  return icons;
}

const std::vector<std::string>& MenuIcons() {
  static const std::vector<std::string> icons = {
      "menu-01-open-file",      "menu-02-view-file-content",
      "menu-03-open-container", "menu-04-file-property",
      "menu-05-delete",         "menu-06-recycle-bin",
      "menu-07-erase",          "menu-08-windows-startup",
      "menu-09-exclude-file",   "menu-10-exclude-directory",
  };
  return icons;
}

}  // namespace forms
