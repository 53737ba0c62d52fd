// The person at the screen, on real windows.
#pragma once

#include <chrono>
#include <functional>
#include <memory>
#include <string>

#include "platform/CoarseClock.h"
#include "platform/Desktop.h"

namespace view {

class Screen;

// What the windows need from outside.
struct Surroundings {
  // Native path of the folder that holds 16, 24, 32, 48 and dark/ with the program's pictures.
  std::string pictures;
  // Between the program's paths ("C:\...") and the system's own. Each gives an empty text where there is no
  // such path.
  std::function<std::string(const std::string&)> toNative;
  std::function<std::string(const std::string&)> fromNative;
  // Native path of the folder that the pickers start in; empty for the system's own choice.
  std::string browseRoot;
  // The user wants a form closed (mode 0), or it is to close because the session ends (mode 2).
  std::function<void(controls::Form& form, int unloadMode)> closeRequest;
};

// One at a time, made before RunApplication is called and kept until it has returned. Windows can be shown
// only in between.
class WxDesktop : public platform::Desktop {
 public:
  explicit WxDesktop(Surroundings surroundings);
  ~WxDesktop() override;
  WxDesktop(const WxDesktop&) = delete;
  WxDesktop& operator=(const WxDesktop&) = delete;

  platform::BoxAnswer MessageBox(const platform::Box& box) override;
  std::string InputBox(const std::string& prompt, const std::string& title,
                       const std::string& defaultText) override;
  // A folder or file that lies on none of the computer's drives is refused with a box.
  std::string BrowseForFolder() override;
  std::string BrowseForFile() override;

  long OpenDocument(const std::string& path) override;
  long ViewContent(const std::string& path) override;
  long OpenFolder(const std::string& path) override;
  long ShowProperties(const std::string& path) override;

  void DoEvents() override {
    if (FrameIsDue()) Yield(true);
  }
  void Breathe() override {
    if (FrameIsDue()) Yield(false);
  }
  void Refresh(controls::Control& control) override;
  void Refresh(controls::Form& form) override;
  void SetStopControl(controls::Control* control) override;
  void Sleep(int milliseconds) override;

  void SetPointer(platform::Pointer pointer) override;
  void ShowPopup(controls::Form& form, const controls::PopupMenu& menu) override;

  platform::Size ScreenSize() override;
  // Changing the display mode is left to the system's own settings: -1, as for a mode that can't be set.
  long SetScreenResolution(int width, int height) override;

  void Show(controls::Form& form) override;
  void Hide(controls::Form& form) override;
  void Activate(controls::Form& form) override;
  void Minimise(controls::Form& form) override;
  void Move(controls::Form& form) override;
  void Forget(controls::Form& form) override;
  bool AddTrayIcon(controls::Form& form, const std::string& picture, const std::string& tip) override;
  void Quit() override;

  Screen& GetScreen() { return *screen_; }

 private:
  bool FrameIsDue() const { return platform::CoarseNow() >= *nextFrame_; }
  void Yield(bool allInput);

  std::unique_ptr<Screen> screen_;
  // When the next frame may be painted; lies in the screen.
  const std::chrono::steady_clock::time_point* nextFrame_;
};

}  // namespace view
