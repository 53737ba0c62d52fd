// Thousands of files cleaned with a backup, by each of the two modules, and brought back.
#include <gtest/gtest.h>
#include <map>

#include "app/Wiring.h"
#include "backup/ZipControls.h"
#include "forms/frmBackupFileInformation.h"
#include "settings/SettingsTable.h"
#include "settings/m_Registry.h"
#include "support/Session.h"

namespace {

using platform::BoxAnswer;

// A folder of many files costs Wine the square of their number.
#ifdef _WIN32
constexpr int kFiles = 500;
#else
constexpr int kFiles = 5000;
#endif

class BackupRoundTripTest : public testing::Test {
 protected:
  BackupRoundTripTest() {
    m_Registry::ReadRegistrySettings();
    for (const settings::Setting& setting : settings::AllSettings())
      if (((*gRegistry).*setting.property).empty()) (*gRegistry).*setting.property = "0";
    for (auto setting : {&c_Registry::UseBackupBrsm, &c_Registry::UseBackupLmro, &c_Registry::DeleteFilesBrsm,
                         &c_Registry::DeleteFilesLmro, &c_Registry::ClearTempFolderLmro})
      (*gRegistry).*setting = "1";
    app::WireAll(form);
    core::SetMainForm(&form);
    gAppRunning->NewSession = true;
    MakeFiles();
  }

  struct File {
    std::string content;
    platform::Moment modified;
    std::uint32_t attributes;
    bool operator==(const File&) const = default;
  };

  // In fifty folders of Temp: names in several scripts, contents from nothing to some kilobytes, dates apart.
  void MakeFiles() {
    std::uint32_t random = 7;
    for (int i = 0; i < kFiles; ++i) {
      std::string content;
      for (int size = i % 40 == 0 ? 9000 : i % 97; size > 0; --size)
        content += static_cast<char>((random = random * 1664525 + 1013904223) >> 24);
      File file{content, 1'400'000'000'000'000'000 + i * 2'000'000'000'000,
                i % 10 == 0   ? platform::kHidden | platform::kArchive
                : i % 10 == 1 ? platform::kReadOnly | platform::kArchive
                              : std::uint32_t{platform::kArchive}};
      std::string path = kTemp + "\\folder" + std::to_string(i % 50) + "\\" +
                         (i % 7 == 0   ? "été "
                          : i % 7 == 1 ? "写真 "
                                       : "file ") +
                         std::to_string(i) + ".tmp";
      computer.WriteFile(path, content);
      computer.SetModified(path, file.modified);
      computer.SetAttributes(path, file.attributes);
      files[path] = file;
    }
  }
  File Now(const std::string& path) {
    return {computer.ReadFile(path), computer.Files().Look(path).modified, computer.GetAttributes(path)};
  }
  int Missing() {
    int missing = 0;
    for (const auto& [path, file] : files) missing += !computer.Exists(path);
    return missing;
  }
  void ExpectAllBack() {
    int wrong = 0;
    for (const auto& [path, file] : files) {
      if (computer.Exists(path) && Now(path) == file) continue;
      if (++wrong == 1) ADD_FAILURE() << path;
    }
    EXPECT_EQ(wrong, 0);
  }

  // By the page of the backups: everything back, three of them, into a folder.
  void BringBack() {
    form.ShowPage(form.fraBackupRestore);
    form.cmdRefreshBackupBrasmir.Click();
    ASSERT_EQ(form.lvwBackupsBrasmir.Count(), 1);
    form.lvwBackupsBrasmir.Select(1);
    computer.desktop.Clear();
    computer.desktop.AnswerAlways("Restore backup", BoxAnswer::Yes);
    computer.desktop.AnswerAlways("Extract backup", BoxAnswer::Yes);
    form.cmdRestoreBackupBrasmir.Click();
    EXPECT_EQ(computer.desktop.boxes.size(), 1u) << computer.desktop.boxes.back();
    ExpectAllBack();

    computer.Remove(kTemp);
    computer.MakeFolder(kTemp);
    form.cmdListBackupBrasmir.Click();
    frmBackupFileInformation* window = backup::BackupFileInformation().Loaded();
    ASSERT_TRUE(window);
    ASSERT_EQ(window->lvwZipFileInformation.Count(), kFiles);
    test::Strings ticked;
    for (int row : {1, kFiles / 2, kFiles}) {
      window->lvwZipFileInformation.SetChecked(row, true);
      ticked.emplace_back(window->lvwZipFileInformation.Text(row));
    }
    window->lblRestore.Click();
    EXPECT_EQ(computer.desktop.boxes.back(),
              "information|Restore files...|Restoring files returned with success");
    EXPECT_EQ(Missing(), kFiles - 3);
    for (const std::string& path : ticked) EXPECT_TRUE(Now(path) == files[path]) << path;

    computer.desktop.PickFolder("C:\\Out");
    form.cmdExtractBackupBrasmir.Click();
    EXPECT_EQ(computer.List("C:\\Out").size(), static_cast<std::size_t>(kFiles));  // no name occurs twice
    int wrong = 0;
    for (const auto& [path, file] : files)
      wrong += !(Now("C:\\Out\\" + path.substr(path.rfind('\\') + 1)) == file);
    EXPECT_EQ(wrong, 0);
    EXPECT_EQ(Missing(), kFiles - 3);
    EXPECT_TRUE(computer.desktop.unexpected.empty());
  }

  test::TestComputer computer;
  frmMain form;
  test::SessionObjects session;
  std::map<std::string, File> files;
  const std::string kTemp = computer.Profile() + "\\AppData\\Local\\Temp";
};

TEST_F(BackupRoundTripTest, WhatBrasmirCleansComesBack) {
  for (const auto& [path, file] : files) {
    std::size_t name = path.rfind('\\') + 1;
    int row = form.lvwFilesResultsBrasmir.AddRow(path.substr(name), 1);
    form.lvwFilesResultsBrasmir.SetSubItem(row, 1, path.substr(0, name));
  }
  form.lvwFilesResultsBrasmir.CheckAll(true);
  form.ShowPage(form.fraScanningResultsBrasmir);
  form.cmdDeleteResultsBrasmir.Click();
  EXPECT_EQ(Missing(), kFiles);
  EXPECT_EQ(form.lvwFilesResultsBrasmir.Count(), 0);
  BringBack();
}

TEST_F(BackupRoundTripTest, WhatLumaroCleansComesBack) {
  form.ShowPage(form.fraScanComputerLumaro);
  form.cmdCleanUpScanComputerLumaro.Click();
  EXPECT_EQ(Missing(), kFiles);
  BringBack();
}

}  // namespace
