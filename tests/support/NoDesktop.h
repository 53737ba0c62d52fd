// A desktop for programs that run without a person: benchmarks and fuzzing.
#pragma once

#include "platform/Desktop.h"

namespace test {

// Nobody at the screen: every question is answered with `answer`, nothing can be opened, and nothing is
// shown.
class NoDesktop : public platform::Desktop {
 public:
  explicit NoDesktop(platform::BoxAnswer answer) : answer_(answer) {}

  platform::BoxAnswer MessageBox(const platform::Box&) override { return answer_; }
  std::string InputBox(const std::string&, const std::string&, const std::string&) override { return {}; }
  std::string BrowseForFolder() override { return {}; }
  std::string BrowseForFile() override { return {}; }
  long OpenDocument(const std::string&) override { return 2; }
  long ViewContent(const std::string&) override { return 2; }
  long OpenFolder(const std::string&) override { return 0; }
  long ShowProperties(const std::string&) override { return 0; }
  void DoEvents() override {}
  void Breathe() override {}
  void Refresh(controls::Control&) override {}
  void Refresh(controls::Form&) override {}
  void SetStopControl(controls::Control*) override {}
  void Sleep(int) override {}
  void SetPointer(platform::Pointer) override {}
  void ShowPopup(controls::Form&, const controls::PopupMenu&) override {}
  platform::Size ScreenSize() override { return {1920, 1080}; }
  long SetScreenResolution(int, int) override { return 0; }
  void Show(controls::Form&) override {}
  void Hide(controls::Form&) override {}
  void Activate(controls::Form&) override {}
  void Move(controls::Form&) override {}
  void Forget(controls::Form&) override {}
  bool AddTrayIcon(controls::Form&, const std::string&, const std::string&) override { return false; }
  void Quit() override {}

 private:
  platform::BoxAnswer answer_;
};

}  // namespace test
