#include "view/FormWindow.h"

#include <algorithm>
#include <cctype>
#include <wx/display.h>
#include <wx/scrolwin.h>
#include <wx/sizer.h>
#include <wx/textctrl.h>

#include "view/Arrange.h"
#include "view/Icons.h"
#include "view/LabelBox.h"
#include "view/Look.h"
#include "view/Native.h"
#include "view/Panels.h"
#include "view/Text.h"

namespace view {

namespace {

using controls::kTwipsPerPixel;

// No event reaches the window or what lies in it any more.
void Disarm(wxWindow* window) {
  window->SetEvtHandlerEnabled(false);
  for (wxWindow* child : window->GetChildren()) Disarm(child);
}

wxWindow* FirstToFocus(wxWindow* window) {
  for (wxWindow* child : window->GetChildren()) {
    if (!child->IsShown() || !child->IsThisEnabled()) continue;
    if (child->AcceptsFocusFromKeyboard() && !dynamic_cast<wxPanel*>(child)) return child;
    if (wxWindow* inner = FirstToFocus(child)) return inner;
  }
  return nullptr;
}

long FrameStyle(const controls::Form& form) {
  if (form.Floating) return wxFRAME_NO_TASKBAR | wxSTAY_ON_TOP | wxBORDER_NONE;
  long style = wxDEFAULT_FRAME_STYLE;
  if (!form.Resizable) style &= ~(wxRESIZE_BORDER | wxMAXIMIZE_BOX);
  return style;
}

}  // namespace

// One of the form's timers on the toolkit's clock.
struct FormWindow::Ticker {
  controls::Timer* timer;
  std::unique_ptr<wxTimer> clock = std::make_unique<wxTimer>();
  bool waiting = false;  // a tick is in the queue
};

FormWindow::FormWindow(Screen& screen, controls::Form& form, wxTopLevelWindow* owner)
    : wxFrame(nullptr, wxID_ANY, ToWx(form.Caption), wxDefaultPosition, wxDefaultSize, FrameStyle(form),
              ToWx(form.Name())),
      screen_(screen),
      form_(&form) {
  form.ViewData = this;
  SetIcons(WindowIcons());
  if (form.Floating) native::MakeFloating(*this);
  Build();
  SetFirstSize();
  if (owner && !form.Floating) native::SetOwner(*this, owner);

  Bind(wxEVT_CLOSE_WINDOW, [this](wxCloseEvent& event) {
    if (event.CanVeto()) event.Veto();
    RequestClose();
  });
  Bind(wxEVT_ACTIVATE, [this](wxActivateEvent& event) {
    event.Skip();
    if (event.GetActive() && form_ && form_->Visible && form_->Activate)
      screen_.Post(*this, nullptr, [this] { form_->Activate(); });
  });
  Bind(wxEVT_CHAR_HOOK, &FormWindow::OnKey, this);
  Bind(wxEVT_SYS_COLOUR_CHANGED, [this](wxSysColourChangedEvent& event) {
    event.Skip();
    ThemeChanged();
  });
  // Moved to a screen with other pixels.
  Bind(wxEVT_DPI_CHANGED, [this](wxDPIChangedEvent& event) {
    event.Skip();
    ThemeChanged();
  });
  for (controls::Timer* timer : form.Timers) {
    auto ticker = std::make_unique<Ticker>();
    ticker->timer = timer;
    Ticker* it = ticker.get();
    it->clock->Bind(wxEVT_TIMER, [this, it](wxTimerEvent&) {
      if (!form_ || std::exchange(it->waiting, true)) return;
      screen_.Post(*this, nullptr, [this, it] {
        it->waiting = false;
        if (it->timer->Enabled) it->timer->Tick();
      });
    });
    tickers_.push_back(std::move(ticker));
  }
}

FormWindow::~FormWindow() = default;

void FormWindow::Build() {
  root_ = new wxPanel(this, wxID_ANY);
  Arrange(*this, root_, form_->GetLayout());
  auto* sizer = new wxBoxSizer(wxVERTICAL);
  // A window without the window manager's frame has one of its own.
  if (form_->Floating) {
    SetBackgroundColour(FrameColour());
    root_->SetBackgroundColour(GroundColour());
  }
  sizer->Add(root_, wxSizerFlags(1).Expand().Border(wxALL, form_->Floating ? 1 : 0));
  SetSizer(sizer);
  form_->TakeDirty();
  form_->TakePageChange();
  for (auto& view : views_) view->Sync();
  Flush();
}

void FormWindow::SetFirstSize() {
  wxRect screen = wxDisplay().GetClientArea();
  wxSize least(std::min(Px(form_->MinWidth), screen.width), std::min(Px(form_->MinHeight), screen.height));
  wxSize size(Px(form_->DefaultWidth), Px(form_->DefaultHeight));
  if (form_->Position.Width) size.x = Px(form_->Position.Width / kTwipsPerPixel);
  if (form_->Position.Height) size.y = Px(form_->Position.Height / kTwipsPerPixel);
  if (!form_->Floating) SetMinClientSize(least);
  SetClientSize(size);
  LayoutStale();
  // What the layout needs at this text size comes before what the design says.
  wxSize needed = GetSizer()->CalcMin();
  size.IncTo(needed);
  size.DecTo(wxSize(screen.width, screen.height - Px(32)));
  SetClientSize(size);
  Layout();
  LayoutStale();
}

bool FormWindow::IsMain() const {
  const auto& all = form_->Controls();
  return std::any_of(all.begin(), all.end(),
                     [](const controls::Control* each) { return each->GetKind() == controls::Kind::Panel; });
}

ControlView& FormWindow::Adopt(std::unique_ptr<ControlView> view) {
  ControlView& adopted = *view;
  adopted.GetControl().ViewData = &adopted;
  byWindow_[adopted.Window()] = &adopted;
  byWindow_[adopted.Focus()] = &adopted;
  views_.push_back(std::move(view));
  return adopted;
}

void FormWindow::Detach() {
  if (!form_) return;
  for (auto& ticker : tickers_) ticker->clock->Stop();
  for (auto& view : views_) {
    view->Detached();
    view->GetControl().ViewData = nullptr;
  }
  Disarm(this);
  form_->ViewData = nullptr;
  form_ = nullptr;
  Hide();
}

ControlView* FormWindow::ViewAt(wxWindow* window) const {
  for (; window && window != this; window = window->GetParent()) {
    auto found = byWindow_.find(window);
    if (found != byWindow_.end()) return found->second;
  }
  return nullptr;
}

bool FormWindow::Shown(const controls::Control& control) const {
  return control.Visible && (!pages_.count(&control) || form_->CurrentPage() == &control);
}

void FormWindow::Act(controls::Control& control, std::function<void()> action) {
  if (form_) screen_.Post(*this, &control, std::move(action));
}

void FormWindow::Click(controls::Control& control) {
  Act(control, [this, &control] { form_->UserClick(control); });
}

void FormWindow::RequestClose() {
  if (!form_) return;
  screen_.Post(*this, nullptr, [this] {
    if (const auto& request = screen_.Around().closeRequest) request(*form_, 0);
  });
}

void FormWindow::RequestLayout(wxWindow* window) {
  for (wxWindow* each = window->GetParent(); each && each != this; each = each->GetParent())
    stale_.insert(each);
}

void FormWindow::LayoutStale() {
  // Wrapped texts learn their height from their width, so a second round may follow.
  for (int round = 0; round < 4 && !stale_.empty(); ++round) {
    std::vector<wxWindow*> now(stale_.begin(), stale_.end());
    stale_.clear();
    auto depth = [](wxWindow* window) {
      int count = 0;
      while ((window = window->GetParent())) ++count;
      return count;
    };
    std::sort(now.begin(), now.end(), [&](wxWindow* a, wxWindow* b) { return depth(a) < depth(b); });
    for (wxWindow* each : now) each->InvalidateBestSize();
    for (wxWindow* each : now) {
      if (auto* scrolled = dynamic_cast<wxScrolledWindow*>(each)) scrolled->FitInside();
      each->Layout();
    }
    if (round == 0) GrowToFit();
  }
}

// A window whose texts came after it was shown grows with them; pages scroll instead.
void FormWindow::GrowToFit() {
  if (!form_ || form_->Floating || !IsShown() || IsMaximized() || !GetSizer()) return;
  wxSize needed = GetSizer()->CalcMin(), has = GetClientSize(), size = has;
  size.IncTo(needed);
  wxRect screen = wxDisplay(this).GetClientArea();
  size.DecTo(wxSize(screen.width, screen.height - Px(32)));
  size.IncTo(has);
  if (size != has) SetClientSize(size);
}

void FormWindow::Flush() {
  if (!form_) return;
  for (controls::Control* control : form_->TakeDirty())
    if (ControlView* view = ViewOf(*control)) view->Sync();
  if (form_->TakePageChange()) ShowFrontPage();
  if (wxString title = ToWx(form_->Caption); title != GetTitle()) SetTitle(title);
  if (band_) {
    const auto& toNative = screen_.Around().toNative;
    bool dressed = form_->skn.Enabled && !form_->skn.Picture.empty() && toNative;
    band_->SetPicture(dressed ? toNative(form_->skn.Picture) : std::string());
  }
  SyncTimers();
  LayoutStale();
}

void FormWindow::SyncTimers() {
  for (auto& ticker : tickers_) {
    bool runs = ticker->timer->Enabled && ticker->timer->Interval > 0;
    if (runs && (!ticker->clock->IsRunning() || ticker->clock->GetInterval() != ticker->timer->Interval))
      ticker->clock->Start(ticker->timer->Interval);
    else if (!runs && ticker->clock->IsRunning())
      ticker->clock->Stop();
  }
}

void FormWindow::ShowFrontPage() {
  wxWindow* focus = wxWindow::FindFocus();
  wxWindow* front = nullptr;
  bool focusLost = false;
  // Away with the old page before the new one comes, so that the two are never laid out side by side.
  for (bool show : {false, true})
    for (auto& view : views_) {
      if (!pages_.count(&view->GetControl()) || Shown(view->GetControl()) != show) continue;
      wxWindow* page = view->Window();
      if (show) front = page;
      if (page->IsShown() == show) continue;
      if (!show && focus && page->IsDescendant(focus)) focusLost = true;
      page->Show(show);
      RequestLayout(page);
    }
  if (front && focusLost)
    if (wxWindow* first = FirstToFocus(front)) first->SetFocus();
}

void FormWindow::Place() {
  if (!form_) return;
  const controls::Bounds& told = form_->Position;
  wxSize size = GetSize();
  wxPoint place(told.Left / kTwipsPerPixel, told.Top / kTwipsPerPixel);
  // At larger text sizes the window is larger than told: it grows to the left and, as far as it has come into
  // sight, upwards.
  int width = told.Width / kTwipsPerPixel, height = told.Height / kTwipsPerPixel;
  if (width > 0) place.x -= std::max(0, size.x - width);
  if (height > 0 && size.y > height) {
    int inSight = std::clamp(wxDisplay().GetGeometry().height - place.y, 0, height);
    place.y -= (size.y - height) * inSight / height;
  }
  SetPosition(place);
  placed_ = true;
}

void FormWindow::BringUp() {
  if (!form_) return;
  if (form_->Floating) {
    Place();
  } else if (!placed_) {
    placed_ = true;
    wxTopLevelWindow* active = screen_.ActiveWindow();
    if (active && active != this) {
      wxRect around = active->GetRect();
      wxSize size = GetSize();
      wxRect screen = wxDisplay(active).GetClientArea();
      wxPoint place(around.x + (around.width - size.x) / 2, around.y + (around.height - size.y) / 2);
      place.x = std::clamp(place.x, screen.x, std::max(screen.x, screen.GetRight() - size.x));
      place.y = std::clamp(place.y, screen.y, std::max(screen.y, screen.GetBottom() - size.y));
      SetPosition(place);
    } else {
      CentreOnScreen();
    }
  }
  form_->Visible = true;
  Flush();
  if (IsIconized()) Iconize(false);
  Show();
  if (!form_->Floating) native::BringToFront(*this);
}

void FormWindow::ThemeChanged() {
  ForgetLook();
  ForgetPictures();
  if (!form_) return;
  for (auto& view : views_) {
    view->ThemeChanged();
    view->Sync();
  }
  for (auto& action : onTheme_) action();
  Refresh();
}

void FormWindow::OnKey(wxKeyEvent& event) {
  if (!form_) return;
  ControlView* focus = ViewAt(wxWindow::FindFocus());
  int key = event.GetKeyCode();
  bool plain = !event.HasAnyModifiers() && !event.ShiftDown();
  if ((key == WXK_RETURN || key == WXK_NUMPAD_ENTER) && plain && OnEnterKey(focus)) return;
  if (key == WXK_ESCAPE && plain && OnEscapeKey(focus)) return;
  if (key == WXK_F1 && plain && OnHelpKey()) return;
  if (event.AltDown() && !event.ControlDown() && key < 128 && std::isalnum(key) && OnMnemonic(key)) return;
  event.Skip();
}

bool FormWindow::OnEnterKey(ControlView* focus) {
  if (focus) {
    auto* text = dynamic_cast<controls::TextBox*>(&focus->GetControl());
    if (text && !text->MultiLine && text->EnterPresses) {
      Click(*text->EnterPresses);
      return true;
    }
    if (focus->TakesEnter()) return false;
  }
  for (controls::Control* each : form_->Controls()) {
    auto* button = dynamic_cast<controls::Button*>(each);
    if (!button || !button->Default || !form_->Reachable(*button)) continue;
    Click(*button);
    return true;
  }
  return false;
}

bool FormWindow::OnEscapeKey(ControlView* focus) {
  // An open drop-down closes first; closed, the box has no use for the key.
  (void)focus;
  for (controls::Control* each : form_->Controls()) {
    auto* button = dynamic_cast<controls::Button*>(each);
    if (!button || !button->Cancel || !form_->Reachable(*button)) continue;
    Click(*button);
    return true;
  }
  if (IsMain() || form_->Floating) return false;
  RequestClose();
  return true;
}

// The help file is the program's, whichever window has the focus.
bool FormWindow::OnHelpKey() {
  for (FormWindow* window : screen_.Windows()) {
    if (!window->form_ || window->form_->HelpFile.empty()) continue;
    screen_.Post(*this, nullptr,
                 [file = window->form_->HelpFile] { platform::CurrentDesktop().OpenDocument(file); });
    return true;
  }
  return false;
}

// Native widgets know their own letters; self-drawn labels are pressed here, or pass the focus to what
// follows them.
bool FormWindow::OnMnemonic(int letter) {
  const auto& all = form_->Controls();
  for (std::size_t i = 0; i < all.size(); ++i) {
    auto* label = dynamic_cast<controls::Label*>(all[i]);
    if (!label || !label->Mnemonic ||
        std::toupper(static_cast<unsigned char>(label->Mnemonic)) != std::toupper(letter) ||
        !form_->Reachable(*label))
      continue;
    auto* box = static_cast<LabelBox*>(ViewOf(*label)->Window());
    if (box->Clickable()) {
      Click(*label);
      return true;
    }
    if (i + 1 < all.size())
      if (ControlView* next = ViewOf(*all[i + 1])) {
        next->Focus()->SetFocus();
        return true;
      }
  }
  return false;
}

}  // namespace view
