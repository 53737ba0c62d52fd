// The desktop of a program that nobody sits before.
#pragma once

#include <functional>
#include <string>

#include "platform/Desktop.h"

namespace siblings {

// Shows nothing. Every question is answered Yes, every picker and input box is cancelled, nothing is opened.
class UnattendedDesktop : public platform::Desktop {
 public:
  // Called with each box, after it has been answered, with its answer.
  std::function<void(const platform::Box& box, platform::BoxAnswer answer)> onBox;
  // Called wherever a desktop lets input in, for each item of a run.
  std::function<void()> onPump;
  std::function<void(int milliseconds)> onSleep;

  platform::BoxAnswer MessageBox(const platform::Box& box) override;
  std::string InputBox(const std::string&, const std::string&, const std::string&) override { return {}; }
  std::string BrowseForFolder() override { return {}; }
  std::string BrowseForFile() override { return {}; }
  long OpenDocument(const std::string&) override { return 31; }  // the system's "no association"
  long ViewContent(const std::string&) override { return 1; }
  long OpenFolder(const std::string&) override { return 1; }
  long ShowProperties(const std::string&) override { return 0; }
  void DoEvents() override { Pump(); }
  void Breathe() override { Pump(); }
  void Refresh(controls::Control&) override {}
  void Refresh(controls::Form&) override {}
  void SetStopControl(controls::Control*) override {}
  void Sleep(int milliseconds) override;
  void SetPointer(platform::Pointer) override {}
  void ShowPopup(controls::Form&, const controls::PopupMenu&) override {}
  platform::Size ScreenSize() override { return {1024, 768}; }
  long SetScreenResolution(int, int) override { return -1; }
  void Show(controls::Form&) override {}
  void Hide(controls::Form&) override {}
  void Activate(controls::Form&) override {}
  void Move(controls::Form&) override {}
  void Forget(controls::Form&) override {}
  bool AddTrayIcon(controls::Form&, const std::string&, const std::string&) override { return false; }
  void Quit() override {}

 private:
  void Pump() {
    if (onPump) onPump();
  }
};

}  // namespace siblings
