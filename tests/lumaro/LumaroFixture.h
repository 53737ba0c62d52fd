// A computer with the main window's screens and all of Lumaro's settings off.
#pragma once

#include <gtest/gtest.h>
#include <map>
#include <string>
#include <vector>

#include "backup/BackupRestorePage.h"
#include "core/Numbers.h"
#include "lumaro/Wire.h"
#include "removal/Remover.h"
#include "settings/SettingsTable.h"
#include "settings/m_Registry.h"
#include "support/Hold.h"
#include "support/Session.h"
#include "support/WatchedFiles.h"

namespace test {

// Also keeps the captions that labels had when they were repainted.
class CaptionDesktop : public ScriptedDesktop {
 public:
  using ScriptedDesktop::Refresh;
  void Refresh(controls::Control& control) override {
    ScriptedDesktop::Refresh(control);
    captions[control.Name()].push_back(control.Caption);
  }
  std::map<std::string, Strings> captions;
};

// A hook for reads that fail on one file from this offset on, as on a broken disk.
inline auto BreaksFrom(const std::string& broken, std::uint64_t sound) {
  return [=](const std::string& path, std::uint64_t offset) {
    return path == broken && offset >= sound ? platform::Status::Failed : platform::Status::Done;
  };
}

class LumaroTest : public testing::Test {
 protected:
  LumaroTest() {
    platform::SetCurrentDesktop(&desktop);
    m_Registry::ReadRegistrySettings();
    for (const settings::Setting& setting : settings::AllSettings())
      if (((*gRegistry).*setting.property).empty()) (*gRegistry).*setting.property = "0";
    gRegistry->ErasePassesLmro = "1";
    lumaro::WireLumaro(form);
    backup::WireBackup(form);
    core::SetMainForm(&form);
    form.ShowPage(form.fraScanComputerLumaro);
  }
  // The six places that a scan measures.
  void TurnPlacesOn() {
    for (auto setting : {&c_Registry::ClearTemporaryInternetFilesLmro, &c_Registry::ClearCookiesLmro,
                         &c_Registry::ClearDownloadedProgramFilesLmro, &c_Registry::ClearOfflineFilesLmro,
                         &c_Registry::ClearRecentFolderLmro, &c_Registry::ClearTempFolderLmro})
      (*gRegistry).*setting = "1";
  }

  std::string Local(const std::string& rest) const {
    return computer.Profile() + "\\AppData\\Local\\" + rest;
  }
  std::string Roaming(const std::string& rest) const {
    return computer.Profile() + "\\AppData\\Roaming\\" + rest;
  }
  std::string Temp(const std::string& rest = {}) const { return Local("Temp") + Below(rest); }
  std::string Recent(const std::string& rest = {}) const {
    return Roaming("Microsoft\\Windows\\Recent") + Below(rest);
  }
  std::string Cookies(const std::string& rest = {}) const {
    return Local("Microsoft\\Windows\\INetCookies") + Below(rest);
  }
  std::string Cache(const std::string& rest = {}) const {
    return Local("Microsoft\\Windows\\INetCache") + Below(rest);
  }
  std::string History(const std::string& rest = {}) const {
    return Local("Microsoft\\Windows\\History") + Below(rest);
  }
  static std::string Install(const std::string& rest) { return TestComputer::InstallDirectory() + rest; }
  std::string LockedFiles() const { return computer.ReadFile(Install("Temp\\Locked Files.txt")); }
  std::string IndexFiles() const { return computer.ReadFile(Install("Temp\\Index Files.txt")); }

  void Exclude(const std::string& directory) {
    computer.SetValue(core::keys::kExcludedDirectories, directory, "why");
  }
  void ExcludeFile(const std::string& file) { computer.SetValue(core::keys::kExcludedFiles, file, "why"); }
  void KeepCookies(const Strings& lines) {
    std::string text;
    for (const std::string& line : lines) text += line + "\r\n";
    computer.WriteFile(Install("Cookies.txt"), text);
  }
  void StoreFolder(const std::string& folder, const std::string& ticked) {
    computer.SetValue(core::keys::kUserDefinedFolders, folder, "why");
    if (!ticked.empty()) computer.SetValue(core::keys::kSelectedUserDefinedFolders, folder, ticked);
  }
  int ShowFolder(const std::string& folder, bool ticked) {
    int row = form.lvwUserDefinedFoldersLumaro.AddRow(folder, 8);
    form.lvwUserDefinedFoldersLumaro.SetChecked(row, ticked);
    return row;
  }
  std::string UserInfo() const { return form.lblUserInfoScanComputerLumaro.Caption; }
  Strings Percents() { return desktop.captions["lblScanComputerProcentLumaro"]; }

  // How much went, as "files size".
  static std::string Counted() {
    return core::NumberText(gCleaningStatus->FilesDeleted) + " " +
           core::NumberText(gCleaningStatus->SizeFreedUp);
  }

  TestComputer computer;
  CaptionDesktop desktop;
  frmMain form;
  SessionObjects session;
  // What a run without a backup hands to its cleaners.
  removal::Remover remover{settings::Module::Lumaro};

 private:
  static std::string Below(const std::string& rest) { return rest.empty() ? rest : "\\" + rest; }
};

}  // namespace test
