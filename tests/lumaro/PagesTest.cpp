#include "LumaroFixture.h"
#include "core/Text.h"
#include "lumaro/ManageCookies.h"
#include "settings/OptionHandlers.h"

namespace test {
namespace {

using platform::BoxAnswer;

Strings Rows(const controls::ListView& list) {
  Strings rows;
  for (int row = 1; row <= list.Count(); ++row)
    rows.push_back(std::string(list.Text(row)) + (list.Checked(row) ? "|x" : "|") +
                   (list.Columns.size() > 1 ? std::string(list.SubItem(row, 1)) : ""));
  std::sort(rows.begin(), rows.end());
  return rows;
}

// The two option pages.

TEST_F(LumaroTest, CleanOnStartUpGoesOnlyWithTheStartInTheTray) {
  form.cmdOptionsLumaro.Click();
  EXPECT_EQ(form.CurrentPage(), &form.fraOptionsLumaro);
  form.chkLoadOnWindowsStartupOptionsLumaro.Value = 1;
  form.chkCleanOnWindowsStartupAdvancedLumaro.Value = 1;
  form.lblAdvancedLumaro.Click();
  EXPECT_EQ(form.CurrentPage(), &form.fraAdvancedLumaro);
  EXPECT_TRUE(form.chkCleanOnWindowsStartupAdvancedLumaro.Enabled);
  EXPECT_EQ(form.chkCleanOnWindowsStartupAdvancedLumaro.Value, 1);
  form.chkLoadOnWindowsStartupOptionsLumaro.Value = 0;
  form.lblAdvancedLumaro.Click();
  EXPECT_FALSE(form.chkCleanOnWindowsStartupAdvancedLumaro.Enabled);
  EXPECT_EQ(form.chkCleanOnWindowsStartupAdvancedLumaro.Value, 0);
}

TEST_F(LumaroTest, SettingsAreAppliedToTheOtherModule) {
  settings::WireSettings(form);
  for (controls::CheckBox* box :
       {&form.chkDeleteFilesCleaningBrasmir, &form.chkConfirmCleaningAdvancedLumaro,
        &form.chkEraseFilesAdvancedLumaro, &form.chkDeleteFilesOnWindowsStartupAdvancedLumaro,
        &form.chkUseBackupAdvancedLumaro, &form.chkSkipReadOnlyFilesAdvancedLumaro})
    box->Value = 1;
  form.spnEraseTimesAdvancedLumaro.Value = 7;
  form.lblApplySettingsToBrasmirAdvancedLumaro.Click();
  std::string values;
  for (controls::CheckBox* box :
       {&form.chkConfirmCleaningCleaningBrasmir, &form.chkDeleteFilesCleaningBrasmir,
        &form.chkRecycleBinCleaningBrasmir, &form.chkEraseFilesCleaningBrasmir,
        &form.chkDeleteFilesOnWindowsStartupCleaningBrasmir, &form.chkUseBackupCleaningBrasmir,
        &form.chkSkipReadOnlyFilesExcludeBrasmir})
    values += std::to_string(box->Value);
  EXPECT_EQ(values, "1001110");
  EXPECT_TRUE(gAppRunning->NewSession);
  EXPECT_EQ(form.spnEraseTimesCleaningBrasmir.Value.Get(), 7);
  EXPECT_EQ(desktop.boxes,
            (Strings{"information|Synchronize settings...|Settings are Synchronized with Brasmir "
                     "Cleaning Methods"}));
}

TEST_F(LumaroTest, RebootThatFailsIsToldOnThePage) {
  form.lblRebootScanComputerLumaro.Click();
  EXPECT_EQ(desktop.captions["lblUserInfoScanComputerLumaro"],
            (Strings{"Rebooting computer...", "Error rebooting computer..."}));
  EXPECT_TRUE(desktop.boxes.empty());
}

// The cookie manager.

TEST_F(LumaroTest, CookieManagerKeepsTheUntickedOnes) {
  for (const char* name : {"me@a[1].txt", "me@b[1].txt", "me@c[1].txt", "index.DAT"})
    computer.WriteFile(Cookies(name));
  KeepCookies({Cookies("me@b[1].txt"), Cookies("me@gone[1].txt")});

  form.lblManageCookiesOptionsLumaro.Click();
  lumaro::CookieManager& window = lumaro::ManageCookies().Get();
  EXPECT_EQ(desktop.windows, (Strings{"show frmManageCookies"}));
  EXPECT_EQ(Rows(window.lvwCookies), (Strings{Cookies("me@a[1].txt") + "|x", Cookies("me@b[1].txt") + "|",
                                              Cookies("me@c[1].txt") + "|x"}));
  int row = window.lvwCookies.FindText(Cookies("me@c[1].txt"));
  EXPECT_TRUE(window.UserTick(window.lvwCookies, row, false));
  window.UserSelect(window.lvwCookies, row);
  window.UserDoubleClick(window.lvwCookies, row);
  EXPECT_EQ(desktop.opened, (Strings{"content " + Cookies("me@c[1].txt")}));
  Strings kept;
  for (int i = 1; i <= window.lvwCookies.Count(); ++i)
    if (!window.lvwCookies.Checked(i)) kept.push_back(std::string(window.lvwCookies.Text(i)));
  EXPECT_EQ(kept.size(), 2u);
  window.lblClose.Click();

  EXPECT_EQ(lumaro::ManageCookies().Loaded(), nullptr);
  EXPECT_EQ(computer.ReadFile(Install("Cookies.txt")), core::Lines(kept) + "\r\n");
}

TEST_F(LumaroTest, CookieManagerForgetsWhereAllAreTickedOrNoneAreThere) {
  computer.WriteFile(Cookies("me@a[1].txt"));
  KeepCookies({Cookies("me@gone[1].txt")});
  core::CloseForm(lumaro::ManageCookies().Get());
  EXPECT_EQ(computer.ReadFile(Install("Cookies.txt")), "");

  struct Denied : WatchedFiles {
    using WatchedFiles::WatchedFiles;
    platform::Status Walk(std::string_view, const platform::WalkOptions&, platform::TreeVisitor&) override {
      return platform::Status::Denied;
    }
  };
  KeepCookies({Cookies("me@a[1].txt")});
  {
    Denied denied(computer.Machine());
    core::CloseForm(lumaro::ManageCookies().Get());
  }
  EXPECT_EQ(desktop.boxes, (Strings{"critical|Drive error|Scanning Cookie directory returned with error\r\n"
                                    "Unable to list cookies..."}));
  EXPECT_EQ(computer.ReadFile(Install("Cookies.txt")), "");
  desktop.Clear();

  KeepCookies({Cookies("me@a[1].txt")});
  computer.Remove(Cookies());
  core::CloseForm(lumaro::ManageCookies().Get());
  EXPECT_EQ(desktop.boxes,
            (Strings{"critical|Drive error...|Retrieving the path to Cookie directory returned with error\r\n"
                     "Scanning Cookie directory will be terminated"}));
  EXPECT_EQ(computer.ReadFile(Install("Cookies.txt")), "");
}

TEST_F(LumaroTest, CookieThatTheCodePageCannotHoldLeavesTheFileAsItWas) {
  computer.WriteFile(Cookies("me@\u4E2D[1].txt"));
  KeepCookies({Cookies("me@a[1].txt")});
  std::string before = computer.ReadFile(Install("Cookies.txt"));
  lumaro::CookieManager& window = lumaro::ManageCookies().Get();
  window.UserTick(window.lvwCookies, 1, false);
  window.lvwCookies.SetChecked(1, false);
  core::CloseForm(window);
  EXPECT_EQ(desktop.CountBoxes("Procedure: RememberCookies "), 1);
  EXPECT_EQ(computer.ReadFile(Install("Cookies.txt")), before);
  EXPECT_EQ(lumaro::ManageCookies().Loaded(), nullptr);
}

// The user-defined folders.

class FoldersPage : public LumaroTest {
 protected:
  FoldersPage() { form.ShowPage(form.fraUserDefinedFoldersLumaro); }
  controls::ListView& List() { return form.lvwUserDefinedFoldersLumaro; }
  Strings Labels() {
    Strings labels;
    for (int index : {1, 0})
      for (auto* array :
           {&form.lblTotalFilesUserDefinedFoldersLumaro, &form.lblTotalFoldersUserDefinedFoldersLumaro,
            &form.lblTotalSpaceUserDefinedFoldersLumaro})
        labels.push_back((*array)[index].Caption);
    return labels;
  }
  const Strings kNothing = {"Files: 0",       "Folders: 0",       "Space: 0 KB",
                            "Total files: 0", "Total folders: 0", "Total space: 0 KB"};
};

TEST_F(FoldersPage, ClickMeasuresTheSelectedAndAllTickedFolders) {
  computer.WriteFile("C:\\One\\a", std::string(100, 'x'));
  computer.WriteFile("C:\\One\\sub\\b", std::string(1024, 'x'));
  computer.WriteFile("C:\\Two\\c", std::string(2048, 'x'));
  computer.WriteFile("C:\\Three\\d", std::string(4096, 'x'));
  ShowFolder("C:\\One", true);
  ShowFolder("C:\\One\\sub", true);
  ShowFolder("C:\\Two", false);
  ShowFolder("C:\\Three", true);
  form.UserSelect(List(), 3);
  EXPECT_EQ(Labels(), (Strings{"Files: 1", "Folders: 0", "Space: 2 KB", "Total files: 4", "Total folders: 1",
                               "Total space: 6.1 KB"}));
  // A ticked row that is selected counts for both.
  form.UserSelect(List(), 1);
  EXPECT_EQ(Labels(), (Strings{"Files: 2", "Folders: 1", "Space: 1.1 KB", "Total files: 4",
                               "Total folders: 1", "Total space: 6.1 KB"}));
  EXPECT_EQ(desktop.pointer, platform::Pointer::Default);

  form.UserClick(form.cmdUnselectAllUserDefinedFoldersLumaro);
  EXPECT_EQ(Labels(), kNothing);
  EXPECT_EQ(List().CheckedCount(), 0);
  List().Select(0);
  form.UserClick(form.cmdSelectAllUserDefinedFoldersLumaro);
  EXPECT_EQ(Labels()[0], "Files: 0");
  EXPECT_EQ(Labels()[5], "Total space: 8.1 KB");

  List().Clear();
  List().Click();
  EXPECT_EQ(Labels(), kNothing);
}

TEST_F(FoldersPage, FolderThatCannotBeReadIsToldAndTheTotalsStillWorkedOut) {
  computer.WriteFile("C:\\One\\a", std::string(1024, 'x'));
  ShowFolder("not a path", false);
  ShowFolder("C:\\One", true);
  form.UserSelect(List(), 1);
  EXPECT_EQ(desktop.boxes, (Strings{"critical|Drive error...|Scanning drive returned with error\r\n"
                                    "Scanning drive will be terminated"}));
  EXPECT_EQ(Labels(), (Strings{"Files: 0", "Folders: 0", "Space: 0 KB", "Total files: 1", "Total folders: 0",
                               "Total space: 1 KB"}));
}

TEST_F(FoldersPage, FoldersAreAddedOnceAndNotThoseBuiltIn) {
  for (const std::string& folder : {std::string(), std::string("C:\\One"), std::string("C:\\One"),
                                    Temp() + "\\", core::Fold(Recent()), Temp("sub")})
    desktop.PickFolder(folder);
  desktop.Type("Old things");
  desktop.Type("");
  for (int i = 0; i < 6; ++i) form.UserClick(form.cmdAddUserDefinedFoldersLumaro);
  EXPECT_EQ(Rows(List()), (Strings{"C:\\One|Old things", Temp("sub") + "|"}));
  const std::string refused =
      "exclamation|User Defined Folders...|Folder is already added to the list, or built into Lumaro ";
  const std::string asked = "input|Clear folder|Why clear this folder|Garbage folder";
  EXPECT_EQ(desktop.boxes, (Strings{asked, refused + "C:\\One", refused + Temp() + "\\",
                                    refused + core::Fold(Recent()), asked}));
}

TEST_F(FoldersPage, RemovingAndModifyingReachTheStoreAtOnce) {
  auto stored = [&](const char* folder) {
    return computer.HasValue(core::keys::kUserDefinedFolders, folder) ||
           computer.HasValue(core::keys::kSelectedUserDefinedFolders, folder);
  };
  computer.MakeFolder("C:\\One");
  for (const char* folder : {"C:\\One", "C:\\Two"}) {
    StoreFolder(folder, "True");
    List().SetSubItem(ShowFolder(folder, true), 1, "why");
  }
  form.UserClick(form.cmdRemoveUserDefinedFoldersLumaro);
  form.UserClick(form.cmdModifyUserDefinedFoldersLumaro);
  EXPECT_TRUE(desktop.boxes.empty());

  List().Select(1);
  desktop.Answer(BoxAnswer::No);
  form.UserClick(form.cmdRemoveUserDefinedFoldersLumaro);
  EXPECT_EQ(List().Count(), 2);
  desktop.Answer(BoxAnswer::Yes);
  form.UserClick(form.cmdRemoveUserDefinedFoldersLumaro);
  EXPECT_EQ(
      desktop.boxes.back(),
      "exclamation?|Remove Folder|Confirm remove folder: C:\\One\r\nFolder will only be removed from the "
      "Folder List");
  EXPECT_EQ(Rows(List()), (Strings{"C:\\Two|xwhy"}));
  EXPECT_FALSE(stored("C:\\One"));
  EXPECT_TRUE(stored("C:\\Two"));
  EXPECT_TRUE(computer.Exists("C:\\One"));

  List().Select(1);
  desktop.PickFolder("");
  desktop.Type("other");
  form.UserClick(form.cmdModifyUserDefinedFoldersLumaro);
  EXPECT_EQ(desktop.boxes.back(), "input|Clear folder|Why clear this folder|why");
  EXPECT_EQ(Rows(List()), (Strings{"C:\\Two|xother"}));
  EXPECT_TRUE(stored("C:\\Two"));
  desktop.PickFolder(Temp());
  desktop.Type("");
  form.UserClick(form.cmdModifyUserDefinedFoldersLumaro);
  EXPECT_EQ(Rows(List()), (Strings{Temp() + "|x"}));
  EXPECT_FALSE(stored("C:\\Two"));
}

TEST_F(FoldersPage, KeptFoldersAreRefusedAndTheUsersOwnAskedAbout) {
  const std::string documents = "C:\\Users\\User\\Documents";
  computer.MakeFolder(documents);
  computer.MakeFolder("C:\\a\\Windows");
  auto add = [&](const std::string& folder) {
    desktop.PickFolder(folder);
    form.UserClick(form.cmdAddUserDefinedFoldersLumaro);
  };
  add("C:\\Windows");
  EXPECT_EQ(desktop.CountBoxes("This folder is never cleared: C:\\Windows\r\nBecause "), 1);
  desktop.Answer(BoxAnswer::No);
  add(documents);
  EXPECT_EQ(desktop.CountBoxes("exclamation?|User Defined Folders...|Clearing this folder removes"), 1);
  EXPECT_EQ(List().Count(), 0);
  desktop.Answer(BoxAnswer::Yes);
  desktop.Type("mine");
  add(documents);
  EXPECT_EQ(Rows(List()), Strings{documents + "|mine"});
  // A modified one as well.
  List().Select(1);
  desktop.PickFolder("C:\\Users");
  desktop.Type("mine");
  form.UserClick(form.cmdModifyUserDefinedFoldersLumaro);
  EXPECT_EQ(Rows(List()), Strings{documents + "|mine"});
  // And one that is found.
  computer.SetValue(core::keys::kDrives, "C:\\", "Fixed Drive");
  form.UserType(form.txtListFoldersUserDefinedFoldersLumaro, "windows");
  form.UserClick(form.cmdListFoldersUserDefinedFoldersLumaro);
  EXPECT_EQ(desktop.CountBoxes("Not listed, because they aren't cleared unasked: "), 1);
  EXPECT_EQ(Rows(List()), (Strings{documents + "|mine", "C:\\a\\Windows|Garbage folder"}));
}

TEST_F(FoldersPage, SearchFindsFoldersByTheirWholeName) {
  for (const char* folder : {"C:\\a\\Junk", "C:\\a\\sub\\JUNK\\b\\junk", "C:\\a\\Junk2", "C:\\listed\\junk"})
    computer.MakeFolder(folder);
  computer.MakeLink("C:\\linked", "C:\\a");
  computer.SetValue(core::keys::kDrives, "C:\\", "Fixed Drive");
  ShowFolder("C:\\listed\\junk", false);

  form.UserClick(form.cmdListFoldersUserDefinedFoldersLumaro);
  EXPECT_EQ(desktop.boxes,
            (Strings{"exclamation|Missing Folder name...|Type in a Folder name to list in List These "
                     "Folders"}));
  form.UserType(form.txtListFoldersUserDefinedFoldersLumaro, "temp");
  form.UserClick(form.cmdListFoldersUserDefinedFoldersLumaro);
  EXPECT_EQ(Rows(List()), (Strings{"C:\\Program Files\\Tidorra\\Temp|Garbage folder",
                                   "C:\\Windows\\Temp|Garbage folder", "C:\\listed\\junk|"}));
  List().Clear();
  form.UserType(form.txtListFoldersUserDefinedFoldersLumaro, "jUNk");
  form.chkStartListInFolderUserDefinedFoldersLumaro.Value = 1;
  desktop.PickFolder("");
  form.UserClick(form.cmdListFoldersUserDefinedFoldersLumaro);
  EXPECT_EQ(List().Count(), 0);
  desktop.PickFolder("C:\\a");
  form.UserClick(form.cmdListFoldersUserDefinedFoldersLumaro);
  EXPECT_EQ(List().Count(), 3);
  desktop.PickFolder("C:\\a");
  form.UserClick(form.cmdListFoldersUserDefinedFoldersLumaro);
  EXPECT_EQ(List().Count(), 3) << "once each";
  EXPECT_EQ(desktop.boxes.size(), 1u);
}

TEST_F(FoldersPage, PageOpensMeasuredAndARowOpensItsFolder) {
  computer.WriteFile("C:\\One\\a");
  ShowFolder("C:\\One", true);
  form.ShowPage(form.fraScanComputerLumaro);
  form.UserClick(form.lblMoreFoldersOptionsLumaro);
  EXPECT_EQ(form.CurrentPage(), &form.fraUserDefinedFoldersLumaro);
  EXPECT_EQ(Labels()[3], "Total files: 1");
  List().Select(1);
  form.UserDoubleClick(List(), 1);
  desktop.openFolderResult = 2;
  form.UserDoubleClick(List(), 1);
  EXPECT_EQ(desktop.opened, (Strings{"folder C:\\One", "folder C:\\One"}));
  EXPECT_EQ(desktop.boxes, (Strings{"critical|Open directory...|Open the directory C:\\One failed"}));
}

}  // namespace
}  // namespace test
