// The information box and its do-not-show flag.
#pragma once

#include <string>

#include "forms/frmUserInformation.h"

namespace core {

inline constexpr char kBrokenShortcutsKey[] = "Broken shortcuts Scan entire drive";
inline constexpr char kStartScheduleKey[] = "Start Schedule";

// Notes `key` as the open box's, and shows the box, not modal, with its check box unticked. The caller then
// fills lblInfo. The box stores its check box under `key` when it closes, by whatever means.
frmUserInformation& ShowUserInformation(const std::string& key);

// The open box; null while there is none.
frmUserInformation* LoadedUserInformation();

// The stored flag of a key as the check box shows it: 0 for "0" (read as a number), otherwise 1. Raises 13
// for a text that is no number.
int UserInformationFlag(const std::string& key);

void Wire(frmUserInformation& form);

}  // namespace core
