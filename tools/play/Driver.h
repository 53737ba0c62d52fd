// Works the program's windows as a person would: for tests and for pictures of the screens.
#pragma once

#include <chrono>
#include <functional>
#include <string>
#include <wx/toplevel.h>
#include <wx/window.h>

namespace play::driver {

// The visible window of this name (a control's name, or a box's "Yes", "No", "OK", "Text") in any open
// window; null if there is none.
wxWindow* Find(const std::string& name);
// The visible top-level window of this title.
wxTopLevelWindow* FindTop(const std::string& title);

// Real mouse and keyboard. Click goes to the middle of what answers a click; False if the control isn't in
// sight.
bool Click(const std::string& name);
bool RightClick(const std::string& name);
// A row of a list, counted from 1: its check box, or its text.
bool ClickRow(const std::string& list, int row, bool check = false);
bool RightClickRow(const std::string& list, int row);
bool DoubleClickRow(const std::string& list, int row);
bool Hover(const std::string& name);
void Type(const std::string& asciiText);
// A pop-up menu is open and takes the keys.
bool MenuIsOpen();
// A key with its modifiers (WXK_..., wxMOD_...).
void Press(int key, int modifiers = 0);

// Handles events until the predicate holds. Must be called from the message loop (from `start` or from a
// handler).
void WaitFor(const std::function<bool()>& predicate);
// Does `action`, once, as soon as the predicate holds; also while a box waits for its answer or a run pumps.
void When(std::function<bool()> predicate, std::function<void()> action);

// Says when a window has kept its place for long enough that a click won't miss it: a new window is moved
// about by the window manager, and a page that has just come to the front still lays itself out.
class Stillness {
 public:
  // To be asked again and again; `window` may be null, which is no place.
  bool Reached(const wxWindow* window);

 private:
  wxRect place_;
  std::chrono::steady_clock::time_point since_ = std::chrono::steady_clock::now();
};

// A PNG of the window with its frame, or of the whole screen. Paints first.
bool Screenshot(wxTopLevelWindow& window, const std::string& path);
bool ScreenshotScreen(const std::string& path);

}  // namespace play::driver
