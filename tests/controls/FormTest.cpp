#include <gtest/gtest.h>
#include <memory>
#include <stdexcept>
#include <string>
#include <vector>

#include "controls/Form.h"

namespace {

using namespace controls;

struct TestForm : Form {
  CONTROL(Frame, fraFirst);
  CONTROL(Frame, fraSecond);
  CONTROL(Panel, pictMenu);
  CONTROL_ARRAY(Label, lblMenu, 0, 2);
  CONTROL(Button, cmdRun);
  CONTROL(CheckBox, chkOption);
  CONTROL(ComboBox, cboKind);
  CONTROL(TextBox, txtName);
  CONTROL(SpinBox, spnTimes);
  CONTROL(ListView, lvwRows);
  CONTROL(Button, cmdSecond);

  TestForm() : Form("TestForm") {
    lvwRows.CheckBoxes = true;
    SetLayout(Row({Contain(pictMenu, Column({lblMenu[0], lblMenu[2]})),
                   Stack({Contain(fraFirst, Column({cmdRun, chkOption, cboKind, txtName, spnTimes, lvwRows})),
                          Contain(fraSecond, Column({cmdSecond}))})}));
  }
};

// Every way of the user to a control, each answering whether it was let in.
std::vector<bool> TryEverything(TestForm& form) {
  return {form.UserClick(form.cmdRun),
          form.UserCheck(form.chkOption, true),
          form.UserPick(form.cboKind, 0),
          form.UserType(form.txtName, "x"),
          form.UserSpin(form.spnTimes, 3),
          form.UserSelect(form.lvwRows, 1),
          form.UserTick(form.lvwRows, 1, true),
          form.UserDoubleClick(form.lvwRows, 1),
          form.UserMouseDown(form.lvwRows, 1, MouseButton::Right)};
}

TEST(FormTest, LetsTheUserToVisibleEnabledControlsOfTheFrontPageOnly) {
  TestForm form;
  form.cboKind.AddItem("a");
  form.lvwRows.AddRow("row", 1);
  int raised = 0;
  auto count = [&raised] { ++raised; };
  for (auto* event : {&form.cmdRun.Click, &form.chkOption.Click, &form.cboKind.Click, &form.txtName.Change,
                      &form.lvwRows.Click, &form.lvwRows.DblClick})
    *event = count;
  form.lvwRows.ItemCheck = [&](int) { count(); };
  form.lvwRows.MouseDown = [&](MouseButton) { count(); };
  const std::vector<bool> refused(9, false), taken(9, true);

  form.fraFirst.Enabled = false;
  EXPECT_EQ(TryEverything(form), refused);
  form.fraFirst.Enabled = true;
  form.fraFirst.Visible = false;
  EXPECT_EQ(TryEverything(form), refused);
  form.fraFirst.Visible = true;
  form.ShowPage(form.fraSecond);
  EXPECT_EQ(TryEverything(form), refused);
  EXPECT_TRUE(form.UserClick(form.cmdSecond));
  EXPECT_TRUE(form.UserClick(form.lblMenu[0])) << "outside the stack";
  form.ShowPage(form.fraFirst);
  EXPECT_EQ(raised, 0);
  EXPECT_EQ(form.txtName.Text, "");
  EXPECT_EQ(form.lvwRows.SelectedIndex(), 0);

  EXPECT_EQ(TryEverything(form), taken);
  EXPECT_EQ(raised, 8);
  EXPECT_EQ(form.chkOption.Value, 1);
  EXPECT_EQ(form.spnTimes.Value, 3);
  EXPECT_TRUE(form.lvwRows.Checked(1));

  form.pictMenu.Enabled = false;
  EXPECT_FALSE(form.UserClick(form.lblMenu[2]));
  form.txtName.ReadOnly = true;
  EXPECT_FALSE(form.UserType(form.txtName, "y"));
  EXPECT_FALSE(form.UserType(form.cboKind, "typed")) << "a box that isn't editable";
}

TEST(FormTest, GathersEachChangedControlOnce) {
  TestForm form;
  form.TakeDirty();
  form.cmdRun.Caption = "Run";
  form.cmdRun.Caption = "Stop";
  form.cmdRun.Enabled = true;  // is so already
  form.lvwRows.AddRow("row", 1);
  EXPECT_EQ(form.TakeDirty(), (std::vector<Control*>{&form.cmdRun, &form.lvwRows}));
  EXPECT_TRUE(form.TakeDirty().empty());
  form.cmdRun.Caption = "Run";
  EXPECT_EQ(form.TakeDirty(), (std::vector<Control*>{&form.cmdRun}));
}

TEST(CheckBoxTest, RaisesItsClickOncePerChangeWhoeverMakesIt) {
  TestForm form;
  std::vector<int> seen;
  form.chkOption.Click = [&] { seen.push_back(form.chkOption.Value); };
  form.chkOption.Value = 0;  // is so already
  EXPECT_FALSE(form.chkOption.Assigned());
  EXPECT_TRUE(seen.empty());
  form.chkOption.Value = 1;
  EXPECT_TRUE(form.chkOption.Assigned());
  form.UserClick(form.chkOption);
  form.UserCheck(form.chkOption, false);  // is so already
  EXPECT_EQ(seen, (std::vector<int>{1, 0}));
}

TEST(ComboBoxTest, ClicksOnEverySelectionAndOnNoTyping) {
  TestForm form;
  ComboBox& combo = form.cboKind;
  int clicks = 0;
  combo.Click = [&] { ++clicks; };
  combo.AddItem("Garbage files");
  combo.AddItem("Zero byte files");
  for (int index : {1, 1, 2, -1}) combo.SetListIndex(index);
  EXPECT_EQ(clicks, 2) << "for the present item too, and for none that isn't there";
  EXPECT_EQ(combo.Text(), "Zero byte files");
  combo.SetText("Garbage files");
  EXPECT_EQ(combo.ListIndex(), 0);
  combo.SetText("garbage files");
  EXPECT_EQ(combo.ListIndex(), -1) << "items compare exactly";
  combo.Clear();
  combo.Editable = true;
  EXPECT_TRUE(form.UserType(combo, "New category"));
  EXPECT_EQ(combo.Text(), "New category");
  EXPECT_EQ(clicks, 2);
}

TEST(EventTest, SurvivesAHandlerThatDestroysItsForm) {
  auto form = std::make_unique<TestForm>();
  std::string after;
  form->cmdRun.Click = [&form, text = std::string("a text of the handler's own, beyond any small buffer"),
                        &after] {
    form.reset();
    after = text;
  };
  form->cmdRun.Click();
  EXPECT_EQ(form, nullptr);
  EXPECT_EQ(after, "a text of the handler's own, beyond any small buffer");
}

TEST(EventTest, TellsRestOnceTheOutermostHandlerHasReturned) {
  TestForm form;
  int rests = 0;
  EventDepth::AtRest = [&] { ++rests; };
  form.cmdSecond.Click = [&] { EXPECT_FALSE(EventDepth::Resting()); };
  form.cmdRun.Click = [&] {
    form.cmdSecond.Click();
    EXPECT_EQ(rests, 0);
  };
  form.cmdRun.Click();
  EventDepth::AtRest = nullptr;
  EXPECT_EQ(rests, 1);
  EXPECT_TRUE(EventDepth::Resting());
}

}  // namespace
