#include "forms/OptionsBrasmirPage.h"

#include "forms/Page.h"

namespace forms {

using namespace controls;

OptionsBrasmirPage::OptionsBrasmirPage() {
  Link(lblFileFiltersOptionsBrasmir, "Configure File Filters", 'F');
  Link(lblDrivesOptionsBrasmir, "Configure Drives", 'D');
  Link(lblCleaningOptionsBrasmir, "Configure Cleaning Methods", 'M');
  Link(lblExcludeOptionsBrasmir, "Configure Exclude Settings", 'E');
  Link(lblIncludeOptionsBrasmir, "Configure Include Settings", 'I');
}

Layout OptionsBrasmirPage::OptionsBrasmirLayout(NavigationControls& shared) {
  auto entry = [](const char* picture, Label& label, const char* line) {
    return Row({Image(picture, 24), Column({label, Text(line, LabelStyle::Quiet)}).Gap(4)}).Gap(12);
  };
  return Page(fraOptionsBrasmir, {"Options...", HeadLine("Select the options you want to configure")},
              {
                  Column({
                             entry("ui-file-filters", lblFileFiltersOptionsBrasmir,
                                   "Select different file filters used in scanning..."),
                             entry("ui-drives", lblDrivesOptionsBrasmir,
                                   "Select the drives to include in scanning..."),
                             entry("ui-cleaning", lblCleaningOptionsBrasmir,
                                   "Select method to use when cleaning files..."),
                             entry("ui-exclude", lblExcludeOptionsBrasmir,
                                   "Select directories to exclude in scanning..."),
                             entry("ui-include", lblIncludeOptionsBrasmir,
                                   "Select other options to include in scanning..."),
                         })
                      .Gap(12),
                  Spring(),
                  Text("Under the different screens you can navigate with Back and Next. "
                       "To go back to scan computer you can click Home in the upper right corner.",
                       LabelStyle::Quiet)
                      .Wrap(),
              },
              {shared.cmdBack[back::OptionsBrasmir], Spring()});
}

}  // namespace forms
