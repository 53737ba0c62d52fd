#include "forms/NavigationControls.h"

#include "forms/Page.h"

namespace forms {

NavigationControls::NavigationControls() {
  for (int index : lblHome.Indices()) {
    Link(lblHome[index], "Home", 'o', "Go home");
    lblHome[index].Picture = "ui-home";
  }

  auto next = [this](int index, const char* tip) {
    Design(cmdNext[index], "Next", 'x', tip);
    cmdNext[index].Picture = "ui-next";
  };
  next(0, "Go forward to exclude");
  next(1, "Go forward  to cleaning");
  next(2, "Go forward to drives");
  next(3, "Go forward to include");

  auto back = [this](int index, const char* tip) {
    Design(cmdBack[index], "Back", 'k', tip);
    cmdBack[index].Picture = "ui-back";
  };
  back(0, "Go back to drives");
  back(1, "Go back to file filters");
  back(3, "Go back to scan computer");
  back(4, "Go back to exclude");
  back(5, "Go back to options");
  back(6, "Go back to cleaning");
  back(7, "Go back to options");
  back(8, "Go back to scan computer");
  back(9, "Go back to scan computer");
  back(10, "Go back to options");

  imgUser[36].Image = "image-36-reboot";
  imgUser[41].Image = "image-41-schedule";
  for (int index : imgUser.Indices()) Hide(imgUser[index]);
}

}  // namespace forms
