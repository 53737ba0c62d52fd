// What several rooms do with the main window's controls.

#include "UiFixture.h"
#include "pages/m_Controls.h"

namespace {

class ControlsTest : public UiFixture {};

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
