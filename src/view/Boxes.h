// The small modal windows.
#pragma once

#include <string>
#include <wx/toplevel.h>

#include "platform/Desktop.h"

namespace view {

// `parent` null: in the middle of the screen and above all other windows. Widgets are named "Yes", "No",
// "OK", "Cancel" and "Text".
platform::BoxAnswer ShowMessage(wxTopLevelWindow* parent, const platform::Box& box);
// Empty if cancelled.
std::string AskText(wxTopLevelWindow* parent, const std::string& prompt, const std::string& title,
                    const std::string& defaultText);
// False if the file can't be looked at.
bool ShowFileProperties(wxTopLevelWindow* parent, const std::string& path);

}  // namespace view
