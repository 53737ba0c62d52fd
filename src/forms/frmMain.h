// The main window: one struct for its fixed parts and for each of its sixteen pages, put together.
#pragma once

#include <string>
#include <vector>

#include "forms/AdvancedLumaroPage.h"
#include "forms/BackupRestorePage.h"
#include "forms/CleaningBrasmirPage.h"
#include "forms/DrivesBrasmirPage.h"
#include "forms/ExcludeBrasmirPage.h"
#include "forms/FileFiltersBrasmirPage.h"
#include "forms/ImageLists.h"
#include "forms/IncludeBrasmirPage.h"
#include "forms/LumaroPlaces.h"
#include "forms/NavigationControls.h"
#include "forms/OptionsBrasmirPage.h"
#include "forms/OptionsLumaroPage.h"
#include "forms/PlugInsPage.h"
#include "forms/ScanComputerBrasmirPage.h"
#include "forms/ScanComputerLumaroPage.h"
#include "forms/ScanningResultsBrasmirPage.h"
#include "forms/SchedulePage.h"
#include "forms/UserDefinedFoldersLumaroPage.h"
#include "forms/WelcomePage.h"
#include "forms/WindowFrame.h"

struct frmMain : controls::Form,
                 forms::WindowFrame,
                 forms::NavigationControls,
                 forms::WelcomePage,
                 forms::ScanComputerBrasmirPage,
                 forms::OptionsBrasmirPage,
                 forms::FileFiltersBrasmirPage,
                 forms::DrivesBrasmirPage,
                 forms::CleaningBrasmirPage,
                 forms::ExcludeBrasmirPage,
                 forms::IncludeBrasmirPage,
                 forms::ScanningResultsBrasmirPage,
                 forms::LumaroPlaces,
                 forms::ScanComputerLumaroPage,
                 forms::OptionsLumaroPage,
                 forms::AdvancedLumaroPage,
                 forms::UserDefinedFoldersLumaroPage,
                 forms::PlugInsPage,
                 forms::SchedulePage,
                 forms::BackupRestorePage {
  frmMain();

  // The results' context menu; its entries are built when the window loads. Choices come through MenuClick.
  controls::PopupMenu mnuFile;
  std::vector<std::string> ilsControlIcons = forms::ControlIcons();
  std::vector<std::string> ilsMenuIcons = forms::MenuIcons();

  // Set at the end of every scan of the module Brasmir and never reset: decides whether the result labels of
  // its scan page answer a click.
  bool ScanHasRun = false;
};
