// The window of one form, made from the form's layout.
#pragma once

#include <functional>
#include <memory>
#include <set>
#include <string>
#include <unordered_map>
#include <vector>
#include <wx/frame.h>
#include <wx/timer.h>

#include "view/ControlView.h"
#include "view/Screen.h"

namespace view {

class Band;

class FormWindow : public wxFrame {
 public:
  FormWindow(Screen& screen, controls::Form& form, wxTopLevelWindow* owner);
  ~FormWindow() override;

  // Null once the form has been forgotten.
  controls::Form* GetForm() const { return form_; }
  void Detach();

  // Brings what has changed to the widgets.
  void Flush();
  // Puts the window to the form's Position.
  void Place();
  void BringUp();

  // A user's action on a control; see Screen::Post.
  void Act(controls::Control& control, std::function<void()> action);
  void Click(controls::Control& control);
  bool LetsIn(const controls::Control& control) const { return form_ && screen_.LetsIn(control); }
  void RequestClose();

  // Lays out anew, with the next frame, what `window` stands in.
  void RequestLayout(wxWindow* window);
  // Visible as far as the control itself and its being the front page say.
  bool Shown(const controls::Control& control) const;

  ControlView* ViewOf(const controls::Control& control) const {
    return static_cast<ControlView*>(control.ViewData);
  }
  // The control that the window belongs to; null for none.
  ControlView* ViewAt(wxWindow* window) const;
  Screen& GetScreen() { return screen_; }

  // Used while the layout is being made.
  ControlView& Adopt(std::unique_ptr<ControlView> view);
  void AdoptPage(const controls::Control& page) { pages_.insert(&page); }
  void AdoptBand(Band& band) { band_ = &band; }
  void OnTheme(std::function<void()> action) { onTheme_.push_back(std::move(action)); }

 private:
  void Build();
  void SetFirstSize();
  void ShowFrontPage();
  void SyncTimers();
  void LayoutStale();
  void GrowToFit();
  void OnKey(wxKeyEvent& event);
  bool OnEnterKey(ControlView* focus);
  bool OnEscapeKey(ControlView* focus);
  bool OnHelpKey();
  bool OnMnemonic(int letter);
  void ThemeChanged();
  bool IsMain() const;

  struct Ticker;

  Screen& screen_;
  controls::Form* form_;
  std::vector<std::unique_ptr<ControlView>> views_;
  std::unordered_map<wxWindow*, ControlView*> byWindow_;
  std::set<const controls::Control*> pages_;
  std::set<wxWindow*> stale_;
  std::vector<std::unique_ptr<Ticker>> tickers_;
  std::vector<std::function<void()>> onTheme_;
  Band* band_ = nullptr;
  wxWindow* root_ = nullptr;
  bool placed_ = false;
};

}  // namespace view
