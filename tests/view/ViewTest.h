// What the tests of the view share.
#pragma once

#include <functional>
#include <gtest/gtest.h>

#include "DemoForm.h"
#include "view/WxDesktop.h"

view::WxDesktop& TheDesktop();
// The hooks of the application under test; null for none.
void OnEndSession(std::function<void()> action);
void OnCloseRequest(std::function<void(controls::Form&, int)> action);

inline void Focus(const char* control) {
  play::driver::Find(control)->SetFocus();
  play::driver::WaitFor([control] { return play::driver::Find(control)->HasFocus(); });
}

// Pumps the message loop so often that whatever was on its way has arrived: a click on `probe`, which is made
// last, comes after all that came before it.
inline void LetAllArrive(controls::Button& probe) {
  bool arrived = false;
  probe.Click = [&] { arrived = true; };
  play::driver::Click(probe.Name());
  play::driver::WaitFor([&] { return arrived; });
  probe.Click = nullptr;
}

class FormTest : public testing::Test {
 protected:
  DemoForm form;
};

class OpenFormTest : public FormTest {
 protected:
  OpenFormTest() { form.Open(); }
};
