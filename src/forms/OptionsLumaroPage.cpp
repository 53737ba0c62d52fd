#include "forms/OptionsLumaroPage.h"

#include "forms/Page.h"

namespace forms {

using namespace controls;

OptionsLumaroPage::OptionsLumaroPage() {
  Design(chkLoadOnWindowsStartupOptionsLumaro, "Load Lumaro on Windows startup (System Tray)");
  Design(chkAddToSystemTrayOptionsLumaro, "Add Lumaro to System Tray on Close", 'A');
  Link(lblAdvancedLumaro, "Advanced settings", 'g');
  Link(lblManageCookiesOptionsLumaro, "Manage Cookies", 'M');
}

Layout OptionsLumaroPage::OptionsLumaroLayout(NavigationControls& shared, LumaroPlaces& places) {
  auto all = [&places](auto& boxes) {
    std::vector<Layout> layouts;
    for (const PlaceBox& box : boxes) layouts.push_back(places.*box.box);
    return layouts;
  };
  return Page(fraOptionsLumaro,
              {"Options...", HeadLine("Available Internet settings to set when using Lumaro"),
               &shared.lblHome[home::OptionsLumaro]},
              {
                  Grid(2, all(kInternetBoxes)).Gap(4),
                  HeadLine("Available directories to set when using Lumaro"),
                  Rule(),
                  Column(all(kFolderBoxes)).Gap(4),
                  Rule(),
                  Column({chkLoadOnWindowsStartupOptionsLumaro, chkAddToSystemTrayOptionsLumaro}).Gap(4),
                  Spring(),
              },
              {shared.cmdBack[back::OptionsLumaro], Spring(), lblManageCookiesOptionsLumaro, Space(8),
               lblAdvancedLumaro});
}

}  // namespace forms
