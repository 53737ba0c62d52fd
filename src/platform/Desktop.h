// The person at the screen, as the program knows them: boxes, pickers, viewers, the pump, the pointer,
// windows.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace controls {
class Control;
class Form;
struct PopupMenu;
}  // namespace controls

namespace platform {

enum class BoxIcon { None, Critical, Exclamation, Information };
enum class BoxButtons { Ok, YesNo };
enum class BoxAnswer { Ok, Yes, No };

struct Box {
  BoxIcon icon = BoxIcon::None;
  BoxButtons buttons = BoxButtons::Ok;
  std::string title;
  std::string text;  // lines joined by CR LF
};

enum class Pointer { Default, Hourglass };

struct Size {
  int width = 0, height = 0;
};

// Nothing here raises. What shows a box or waits paints everything first.
class Desktop {
 public:
  virtual ~Desktop() = default;

  // System-modal. Escape answers No, or closes; for Yes and No the default is No where `text` asks about
  // removing, restoring or running, which is every such question of the program.
  virtual BoxAnswer MessageBox(const Box& box) = 0;
  // The text typed; an empty text also for a cancelled box.
  virtual std::string InputBox(const std::string& prompt, const std::string& title,
                               const std::string& defaultText) = 0;
  // Paths in the program's own form; empty if cancelled.
  virtual std::string BrowseForFolder() = 0;
  virtual std::string BrowseForFile() = 0;

  // Opens a file with its associated program: greater than 32 done; 2 no such file, 31 no association.
  virtual long OpenDocument(const std::string& path) = 0;
  // Shows a file's content in a window of our own; 0 done.
  virtual long ViewContent(const std::string& path) = 0;
  // Shows a folder in the desktop's file manager; 0 done.
  virtual long OpenFolder(const std::string& path) = 0;
  // Shows the properties of a file; non-zero done, 0 failed.
  virtual long ShowProperties(const std::string& path) = 0;

  // The pump. Each returns at once unless a frame is due (60 a second), and may be called for each of a
  // million items. DoEvents paints and lets all input in. Breathe paints and lets in clicks on the stop
  // control of the run in progress, nothing else. Refresh paints and lets nothing in.
  virtual void DoEvents() = 0;
  virtual void Breathe() = 0;
  virtual void Refresh(controls::Control& control) = 0;
  // Paints the whole window once.
  virtual void Refresh(controls::Form& form) = 0;
  // The control that Breathe lets clicks through to; null for none, once a click that waits has been let in.
  virtual void SetStopControl(controls::Control* control) = 0;
  virtual void Sleep(int milliseconds) = 0;

  virtual void SetPointer(Pointer pointer) = 0;
  // At the mouse's place. The choice comes through the form's MenuClick.
  virtual void ShowPopup(controls::Form& form, const controls::PopupMenu& menu) = 0;

  // Screen size in pixels, and the change of the display mode (the result is the system's own).
  virtual Size ScreenSize() = 0;
  virtual long SetScreenResolution(int width, int height) = 0;

  // Shows a form's window (not modal), making it where there is none, in front and active. Hide keeps it.
  virtual void Show(controls::Form& form) = 0;
  virtual void Hide(controls::Form& form) = 0;
  // To the front and with the focus, in its normal state if it was minimised.
  virtual void Activate(controls::Form& form) = 0;
  // Shows a form's window minimised, making it where there is none. A desktop that can't do that shows it.
  virtual void Minimise(controls::Form& form) { Show(form); }
  // Moves a form that places itself to its Position.
  virtual void Move(controls::Form& form) = 0;
  // The form is about to be destroyed: drops everything that knows it.
  virtual void Forget(controls::Form& form) = 0;
  // The tray icon of the program with its tip; the double click comes through the form's TrayDoubleClick.
  // False where no tray can be had. A second call while the icon is there adds nothing.
  virtual bool AddTrayIcon(controls::Form& form, const std::string& picture, const std::string& tip) = 0;
  // The program has nothing left to show: the message loop may end.
  virtual void Quit() = 0;
};

Desktop& CurrentDesktop();
void SetCurrentDesktop(Desktop* desktop);

}  // namespace platform
