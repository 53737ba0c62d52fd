#include "forms/frmUserInformation.h"

#include "forms/Page.h"

using namespace controls;

frmUserInformation::frmUserInformation() : Form("frmUserInformation") {
  Caption = "User Information.";
  DefaultWidth = 520;
  DefaultHeight = 300;
  MinWidth = 360;
  MinHeight = 240;

  forms::Design(lblTopInfo, "Important User Information");
  lblTopInfo.Style = LabelStyle::TopStrip;
  lblTopInfo.Picture = "ui-info";
  forms::Design(chkDoNotShowThisMessage, "Do not show this message again.", 'D');
  forms::Design(cmdClose, "Close", 'C');
  cmdClose.Cancel = true;
  cmdClose.Default = true;
  cmdClose.Primary = true;

  SetLayout(Column({forms::Band(lblTopInfo),
                    Column({Item(lblInfo).Stretch().Wrap(), Contain(fraSep, Rule()).Expand(),
                            forms::Actions({chkDoNotShowThisMessage}, {cmdClose})})
                        .Padding(16)
                        .Stretch()})
                .Gap(0));
}
