// The settings as data: which registry value each one is, and which control of the main window shows it.
#pragma once

#include <string>
#include <variant>
#include <vector>

#include "core/c_Registry.h"
#include "forms/frmMain.h"

namespace settings {

// A scalar setting: a string value below the current user's hive.
struct Setting {
  std::string c_Registry::*property;
  const char* key;
  const char* name;  // "Move files to recycle bin " ends in a blank, in the registry as well
};

// All settings of the cache, in the order in which they are read.
const std::vector<Setting>& AllSettings();
const Setting& SettingOf(std::string c_Registry::*property);

// A control of the settings pages that holds one setting.
struct Option {
  int write;  // its place in the order of saving; the fill goes by the order of the table
  std::variant<controls::CheckBox frmMain::*, controls::SpinBox frmMain::*> control;
  std::string c_Registry::*property;  // null for ClearPageFileAtShutdown, a value of Windows itself
};

// All options in the order of the fill.
const std::vector<Option>& AllOptions();
// The same in the order of the save.
const std::vector<const Option*>& OptionsInWriteOrder();

}  // namespace settings
