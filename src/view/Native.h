// What the toolkit can't say and each window system must be told in its own way. One file implements it for
// each system; nothing else in this room knows which one it is.
#pragma once

#include <functional>
#include <optional>
#include <string>
#include <wx/artprov.h>
#include <wx/bmpbndl.h>
#include <wx/button.h>
#include <wx/colour.h>
#include <wx/dataview.h>
#include <wx/toplevel.h>
#include <wx/window.h>

namespace view::native {

// Once, after the toolkit has come up: from now on a request to end the program (SIGTERM, SIGINT) calls
// `onEnd` from the message loop, also from one that a long run pumps.
void Begin(std::function<void()> onEnd);
void End();

// How much larger than at 96 dpi with the usual font the user wants texts; 1 or more.
double TextScale();

// Handles what waits in the window system's queue and returns.
void ProcessEvents();
// The same, but drops what the user does with mouse and keyboard, except for clicks on `only` (may be null)
// and Space and Enter while it has the focus.
void ProcessEventsOnly(wxWindow* only);
// Paints what is out of date in the window before it returns. What the user does meanwhile stays in the
// queue.
void Paint(wxTopLevelWindow& window);

enum class Role { Text, Link, MenuItem, Chart, Group, Picture };
// What a screen reader says of a self-drawn window.
void SetAccessible(wxWindow& window, Role role, const wxString& name);
// The name alone, for a native control.
void SetAccessibleName(wxWindow& window, const wxString& name);

// A push button whose look the next two can change.
wxButton* MakeButton(wxWindow* parent, const wxString& label, long style, const wxString& name);
// Draws the button as the page's main action.
void MarkPrimary(wxButton& button);
// Lets the ground behind a button without frame be seen.
void MarkFlat(wxButton& button);

// Keeps `window` above `owner` (null for none) and out of the task bar.
void SetOwner(wxTopLevelWindow& window, wxTopLevelWindow* owner);
// Before it is first shown: a window without frame that goes exactly where it is put, also outside of the
// screen.
void MakeFloating(wxTopLevelWindow& window);
// In front and with the focus.
void BringToFront(wxTopLevelWindow& window);

// The height that the system's theme gives a widget of one line.
int NaturalHeight(wxWindow& widget);

// The native list behaves as ours does: no search box of its own.
void PrepareList(wxDataViewCtrl& list);
// The heads of the list's columns neither look nor answer like buttons. Once the columns are there.
void FlattenHeads(wxDataViewCtrl& list);
// The rows in sight are drawn anew, with what they are asked for then.
void RedrawRows(wxDataViewCtrl& list);
// Selects the row for the program, and lets the keyboard go on from there. Raises nothing.
void SelectItem(wxDataViewCtrl& list, const wxDataViewItem& item);

// What an ordinary window is painted with. Where the system lets what lies behind shine through, a self-drawn
// window needn't fill itself.
wxColour WindowColour();
bool ShinesThrough();

// The system's picture for a message box: wxART_ERROR, wxART_WARNING or wxART_INFORMATION, in pixels.
wxBitmapBundle BoxPicture(const wxArtID& art, int size);

// Opens a file or folder (a native path) with the program that the desktop has for it; false if there is
// none.
bool OpenWithDesktop(const std::string& nativePath);

// The system's own window with a file's properties; whether it is there, or empty for a system that has none.
std::optional<bool> ShowSystemProperties(wxTopLevelWindow* owner, const std::string& nativePath);

// Changes the display mode; the system's own result, -1 where a program can't.
long SetScreenResolution(int width, int height);

}  // namespace view::native
