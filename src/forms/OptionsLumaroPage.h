// The page "Options..." of the module Lumaro.
#pragma once

#include "forms/NavigationControls.h"

namespace forms {

// Its handlers: lumaro/OptionPages.h; the check boxes': settings/OptionHandlers.h.
struct OptionsLumaroPage {
  CONTROL(Frame, fraOptionsLumaro);

  CONTROL(CheckBox, chkTemporaryInternetFilesOptionsLumaro);
  CONTROL(CheckBox, chkHistoryOptionsLumaro);
  CONTROL(CheckBox, chkCookiesOptionsLumaro);
  CONTROL(CheckBox, chkDownloadedProgramFilesOptionsLumaro);
  CONTROL(CheckBox, chkOfflineFilesOptionsLumaro);
  CONTROL(CheckBox, chkClearIndexDatOptionsLumaro);
  // Enabled only while the check box above is ticked.
  CONTROL(CheckBox, chkEraseIndexDatOnRebootOptionsLumaro);
  CONTROL(CheckBox, chkFireFoxCacheOptionsLumaro);
  CONTROL(CheckBox, chkClearTempFolderOptionsLumaro);
  CONTROL(CheckBox, chkClearRecentFolderOptionsLumaro);
  CONTROL(CheckBox, chkEmptyRecycleBinOptionsLumaro);
  // Never stored: unticked at every start.
  CONTROL(CheckBox, chkEmptyXPPrefetchDirOptionsLumaro);
  CONTROL(CheckBox, chkLoadOnWindowsStartupOptionsLumaro);
  CONTROL(CheckBox, chkAddToSystemTrayOptionsLumaro);
  CONTROL(Label, lblAdvancedLumaro);
  CONTROL(Label, lblManageCookiesOptionsLumaro);

  OptionsLumaroPage();
  controls::Layout OptionsLumaroLayout(NavigationControls& shared);
};

}  // namespace forms
