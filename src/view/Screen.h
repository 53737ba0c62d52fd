// All windows of the program, and the order in which the user's actions reach them.
#pragma once

#include <chrono>
#include <deque>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <vector>
#include <wx/timer.h>
#include <wx/toplevel.h>

#include "view/WxDesktop.h"

namespace view {

class FormWindow;
class Tray;

// Whom the pump lets in at this moment.
enum class LetIn {
  All,          // the message loop, or a run that yields to it
  StopControl,  // a run that only breathes
  Nothing,      // a box waits for its answer
};

class Screen {
 public:
  using Clock = std::chrono::steady_clock;

  explicit Screen(Surroundings surroundings);
  ~Screen();

  // The screen that lives now; null if none does.
  static Screen* Current();

  // The toolkit is up; it is about to go.
  void Begin(std::function<void()> endSession);
  void End();
  // Runs `start` as the program's first action.
  bool Start(const std::function<bool()>& start);

  const Surroundings& Around() const { return around_; }
  const Clock::time_point& NextFrame() const { return nextFrame_; }
  // When a single control may be repainted at once again.
  const Clock::time_point& NextPaint() const { return nextPaint_; }

  // A user's action on `control` of the window's form (null for one of the form as a whole). It runs from a
  // clean stack, in the order of posting, as soon as the pump lets it in: in the message loop, in DoEvents,
  // or, on the stop control, in Breathe. An action on a form that is forgotten meanwhile is dropped.
  void Post(FormWindow& window, controls::Control* control, std::function<void()> action);
  // For what can't wait (text being typed): may it be delivered now?
  bool LetsIn(const controls::Control& control) const;
  void RunPosted();

  // A frame for all windows, and then what waits in the queue.
  void Yield(LetIn who);
  // Brings changed data to the widgets; PaintAll also puts them on the screen before it returns.
  void Flush();
  void PaintAll();
  void Paint(FormWindow& window);
  void Idle();

  FormWindow* WindowOf(const controls::Form& form) const;
  FormWindow& MakeWindow(controls::Form& form);
  // Detaches the window and keeps it until no action is on the stack.
  void Forget(controls::Form& form);
  const std::vector<FormWindow*>& Windows() const { return windows_; }
  // The active window where it is visible, or another visible one; null if none is.
  wxTopLevelWindow* ActiveWindow() const;

  // A handler is on the stack, and this frame needn't be the last word.
  bool InRun() const { return running_ > 0 && !complete_; }

  void SetStopControl(controls::Control* control);
  controls::Control* StopControl() const { return stop_; }
  // The stop control has been pressed, and what it stops hasn't ended yet.
  bool StopTaken(const controls::Control& control) const { return stopTaken_ && &control == stop_; }

  // Holds the pump in another state for its lifetime.
  class Scope {
   public:
    Scope(Screen& screen, LetIn who) : screen_(screen), before_(screen.who_) { screen.who_ = who; }
    ~Scope() { screen_.who_ = before_; }
    Scope(const Scope&) = delete;
    Scope& operator=(const Scope&) = delete;

   private:
    Screen& screen_;
    LetIn before_;
  };

  // The place of the next pop-up where the keyboard has asked for it.
  std::optional<wxPoint> popupPlace;

  bool AddTrayIcon(controls::Form& form, const std::string& picture, const std::string& tip);
  void SetBusy(bool busy);
  void Quit() { quit_ = true; }
  // Boxes answer themselves from now on.
  bool Ending() const { return ending_; }
  // The session goes on after all.
  void ContinueSession() { ending_ = false; }

 private:
  struct Action {
    FormWindow* window;
    controls::Control* control;
    std::function<void()> run;
  };

  void Run(Action action);
  void EndSession();
  void ReleaseStop();

  Surroundings around_;
  std::function<void()> endSession_;
  std::vector<FormWindow*> windows_;
  std::vector<FormWindow*> graveyard_;
  std::deque<Action> posted_;
  std::unique_ptr<Tray> tray_;
  std::unique_ptr<wxTimer> frameTimer_;
  LetIn who_ = LetIn::All;
  int running_ = 0;  // actions on the stack
  controls::Control* stop_ = nullptr;
  bool stopTaken_ = false;
  bool complete_ = false;  // the frame before a box or a wait shows everything
  bool ends_ = false;      // the end of the session is being handled
  bool busy_ = false, quit_ = false, ending_ = false, up_ = false;
  // A frame that only painted doesn't put off the one that lets input in, or a run that repaints at each step
  // would never hear of a click.
  Clock::time_point nextFrame_{}, nextPaint_{};
};

}  // namespace view
