#include "forms/NavigationControls.h"

#include "forms/Page.h"

namespace forms {

NavigationControls::NavigationControls() {
  for (int index : lblHome.Indices()) {
    Link(lblHome[index], "Home", 'o', "Go home");
    lblHome[index].Picture = "ui-home";
  }

  auto onward = [this](int index, const char* tip) {
    Design(cmdNext[index], "Next", 'x', tip);
    cmdNext[index].Picture = "ui-next";
  };
  onward(next::Cleaning, "Go forward to exclude");
  onward(next::Drives, "Go forward  to cleaning");
  onward(next::FileFilters, "Go forward to drives");
  onward(next::Exclude, "Go forward to include");

  auto backward = [this](int index, const char* tip) {
    Design(cmdBack[index], "Back", 'k', tip);
    cmdBack[index].Picture = "ui-back";
  };
  backward(back::Cleaning, "Go back to drives");
  backward(back::Drives, "Go back to file filters");
  backward(back::Results, "Go back to scan computer");
  backward(back::Include, "Go back to exclude");
  backward(back::FileFilters, "Go back to options");
  backward(back::Exclude, "Go back to cleaning");
  backward(back::Advanced, "Go back to options");
  backward(back::OptionsBrasmir, "Go back to scan computer");
  backward(back::OptionsLumaro, "Go back to scan computer");
  backward(back::UserDefinedFolders, "Go back to options");

  imgUser[RebootMark].Image = "image-36-reboot";
  imgUser[ScheduleMark].Image = "image-41-schedule";
  for (int index : imgUser.Indices()) Hide(imgUser[index]);
}

}  // namespace forms
