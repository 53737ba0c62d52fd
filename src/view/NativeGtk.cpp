// The parts of Native.h for GTK 3, on X11 and, as far as it lets a program, on Wayland.
#include <wx/defs.h>
#include <wx/settings.h>

#ifdef __WXGTK__

#include <algorithm>
#include <array>
#include <csignal>
#include <gdk/gdk.h>
#include <gdk/gdkkeysyms.h>
#include <glib-unix.h>
#include <gtk/gtk.h>
#include <utility>
#include <vector>

#include "view/Native.h"

namespace view::native {

namespace {

std::function<void()> endRequest;
std::array<guint, 3> signalSources{};

gboolean OnSignal(gpointer) {
  if (endRequest) endRequest();
  return G_SOURCE_CONTINUE;
}

GtkWidget* WidgetOf(wxWindow& window) {
  return static_cast<GtkWidget*>(window.GetHandle());
}

// The one control that input may reach while the filter is on.
GtkWidget* letThrough = nullptr;

// What came in while only painting was allowed, in its order.
std::vector<GdkEvent*> kept;

bool IsInput(const GdkEvent* event) {
  switch (event->type) {
    case GDK_BUTTON_PRESS:
    case GDK_2BUTTON_PRESS:
    case GDK_3BUTTON_PRESS:
    case GDK_BUTTON_RELEASE:
    case GDK_KEY_PRESS:
    case GDK_KEY_RELEASE:
    case GDK_MOTION_NOTIFY:
    case GDK_SCROLL:
    case GDK_DELETE:
    case GDK_TOUCH_BEGIN:
    case GDK_TOUCH_UPDATE:
    case GDK_TOUCH_END:
    case GDK_TOUCH_CANCEL:
    case GDK_DROP_START:
    case GDK_PAD_BUTTON_PRESS:
    case GDK_PAD_BUTTON_RELEASE:
      return true;
    default:
      return false;
  }
}

void KeepInput(GdkEvent* event, gpointer) {
  if (IsInput(event))
    kept.push_back(gdk_event_copy(event));
  else
    gtk_main_do_event(event);
}

bool Inside(GtkWidget* widget, GtkWidget* container) {
  return widget && container && (widget == container || gtk_widget_is_ancestor(widget, container));
}

void FilterEvent(GdkEvent* event, gpointer) {
  GtkWidget* target = gtk_get_event_widget(event);
  switch (event->type) {
    case GDK_BUTTON_PRESS:
    case GDK_2BUTTON_PRESS:
    case GDK_3BUTTON_PRESS:
    case GDK_TOUCH_BEGIN:
    case GDK_TOUCH_UPDATE:
    case GDK_MOTION_NOTIFY:
      if (!Inside(target, letThrough)) return;
      break;
    case GDK_KEY_PRESS: {
      guint key = event->key.keyval;
      bool presses =
          key == GDK_KEY_space || key == GDK_KEY_Return || key == GDK_KEY_KP_Enter || key == GDK_KEY_KP_Space;
      GtkWidget* top = target ? gtk_widget_get_toplevel(target) : nullptr;
      GtkWidget* focus = GTK_IS_WINDOW(top) ? gtk_window_get_focus(GTK_WINDOW(top)) : nullptr;
      if (!presses || !Inside(focus, letThrough)) return;
      break;
    }
    case GDK_SCROLL:
    case GDK_DELETE:
    case GDK_DRAG_ENTER:
    case GDK_DRAG_MOTION:
    case GDK_DROP_START:
    case GDK_TOUCHPAD_SWIPE:
    case GDK_TOUCHPAD_PINCH:
    case GDK_PAD_BUTTON_PRESS:
      return;
    default:
      // Releases pass, so that what was pressed before doesn't stay pressed; who acts on them asks the pump.
      break;
  }
  gtk_main_do_event(event);
}

void PassEvent(GdkEvent* event, gpointer) {
  gtk_main_do_event(event);
}

// Handles what is there, but not for ever: a source that is always ready must not hold a long run.
void Iterate() {
  gint64 end = g_get_monotonic_time() + 25000;
  for (int i = 0; g_main_context_pending(nullptr) && (i < 20 || g_get_monotonic_time() < end); ++i)
    g_main_context_iteration(nullptr, FALSE);
}

}  // namespace

void Begin(std::function<void()> onEnd) {
  endRequest = std::move(onEnd);
  signalSources = {g_unix_signal_add(SIGTERM, OnSignal, nullptr),
                   g_unix_signal_add(SIGINT, OnSignal, nullptr),
                   g_unix_signal_add(SIGHUP, OnSignal, nullptr)};
  // A list scrolls to a row in steps, and forgets where to while it still measures its rows: it would stop
  // anywhere on the way.
  if (GtkSettings* settings = gtk_settings_get_default())
    g_object_set(settings, "gtk-enable-animations", FALSE, nullptr);
}

void End() {
  for (guint& source : signalSources) {
    if (source) g_source_remove(source);
    source = 0;
  }
  endRequest = nullptr;
}

double TextScale() {
  GdkScreen* screen = gdk_screen_get_default();
  double resolution = screen ? gdk_screen_get_resolution(screen) : -1;
  double scale = resolution > 0 ? resolution / 96 : 1;
  if (GtkSettings* settings = gtk_settings_get_default()) {
    gchar* name = nullptr;
    g_object_get(settings, "gtk-font-name", &name, nullptr);
    if (name) {
      PangoFontDescription* font = pango_font_description_from_string(name);
      double points = pango_font_description_get_size(font) / static_cast<double>(PANGO_SCALE);
      // Up to 11 points is what desktops come with.
      if (!pango_font_description_get_size_is_absolute(font)) scale *= std::max(1.0, points / 11);
      pango_font_description_free(font);
      g_free(name);
    }
  }
  return std::clamp(scale, 1.0, 3.0);
}

void ProcessEvents() {
  gdk_event_handler_set(PassEvent, nullptr, nullptr);
  Iterate();
}

void ProcessEventsOnly(wxWindow* only) {
  GtkWidget* before = std::exchange(letThrough, only ? WidgetOf(*only) : nullptr);
  gdk_event_handler_set(FilterEvent, nullptr, nullptr);
  Iterate();
  gdk_event_handler_set(PassEvent, nullptr, nullptr);
  letThrough = before;
}

void Paint(wxTopLevelWindow& window) {
  GtkWidget* widget = WidgetOf(window);
  GdkFrameClock* clock = widget ? gtk_widget_get_frame_clock(widget) : nullptr;
  if (!clock) return;
  // Layout and painting happen in the window's own frame, which is waited for; not for long, since a window
  // that the window manager holds back has none.
  constexpr gint64 kPatience = 100000;
  bool painted = false;
  gulong watch = g_signal_connect(
      clock, "after-paint",
      G_CALLBACK(+[](GdkFrameClock*, gpointer flag) { *static_cast<bool*>(flag) = true; }), &painted);
  gdk_event_handler_set(KeepInput, nullptr, nullptr);
  gdk_frame_clock_request_phase(clock, GDK_FRAME_CLOCK_PHASE_PAINT);
  for (gint64 end = g_get_monotonic_time() + kPatience; !painted && g_get_monotonic_time() < end;)
    if (!g_main_context_iteration(nullptr, FALSE)) g_usleep(500);
  gdk_event_handler_set(PassEvent, nullptr, nullptr);
  g_signal_handler_disconnect(clock, watch);
  GdkDisplay* display = gtk_widget_get_display(widget);
  gdk_display_flush(display);
  for (GdkEvent* event : std::exchange(kept, {})) {
    gdk_display_put_event(display, event);
    gdk_event_free(event);
  }
}

void SetAccessible(wxWindow& window, Role role, const wxString& name) {
  static constexpr AtkRole kRoles[] = {ATK_ROLE_LABEL, ATK_ROLE_LINK,  ATK_ROLE_MENU_ITEM,
                                       ATK_ROLE_CHART, ATK_ROLE_PANEL, ATK_ROLE_IMAGE};
  AtkObject* object = gtk_widget_get_accessible(WidgetOf(window));
  atk_object_set_role(object, kRoles[static_cast<int>(role)]);
  atk_object_set_name(object, name.utf8_str());
}

void SetAccessibleName(wxWindow& window, const wxString& name) {
  GtkWidget* widget = WidgetOf(window);
  if (GTK_IS_SCROLLED_WINDOW(widget))
    if (GtkWidget* child = gtk_bin_get_child(GTK_BIN(widget))) widget = child;
  if (GTK_IS_COMBO_BOX(widget))
    if (GtkWidget* entry = gtk_bin_get_child(GTK_BIN(widget)); GTK_IS_ENTRY(entry))
      atk_object_set_name(gtk_widget_get_accessible(entry), name.utf8_str());
  atk_object_set_name(gtk_widget_get_accessible(widget), name.utf8_str());
}

wxButton* MakeButton(wxWindow* parent, const wxString& label, long style, const wxString& name) {
  return new wxButton(parent, wxID_ANY, label, wxDefaultPosition, wxDefaultSize, style, wxDefaultValidator,
                      name);
}

void MarkFlat(wxButton&) {
  // Its style has said it.
}

void MarkPrimary(wxButton& button) {
  gtk_style_context_add_class(gtk_widget_get_style_context(WidgetOf(button)),
                              GTK_STYLE_CLASS_SUGGESTED_ACTION);
}

void SetOwner(wxTopLevelWindow& window, wxTopLevelWindow* owner) {
  gtk_window_set_transient_for(GTK_WINDOW(WidgetOf(window)), owner ? GTK_WINDOW(WidgetOf(*owner)) : nullptr);
}

void MakeFloating(wxTopLevelWindow& window) {
  GtkWidget* widget = WidgetOf(window);
  gtk_window_set_type_hint(GTK_WINDOW(widget), GDK_WINDOW_TYPE_HINT_NOTIFICATION);
  gtk_window_set_accept_focus(GTK_WINDOW(widget), FALSE);
  gtk_widget_realize(widget);
  // Window managers pull a window back onto the screen; this one slides in from below.
  gdk_window_set_override_redirect(gtk_widget_get_window(widget), TRUE);
}

void BringToFront(wxTopLevelWindow& window) {
  gtk_window_present(GTK_WINDOW(WidgetOf(window)));
}

int NaturalHeight(wxWindow& widget) {
  int least = 0, natural = 0;
  gtk_widget_get_preferred_height(WidgetOf(widget), &least, &natural);
  return natural;
}

void PrepareList(wxDataViewCtrl& list) {
  gtk_tree_view_set_enable_search(GTK_TREE_VIEW(list.GtkGetTreeView()), FALSE);
}

void FlattenHeads(wxDataViewCtrl& list) {
  GList* columns = gtk_tree_view_get_columns(GTK_TREE_VIEW(list.GtkGetTreeView()));
  for (GList* column = columns; column; column = column->next)
    gtk_tree_view_column_set_clickable(GTK_TREE_VIEW_COLUMN(column->data), FALSE);
  g_list_free(columns);
}

void RedrawRows(wxDataViewCtrl& list) {
  // The rows keep a picture of themselves, which goes only if they are told, not the window around them.
  gtk_widget_queue_draw(list.GtkGetTreeView());
}

void SelectItem(wxDataViewCtrl& list, const wxDataViewItem& item) {
  list.Select(item);
}

wxColour WindowColour() {
  GtkWidget* window = gtk_window_new(GTK_WINDOW_TOPLEVEL);
  GdkRGBA colour;
  bool found =
      gtk_style_context_lookup_color(gtk_widget_get_style_context(window), "theme_bg_color", &colour);
  gtk_widget_destroy(window);
  return found ? wxColour(colour) : wxSystemSettings::GetColour(wxSYS_COLOUR_BTNFACE);
}

bool ShinesThrough() {
  return true;
}

wxBitmapBundle BoxPicture(const wxArtID& art, int size) {
  return wxArtProvider::GetBitmapBundle(art, wxART_MESSAGE_BOX, wxSize(size, size));
}

bool OpenWithDesktop(const std::string& nativePath) {
  GFile* file = g_file_new_for_path(nativePath.c_str());
  bool opened = false;
  if (GFileInfo* info = g_file_query_info(file, G_FILE_ATTRIBUTE_STANDARD_CONTENT_TYPE,
                                          G_FILE_QUERY_INFO_NONE, nullptr, nullptr)) {
    const char* type = g_file_info_get_content_type(info);
    if (GAppInfo* program = type ? g_app_info_get_default_for_type(type, FALSE) : nullptr) {
      GList files{file, nullptr, nullptr};
      opened = g_app_info_launch(program, &files, nullptr, nullptr);
      g_object_unref(program);
    }
    g_object_unref(info);
  }
  g_object_unref(file);
  return opened;
}

std::optional<bool> ShowSystemProperties(wxTopLevelWindow*, const std::string&) {
  return std::nullopt;
}

long SetScreenResolution(int, int) {
  return -1;
}

}  // namespace view::native

#endif
