// The person at the screen, as a script of answers and a record of all that was shown.
#pragma once

#include <deque>
#include <functional>
#include <string>
#include <vector>

#include "controls/Form.h"
#include "platform/Desktop.h"

namespace test {

// Boxes are recorded as "kind|title|text", word for word, lines joined by CR LF. The kind is "none",
// "critical", "exclamation" or "information", with a "?" behind it for a box with Yes and No:
// "exclamation?|Confirm...|Sure?". Input boxes are recorded as "input|title|prompt|default".
//
// A box with OK alone is always answered. A question, an input box or a picker that the script has no answer
// for is answered No or with an empty text and recorded in `unexpected` as well, so that a test can say that
// none came.
class ScriptedDesktop : public platform::Desktop {
 public:
  // The script. Answers are used up in their order, each by the next question; a rule answers every question
  // whose record holds `part`, once the queue is empty.
  void Answer(platform::BoxAnswer answer) { answers_.push_back(answer); }
  void AnswerAlways(const std::string& part, platform::BoxAnswer answer) { rules_.push_back({part, answer}); }
  // For input boxes and both pickers.
  void Type(const std::string& text) { texts_.push_back(text); }
  void PickFolder(const std::string& path) { folders_.push_back(path); }
  void PickFile(const std::string& path) { files_.push_back(path); }
  // Forgets the script and the record.
  void Clear();

  // What the desktop's other operations answer.
  long openDocumentResult = 33, viewContentResult = 0, openFolderResult = 0, propertiesResult = 1;
  platform::Size screenSize{1920, 1080};
  long setResolutionResult = 0;
  bool trayIsThere = true;
  // A form that is shown or activated becomes the active window and hears so.
  bool raiseActivate = true;

  // Called at each pump with its running number, from 1; so a test can click Stop at the n-th.
  std::function<void(long)> onDoEvents, onBreathe;
  // Called after a box has been recorded and before it is answered.
  std::function<void(const std::string& record)> onBox;
  // Called in each Sleep.
  std::function<void(int milliseconds)> onSleep;

  // The record.
  std::vector<std::string> boxes;
  std::vector<std::string> unexpected;
  // "document C:\...", "content C:\...", "folder C:\...", "properties C:\...", in their order.
  std::vector<std::string> opened;
  std::vector<platform::Pointer> pointers;
  platform::Pointer pointer = platform::Pointer::Default;
  // Names of the controls and forms that were repainted, the latest 100,000.
  std::deque<std::string> refreshed;
  std::vector<int> sleeps;
  // "show frmX", "hide frmX", "activate frmX", "minimise frmX", "move frmX", "forget frmX", "tray
  // picture|tip", "quit", in their order.
  std::vector<std::string> windows;
  // "frmMain.mnuResults".
  std::vector<std::string> popups;
  std::vector<platform::Size> resolutions;
  controls::Control* stopControl = nullptr;
  long doEvents = 0, breathes = 0;

  // How often a record holds `part`.
  int CountBoxes(const std::string& part) const;
  bool WasRefreshed(const std::string& name) const;

  platform::BoxAnswer MessageBox(const platform::Box& box) override;
  std::string InputBox(const std::string& prompt, const std::string& title,
                       const std::string& defaultText) override;
  std::string BrowseForFolder() override;
  std::string BrowseForFile() override;
  long OpenDocument(const std::string& path) override;
  long ViewContent(const std::string& path) override;
  long OpenFolder(const std::string& path) override;
  long ShowProperties(const std::string& path) override;
  void DoEvents() override;
  void Breathe() override;
  void Refresh(controls::Control& control) override;
  void Refresh(controls::Form& form) override;
  void SetStopControl(controls::Control* control) override { stopControl = control; }
  void Sleep(int milliseconds) override;
  void SetPointer(platform::Pointer pointer) override;
  void ShowPopup(controls::Form& form, const controls::PopupMenu& menu) override;
  platform::Size ScreenSize() override { return screenSize; }
  long SetScreenResolution(int width, int height) override;
  void Show(controls::Form& form) override;
  void Hide(controls::Form& form) override;
  void Activate(controls::Form& form) override;
  void Minimise(controls::Form& form) override;
  void Move(controls::Form& form) override;
  void Forget(controls::Form& form) override;
  bool AddTrayIcon(controls::Form& form, const std::string& picture, const std::string& tip) override;
  void Quit() override;

 private:
  struct Rule {
    std::string part;
    platform::BoxAnswer answer;
  };
  std::string Take(std::deque<std::string>& script, const std::string& what);
  void NoteRefresh(const std::string& name);

  std::deque<platform::BoxAnswer> answers_;
  std::vector<Rule> rules_;
  std::deque<std::string> texts_, folders_, files_;
};

}  // namespace test
