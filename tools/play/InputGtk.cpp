// Input.h for GTK 3 on X11.
#include <wx/defs.h>

#ifdef __WXGTK__

#include <cairo-xlib.h>
#include <gdk/gdkx.h>
#include <gtk/gtk.h>
#include <wx/bitmap.h>
// After the toolkit's headers, since these define plain words.
#include <X11/XKBlib.h>
#include <X11/Xlib.h>
#include <X11/extensions/XTest.h>
#include <X11/keysym.h>
#include <utility>

#include "play/Input.h"

namespace play::input {

wxImage CaptureScreen(const wxRect& area) {
  GdkDisplay* display = gdk_display_get_default();
  if (!GDK_IS_X11_DISPLAY(display)) return wxImage();
  // A surface of our own: the toolkit's one of the root window keeps what it has once read.
  Display* x = GDK_DISPLAY_XDISPLAY(display);
  int screen = DefaultScreen(x);
  XSync(x, False);
  cairo_surface_t* root = cairo_xlib_surface_create(x, RootWindow(x, screen), DefaultVisual(x, screen),
                                                    DisplayWidth(x, screen), DisplayHeight(x, screen));
  GdkPixbuf* pixels = gdk_pixbuf_get_from_surface(root, area.x, area.y, area.width, area.height);
  cairo_surface_destroy(root);
  if (!pixels) return wxImage();
  wxImage image = wxBitmap(pixels).ConvertToImage();
  return image;
}

void MoveMouse(const wxPoint& place) {
  Display* x = GDK_DISPLAY_XDISPLAY(gdk_display_get_default());
  XTestFakeMotionEvent(x, -1, place.x, place.y, CurrentTime);
  XSync(x, False);
}

void PressButton(int button, bool down) {
  Display* x = GDK_DISPLAY_XDISPLAY(gdk_display_get_default());
  XTestFakeButtonEvent(x, static_cast<unsigned>(button), down, CurrentTime);
  XSync(x, False);
}

void PressKey(int key, bool down) {
  static constexpr std::pair<int, KeySym> kNamed[] = {
      {WXK_RETURN, XK_Return},     {WXK_ESCAPE, XK_Escape},
      {WXK_TAB, XK_Tab},           {WXK_DELETE, XK_Delete},
      {WXK_BACK, XK_BackSpace},    {WXK_UP, XK_Up},
      {WXK_DOWN, XK_Down},         {WXK_LEFT, XK_Left},
      {WXK_RIGHT, XK_Right},       {WXK_HOME, XK_Home},
      {WXK_END, XK_End},           {WXK_PAGEUP, XK_Page_Up},
      {WXK_F10, XK_F10},           {WXK_SHIFT, XK_Shift_L},
      {WXK_CONTROL, XK_Control_L}, {WXK_PAGEDOWN, XK_Page_Down},
      {WXK_ALT, XK_Alt_L},         {WXK_WINDOWS_MENU, XK_Menu}};
  Display* x = GDK_DISPLAY_XDISPLAY(gdk_display_get_default());
  // Latin characters are their own symbols.
  auto symbol = static_cast<KeySym>(key);
  for (auto [code, named] : kNamed)
    if (code == key) symbol = named;
  KeyCode code = XKeysymToKeycode(x, symbol);
  bool shifted =
      code && XkbKeycodeToKeysym(x, code, 0, 0) != symbol && XkbKeycodeToKeysym(x, code, 0, 1) == symbol;
  if (shifted && down) XTestFakeKeyEvent(x, XKeysymToKeycode(x, XK_Shift_L), True, CurrentTime);
  XTestFakeKeyEvent(x, code, down, CurrentTime);
  if (shifted && !down) XTestFakeKeyEvent(x, XKeysymToKeycode(x, XK_Shift_L), False, CurrentTime);
  XSync(x, False);
}

bool MenuIsOpen() {
  GtkWidget* holder = gtk_grab_get_current();
  return GTK_IS_MENU(holder) && gtk_widget_get_mapped(holder);
}

}  // namespace play::input

#endif
