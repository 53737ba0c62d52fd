#include "view/Screen.h"

#include <algorithm>
#include <wx/app.h>
#include <wx/dialog.h>
#include <wx/image.h>
#include <wx/taskbar.h>
#include <wx/utils.h>

#include "view/FormWindow.h"
#include "view/Icons.h"
#include "view/Look.h"
#include "view/Native.h"
#include "view/Text.h"

namespace view {

namespace {

Screen* current = nullptr;

using std::chrono::milliseconds;
constexpr auto kFrame = std::chrono::microseconds(16667);
// While a handler runs: often enough for counters and for a click on Stop.
constexpr auto kRunFrame = milliseconds(40);
// A frame takes at most a quarter of a long run's time, but a click on Stop never waits longer than this.
constexpr auto kLongestPause = milliseconds(40);

}  // namespace

class Tray : public wxTaskBarIcon {
 public:
  controls::Form* form = nullptr;
};

Screen::Screen(Surroundings surroundings) : around_(std::move(surroundings)) {
  current = this;
}

Screen::~Screen() {
  if (current == this) current = nullptr;
}

Screen* Screen::Current() {
  return current;
}

void Screen::Begin(std::function<void()> endSession) {
  up_ = true;
  endSession_ = std::move(endSession);
  wxInitAllImageHandlers();
  // No window waits for idle moments; asking hundreds of controls takes longer than painting the few that
  // changed.
  wxIdleEvent::SetMode(wxIDLE_PROCESS_SPECIFIED);
  wxUpdateUIEvent::SetMode(wxUPDATE_UI_PROCESS_SPECIFIED);
  SetPictureFolder(around_.pictures);
  frameTimer_ = std::make_unique<wxTimer>();
  frameTimer_->Bind(wxEVT_TIMER, [this](wxTimerEvent&) { Idle(); });
  wxTheApp->Bind(wxEVT_IDLE, [this](wxIdleEvent& event) {
    event.Skip();
    Idle();
  });
  for (auto type : {wxEVT_QUERY_END_SESSION, wxEVT_END_SESSION})
    wxTheApp->Bind(type, [this](wxCloseEvent&) { EndSession(); });
  native::Begin([this] { EndSession(); });
}

void Screen::End() {
  native::End();
  up_ = false;
  tray_.reset();
  frameTimer_.reset();
  posted_.clear();
  for (FormWindow* window : std::vector<FormWindow*>(windows_))
    if (window->GetForm()) Forget(*window->GetForm());
  for (FormWindow* window : graveyard_) delete window;
  graveyard_.clear();
  for (wxWindow* window : wxWindowList(wxTopLevelWindows)) window->Destroy();
  wxTheApp->ProcessPendingEvents();
  ForgetPictures();
}

bool Screen::Start(const std::function<bool()>& start) {
  ++running_;
  bool runs = start();
  --running_;
  Flush();
  if (!runs) quit_ = true;
  wxWakeUpIdle();
  return runs;
}

void Screen::EndSession() {
  // Boxes that wait for an answer go, so that the stack can unwind.
  ending_ = true;
  for (wxWindow* window : wxTopLevelWindows)
    if (auto* dialog = dynamic_cast<wxDialog*>(window); dialog && dialog->IsModal())
      dialog->EndModal(dialog->GetEscapeId() == wxID_ANY ? wxID_CANCEL : dialog->GetEscapeId());
  // Told twice, it ends once.
  if (std::exchange(ends_, true)) return;
  ++running_;
  if (endSession_) endSession_();
  --running_;
  ends_ = false;
  wxWakeUpIdle();
}

void Screen::Post(FormWindow& window, controls::Control* control, std::function<void()> action) {
  posted_.push_back({&window, control, std::move(action)});
  if (posted_.size() == 1 && up_)
    wxTheApp->CallAfter([this] {
      if (current == this && who_ == LetIn::All) RunPosted();
    });
}

bool Screen::LetsIn(const controls::Control& control) const {
  return who_ == LetIn::All || (who_ == LetIn::StopControl && &control == stop_);
}

void Screen::RunPosted() {
  // An action may pump and so run what was posted behind it: each is taken out before it runs.
  while (true) {
    auto next = posted_.begin();
    if (who_ == LetIn::StopControl)
      next = std::find_if(posted_.begin(), posted_.end(),
                          [this](const Action& action) { return stop_ && action.control == stop_; });
    if (next == posted_.end() || who_ == LetIn::Nothing) return;
    Action action = std::move(*next);
    posted_.erase(next);
    Run(std::move(action));
  }
}

void Screen::Run(Action action) {
  FormWindow* window = action.window;
  if (!window->GetForm()) return;
  // Once is enough: what comes behind it may find the button with another meaning.
  if (action.control && StopTaken(*action.control)) return;
  bool stops = stop_ && action.control == stop_ && window->GetForm()->Reachable(*stop_);
  if (stops) {
    stopTaken_ = true;
    stop_->Touch();
    Flush();
  }
  ++running_;
  {
    // What a handler does is done in the ordinary state, also where it was let in by a breath.
    Scope scope(*this, LetIn::All);
    action.run();
  }
  --running_;
  // What was refused, or changed nothing, is shown as it is.
  if (window->GetForm() && action.control) action.control->Touch();
}

void Screen::Yield(LetIn who) {
  auto start = Clock::now();
  {
    Scope scope(*this, who);
    Flush();
    if (who == LetIn::All) {
      native::ProcessEvents();
      wxTheApp->ProcessPendingEvents();
    } else {
      wxWindow* only = nullptr;
      if (stop_ && who == LetIn::StopControl && stop_->ViewData && !stopTaken_)
        only = static_cast<ControlView*>(stop_->ViewData)->Focus();
      native::ProcessEventsOnly(only);
    }
    RunPosted();
  }
  auto end = Clock::now();
  Clock::duration frame = running_ > 0 ? Clock::duration(kRunFrame) : Clock::duration(kFrame);
  auto pause = std::clamp<Clock::duration>((end - start) * 3, frame / 2, kLongestPause);
  nextFrame_ = std::max(start + frame, end + pause);
  nextPaint_ = nextFrame_;
}

void Screen::Flush() {
  for (std::size_t i = 0; i < windows_.size(); ++i) windows_[i]->Flush();
}

void Screen::PaintAll() {
  Scope scope(*this, LetIn::Nothing);
  complete_ = true;
  Flush();
  complete_ = false;
  for (FormWindow* window : windows_)
    if (window->IsShown()) native::Paint(*window);
  nextPaint_ = Clock::now() + kFrame;
}

void Screen::Paint(FormWindow& window) {
  Scope scope(*this, LetIn::Nothing);
  window.Flush();
  if (window.IsShown()) native::Paint(window);
  nextPaint_ = Clock::now() + kFrame;
}

void Screen::Idle() {
  if (!up_) return;
  auto now = Clock::now();
  if (now >= nextFrame_) {
    Flush();
    nextFrame_ = now + kFrame;
  } else if (!frameTimer_->IsRunning()) {
    frameTimer_->StartOnce(
        static_cast<int>(std::chrono::duration_cast<milliseconds>(nextFrame_ - now).count()) + 1);
  }
  if (who_ != LetIn::All) return;
  if (!posted_.empty()) RunPosted();
  if (running_ > 0) return;
  ReleaseStop();
  for (FormWindow* window : std::exchange(graveyard_, {})) window->Destroy();
  if (quit_) wxTheApp->ExitMainLoop();
}

FormWindow* Screen::WindowOf(const controls::Form& form) const {
  return static_cast<FormWindow*>(form.ViewData);
}

FormWindow& Screen::MakeWindow(controls::Form& form) {
  if (FormWindow* window = WindowOf(form)) return *window;
  wxTopLevelWindow* owner = nullptr;
  for (FormWindow* each : windows_)
    if (each->IsShown() && each->GetForm() && !each->GetForm()->Floating) {
      owner = each;
      break;
    }
  // Not kept by the toolkit's own rules: windows go in Forget and End alone.
  auto* window = new FormWindow(*this, form, owner);
  windows_.push_back(window);
  return *window;
}

void Screen::Forget(controls::Form& form) {
  FormWindow* window = WindowOf(form);
  if (tray_ && tray_->form == &form) tray_.reset();
  if (stop_ && stop_->Owner() == &form) stop_ = nullptr;
  if (!window) return;
  std::erase_if(posted_, [&](const Action& action) { return action.window == window; });
  std::erase(windows_, window);
  window->Detach();
  graveyard_.push_back(window);
  if (up_) wxWakeUpIdle();
}

wxTopLevelWindow* Screen::ActiveWindow() const {
  if (wxWindow* active = wxGetActiveWindow())
    if (auto* top = dynamic_cast<wxTopLevelWindow*>(wxGetTopLevelParent(active)); top && top->IsShown())
      return top;
  for (auto each = windows_.rbegin(); each != windows_.rend(); ++each)
    if ((*each)->IsShown() && (*each)->GetForm() && !(*each)->GetForm()->Floating) return *each;
  return nullptr;
}

void Screen::SetStopControl(controls::Control* control) {
  if (stop_ == control) return;
  // A click that came before the run's end is about that run, not about what the button does next.
  if (!control && up_) Yield(LetIn::StopControl);
  ReleaseStop();
  stop_ = control;
}

void Screen::ReleaseStop() {
  if (std::exchange(stopTaken_, false) && stop_) stop_->Touch();
}

bool Screen::AddTrayIcon(controls::Form& form, const std::string& picture, const std::string& tip) {
  if (tray_) return true;
  if (!up_ || !wxTaskBarIcon::IsAvailable()) return false;
  auto tray = std::make_unique<Tray>();
  tray->form = &form;
  // Trays are dark in most themes; the picture is readable on both.
  if (!tray->SetIcon(PictureBundle(picture, 24, DarkTheme()), ToWx(tip))) return false;
  tray->Bind(wxEVT_TASKBAR_LEFT_DCLICK, [this](wxTaskBarIconEvent&) {
    if (!tray_ || !tray_->form) return;
    controls::Form* target = tray_->form;
    Post(MakeWindow(*target), nullptr, [target] { target->TrayDoubleClick(); });
  });
  tray_ = std::move(tray);
  return true;
}

void Screen::SetBusy(bool busy) {
  if (busy == busy_ || !up_) return;
  busy_ = busy;
  if (busy)
    wxBeginBusyCursor();
  else
    wxEndBusyCursor();
}

}  // namespace view
