// The pages "File filters..." and "Exclude...", and the window of excluded zero-byte files.

#include "core/OpenForms.h"
#include "platform/LibRegistry.h"
#include "scan/ExcludedZeroByteFilesFileFilters.h"
#include "scan/ScanFixture.h"
#include "scan/m_FileFilters.h"

namespace test {
namespace {

using platform::BoxAnswer;

class FiltersPageTest : public ScanTest {
 protected:
  FiltersPageTest() {
    form.ShowPage(form.fraFileFiltersBrasmir);
    for (const char* filter : {".tmp", "old"}) {
      Filter(filter, "True");
      computer.SetValue(core::keys::kExcludeZeroByteFiles, filter, "True");
      form.lvwFileFiltersBrasmir.SetSubItem(form.lvwFileFiltersBrasmir.AddRow(filter, 2), 1, "Why");
    }
  }
  void Type(const std::string& filter, const std::string& description) {
    form.UserType(form.txtFilterFileFiltersBrasmir, filter);
    form.UserType(form.txtDescriptionFileFiltersBrasmir, description);
  }
  Strings Filters() const { return Entries(form.lvwFileFiltersBrasmir); }
  std::string Info() const { return form.lblUserInfoFileFiltersBrasmir.Caption; }
  std::string ModifyCaption() const { return form.cmdModifyFileFiltersBrasmir.Caption; }
  bool Stored(const char* key, const std::string& filter) { return computer.HasValue(key, filter); }

  const std::string kDuplicate = "exclamation|Duplicate file filter...|File filter already exists in list";
  const std::string kEmpty =
      "information|Add new file filter...|Type in Filter and Description to add a new file filter";
};

TEST_F(FiltersPageTest, Adding) {
  form.UserClick(form.cmdAddFileFiltersBrasmir);
  EXPECT_EQ(LastBox(), kEmpty);
  Type(".TMP", "other");
  form.UserClick(form.cmdAddFileFiltersBrasmir);
  EXPECT_EQ(LastBox(), kDuplicate);
  EXPECT_EQ(Filters(), Strings({".tmp|Why", "old|Why"}));

  Type("~", "");
  form.UserClick(form.cmdAddFileFiltersBrasmir);
  EXPECT_EQ(Filters(), Strings({".tmp|Why", "old|Why", "+~|User Defined"}));
  EXPECT_EQ(form.lvwFileFiltersBrasmir.SmallIcon(3), 2);
  EXPECT_EQ(Info(), "Filter ~ saved");
  EXPECT_EQ(computer.GetValue(core::keys::kExcludeZeroByteFiles, "~"), "False");
  EXPECT_FALSE(Stored(core::keys::kFileFilters, "~"));  // comes with the next save
  EXPECT_EQ(form.txtFilterFileFiltersBrasmir.Text, "~");
}

TEST_F(FiltersPageTest, Modifying) {
  form.UserClick(form.cmdModifyFileFiltersBrasmir);  // no row selected
  EXPECT_EQ(ModifyCaption(), "Modify");
  form.lvwFileFiltersBrasmir.SetChecked(1, true);
  form.UserSelect(form.lvwFileFiltersBrasmir, 1);
  form.UserClick(form.cmdModifyFileFiltersBrasmir);
  EXPECT_EQ(ModifyCaption(), "Save");
  EXPECT_EQ(form.txtFilterFileFiltersBrasmir.Text, ".tmp");
  EXPECT_EQ(form.txtDescriptionFileFiltersBrasmir.Text, "Why");

  const struct {
    const char *filter, *description;
    const std::string& box;
  } refused[] = {{".tmp", "Why", kDuplicate},
                 {".TMP", "Why", kDuplicate},
                 {"OLD", "Why", kDuplicate},
                 {"OLD", "other", kDuplicate},  // the filter of another row, whatever the description
                 {"", "Why", kEmpty}};
  for (const auto& edit : refused) {
    computer.desktop.boxes.clear();
    Type(edit.filter, edit.description);
    form.UserClick(form.cmdModifyFileFiltersBrasmir);
    EXPECT_EQ(computer.desktop.boxes, Strings({edit.box})) << edit.filter;
    EXPECT_EQ(ModifyCaption(), "Save");
    EXPECT_EQ(Filters(), Strings({"+.tmp|Why", "old|Why"}));
    EXPECT_TRUE(Stored(core::keys::kFileFilters, ".tmp"));
  }

  Type(".temp", "");
  form.UserClick(form.cmdModifyFileFiltersBrasmir);
  EXPECT_EQ(Filters(), Strings({"+.temp|User Defined", "old|Why"}));
  EXPECT_EQ(Info(), "Filter .temp changed");
  EXPECT_EQ(ModifyCaption(), "Modify");
  EXPECT_EQ(form.txtFilterFileFiltersBrasmir.Text, "");
  for (const char* key :
       {core::keys::kFileFilters, core::keys::kSelectedFileFilters, core::keys::kExcludeZeroByteFiles})
    EXPECT_FALSE(Stored(key, ".tmp")) << key;
  EXPECT_EQ(computer.GetValue(core::keys::kExcludeZeroByteFiles, ".temp"), "True");
  EXPECT_EQ(computer.GetValue(core::keys::kFileFilters, ".temp"), "User Defined");
  EXPECT_EQ(computer.GetValue(core::keys::kSelectedFileFilters, ".temp"), "True");

  // A new description alone, in other capitals.
  form.UserClick(form.cmdModifyFileFiltersBrasmir);
  Type(".temp", "user defined");
  form.UserClick(form.cmdModifyFileFiltersBrasmir);
  EXPECT_EQ(Filters().front(), "+.temp|user defined");

  // A click on the list abandons an edit.
  form.UserClick(form.cmdModifyFileFiltersBrasmir);
  form.UserSelect(form.lvwFileFiltersBrasmir, 2);
  EXPECT_EQ(ModifyCaption(), "Modify");
  EXPECT_EQ(form.txtFilterFileFiltersBrasmir.Text, "");
  EXPECT_EQ(Filters().front(), "+.temp|user defined");
}

TEST_F(FiltersPageTest, RemovingAndSelecting) {
  form.UserClick(form.cmdRemoveFileFiltersBrasmir);
  EXPECT_EQ(computer.desktop.boxes, Strings());
  form.UserClick(form.cmdSelectAllFileFiltersBrasmir);
  EXPECT_EQ(Filters(), Strings({"+.tmp|Why", "+old|Why"}));
  form.UserClick(form.cmdUnSelectAllFileFiltersBrasmir);
  EXPECT_EQ(Filters(), Strings({".tmp|Why", "old|Why"}));

  form.UserSelect(form.lvwFileFiltersBrasmir, 2);
  computer.desktop.Answer(BoxAnswer::No);
  form.UserClick(form.cmdRemoveFileFiltersBrasmir);
  EXPECT_EQ(LastBox(), "information?|Remove File Filter|Confirm remove file filter old");
  EXPECT_TRUE(Stored(core::keys::kFileFilters, "old"));
  computer.desktop.Answer(BoxAnswer::Yes);
  form.UserClick(form.cmdRemoveFileFiltersBrasmir);
  EXPECT_EQ(Filters(), Strings({".tmp|Why"}));
  EXPECT_EQ(Info(), "Filter old removed");
  for (const char* key :
       {core::keys::kFileFilters, core::keys::kSelectedFileFilters, core::keys::kExcludeZeroByteFiles}) {
    EXPECT_FALSE(Stored(key, "old")) << key;
    EXPECT_TRUE(Stored(key, ".tmp")) << key;
  }
}

TEST_F(FiltersPageTest, TryingAFilter) {
  auto test = [&](const std::string& name, const std::string& filter) {
    form.UserType(form.txtFileNameFileFiltersBrasmir, name);
    Type(filter, "");
    form.lblUserInfoFileFiltersBrasmir.Caption = "";
    form.UserClick(form.lblTestFilterFileFiltersBrasmir);
    return Info();
  };
  EXPECT_EQ(test("", ".tmp"), "");
  EXPECT_EQ(test("a.tmp", ""), "");
  EXPECT_EQ(
      computer.desktop.boxes,
      Strings(
          2,
          "information|Test filter...|Type in Filter and File name to test filter against the scan engine"));
  EXPECT_EQ(test("a.TMP2", ".tmp"), "Filter matched...");
  EXPECT_EQ(test("a.tmp", "*.tmp"), "No filter match...");
  // A typed path is taken as it is.
  EXPECT_EQ(test("C:\\Cache\\a.txt", "cache"), "Filter matched...");
  EXPECT_EQ(test("C:\\Data\\a.log", "a.log"), "No filter match...");
  EXPECT_EQ(test("C:\\Da.ta\\plain", ".ta"), "No filter match...");
}

TEST_F(FiltersPageTest, TheWindowOfExcludedZeroByteFiles) {
  EXPECT_FALSE(form.UserClick(form.lblExcludeZeroByteFilesFileFiltersBrasmir));
  form.UserCheck(form.chkExcludeZeroByteFilesFilterFileFiltersBrasmir, true);
  computer.SetValue(core::keys::kFileFiltersExclude, "Apply list in global scanning", "1");
  computer.SetValue(core::keys::kExcludeZeroByteFiles, "gone from the list", "False");
  ASSERT_TRUE(form.UserClick(form.lblExcludeZeroByteFilesFileFiltersBrasmir));
  ASSERT_EQ(core::OpenForms().size(), 1u);
  auto& window = static_cast<frmExcludedZeroByteFilesFileFilters&>(*core::OpenForms().front());
  EXPECT_EQ(window.skn.Picture, TestComputer::InstallDirectory() + "Skin\\Zinc-blue2.bmp");
  EXPECT_EQ(Entries(window.lvwFileFilters), Strings({"+.tmp|", "+old|", "gone from the list|"}));
  EXPECT_EQ(window.chkApplyListInGlobalScanning.Value, 1);
  EXPECT_EQ(gRegistry->ApplyListToGlobalScanningBrsm, "1");
  EXPECT_EQ(computer.desktop.doEvents, 1);

  window.UserTick(window.lvwFileFilters, 1, false);
  window.UserCheck(window.chkApplyListInGlobalScanning, false);
  window.UserClick(window.lblClose);
  EXPECT_TRUE(core::OpenForms().empty());
  EXPECT_EQ(computer.GetValue(core::keys::kExcludeZeroByteFiles, ".tmp"), "False");
  EXPECT_EQ(computer.GetValue(core::keys::kExcludeZeroByteFiles, "old"), "True");
  EXPECT_EQ(computer.GetValue(core::keys::kFileFiltersExclude, "Apply list in global scanning"), "0");
  EXPECT_EQ(gRegistry->ApplyListToGlobalScanningBrsm, "0");
  EXPECT_EQ(computer.desktop.boxes, Strings());
}

TEST_F(FiltersPageTest, TheWindowTellsFailures) {
  auto box = [](const std::string& cause, const char* code) {
    return "critical|Unexpected error|" + cause +
           "\r\nCheck your permission with administrator or reinstall to correct the settings\r\nError "
           "code: " +
           code;
  };
  computer.SetValue(core::keys::kFileFiltersExclude, "Apply list in global scanning", "0");
  FaultyMachine faulty(computer.Machine());
  faulty.registry.refuseNames = [](std::string_view) { return 5L; };
  auto* window = &scan::ShowExcludedZeroByteFilesFileFilters();
  EXPECT_EQ(computer.desktop.boxes, Strings({box("Error retrieve file filters from registry", "5")}));
  EXPECT_EQ(window->lvwFileFilters.Count(), 0);
  core::CloseForm(*window);

  // Only the last write of the rows counts.
  computer.desktop.boxes.clear();
  faulty.registry.refuseNames = nullptr;
  faulty.registry.refuseWrite = [](std::string_view, std::string_view name) {
    return name == ".tmp" ? 8L : 0L;
  };
  core::CloseForm(scan::ShowExcludedZeroByteFilesFileFilters());
  EXPECT_EQ(computer.desktop.boxes, Strings());
  faulty.registry.refuseWrite = [](std::string_view, std::string_view name) {
    return name == ".tmp" ? 0L : 9L;
  };
  core::CloseForm(scan::ShowExcludedZeroByteFilesFileFilters());
  EXPECT_EQ(computer.desktop.boxes, Strings({box("Saving file filters to registry failed", "9"),
                                             box("Saving settings to registry failed", "9")}));
}

class ExcludePageTest : public ScanTest {
 protected:
  ExcludePageTest() { form.ShowPage(form.fraExcludeBrasmir); }
  Strings Directories() const { return Entries(form.lvwExcludedFoldersBrasmir); }
  Strings Files() const { return Entries(form.lvwExcludedFilesBrasmir); }
};

TEST_F(ExcludePageTest, AddingByPickerAndByTyping) {
  computer.desktop.PickFolder("C:\\Data");
  computer.desktop.Type("because");
  form.UserClick(form.cmdAddDirectorieExcludeBrasmir);
  computer.desktop.PickFile("C:\\a.txt");
  computer.desktop.Type("");  // cancelled, and added all the same
  form.UserClick(form.cmdAddFileExcludeBrasmir);
  EXPECT_EQ(Directories(), Strings({"C:\\Data|because"}));
  EXPECT_EQ(Files(), Strings({"C:\\a.txt|"}));
  EXPECT_EQ(form.lvwExcludedFoldersBrasmir.SmallIcon(1), 3);
  EXPECT_EQ(form.lvwExcludedFilesBrasmir.SmallIcon(1), 7);
  EXPECT_EQ(computer.desktop.boxes,
            Strings({"input|Exclude directory|Why exclude this directory|Dangerous to remove files in",
                     "input|Exclude file|Why exclude this file|Dangerous to remove"}));
  EXPECT_EQ(computer.ValueNames(core::keys::kExcludedDirectories), Strings());  // comes with the next save

  computer.desktop.boxes.clear();
  form.UserCheck(form.chkEnableManualTypingExcludeBrasmir, true);
  computer.desktop.Type("C:\\Data");
  form.UserClick(form.cmdAddDirectorieExcludeBrasmir);
  computer.desktop.Type("C:\\a.txt");
  form.UserClick(form.cmdAddFileExcludeBrasmir);
  computer.desktop.Type("");
  form.UserClick(form.cmdAddDirectorieExcludeBrasmir);
  computer.desktop.Type("c:\\data");  // other capitals are another text
  computer.desktop.Type("why");
  form.UserClick(form.cmdAddDirectorieExcludeBrasmir);
  EXPECT_EQ(computer.desktop.boxes,
            Strings({"input|Exclude directory|Type in directory path to exclude|\\",
                     "exclamation|Exclude directory...|Directory is already added to the list ",
                     "input|Exclude file|Type in file to exclude|\\",
                     "exclamation|Exclude file...|File is already added to the list ",
                     "input|Exclude directory|Type in directory path to exclude|\\",
                     "input|Exclude directory|Type in directory path to exclude|\\",
                     "input|Exclude directory|Why exclude this directory|Dangerous to remove files in"}));
  EXPECT_EQ(Directories(), Strings({"C:\\Data|because", "c:\\data|why"}));
}

TEST_F(ExcludePageTest, Removing) {
  form.UserClick(form.cmdRemoveDirectorieExcludeBrasmir);
  form.UserClick(form.cmdRemoveFileExcludeBrasmir);
  EXPECT_EQ(computer.desktop.boxes, Strings());
  ExcludeDirectory("C:\\Data");
  ExcludeFile("a.txt");
  form.lvwExcludedFoldersBrasmir.AddRow("C:\\Data", 3);
  form.lvwExcludedFilesBrasmir.AddRow("a.txt", 7);
  form.UserSelect(form.lvwExcludedFoldersBrasmir, 1);
  form.UserSelect(form.lvwExcludedFilesBrasmir, 1);
  computer.desktop.Answer(BoxAnswer::No);
  form.UserClick(form.cmdRemoveDirectorieExcludeBrasmir);
  EXPECT_TRUE(computer.HasValue(core::keys::kExcludedDirectories, "C:\\Data"));
  computer.desktop.Answer(BoxAnswer::Yes);
  form.UserClick(form.cmdRemoveDirectorieExcludeBrasmir);
  computer.desktop.Answer(BoxAnswer::Yes);
  form.UserClick(form.cmdRemoveFileExcludeBrasmir);
  EXPECT_EQ(computer.desktop.boxes, Strings({"critical?|Remove Directory|Confirm remove Directory: C:\\Data",
                                             "critical?|Remove Directory|Confirm remove Directory: C:\\Data",
                                             "critical?|Remove File|Confirm remove File: a.txt"}));
  EXPECT_EQ(Directories(), Strings());
  EXPECT_EQ(Files(), Strings());
  EXPECT_FALSE(computer.HasValue(core::keys::kExcludedDirectories, "C:\\Data"));
  EXPECT_FALSE(computer.HasValue(core::keys::kExcludedFiles, "a.txt"));
}

TEST_F(ExcludePageTest, Modifying) {
  form.UserClick(form.cmdModifyDirectorieExcludeBrasmir);
  EXPECT_EQ(computer.desktop.boxes, Strings());
  ExcludeDirectory("C:\\Data");
  form.lvwExcludedFoldersBrasmir.SetSubItem(form.lvwExcludedFoldersBrasmir.AddRow("C:\\Data", 3), 1, "why");
  form.UserSelect(form.lvwExcludedFoldersBrasmir, 1);

  computer.desktop.PickFolder(
      "C:\\Data");  // unchanged: a duplicate, and the reason is asked for all the same
  computer.desktop.Type("better");
  form.UserClick(form.cmdModifyDirectorieExcludeBrasmir);
  EXPECT_EQ(Directories(), Strings({"C:\\Data|better"}));
  EXPECT_EQ(computer.desktop.boxes,
            Strings({"exclamation|Exclude directory...|Directory is already added to the list ",
                     "input|Exclude directory|Why exclude this directory|why"}));

  computer.desktop.boxes.clear();
  form.UserCheck(form.chkEnableManualTypingExcludeBrasmir, true);
  computer.desktop.Type("C:\\Other");
  computer.desktop.Type("");
  form.UserClick(form.cmdModifyDirectorieExcludeBrasmir);
  EXPECT_EQ(computer.desktop.boxes,
            Strings({"input|Exclude directory|Type in directory path to exclude|C:\\Data",
                     "input|Exclude directory|Why exclude this directory|better"}));
  EXPECT_EQ(Directories(), Strings({"C:\\Other|better"}));
  {
    // What can't be written changes nothing.
    FaultyMachine faulty(computer.Machine());
    faulty.registry.refuseWrite = [](std::string_view, std::string_view) { return 5; };
    computer.desktop.Type("C:\\Third");
    computer.desktop.Type("");
    form.UserClick(form.cmdModifyDirectorieExcludeBrasmir);
    EXPECT_EQ(computer.desktop.CountBoxes("Saving excluded directories to registry failed"), 1);
    EXPECT_EQ(Directories(), Strings({"C:\\Other|better"}));
  }
  EXPECT_EQ(computer.ValueNames(core::keys::kExcludedDirectories), Strings({"C:\\Other"}));
  EXPECT_EQ(computer.GetValue(core::keys::kExcludedDirectories, "C:\\Other"), "better");

  computer.desktop.Type("");
  computer.desktop.Type("last");
  form.UserClick(form.cmdModifyDirectorieExcludeBrasmir);
  EXPECT_EQ(Directories(), Strings({"C:\\Other|last"}));
}

}  // namespace
}  // namespace test
