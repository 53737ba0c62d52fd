// What the module Lumaro's places have on its pages: a row on the scan page each, or a check box on the
// options page, or both. What they are and how they are cleared stands in places/Places.cpp.
#pragma once

#include "controls/Controls.h"

namespace forms {

struct LumaroPlaces;

// A row of the scan page: its caption, the letter in it, and the number of what lies there.
struct PlaceRow {
  const char* caption;
  char mnemonic;
  controls::Label LumaroPlaces::*count;
};

struct PlaceBox {
  controls::CheckBox LumaroPlaces::*box;
  const char* caption;
  char mnemonic = '\0';
};

struct LumaroPlaces {
  static constexpr int kRows = 7;
  CONTROL_ARRAY(Label, lblDirLumaro, 0, 1, 2, 3, 4, 5, 6);
  CONTROL_ARRAY(Picture, ImgProcessLumaro, 0, 1, 2, 3, 4, 5, 6);
  CONTROL(Label, lblTemporaryInternetFilesScanComputerLumaro);
  CONTROL(Label, lblCookiesScanComputerLumaro);
  CONTROL(Label, lblDownloadedProgramFilesScanComputerLumaro);
  CONTROL(Label, lblOfflineFilesScanComputerLumaro);
  CONTROL(Label, lblRecentFolderScanComputerLumaro);
  CONTROL(Label, lblTempFolderScanComputerLumaro);
  CONTROL(Label, lblUserDefinedFoldersScanComputerLumaro);

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

  // Gives the controls their texts.
  LumaroPlaces();
};

// From top to bottom, by the indexes of the two arrays.
inline constexpr PlaceRow kPlaceRows[LumaroPlaces::kRows] = {
    {"Temporary Internet Files:", 'T', &LumaroPlaces::lblTemporaryInternetFilesScanComputerLumaro},
    {"Cookies:", 'k', &LumaroPlaces::lblCookiesScanComputerLumaro},
    {"Downloaded Program Files:", 'D', &LumaroPlaces::lblDownloadedProgramFilesScanComputerLumaro},
    {"Offline Files:", 'f', &LumaroPlaces::lblOfflineFilesScanComputerLumaro},
    {"Recent Folder:", 'R', &LumaroPlaces::lblRecentFolderScanComputerLumaro},
    {"Temp Folder:", 'm', &LumaroPlaces::lblTempFolderScanComputerLumaro},
    {"User Defined Folders:", 'i', &LumaroPlaces::lblUserDefinedFoldersScanComputerLumaro},
};

// The check boxes in their order: of the Internet, in two columns, and of folders, below each other.
inline constexpr PlaceBox kInternetBoxes[] = {
    {&LumaroPlaces::chkTemporaryInternetFilesOptionsLumaro, "Temporary Internet Files", 'T'},
    {&LumaroPlaces::chkFireFoxCacheOptionsLumaro, "Firefox Browser Cache/Url's, Cookies, History", 'F'},
    {&LumaroPlaces::chkHistoryOptionsLumaro, "History", 'i'},
    {&LumaroPlaces::chkClearIndexDatOptionsLumaro, "Clear Index dat files (Faster, Truncated)", 'x'},
    {&LumaroPlaces::chkCookiesOptionsLumaro, "Cookies", 's'},
    {&LumaroPlaces::chkEraseIndexDatOnRebootOptionsLumaro, "Erase Index dat files (Slower, Overwritten)",
     'E'},
    {&LumaroPlaces::chkDownloadedProgramFilesOptionsLumaro, "Downloaded Program Files", 'D'},
    {&LumaroPlaces::chkOfflineFilesOptionsLumaro, "Offline Files", 'n'},
};
inline constexpr PlaceBox kFolderBoxes[] = {
    {&LumaroPlaces::chkClearTempFolderOptionsLumaro,
     "Temp Folder (Directory where applications store temporary files)"},
    {&LumaroPlaces::chkClearRecentFolderOptionsLumaro,
     "Recent Folder (Directory contains shortcuts to all recent opened documents and files)", 'R'},
    {&LumaroPlaces::chkEmptyRecycleBinOptionsLumaro, "Empty the Recycle Bin", 'y'},
    {&LumaroPlaces::chkEmptyXPPrefetchDirOptionsLumaro,
     "Empty Windows XP Prefetch Directory (Use every two weeks)", 'v'},
};

}  // namespace forms
