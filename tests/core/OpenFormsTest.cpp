// A form's way from loading to its end.
#include <gtest/gtest.h>

#include "core/Run.h"
#include "support/Session.h"

namespace {

struct Window : controls::Form {
  explicit Window(const char* name) : Form(name) { ++alive; }
  ~Window() override { --alive; }
  CONTROL(Button, cmdClose);
  static inline int alive = 0;
};

class OpenFormsTest : public ::testing::Test {
 protected:
  Window& Load(const char* name) {
    auto form = std::make_unique<Window>(name);
    Window& loaded = *form;
    loaded.Unload = [this, name](int&) { events += std::string("unload ") + name + ","; };
    core::LoadForm(std::move(form), [this, name] { events += std::string("released ") + name + ","; });
    return loaded;
  }
  // A main window whose unload is noted.
  frmMain& LoadMain() {
    auto form = std::make_unique<frmMain>();
    frmMain& loaded = *form;
    core::SetMainForm(&loaded);
    loaded.Unload = [this](int&) { events += "unload main,"; };
    core::LoadForm(std::move(form), [] { core::SetMainForm(nullptr); });
    return loaded;
  }
  test::TestComputer computer{{.layout = false}};
  test::SessionObjects session;
  std::string events;
};

TEST_F(OpenFormsTest, AFormThatClosesItselfLivesUntilItsHandlerHasReturned) {
  Window& first = Load("first");
  Load("second");
  core::ShowForm(first);
  first.cmdClose.Click = [&] {
    EXPECT_TRUE(core::CloseForm(first));
    EXPECT_FALSE(core::CloseForm(first)) << "it has closed";
    EXPECT_EQ(Window::alive, 2) << "its handler is still on the stack";
    EXPECT_EQ(core::OpenForms().size(), 1u);
  };
  first.cmdClose.Click();
  EXPECT_EQ(Window::alive, 1);
  EXPECT_EQ(events, "unload first,released first,");
  EXPECT_EQ(computer.desktop.windows, (test::Strings{"show first", "hide first", "forget first"}));
  core::CloseForm(*core::OpenForms().front());
  EXPECT_EQ(Window::alive, 0);
  EXPECT_EQ(computer.desktop.windows.back(), "quit") << "with the last form the program ends";
}

TEST_F(OpenFormsTest, BothEventsMayRefuse) {
  Window& form = Load("form");
  int asked = -1;
  form.QueryUnload = [&](int& cancel, int mode) {
    asked = mode;
    cancel = mode == 2 ? 0 : 1;
  };
  EXPECT_FALSE(core::CloseForm(form));
  EXPECT_EQ(asked, 0);
  form.Unload = [&](int& cancel) { cancel = 1; };
  core::CloseForm(form, 2);
  EXPECT_EQ(asked, 2);
  EXPECT_TRUE(core::IsLoaded(form));
}

TEST_F(OpenFormsTest, TheMainWindowUnloadsOnceNoRunAndNoHandlerIsOnTheStack) {
  frmMain& form = LoadMain();
  form.cmdScanComputerBrasmir.Click = [&] {
    {
      core::Run run(core::Running::ScanBrasmir, &form.cmdScanComputerBrasmir);
      EXPECT_TRUE(core::CloseForm(form, 2));
      EXPECT_TRUE(core::CloseForm(form, 2)) << "asked again";
      events += "run,";
    }
    EXPECT_TRUE(core::IsLoaded(form));
    events += "handler,";
  };
  form.cmdScanComputerBrasmir.Click();
  EXPECT_EQ(events, "run,handler,unload main,");
  EXPECT_FALSE(core::HasMainForm());
  EXPECT_TRUE(core::OpenForms().empty());
}

TEST_F(OpenFormsTest, AnotherWindowClosesInTheMiddleOfARun) {
  LoadMain();
  Window& other = Load("other");
  core::Run run(core::Running::ScanLumaro, nullptr);
  EXPECT_TRUE(core::CloseForm(other));
  EXPECT_EQ(events, "unload other,released other,");
}

}  // namespace
