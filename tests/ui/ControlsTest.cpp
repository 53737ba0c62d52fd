// What several rooms do with the main window's controls.
#include <algorithm>
#include <cctype>

#include "UiFixture.h"
#include "ui/controls/m_Controls.h"

namespace {

class ControlsTest : public UiFixture {};

TEST_F(ControlsTest, TheContextMenuStandsInItsPositions) {
  controls::PopupMenu menu;
  m_Controls::LoadMouseMenus(form, menu);
  m_Controls::LoadMouseMenus(form, menu);
  EXPECT_EQ(menu.Name, "FileMenu");
  std::vector<std::string> entries;
  std::string letters;
  for (const auto& entry : menu.Entries) {
    entries.push_back(entry.Caption.empty() ? "-" : entry.Caption + " " + entry.Picture);
    if (entry.Caption.empty()) continue;
    EXPECT_NE(entry.Caption.find(entry.Mnemonic), std::string::npos) << entry.Caption;
    letters += static_cast<char>(std::tolower(entry.Mnemonic));
  }
  EXPECT_EQ(entries,
            (std::vector<std::string>{
                "Open menu-01-open-file", "View content menu-02-view-file-content", "-",
                "Open container menu-03-open-container", "-", "Delete menu-05-delete",
                "Move to recycle bin menu-06-recycle-bin", "Erase menu-07-erase", "-",
                "Delete on windows startup menu-08-windows-startup", "-", "Properties menu-04-file-property",
                "-", "Exclude file menu-09-exclude-file", "Exclude directory menu-10-exclude-directory"}));
  std::sort(letters.begin(), letters.end());
  EXPECT_EQ(std::adjacent_find(letters.begin(), letters.end()), letters.end()) << "one letter, one entry";
}

TEST_F(ControlsTest, AScanShutsTheMenuAndACleanDoesNot) {
  form.lblUserDefinedFoldersScanComputerLumaro.Caption = "7";
  form.lblCookiesScanComputerLumaro.Caption = "7";
  m_Controls::SetControlsBeforeScanningLumaro(form);
  EXPECT_FALSE(form.pictMainMenu.Enabled);
  EXPECT_EQ(form.lblCookiesScanComputerLumaro.Caption.Get(), "0");
  EXPECT_EQ(form.lblUserDefinedFoldersScanComputerLumaro.Caption.Get(), "7") << "this one is left as it is";
  m_Controls::SetControlsAfterScanningLumaro(form);
  EXPECT_TRUE(form.pictMainMenu.Enabled);
  m_Controls::SetControlsBeforeScanningBrsm(form);
  EXPECT_FALSE(form.pictMainMenu.Enabled);
  form.ImgProcessBrasmir[0].Visible = true;
  m_Controls::SetControlsAfterScanningBrsm(form);
  EXPECT_TRUE(form.pictMainMenu.Enabled);
  EXPECT_TRUE(form.ImgProcessBrasmir[0].Visible) << "the marks stay";
  m_Controls::SetControlsBeforeCleaningBrsm(form);
  m_Controls::SetControlsBeforeCleaningLumaro(form);
  EXPECT_TRUE(form.pictMainMenu.Enabled);
  EXPECT_EQ(form.cmdDeleteResultsBrasmir.Caption.Get(), "Stop");
  EXPECT_EQ(form.cmdCleanUpScanComputerLumaro.Caption.Get(), "Stop");
}

}  // namespace
