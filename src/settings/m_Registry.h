// The settings between the registry, the cache and the screens. The other half of this module, which fills
// and saves the lists, is in m_RegistryLists.h.
#pragma once

#include <string>

#include "forms/frmMain.h"

namespace m_Registry {

// Fills the cache gRegistry from the store. False if a failure was raised on the way, of which nothing is
// shown; what was read by then stays. An absent value reads as an empty text and is no failure.
bool ReadRegistrySettings();

// Fills the option controls from the cache, in the order of the table; the page-file option from Windows' own
// value. A text that doesn't convert shows the error report and leaves that row and the rest as the form's
// design has them.
void AssignOptionSettings(frmMain& form);
// Writes the options to the store, and the date to "Last used". A control that a failed fill left untouched,
// and that nothing has changed since, is passed over. The results of the writes are not looked at.
void SaveOptionSettings(frmMain& form);

// The status panel of the welcome page, from the store as it stands.
void AssignCleaningStatus(frmMain& form);
// Folds the session's counters into the store and sets them to 0. A statistic that is missing shows the error
// report, and then nothing is written and the counters stay.
void SaveCleaningStatus();

}  // namespace m_Registry
