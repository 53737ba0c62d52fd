// Mouse, keyboard and screen, as the window system has them. One file implements it for each system.
#pragma once

#include <wx/gdicmn.h>
#include <wx/image.h>

namespace play::input {

// Input as if it came from the mouse and the keyboard; each returns at once, before it has arrived. Buttons
// are 1 (left) and 3 (right); keys are the toolkit's codes or characters.
void MoveMouse(const wxPoint& place);
void PressButton(int button, bool down);
void PressKey(int key, bool down);
// A pop-up menu is open and takes the keys.
bool MenuIsOpen();

// What the screen shows now.
wxImage CaptureScreen(const wxRect& area);

}  // namespace play::input
