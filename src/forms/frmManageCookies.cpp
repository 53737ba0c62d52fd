#include "forms/frmManageCookies.h"

#include "forms/Page.h"

using namespace controls;

frmManageCookies::frmManageCookies() : Form("frmManageCookies") {
  Caption = "Manage Cookies.";
  DefaultWidth = 640;
  DefaultHeight = 480;
  MinWidth = 400;
  MinHeight = 320;

  lvwCookies.Columns = {{"Cookies", 480, true}};
  lvwCookies.CheckBoxes = true;
  lvwCookies.SmallIcons = {"cookies"};
  lvwCookies.EmptyText = "No cookies";
  lvwCookies.AccessibleName = "Cookies";
  forms::Link(lblClose, "Close", 'C');

  SetLayout(forms::Window(
      Text("Cookie Manager", LabelStyle::TopStrip),
      {forms::HeadLine("Manage Cookie Files"), Item(lvwCookies).Stretch().Min(0, 120),
       Text("Important: Unselect the Cookies that you don't want to delete", LabelStyle::Quiet).Wrap()},
      {Spring(), lblClose}));
}
