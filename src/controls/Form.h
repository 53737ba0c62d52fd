// A window as data: its controls by name, its layout, its pages and its life's events.
#pragma once

#include <memory>
#include <string>
#include <string_view>
#include <unordered_map>
#include <utility>
#include <vector>

#include "controls/Layout.h"

namespace controls {

// A pop-up menu's design; positions count from 1 over all entries, separators included.
struct PopupMenu {
  struct Entry {
    std::string Caption;  // empty for a separator
    std::string Picture;  // file name of an icon, without size and extension
    char Mnemonic = '\0';
  };
  std::string Name;
  std::vector<Entry> Entries;
};

// 1440 twips are an inch, so this holds at 96 dpi; it stays the same on every display.
inline constexpr int kTwipsPerPixel = 15;

// Positions and sizes of a form that places itself, in twips.
struct Bounds {
  int Left = 0, Top = 0, Width = 0, Height = 0;
};

class Form {
 public:
  explicit Form(std::string name) : name_(std::move(name)) {}
  Form(const Form&) = delete;
  Form& operator=(const Form&) = delete;
  virtual ~Form() = default;

  const std::string& Name() const { return name_; }
  // The window's title.
  std::string Caption;
  controls::Skin skn;
  // What F1 opens, in the program's own path form; empty for nothing.
  std::string HelpFile;

  // Design, at 96 dpi.
  int DefaultWidth = 560, DefaultHeight = 420, MinWidth = 360, MinHeight = 240;
  bool Resizable = true;
  // Shown over all other windows, without a title bar or an entry in the task bar: the start-up cleaner's
  // box.
  bool Floating = false;
  // Used by a form that places itself; Width and Height 0 mean that the view decides.
  Bounds Position;

  // Takes the layout and enters every control in it under its name. Each control of the form stands in the
  // layout exactly once; a second control of the same name, or the same control again, is refused
  // (std::logic_error).
  void SetLayout(Layout layout);
  const Layout& GetLayout() const { return layout_; }

  Control* Find(std::string_view name) const;
  const std::vector<Control*>& Controls() const { return controls_; }

  // Pages: frames in a Stack. Showing a page makes it the current one; the others of its stack stay loaded.
  void ShowPage(Frame& page);
  Frame* CurrentPage() const { return page_; }

  // What the user does, as the view and the tests hand it in. Each does nothing and answers False while the
  // control, or what it lies in, is hidden or disabled, and for a control that lies on a page that isn't in
  // front.
  bool UserClick(Control& control);
  bool UserCheck(CheckBox& box, bool checked);
  bool UserType(TextBox& box, std::string text);
  bool UserPick(ComboBox& box, int index);
  bool UserType(ComboBox& box, std::string text);
  bool UserSpin(SpinBox& box, double value);
  bool UserSelect(ListView& list, int row);  // raises Click, as a click and an arrow key do
  bool UserTick(ListView& list, int row, bool checked);
  bool UserDoubleClick(ListView& list, int row);
  bool UserMouseDown(ListView& list, int row, MouseButton button);
  bool Reachable(const Control& control) const;

  // Raised when the form is loaded, before it is first shown.
  Event<> Load;
  // Raised each time that the form becomes the active window.
  Event<> Activate;
  // Raised before the form closes; a non-zero first argument refuses. The second is 0 for a close by the user
  // or the program and 2 when the session of the operating system ends.
  Event<int&, int> QueryUnload;
  // Raised when the form closes; a non-zero argument refuses.
  Event<int&> Unload;
  // The double click on the tray icon (main form only).
  Event<> TrayDoubleClick;
  // A choice in a pop-up: menu name, position from 1, caption.
  Event<std::string, int, std::string> MenuClick;

  bool Visible = false;

  // The form's timers, entered by the form itself; the view keeps them ticking while the window exists.
  std::vector<Timer*> Timers;

  // Changes since the view last took them.
  void NoteDirty(Control& control) { dirty_.push_back(&control); }
  // Hands over the list of marked controls and takes their marks off.
  std::vector<Control*> TakeDirty();
  // The current page has changed since this was last asked.
  bool TakePageChange() { return std::exchange(pageChanged_, false); }

  // The view's window for this form, opaque to everybody else.
  void* ViewData = nullptr;

 private:
  void Enter(Layout& layout, Control* parent, bool inStack);
  bool OnFrontPage(const Control& control) const;

  std::string name_;
  Layout layout_;
  std::vector<Control*> controls_;
  std::unordered_map<std::string_view, Control*> byName_;
  std::vector<const Control*> pages_;
  std::vector<Control*> dirty_;
  Frame* page_ = nullptr;
  bool pageChanged_ = false;
};

}  // namespace controls
