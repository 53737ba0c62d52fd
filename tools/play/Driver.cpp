#include "play/Driver.h"

#include <memory>
#include <utility>
#include <vector>
#include <wx/app.h>
#include <wx/display.h>
#include <wx/evtloop.h>
#include <wx/image.h>
#include <wx/timer.h>

#include "play/Input.h"
#include "view/FormWindow.h"
#include "view/ListPane.h"
#include "view/Native.h"
#include "view/Screen.h"
#include "view/Text.h"

namespace play::driver {

using view::ControlView;
using view::FormWindow;
using view::ListPane;
using view::Screen;

namespace {

wxWindow* FindIn(wxWindow* window, const wxString& name) {
  if (!window->IsShown()) return nullptr;
  if (window->GetName() == name && !window->IsTopLevel()) return window;
  for (wxWindow* child : window->GetChildren())
    if (!child->IsTopLevel())
      if (wxWindow* found = FindIn(child, name)) return found;
  return nullptr;
}

ControlView* ViewOf(wxWindow* window) {
  auto* form = dynamic_cast<FormWindow*>(wxGetTopLevelParent(window));
  return form ? form->ViewAt(window) : nullptr;
}

constexpr int kLeft = 1, kRight = 3;

// The input that a simulator of the toolkit's makes runs the message loop by itself, which would hide just
// what the pump is to be tested for; so it comes from the window system.
bool Buttons(int button) {
  input::PressButton(button, true);
  input::PressButton(button, false);
  return true;
}

wxPoint Middle(const wxRect& area) {
  return wxPoint(area.x + area.width / 2, area.y + area.height / 2);
}

bool MoveTo(const std::string& name) {
  wxWindow* window = Find(name);
  if (!window) return false;
  ControlView* view = ViewOf(window);
  input::MoveMouse(Middle(view ? view->HotRect() : window->GetScreenRect()));
  return true;
}

bool MoveToRow(const std::string& list, int row, bool check) {
  wxWindow* window = Find(list);
  auto* pane = window ? dynamic_cast<ListPane*>(ViewOf(window)) : nullptr;
  if (!pane) return false;
  wxRect place = pane->RowRect(row, check);
  if (place.IsEmpty()) return false;
  input::MoveMouse(Middle(place));
  return true;
}

// What waits for its moment; looked at by a timer, so that a modal loop and a pumping run find it too.
struct Waiting {
  std::function<bool()> predicate;
  std::function<void()> action;
};
std::vector<Waiting> waiting;

class Watch : public wxTimer {
 public:
  void Notify() override {
    for (std::size_t i = 0; i < waiting.size(); ++i) {
      if (!waiting[i].predicate()) continue;
      Waiting due = std::move(waiting[i]);
      waiting.erase(waiting.begin() + static_cast<std::ptrdiff_t>(i));
      due.action();
      break;
    }
    if (waiting.empty()) Stop();
  }
};
std::unique_ptr<Watch> watch;

constexpr auto kStill = std::chrono::milliseconds(200);

bool Save(const wxRect& area, const std::string& path) {
  wxImage picture = input::CaptureScreen(area);
  return picture.IsOk() && picture.SaveFile(view::ToWx(path), wxBITMAP_TYPE_PNG);
}

}  // namespace

wxWindow* Find(const std::string& name) {
  for (wxWindow* top : wxTopLevelWindows)
    if (wxWindow* found = FindIn(top, view::ToWx(name))) return found;
  return nullptr;
}

wxTopLevelWindow* FindTop(const std::string& title) {
  for (wxWindow* each : wxTopLevelWindows)
    if (auto* top = dynamic_cast<wxTopLevelWindow*>(each);
        top && top->IsShown() && top->GetTitle() == view::ToWx(title))
      return top;
  return nullptr;
}

bool Click(const std::string& name) {
  return MoveTo(name) && Buttons(kLeft);
}
bool RightClick(const std::string& name) {
  return MoveTo(name) && Buttons(kRight);
}
bool Hover(const std::string& name) {
  return MoveTo(name);
}

bool ClickRow(const std::string& list, int row, bool check) {
  return MoveToRow(list, row, check) && Buttons(kLeft);
}
bool RightClickRow(const std::string& list, int row) {
  return MoveToRow(list, row, false) && Buttons(kRight);
}
bool DoubleClickRow(const std::string& list, int row) {
  return MoveToRow(list, row, false) && Buttons(kLeft) && Buttons(kLeft);
}

bool MenuIsOpen() {
  return input::MenuIsOpen();
}

void Press(int key, int modifiers) {
  static constexpr std::pair<int, int> kModifiers[] = {
      {wxMOD_SHIFT, WXK_SHIFT}, {wxMOD_CONTROL, WXK_CONTROL}, {wxMOD_ALT, WXK_ALT}};
  for (auto [bit, code] : kModifiers)
    if (modifiers & bit) input::PressKey(code, true);
  input::PressKey(key, true);
  input::PressKey(key, false);
  for (auto [bit, code] : kModifiers)
    if (modifiers & bit) input::PressKey(code, false);
}

void Type(const std::string& asciiText) {
  for (char c : asciiText) Press(static_cast<unsigned char>(c));
}

bool Stillness::Reached(const wxWindow* window) {
  auto now = std::chrono::steady_clock::now();
  if (!window || window->GetScreenRect() != place_) {
    place_ = window ? window->GetScreenRect() : wxRect();
    since_ = now;
    return false;
  }
  return now - since_ > kStill;
}

void WaitFor(const std::function<bool()>& predicate) {
  while (!predicate()) {
    if (auto* loop = wxEventLoopBase::GetActive()) loop->DispatchTimeout(10);
    wxTheApp->ProcessPendingEvents();
    if (Screen* screen = Screen::Current()) {
      screen->Flush();
      screen->RunPosted();
    }
  }
}

void When(std::function<bool()> predicate, std::function<void()> action) {
  waiting.push_back({std::move(predicate), std::move(action)});
  if (!watch) watch = std::make_unique<Watch>();
  if (!watch->IsRunning()) watch->Start(5);
}

bool Screenshot(wxTopLevelWindow& window, const std::string& path) {
  wxRect area = window.GetRect();
  area.Intersect(wxDisplay().GetGeometry());
  if (Screen* screen = Screen::Current()) screen->Flush();
  view::native::Paint(window);
  return Save(area, path);
}

bool ScreenshotScreen(const std::string& path) {
  if (Screen* screen = Screen::Current()) screen->PaintAll();
  return Save(wxDisplay().GetGeometry(), path);
}

}  // namespace play::driver
