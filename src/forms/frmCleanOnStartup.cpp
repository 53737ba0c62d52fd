#include "forms/frmCleanOnStartup.h"

#include "forms/Page.h"

using namespace controls;

frmCleanOnStartup::frmCleanOnStartup() : Form("frmCleanOnStartup") {
  Caption = "Lumaro Cleaning.";
  Floating = true;
  Resizable = false;
  DefaultWidth = MinWidth = 360;
  DefaultHeight = MinHeight = 260;
  Timers = {&tmrShowSettings};
  Position.Width = DefaultWidth * kTwipsPerPixel;
  Position.Height = DefaultHeight * kTwipsPerPixel;

  anm.ToolTip = "Cleaning computer...";
  forms::Status(lblStatus);
  forms::Link(lblStop, "Stop Cleaning Computer", 'S', "Stop process from running...");
  lblStop.Picture = "ui-stop";

  SetLayout(
      Column({forms::Band(Text("Tidorra", LabelStyle::TopStrip)),
              Contain(fraRunningLumaro,
                      Column({Text("Cleaning Computer", LabelStyle::GroupHeading),
                              Text("Lumaro is now cleaning your computer based on the settings set under "
                                   "Lumaro - Options",
                                   LabelStyle::Quiet)
                                  .Wrap(),
                              Item(anm).Stretch(), Item(lblStatus).Expand(), lblStop})
                          .Padding(16)
                          .Stretch())
                  .Stretch()})
          .Gap(0));
}
