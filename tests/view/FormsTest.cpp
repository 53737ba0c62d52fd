#include <gtest/gtest.h>
#include <memory>
#include <wx/button.h>
#include <wx/checkbox.h>
#include <wx/choice.h>
#include <wx/textctrl.h>

#include "ViewTest.h"

using play::driver::Click;
using play::driver::Find;
using play::driver::Press;
using play::driver::Type;
using play::driver::WaitFor;

namespace {
class Forms : public FormTest {};
}  // namespace

TEST_F(Forms, ADisabledOrHiddenControlTakesNoClick) {
  int clicks = 0;
  form.run.Click = [&] { ++clicks; };
  form.entry[1].Click = [&] { ++clicks; };
  form.run.Enabled = false;
  form.menu.Enabled = false;
  form.Open();
  ASSERT_TRUE(Click("run"));
  ASSERT_TRUE(Click("entry(1)"));
  LetAllArrive(form.other);
  EXPECT_EQ(clicks, 0);
  form.run.Enabled = true;
  form.menu.Enabled = true;
  form.run.Visible = false;
  WaitFor([&] { return Find("run") == nullptr; });
  ASSERT_TRUE(Click("entry(1)"));
  WaitFor([&] { return clicks == 1; });
}

TEST_F(Forms, TheUsersInputReachesTheData) {
  int checked = -1, picked = -1;
  form.check.Click = [&] { checked = form.check.Value; };
  form.combo.Click = [&] { picked = form.combo.ListIndex(); };
  form.Open();
  Click("check");
  WaitFor([&] { return checked == 1; });
  Click("text");
  Type("abc");
  WaitFor([&] { return form.text.Text.Get() == "abc"; });
  Find("combo")->SetFocus();
  Press(WXK_DOWN);
  WaitFor([&] { return Find("combo")->HasFocus(); });
  Press(WXK_RETURN);
  WaitFor([&] { return picked >= 0; });
  EXPECT_EQ(form.combo.Text(), form.combo.Items()[static_cast<std::size_t>(picked)]);
  Find("spin")->SetFocus();
  Press(WXK_UP);
  WaitFor([&] { return form.spin.Value == 2; });
}

TEST_F(Forms, TheProgramsChangesReachTheWidgetsAndRaiseNothing) {
  form.Open();
  int raised = 0;
  form.text.Change = [&] { ++raised; };
  form.text.Text = "from the program";
  form.combo.SetText("two");
  form.combo.Click = [&] { ++raised; };
  form.check.Value = 1;
  form.run.Caption = "Stop & go";
  WaitFor([&] { return static_cast<wxTextCtrl*>(Find("text"))->GetValue() == "from the program"; });
  EXPECT_EQ(static_cast<wxChoice*>(Find("combo"))->GetSelection(), 1);
  EXPECT_TRUE(static_cast<wxCheckBox*>(Find("check"))->GetValue());
  EXPECT_EQ(static_cast<wxButton*>(Find("run"))->GetLabelText(), "Stop & go");
  LetAllArrive(form.other);
  EXPECT_EQ(raised, 0);
}

TEST_F(Forms, ANameThatIsNoTextIsShownWithAReplacementSign) {
  form.text.Text = "a\xFFz";
  form.Open();
  EXPECT_EQ(static_cast<wxTextCtrl*>(Find("text"))->GetValue(), wxString::FromUTF8("a\xEF\xBF\xBDz"));
  EXPECT_EQ(form.text.Text.Get(), "a\xFFz");
}

TEST_F(Forms, EnterPressesWhatTheBoxNamesOrTheDefaultButton) {
  int links = 0, presets = 0;
  form.link.Click = [&] { ++links; };
  form.preset.Click = [&] { ++presets; };
  form.text.EnterPresses = &form.link;
  form.Open();
  Focus("text");
  Press(WXK_RETURN);
  WaitFor([&] { return links == 1; });
  EXPECT_EQ(presets, 0);
  Focus("check");
  Press(WXK_RETURN);
  WaitFor([&] { return presets == 1; });
  // A link that has the focus takes it for itself.
  Focus("link");
  Press(WXK_RETURN);
  WaitFor([&] { return links == 2; });
  Press(WXK_SPACE);
  WaitFor([&] { return links == 3; });
  EXPECT_EQ(presets, 1);
}

TEST_F(Forms, TheMenuAnswersKeysAndThePointer) {
  int clicked = -1, hovered = -1, left = 0;
  for (int i : form.entry.Indices()) {
    form.entry[i].Click = [&, i] { clicked = i; };
    form.entry[i].MouseMove = [&, i] { hovered = i; };
  }
  form.menu.MouseMove = [&] { ++left; };
  form.Open();
  Focus("entry(0)");
  Press(WXK_DOWN);
  WaitFor([] { return Find("entry(1)")->HasFocus(); });
  Press(WXK_UP);
  Press(WXK_UP);
  WaitFor([] { return Find("entry(2)")->HasFocus(); });
  Press(WXK_RETURN);
  WaitFor([&] { return clicked == 2; });
  play::driver::Hover("entry(1)");
  WaitFor([&] { return hovered == 1; });
  left = 0;
  play::driver::Hover("run");
  WaitFor([&] { return left > 0; });
}

TEST_F(Forms, OnlyTheFrontPageIsInSight) {
  form.Open();
  EXPECT_NE(Find("run"), nullptr);
  EXPECT_EQ(Find("away"), nullptr);
  Focus("run");
  form.ShowPage(form.second);
  WaitFor([] { return Find("away") && !Find("run"); });
  // The focus isn't left on a page that can't be seen.
  WaitFor([] { return Find("away")->HasFocus(); });
}

TEST_F(Forms, ClosingAsksAndEscapeClosesASecondaryWindow) {
  struct Secondary : controls::Form {
    CONTROL(Button, only);
    Secondary() : Form("Secondary") {
      Caption = "Secondary";
      SetLayout(controls::Column({only}).Padding(16));
    }
    ~Secondary() override { platform::CurrentDesktop().Forget(*this); }
  };
  int mode = -1, requests = 0;
  controls::Form* asked = nullptr;
  OnCloseRequest([&](controls::Form& closing, int unloadMode) {
    asked = &closing;
    mode = unloadMode;
    ++requests;
  });
  {
    form.Open();
    form.Window().Close();
    WaitFor([&] { return asked == &form; });
    EXPECT_EQ(mode, 0);
    EXPECT_TRUE(form.Window().IsShown());
    Press(WXK_ESCAPE);
    LetAllArrive(form.other);
    EXPECT_EQ(requests, 1);

    Secondary second;
    platform::CurrentDesktop().Show(second);
    WaitFor([&] { return view::Screen::Current()->WindowOf(second)->IsActive(); });
    Press(WXK_ESCAPE);
    WaitFor([&] { return asked == &second; });
  }
  OnCloseRequest(nullptr);
}

TEST_F(Forms, TextsThatChangeDoNotMoveTheirNeighbours) {
  form.Open();
  form.value.Caption = "100 %";
  WaitFor([] { return true; });
  view::Screen::Current()->Flush();
  wxRect bar = Find("bar")->GetScreenRect(), remove = Find("remove")->GetScreenRect(),
         list = Find("list")->GetScreenRect();
  for (const char* text : {"0 %", "7 %", "43 %", ""}) {
    form.value.Caption = text;
    form.status.Caption = std::string(400, *text ? 'x' : 'y') + text;
    view::Screen::Current()->Flush();
    EXPECT_EQ(Find("bar")->GetScreenRect(), bar) << text;
    EXPECT_EQ(Find("remove")->GetScreenRect(), remove) << text;
    EXPECT_EQ(Find("list")->GetScreenRect(), list) << text;
  }
}

TEST_F(Forms, WithoutATrayTheIconIsRefused) {
  form.Open();
  EXPECT_FALSE(TheDesktop().AddTrayIcon(form, "main-1-lumaro", "Lumaro"));
}

TEST_F(Forms, AFormMayGoInsideItsOwnHandler) {
  auto shortLived = std::make_unique<DemoForm>();
  bool gone = false;
  shortLived->run.Click = [&] {
    shortLived.reset();
    gone = true;
  };
  shortLived->Open();
  Click("run");
  WaitFor([&] { return gone; });
  EXPECT_EQ(Find("run"), nullptr);
}
