// All tests of the view run inside the message loop of one application.
#include <cstring>
#include <functional>
#include <gtest/gtest.h>

#include "ViewTest.h"
#include "view/Application.h"

namespace {
std::function<void()> onEndSession;
std::function<void(controls::Form&, int)> onCloseRequest;
view::WxDesktop* desktop = nullptr;
}  // namespace

void OnEndSession(std::function<void()> action) {
  onEndSession = std::move(action);
}
void OnCloseRequest(std::function<void(controls::Form&, int)> action) {
  onCloseRequest = std::move(action);
}
view::WxDesktop& TheDesktop() {
  return *desktop;
}

int main(int argc, char** argv) {
  testing::InitGoogleTest(&argc, argv);
  if (testing::GTEST_FLAG(list_tests)) return RUN_ALL_TESTS();
  view::Surroundings around;
  around.closeRequest = [](controls::Form& form, int mode) {
    if (onCloseRequest) onCloseRequest(form, mode);
  };
  around.toNative = [](const std::string&) { return std::string(); };
  around.fromNative = around.toNative;
  view::WxDesktop made(around);
  desktop = &made;
  platform::SetCurrentDesktop(&made);
  int result = 1;
  int code = view::RunApplication(
      argc, argv,
      [&] {
        result = RUN_ALL_TESTS();
        return false;
      },
      [] {
        if (onEndSession) onEndSession();
      });
  return code != 0 ? code : result;
}
