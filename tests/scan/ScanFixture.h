// A computer with drive C:, the main window with the scan's handlers, and all options of the module Brasmir
// off.
#pragma once

#include <gtest/gtest.h>
#include <string>
#include <vector>

#include "core/Keys.h"
#include "core/m_SharedProcedures.h"
#include "forms/frmMain.h"
#include "pages/m_Controls.h"
#include "platform/Guard.h"
#include "scan/Wire.h"
#include "settings/OptionHandlers.h"
#include "support/FaultyMachine.h"
#include "support/Hold.h"
#include "support/Session.h"

namespace test {

inline std::vector<std::string> All(const platform::CountedList& list) {
  std::vector<std::string> all;
  for (int i = 0; i < list.UpperBound(); ++i) all.push_back(list[i]);
  return all;
}

inline std::vector<std::string> Sorted(std::vector<std::string> texts) {
  std::sort(texts.begin(), texts.end());
  return texts;
}

// "path|size", with a "+" in front of ticked rows.
inline std::vector<std::string> Rows(const controls::ListView& list) {
  std::vector<std::string> rows;
  for (int row = 1; row <= list.Count(); ++row)
    rows.push_back((list.Checked(row) ? "+" : "") + list.Path(row) + "|" + std::string(list.SubItem(row, 2)));
  return rows;
}

// "text|second column", with a "+" in front of ticked rows.
inline std::vector<std::string> Entries(const controls::ListView& list) {
  std::vector<std::string> rows;
  for (int row = 1; row <= list.Count(); ++row)
    rows.push_back((list.Checked(row) ? "+" : "") + std::string(list.Text(row)) + "|" +
                   std::string(list.SubItem(row, 1)));
  return rows;
}

inline platform::CountedList ListOf(const std::vector<std::string>& texts) {
  platform::CountedList list;
  for (const std::string& text : texts) list.Add(text);
  return list;
}

class ScanTest : public testing::Test {
 protected:
  using Strings = std::vector<std::string>;

  ScanTest() {
    gRegistry->InstallDirectory = TestComputer::InstallDirectory();
    platform::SetInstallFolder(gRegistry->InstallDirectory);
    for (auto setting :
         {&c_Registry::ExcludeZeroByteFilesFileFiltersBrsm, &c_Registry::ConfirmCleaningBrsm,
          &c_Registry::EraseFilesBrsm, &c_Registry::DeleteFilesBrsm, &c_Registry::MoveFilesToRecyclebinBrsm,
          &c_Registry::UseBackupBrsm, &c_Registry::DeleteOnWindowsStartupBrsm,
          &c_Registry::EnableManualEntriesInExclusionListsBrsm, &c_Registry::SkipReadOnlyFilesBrsm,
          &c_Registry::IncludeZeroByteFilesBrsm, &c_Registry::IncludeInvalidShortcutsBrsm,
          &c_Registry::BrokenShortCutsIncludeAllUsersBrsm, &c_Registry::BrokenShortCutsScanAllDriveBrsm,
          &c_Registry::SkipShortcutsPointingToRemovableDrivesBrsm,
          &c_Registry::ApplyListToGlobalScanningBrsm})
      (*gRegistry).*setting = "0";
    gRegistry->ErasePassesBrsm = "2";
    computer.SetValue(core::keys::kDrives, "C:\\", "Fixed Drive");
    computer.SetValue(core::keys::kSelectedDrives, "C:\\", "True");
    settings::WireSettings(form);
    scan::WireScan(form);
    core::SetMainForm(&form);
    form.ShowPage(form.fraScanComputerBrasmir);
    for (auto* list : {&gFiles, &gFolders, &gGarbageFiles, &gZeroByteFiles, &gInvalidShortcuts})
      list->Reset();
  }
  ~ScanTest() override {
    platform::SetInstallFolder("");
    EXPECT_EQ(computer.desktop.unexpected, Strings());
    EXPECT_EQ(computer.desktop.pointer, platform::Pointer::Default);
    EXPECT_EQ(computer.desktop.stopControl, nullptr);
  }

  void Filter(const std::string& filter, const std::string& selected) {
    computer.SetValue(core::keys::kFileFilters, filter, "why");
    if (!selected.empty()) computer.SetValue(core::keys::kSelectedFileFilters, filter, selected);
  }
  void ExcludeDirectory(const std::string& text) {
    computer.SetValue(core::keys::kExcludedDirectories, text, "why");
  }
  void ExcludeFile(const std::string& text) { computer.SetValue(core::keys::kExcludedFiles, text, "why"); }

  void Scan() { ASSERT_TRUE(form.UserClick(form.cmdScanComputerBrasmir)); }
  // The rest of the text of the box that came last, behind "kind|title|".
  const std::string& LastBox() const { return computer.desktop.boxes.back(); }

  TestComputer computer;
  SessionObjects session;
  frmMain form;
};

}  // namespace test
