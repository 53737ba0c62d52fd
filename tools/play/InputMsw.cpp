// Input.h for Windows.
#include <wx/defs.h>

#ifdef __WXMSW__

#include <wx/bitmap.h>
#include <wx/dcmemory.h>
#include <wx/dcscreen.h>
#include <wx/msw/wrapwin.h>

#include "play/Input.h"

namespace play::input {

namespace {

void Send(INPUT input) {
  SendInput(1, &input, sizeof input);
}

}  // namespace

wxImage CaptureScreen(const wxRect& area) {
  wxScreenDC screen;
  wxBitmap picture(area.GetSize(), 24);
  wxMemoryDC target(picture);
  target.Blit(wxPoint(), area.GetSize(), &screen, area.GetPosition());
  target.SelectObject(wxNullBitmap);
  return picture.ConvertToImage();
}

void MoveMouse(const wxPoint& place) {
  // In 65536ths of the whole screen, and the middle of the pixel.
  INPUT input{};
  input.type = INPUT_MOUSE;
  input.mi.dx = MulDiv(place.x * 2 + 1, 32768, GetSystemMetrics(SM_CXSCREEN));
  input.mi.dy = MulDiv(place.y * 2 + 1, 32768, GetSystemMetrics(SM_CYSCREEN));
  input.mi.dwFlags = MOUSEEVENTF_MOVE | MOUSEEVENTF_ABSOLUTE;
  Send(input);
}

void PressButton(int button, bool down) {
  INPUT input{};
  input.type = INPUT_MOUSE;
  bool left = button == 1;
  input.mi.dwFlags = down ? (left ? MOUSEEVENTF_LEFTDOWN : MOUSEEVENTF_RIGHTDOWN)
                          : (left ? MOUSEEVENTF_LEFTUP : MOUSEEVENTF_RIGHTUP);
  Send(input);
}

void PressKey(int key, bool down) {
  struct Named {
    int key;
    WORD code;
    bool extended;  // not the one on the number block
  };
  static constexpr Named kNamed[] = {
      {WXK_RETURN, VK_RETURN, false},   {WXK_ESCAPE, VK_ESCAPE, false}, {WXK_TAB, VK_TAB, false},
      {WXK_DELETE, VK_DELETE, true},    {WXK_BACK, VK_BACK, false},     {WXK_UP, VK_UP, true},
      {WXK_DOWN, VK_DOWN, true},        {WXK_LEFT, VK_LEFT, true},      {WXK_RIGHT, VK_RIGHT, true},
      {WXK_HOME, VK_HOME, true},        {WXK_END, VK_END, true},        {WXK_PAGEUP, VK_PRIOR, true},
      {WXK_PAGEDOWN, VK_NEXT, true},    {WXK_F10, VK_F10, false},       {WXK_SHIFT, VK_SHIFT, false},
      {WXK_CONTROL, VK_CONTROL, false}, {WXK_ALT, VK_MENU, false},      {WXK_WINDOWS_MENU, VK_APPS, true}};
  auto press = [down](WORD code, bool extended) {
    INPUT input{};
    input.type = INPUT_KEYBOARD;
    input.ki.wVk = code;
    input.ki.dwFlags = (down ? 0u : KEYEVENTF_KEYUP) | (extended ? KEYEVENTF_EXTENDEDKEY : 0u);
    Send(input);
  };
  for (const Named& named : kNamed)
    if (named.key == key) return press(named.code, named.extended);
  SHORT found = VkKeyScanW(static_cast<WCHAR>(key));
  if (found == -1) return;
  bool shifted = (found >> 8) & 1;
  if (shifted && down) press(VK_SHIFT, false);
  press(static_cast<WORD>(found & 0xFF), false);
  if (shifted && !down) press(VK_SHIFT, false);
}

bool MenuIsOpen() {
  GUITHREADINFO info{};
  info.cbSize = sizeof info;
  return GetGUIThreadInfo(GetCurrentThreadId(), &info) && (info.flags & (GUI_INMENUMODE | GUI_POPUPMENUMODE));
}

}  // namespace play::input

#endif
