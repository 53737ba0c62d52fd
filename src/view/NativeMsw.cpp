// The parts of Native.h for Windows.
#include <wx/defs.h>
#include <wx/settings.h>

#ifdef __WXMSW__

#include <wx/access.h>
#include <wx/artprov.h>
#include <wx/evtloop.h>
#include <wx/image.h>
#include <wx/msw/dc.h>
#include <wx/msw/wrapwin.h>
// Behind the one above, which it needs.
#include <algorithm>
#include <cmath>
#include <commctrl.h>
#include <utility>
#include <wx/app.h>
#include <wx/headerctrl.h>
#include <wx/utils.h>
#include <shellapi.h>
#include <shlobj.h>

#include "view/Look.h"
#include "view/Native.h"
#include "view/Text.h"

namespace view::native {

namespace {

HWND HandleOf(const wxWindow& window) {
  return static_cast<HWND>(window.GetHandle());
}

// The user does it, with the mouse or the keyboard. Releases aren't among them, so that what was pressed
// before doesn't stay pressed; who acts on them asks the pump.
bool IsInput(const MSG& message) {
  switch (message.message) {
    case WM_LBUTTONDOWN:
    case WM_RBUTTONDOWN:
    case WM_MBUTTONDOWN:
    case WM_XBUTTONDOWN:
    case WM_LBUTTONDBLCLK:
    case WM_RBUTTONDBLCLK:
    case WM_MBUTTONDBLCLK:
    case WM_XBUTTONDBLCLK:
    case WM_NCLBUTTONDOWN:
    case WM_NCRBUTTONDOWN:
    case WM_NCMBUTTONDOWN:
    case WM_NCLBUTTONDBLCLK:
    case WM_NCRBUTTONDBLCLK:
    case WM_MOUSEWHEEL:
    case WM_MOUSEHWHEEL:
    case WM_KEYDOWN:
    case WM_SYSKEYDOWN:
    case WM_CHAR:
    case WM_SYSCHAR:
    case WM_HOTKEY:
    case WM_SYSCOMMAND:
    case WM_COMMAND:
    case WM_CLOSE:
    case WM_POINTERDOWN:
    case WM_TOUCH:
      return true;
    default:
      return false;
  }
}

bool Inside(HWND window, HWND container) {
  return window && container && (window == container || IsChild(container, window));
}

bool MayPass(const MSG& message, HWND only) {
  if (!IsInput(message)) return true;
  if (!Inside(message.hwnd, only)) return false;
  switch (message.message) {
    case WM_LBUTTONDOWN:
    case WM_LBUTTONDBLCLK:
      return true;
    case WM_KEYDOWN:
    case WM_CHAR:
      return message.wParam == VK_SPACE || message.wParam == VK_RETURN;
    default:
      return false;
  }
}

// Handles what is there, but not for ever: a long run must not be held by a queue that always has something.
template <class Filter>
void Pump(Filter&& passes) {
  // A loop of our own where the toolkit's isn't up yet, for its knowledge of what to do with a message.
  wxGUIEventLoop spare;
  auto* loop = dynamic_cast<wxGUIEventLoop*>(wxEventLoopBase::GetActive());
  if (!loop) loop = &spare;
  constexpr ULONGLONG kLongest = 25;
  ULONGLONG end = GetTickCount64() + kLongest;
  MSG message;
  for (int i = 0; (i < 20 || GetTickCount64() < end) && PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE);
       ++i) {
    if (message.message == WM_QUIT) {
      PostQuitMessage(static_cast<int>(message.wParam));
      break;
    }
    if (passes(message)) loop->ProcessMessage(&message);
  }
  // Scroll bars and columns are brought up to date in the toolkit's idle time.
  if (wxTheApp) wxTheApp->ProcessIdle();
}

int RoleOf(Role role) {
  switch (role) {
    case Role::Text:
      return wxROLE_SYSTEM_STATICTEXT;
    case Role::Link:
      return wxROLE_SYSTEM_LINK;
    case Role::MenuItem:
      return wxROLE_SYSTEM_MENUITEM;
    case Role::Chart:
      return wxROLE_SYSTEM_CHART;
    case Role::Group:
      return wxROLE_SYSTEM_GROUPING;
    case Role::Picture:
      return wxROLE_SYSTEM_GRAPHIC;
  }
  return wxROLE_NONE;
}

// The name and, for a window that we draw, the role; the system knows the rest.
template <class Base>
class Spoken : public Base {
 public:
  template <class Window>
  Spoken(Window* window, int role, const wxString& name) : Base(window), role_(role), name_(name) {}

  wxAccStatus GetName(int child, wxString* name) override {
    if (child != wxACC_SELF) return Base::GetName(child, name);
    *name = name_;
    return wxACC_OK;
  }
  wxAccStatus GetRole(int child, wxAccRole* role) override {
    if (child != wxACC_SELF || role_ == wxROLE_NONE) return Base::GetRole(child, role);
    *role = static_cast<wxAccRole>(role_);
    return wxACC_OK;
  }

 private:
  int role_;
  wxString name_;
};

void Speak(wxWindow& window, int role, const wxString& name) {
  // The list's own one tells its rows.
  if (auto* list = dynamic_cast<wxDataViewCtrl*>(&window))
    window.SetAccessible(new Spoken<wxDataViewCtrlAccessible>(list, role, name));
  else
    window.SetAccessible(new Spoken<wxAccessible>(&window, role, name));
  NotifyWinEvent(EVENT_OBJECT_NAMECHANGE, HandleOf(window), OBJID_CLIENT, CHILDID_SELF);
}

// The system's button, which has neither the look of a main action nor one without a ground: for these it is
// drawn here.
class PushButton : public wxButton {
 public:
  enum class Looks { System, Primary, Flat };

  PushButton(wxWindow* parent, const wxString& label, long style, const wxString& name)
      : wxButton(parent, wxID_ANY, label, wxDefaultPosition, wxDefaultSize, style, wxDefaultValidator, name) {
  }

  void SetLook(Looks look) {
    look_ = look;
    MakeOwnerDrawn();
    for (auto type : {wxEVT_ENTER_WINDOW, wxEVT_LEAVE_WINDOW})
      Bind(type, [this](wxMouseEvent& event) {
        event.Skip();
        Refresh();
      });
  }

  bool MSWOnDraw(WXDRAWITEMSTRUCT* item) override {
    if (look_ == Looks::System) return wxButton::MSWOnDraw(item);
    const auto* draw = reinterpret_cast<const DRAWITEMSTRUCT*>(item);
    wxDCTemp dc(static_cast<WXHDC>(draw->hDC), GetClientSize());
    wxRect area(GetClientSize());
    bool enabled = IsEnabled(), pressed = draw->itemState & ODS_SELECTED;
    bool hot = enabled && GetScreenRect().Contains(wxGetMousePosition());
    PaintGround(*this, dc);
    wxColour ground = GroundBehind(*this), text = *wxWHITE;
    if (look_ == Looks::Primary) {
      // As dark as the white text on it needs.
      ground = enabled ? Readable(AccentColour(), *wxWHITE) : Mix(TextColour(), ground, 0.08);
      if (!enabled) text = DisabledColour();
      if (pressed) ground = Mix(*wxBLACK, ground, 0.2);
      if (hot && !pressed) ground = Mix(*wxWHITE, ground, 0.12);
      dc.SetPen(enabled ? Mix(*wxBLACK, ground, 0.15) : FrameColour());
      dc.SetBrush(ground);
      dc.DrawRoundedRectangle(area, Px(3));
    } else if (hot || pressed) {
      ground = Mix(*wxWHITE, ground, pressed ? 0.3 : 0.18);
      dc.SetPen(ground);
      dc.SetBrush(ground);
      dc.DrawRoundedRectangle(area, Px(3));
    }
    if ((draw->itemState & ODS_FOCUS) && !(draw->itemState & ODS_NOFOCUSRECT)) {
      dc.SetPen(text);
      dc.SetBrush(*wxTRANSPARENT_BRUSH);
      dc.DrawRoundedRectangle(wxRect(area).Deflate(Px(2)), Px(2));
    }
    DrawContent(dc, area, text, draw->itemState & ODS_NOACCEL);
    return true;
  }

 protected:
  void DoSetBitmapPosition(wxDirection side) override {
    behind_ = side == wxRIGHT;
    wxButton::DoSetBitmapPosition(side);
  }

 private:
  void DrawContent(wxDC& dc, const wxRect& area, const wxColour& colour, bool plain) {
    wxBitmap picture = GetBitmap();
    if (picture.IsOk() && !IsEnabled()) picture = picture.ConvertToDisabled(230);
    dc.SetFont(GetFont());
    dc.SetTextForeground(colour);
    wxString label = GetLabelText();
    int mnemonic = plain ? wxNOT_FOUND : FindAccelIndex(GetLabel());
    wxSize text = label.empty() ? wxSize() : dc.GetTextExtent(label);
    wxSize image = picture.IsOk() ? picture.GetLogicalSize() : wxSize();
    int x = area.x + (area.width - text.x - image.x) / 2;
    auto drawPicture = [&] {
      if (picture.IsOk()) dc.DrawBitmap(picture, x, area.y + (area.height - image.y) / 2, true);
      x += image.x;
    };
    if (!behind_) drawPicture();
    if (!label.empty())
      dc.DrawLabel(label, wxRect(x, area.y, text.x + Px(2), area.height), wxALIGN_CENTRE_VERTICAL, mnemonic);
    x += text.x;
    if (behind_) drawPicture();
  }

  Looks look_ = Looks::System;
  bool behind_ = false;
};

double FontScale(int dpi) {
  NONCLIENTMETRICSW metrics{};
  metrics.cbSize = sizeof metrics;
  if (!SystemParametersInfoW(SPI_GETNONCLIENTMETRICS, sizeof metrics, &metrics, 0)) return 1;
  // 9 points is what the system comes with.
  double points = std::abs(metrics.lfMessageFont.lfHeight) * 72.0 / dpi;
  return std::max(1.0, points / 9.5);
}

}  // namespace

void Begin(std::function<void()>) {
  // The end of the session comes as an event of the toolkit's.
}

void End() {}

double TextScale() {
  HDC screen = GetDC(nullptr);
  int dpi = screen ? GetDeviceCaps(screen, LOGPIXELSY) : 96;
  if (screen) ReleaseDC(nullptr, screen);
  // Of the screen that the program is on, where there are several.
  wxWindow* top = wxTheApp ? wxTheApp->GetTopWindow() : nullptr;
  int here = top ? top->GetDPI().y : dpi;
  return std::clamp(here / 96.0 * FontScale(dpi), 1.0, 3.0);
}

void ProcessEvents() {
  Pump([](const MSG&) { return true; });
}

void ProcessEventsOnly(wxWindow* only) {
  HWND window = only ? HandleOf(*only) : nullptr;
  Pump([window](const MSG& message) { return MayPass(message, window); });
}

void Paint(wxTopLevelWindow& window) {
  wxIdleEvent event;
  window.SendIdleEvents(event);
  RedrawWindow(HandleOf(window), nullptr, nullptr, RDW_UPDATENOW | RDW_ALLCHILDREN);
}

void SetAccessible(wxWindow& window, Role role, const wxString& name) {
  // Also what the system and other programs take for the window's text.
  SetWindowTextW(HandleOf(window), name.wc_str());
  Speak(window, RoleOf(role), name);
}

void SetAccessibleName(wxWindow& window, const wxString& name) {
  Speak(window, wxROLE_NONE, name);
}

wxButton* MakeButton(wxWindow* parent, const wxString& label, long style, const wxString& name) {
  return new PushButton(parent, label, style, name);
}

void MarkPrimary(wxButton& button) {
  if (auto* ours = dynamic_cast<PushButton*>(&button)) ours->SetLook(PushButton::Looks::Primary);
}

void MarkFlat(wxButton& button) {
  if (auto* ours = dynamic_cast<PushButton*>(&button)) ours->SetLook(PushButton::Looks::Flat);
}

void SetOwner(wxTopLevelWindow& window, wxTopLevelWindow* owner) {
  SetWindowLongPtrW(HandleOf(window), GWLP_HWNDPARENT,
                    reinterpret_cast<LONG_PTR>(owner ? HandleOf(*owner) : nullptr));
}

void MakeFloating(wxTopLevelWindow& window) {
  HWND handle = HandleOf(window);
  SetWindowLongPtrW(handle, GWL_STYLE, static_cast<LONG_PTR>(WS_POPUP | WS_CLIPCHILDREN));
  SetWindowLongPtrW(handle, GWL_EXSTYLE, WS_EX_TOOLWINDOW | WS_EX_TOPMOST | WS_EX_NOACTIVATE);
  SetWindowPos(handle, HWND_TOPMOST, 0, 0, 0, 0, SWP_NOMOVE | SWP_NOSIZE | SWP_NOACTIVATE | SWP_FRAMECHANGED);
}

void BringToFront(wxTopLevelWindow& window) {
  HWND handle = HandleOf(window);
  if (IsIconic(handle)) ShowWindow(handle, SW_RESTORE);
  BringWindowToTop(handle);
  SetForegroundWindow(handle);
}

int NaturalHeight(wxWindow& widget) {
  return widget.GetBestSize().y;
}

void PrepareList(wxDataViewCtrl&) {}

void FlattenHeads(wxDataViewCtrl& list) {
  // The toolkit's header is a frame around the system's.
  wxHeaderCtrl* frame = list.GenericGetHeader();
  HWND header = frame ? FindWindowExW(HandleOf(*frame), nullptr, WC_HEADERW, nullptr) : nullptr;
  if (header) SetWindowLongW(header, GWL_STYLE, GetWindowLongW(header, GWL_STYLE) & ~HDS_BUTTONS);
}

void RedrawRows(wxDataViewCtrl& list) {
  list.Refresh();
}

void SelectItem(wxDataViewCtrl& list, const wxDataViewItem& item) {
  list.SetCurrentItem(item);
  list.Select(item);
}

wxColour WindowColour() {
  return wxSystemSettings::GetColour(wxSYS_COLOUR_BTNFACE);
}

bool ShinesThrough() {
  return false;
}

wxBitmapBundle BoxPicture(const wxArtID& art, int size) {
  LPCWSTR name = art == wxART_ERROR ? IDI_ERROR : art == wxART_WARNING ? IDI_WARNING : IDI_INFORMATION;
  wxIcon icon;
  if (icon.CreateFromHICON(LoadIconW(nullptr, name))) {
    wxImage image = wxBitmap(icon).ConvertToImage();
    return wxBitmapBundle::FromImage(image.Rescale(size, size, wxIMAGE_QUALITY_HIGH));
  }
  return wxArtProvider::GetBitmapBundle(art, wxART_MESSAGE_BOX, wxSize(size, size));
}

bool OpenWithDesktop(const std::string& nativePath) {
  wxString path = ToWx(nativePath);
  SHELLEXECUTEINFOW command{};
  command.cbSize = sizeof command;
  command.fMask = SEE_MASK_FLAG_NO_UI | SEE_MASK_NOASYNC;
  command.lpFile = path.wc_str();
  command.nShow = SW_SHOWNORMAL;
  return ShellExecuteExW(&command);
}

std::optional<bool> ShowSystemProperties(wxTopLevelWindow* owner, const std::string& nativePath) {
  wxString path = ToWx(nativePath);
  return SHObjectProperties(owner ? HandleOf(*owner) : nullptr, SHOP_FILEPATH, path.wc_str(), nullptr) !=
         FALSE;
}

long SetScreenResolution(int width, int height) {
  DEVMODEW mode{};
  mode.dmSize = sizeof mode;
  mode.dmPelsWidth = static_cast<DWORD>(width);
  mode.dmPelsHeight = static_cast<DWORD>(height);
  mode.dmFields = DM_PELSWIDTH | DM_PELSHEIGHT;
  return ChangeDisplaySettingsW(&mode, CDS_UPDATEREGISTRY);
}

}  // namespace view::native

#endif
